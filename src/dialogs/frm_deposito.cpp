#include "dialogs/frm_deposito.h"

#include "core/report.h"
#include "core/statement.h"

namespace cuvexa::dialogs {

frmDeposito::frmDeposito(Module& module)
    : Form(module, "frmDeposito", "Depósito a banco"),
      Label1(*this, "Label1", "CUENTA DE BANCO", "Cuenta de banco:"),
      txt_Bc_Cve_Banco_Cuenta(*this, "txt_Bc_Cve_Banco_Cuenta"),
      txt_Bc_Descripcion(*this, "txt_Bc_Descripcion"),
      chkFirme(*this, "chkFirme", "Depósito en firme"),
      // The same name of text as the account's label: the suite's texts know it so.
      Etiqueta1(*this, "Etiqueta1", "CUENTA DE BANCO", "Fecha firme:"),
      dpFecha(*this, "dpFecha") {
    txt_Bc_Cve_Banco_Cuenta.idconsulta = "BANCO_CUENTA";
    txt_Bc_Cve_Banco_Cuenta.esclave = true;
    txt_Bc_Cve_Banco_Cuenta.mayusculas = true;
    txt_Bc_Cve_Banco_Cuenta.tabonenter = true;
    txt_Bc_Cve_Banco_Cuenta.tabonentercancel = true;
    txt_Bc_Cve_Banco_Cuenta.sql_columna = "Bc_Descripcion";
    txt_Bc_Cve_Banco_Cuenta.sql_control_resultado = "txt_Bc_Descripcion";
    txt_Bc_Cve_Banco_Cuenta.font = "Fixedsys";
    txt_Bc_Cve_Banco_Cuenta.GotFocus = [this] { txt_Bc_Cve_Banco_Cuenta_GotFocus(); };
    txt_Bc_Descripcion.Locked(true);
    chkFirme.Click = [this] { chkFirme_Click(); };
    dpFecha.Enabled(false);
    buttons_.B1Click = [this] { Controles_B1Click(); };
    buttons_.B2Click = [this] { hide(); };

    rows_ = {{&Label1, &txt_Bc_Cve_Banco_Cuenta, &txt_Bc_Descripcion},
             {nullptr, &chkFirme, nullptr},
             {&Etiqueta1, &dpFecha, nullptr}};
    // The round starts at the account, where the cashier starts; the buttons close it.
    tab_order_ = {&txt_Bc_Cve_Banco_Cuenta, &txt_Bc_Descripcion, &chkFirme, &dpFecha, &buttons_.b1, &buttons_.b2};
    Form_Load();
}

void frmDeposito::Form_Load() {
    dpFecha.Value(module().data().GetServerDate());
    txt_Bc_Cve_Banco_Cuenta.formato = module().text_parameter("FTO_BANCO_CUENTA");
}

void frmDeposito::prepare(int firm) {
    calendar(FechaDeposito);  // what is no date must not reach the picker
    dpFecha.Value(FechaDeposito);
    chkFirme.Value(firm != 0 ? 1 : 0);
}

void frmDeposito::chkFirme_Click() {
    const bool firm = chkFirme.Value() == 1;
    dpFecha.Enabled(firm);
    if (!firm) dpFecha.Value(FechaDeposito);  // a date that nobody can see to be in force must not be returned
}

void frmDeposito::txt_Bc_Cve_Banco_Cuenta_GotFocus() {
    reporting(module(), "txt_Bc_Cve_Banco_Cuenta_GotFocus()", "ERR-ID:7500011", [this] {
        auto& field = txt_Bc_Cve_Banco_Cuenta;
        std::string validation = part(
                                     "SELECT Bc_Descripcion FROM Banco_Cuenta "
                                     " WHERE Mn_Cve_Moneda = '{}' AND "
                                     "  Bc_Cve_Banco_Cuenta = '?' AND Es_Cve_Estado <> 'BA' ",
                                     Mn_Cve_Moneda)
                                     .text();
        field.conditions = {part("Banco_Cuenta.Mn_Cve_Moneda = '{}'", Mn_Cve_Moneda).text()};
        if (!Em_Cve_Empresa.empty()) {
            validation += part(" AND (Em_Cve_Empresa = '{}' OR Bc_MultiEmpresa = 'SI')", Em_Cve_Empresa).text();
            field.conditions.push_back(
                part("(Empresa.Em_Cve_Empresa = '{}' OR Bc_MultiEmpresa = 'SI')", Em_Cve_Empresa).text());
        }
        field.sql(validation);
    });
}

void frmDeposito::Controles_B1Click() {
    const std::string routine = "Controles_B1Click()";
    if (txt_Bc_Cve_Banco_Cuenta.Text().empty()) {
        report("La cuenta de banco es indispensable para continuar!", routine, "ERR-ID:7500009");
        return;
    }
    if (day_of(dpFecha.Value()) < day_of(FechaDeposito)) {
        report("La fecha de firme no puede ser menor a la fecha de depósito!!!", routine, "ERR-ID:7500010");
        return;
    }
    accept();
}

std::string frmDeposito::answer() {
    return filled("{}|{}|{}", txt_Bc_Cve_Banco_Cuenta.Text(), module().data().SqlDate(dpFecha.Value()),
                  chkFirme.Value());
}

}  // namespace cuvexa::dialogs
