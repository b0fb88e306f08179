#include "dialogs/frm_forma_pago.h"

#include <cstdint>

#include "core/codes.h"
#include "core/number_text.h"
#include "core/query.h"
#include "core/report.h"
#include "core/text.h"

namespace cuvexa::dialogs {
namespace {

/// The banks that the document's accounts are held at.
constexpr const char* document_banks_title = "Bancos del documento";

}  // namespace

frmFormaPago::frmFormaPago(Module& module)
    : Form(module, "frmFormaPago", "Datos de la forma de pago"),
      Frame1(*this, "Frame1"),
      Etiqueta1(*this, "Etiqueta1", "SUCURSAL", "Sucursal:"),
      txtSucursal(*this, "txtSucursal"),
      Label7(*this, "Label7", "CUENTA", "Cuenta:"),
      txtCuenta(*this, "txtCuenta"),
      Etiqueta2(*this, "Etiqueta2", "REFERENCIA", "Referencia:"),
      txtReferencia(*this, "txtReferencia"),
      Etiqueta4(*this, "Etiqueta4", "BANCO", "Banco"),
      txtBanco(*this, "txtBanco"),
      txtNBanco(*this, "txtNBanco"),
      lbTabla(*this, "lbTabla", "TABLA", ""),
      txtDocumento(*this, "txtDocumento"),
      Etiqueta3(*this, "Etiqueta3", "Forma de pago", "Forma de pago:"),
      txtFormaPago(*this, "txtFormaPago"),
      txtnFormaPago(*this, "txtnFormaPago"),
      Etiqueta5(*this, "Etiqueta5", "METODO PAGO SAT", "Método pago SAT:"),
      lbInfo(*this, "lbInfo", "", "Banco: {SHIFT} + {F2} para ver la lista completa de bancos") {
    buttons_.caption = Caption();
    txtBanco.idconsulta = "BANCO";
    txtBanco.sql("SELECT Bn_Descripcion FROM Banco WHERE Bn_Cve_Banco = '?' AND Es_Cve_Estado <> 'BA'");
    txtBanco.sql_columna = "Bn_Descripcion";
    txtBanco.sql_control_resultado = "txtNBanco";
    txtBanco.GotFocus = [this] { txtBanco_GotFocus(); };
    txtBanco.Enter = [this] { txtBanco_Enter(); };
    txtBanco.KeyDown = [this](int code, bool shift) {
        if (code == key_f2 && shift) txtBanco.search.reset();  // the full catalogue again
    };
    txtNBanco.TabStop = false;  // filled by the bank
    txtDocumento.Locked(true);
    txtFormaPago.Locked(true);
    txtFormaPago.idconsulta = "FORMA_PAGO";
    txtFormaPago.sql("SELECT Fp_Descripcion FROM Forma_Pago WHERE Fp_Cve_Forma_Pago = '?' AND Es_Cve_Estado <> 'BA'");
    txtFormaPago.sql_columna = "Fp_Descripcion";
    txtFormaPago.sql_control_resultado = "txtNFormaPago";
    txtnFormaPago.Locked(true);
    buttons_.B1Click = [this] { Controles_B1Click(); };
    buttons_.B2Click = [this] { hide(); };

    rows_ = {{&lbTabla, &txtDocumento, nullptr},    {&Etiqueta3, &txtFormaPago, &txtnFormaPago},
             {nullptr, &Etiqueta5, nullptr},        {&Etiqueta4, &txtBanco, &txtNBanco},
             {&Etiqueta1, &txtSucursal, nullptr},   {&Label7, &txtCuenta, nullptr},
             {&Etiqueta2, &txtReferencia, nullptr}, {nullptr, &lbInfo, nullptr}};
    tab_order_ = {&txtBanco, &txtNBanco, &txtSucursal, &txtCuenta, &txtReferencia, &buttons_.b1, &buttons_.b2};
    Form_Load();
}

void frmFormaPago::Form_Load() {
    txtBanco.formato = module().text_parameter("FTO_BANCO");
    txtFormaPago.formato = module().text_parameter("FTO_FORMA_PAGO");
}

bool frmFormaPago::Mostrar(const std::string& FormaPago) {
    bool ready = false;
    reporting(module(), "Mostrar()", "ERR-ID:7500008", [&] {
        auto method = query(module(),
                            "SELECT "
                            "   Forma_Pago.Fp_Descripcion, "
                            "   Forma_Pago.Fp_Requiere_Banco, "
                            "   Forma_Pago.Fp_Requiere_Referencia,"
                            "   Forma_Pago.Fp_Requiere_Cuenta, "
                            "   Forma_Pago.Fp_Metodo_Pago_SAT, "
                            "   Forma_Pago.Es_Cve_Estado  "
                            "FROM Forma_Pago "
                            "WHERE "
                            "   Forma_Pago.Fp_Cve_Forma_Pago = '{}'",
                            FormaPago);
        if (method.text("Es_Cve_Estado") == state::retired) {
            report("La forma de pago está dada de baja!", "Mostrar()", "ERR-ID:7500007");
            return;
        }
        requires_bank_ = method.text("Fp_Requiere_Banco") == "SI";
        requires_reference_ = method.text("Fp_Requiere_Referencia") == "SI";
        requires_account_ = method.text("Fp_Requiere_Cuenta") == "SI";
        lbTabla.caption(Dcb_Tabla);
        txtDocumento.Text(Dcb_Documento);
        txtFormaPago.Text(FormaPago);
        txtFormaPago.validate();
        Etiqueta5.caption("Método pago SAT: " + method.text("Fp_Metodo_Pago_SAT"));
        txtBanco.Enabled(requires_bank_);
        txtNBanco.Enabled(requires_bank_);
        txtReferencia.Enabled(requires_reference_);
        txtCuenta.Enabled(requires_account_);
        ready = true;
    });
    return ready;
}

void frmFormaPago::fill_in(const std::string& Banco, const std::string& Referencia, const std::string& Cuenta,
                           const std::string& nBanco) {
    txtBanco.Text(Banco);
    if (!Banco.empty() && nBanco.empty()) {
        txtBanco.validate();
    } else {
        txtNBanco.Text(nBanco);
    }
    txtReferencia.Text(Referencia);
    txtCuenta.Text(Cuenta);
}

// ---- Bank and account ----------------------------------------------------------------------------------------------

void frmFormaPago::txtBanco_GotFocus() {
    if (!has_document()) return;
    reporting(module(), "txtBanco_Enter()", "ERR-ID:7500006", [this] {
        auto known = query(module(),
                           "SELECT COUNT(Dcb_Id) as Cuentas "
                           "FROM Documento_Cuenta_Bancaria "
                           "WHERE Dcb_Tabla = '{}' AND "
                           "   Dcb_Documento = '{}' AND "
                           "   Dcb_Banco <> '' ",
                           Dcb_Tabla, Dcb_Documento);
        if (known.number("Cuentas") <= 0) return;
        txtBanco.search =
            Catalogue{document_banks_title,
                      part("SELECT "
                           "   DISTINCT Documento_Cuenta_Bancaria.Dcb_Banco AS BANCO, "
                           "   Banco.Bn_Descripcion as DESCRIPCION, '' "
                           "FROM Documento_Cuenta_Bancaria "
                           "   INNER JOIN Banco ON Banco.Bn_Cve_Banco = Documento_Cuenta_Bancaria.Dcb_Banco "
                           "WHERE "
                           "   (Banco.Bn_Cve_Banco LIKE ? OR "
                           "   Banco.Bn_Codigo LIKE ? OR "
                           "   Banco.Bn_Descripcion LIKE ?) AND "
                           "   (Documento_Cuenta_Bancaria.Dcb_Tabla = '{}' AND "
                           "   Documento_Cuenta_Bancaria.Dcb_Documento = '{}' )",
                           Dcb_Tabla, Dcb_Documento)
                          .text(),
                      "",
                      {"BANCO", "DESCRIPCION"}};
    });
}

void frmFormaPago::txtBanco_Enter() {
    if (!has_document()) return;
    reporting(module(), "txtBanco_Enter()", "ERR-ID:7500006", [this] {
        search_accounts_of_bank();
        if (bSugerirCuenta && !txtBanco.Text().empty()) suggest_account();
    });
}

void frmFormaPago::search_accounts_of_bank() {
    txtCuenta.search = Catalogue{"Cuentas del documento",
                                 part("SELECT "
                                      "   Dcb_Cuenta AS CUENTA, "
                                      "   Dcb_ID AS ID, "
                                      "   Dcb_CLABE AS CLABE, "
                                      "   Banco.Bn_Codigo + ' - ' + Banco.Bn_Descripcion AS BANCO "
                                      "FROM Documento_Cuenta_Bancaria "
                                      "   INNER JOIN Banco ON Documento_Cuenta_Bancaria.Dcb_Banco = Banco.Bn_Cve_Banco "
                                      "WHERE (Dcb_Tabla = '{}' AND "
                                      "   Dcb_Documento = '{}' AND "
                                      "   Dcb_Banco = '{}' AND "
                                      "   Documento_Cuenta_Bancaria.Es_Cve_Estado <> 'BA' ) AND "
                                      "   (Dcb_Cuenta LIKE ?) "
                                      "ORDER BY Dcb_ID ASC ",
                                      Dcb_Tabla, Dcb_Documento, txtBanco.Text())
                                     .text(),
                                 "",
                                 {"CUENTA", "ID", "CLABE", "BANCO"}};
}

void frmFormaPago::suggest_account() {
    auto account = query(module(),
                         "SELECT Dcb_Cuenta "
                         "FROM Documento_Cuenta_Bancaria "
                         "WHERE Dcb_Tabla = '{}' AND "
                         "   Dcb_Documento = '{}' AND "
                         "   Dcb_Banco = '{}' AND "
                         "   Es_Cve_Estado <> 'BA' "
                         "ORDER BY Dcb_ID ASC ",
                         Dcb_Tabla, Dcb_Documento, txtBanco.Text());
    if (!account.eof()) txtCuenta.Text(account.text("Dcb_Cuenta"));
}

// ---- Aceptar -------------------------------------------------------------------------------------------------------

void frmFormaPago::Controles_B1Click() {
    reporting(module(), "Controles_B1Click()", "ERR-ID:7500005", [this] {
        if (!passes_rules()) return;
        if (!txtBanco.Text().empty() && has_document()) remember_account();
        accept();
    });
}

struct frmFormaPago::Rule {
    bool broken;
    LookupTextBox& field;
    const char* code;
    const char* message;
};

bool frmFormaPago::passes_rules() {
    const Rule rules[] = {
        {requires_bank_ && txtBanco.Text().empty(), txtBanco, "ERR-ID:7500001",
         "Esta forma de pago! requiere un banco"},
        {requires_bank_ && txtNBanco.Text().empty(), txtBanco, "ERR-ID:7500002",
         "Esta forma de pago requiere un banco válido!"},
        {requires_account_ && trimmed(txtCuenta.Text()).empty(), txtCuenta, "ERR-ID:7500003",
         "Esta forma de pago requiere una cuenta!"},
        {requires_reference_ && trimmed(txtReferencia.Text()).empty(), txtReferencia, "ERR-ID:7500004",
         "Esta forma de pago requiere una referencia!"},
    };
    for (const auto& rule : rules) {
        if (!rule.broken) continue;
        report(rule.message, "Controles_B1Click()", rule.code);
        set_focus(rule.field);
        return false;
    }
    return true;
}

void frmFormaPago::remember_account() {
    const auto known = query(module(),
                             "SELECT Dcb_Id "
                             "FROM Documento_Cuenta_Bancaria "
                             "WHERE "
                             " Dcb_Tabla = '{}' AND "
                             " Dcb_Documento = '{}' AND "
                             " Dcb_Banco = '{}' AND "
                             " Dcb_Cuenta = '{}'",
                             Dcb_Tabla, Dcb_Documento, txtBanco.Text(), txtCuenta.Text());
    if (!known.eof()) return;
    const std::string id = next_account_id();
    const std::string user = module().session().GetUserName();
    const std::string now = module().data().SqlDateTime(module().data().GetServerDate());
    query(module(),
          "INSERT INTO Documento_Cuenta_Bancaria ("
          " Dcb_Tabla, "
          " Dcb_Documento, "
          " Dcb_ID, "
          " Dcb_Banco, "
          " Dcb_Cuenta, "
          " Dcb_Sucursal, "
          " Dcb_CLABE, "
          " Dcb_Cve_Forma_Pago, "
          " Dcb_Forma_Pago, "
          " Dcb_Default, "
          " Oper_Alta, "
          " Fecha_Alta, "
          " Oper_Ult_Modif, "
          " Fecha_Ult_Modif, "
          " Es_Cve_Estado) "
          " Values ("
          "'{}', '{}', '{}', '{}', '{}', '{}', '', '{}', '{}', 'NO','{}', '{}', '{}', '{}', 'AC') ",
          Dcb_Tabla, Dcb_Documento, id, txtBanco.Text(), txtCuenta.Text(), txtSucursal.Text(), txtFormaPago.Text(),
          txtnFormaPago.Text(), user, now, user, now);
}

std::string frmFormaPago::next_account_id() {
    const auto highest = query(module(),
                               "SELECT MAX(CAST(Dcb_ID AS INT)) AS Dcb_ID "
                               "FROM Documento_Cuenta_Bancaria "
                               "WHERE Dcb_Tabla = '{}' AND "
                               "   Dcb_Documento = '{}'",
                               Dcb_Tabla, Dcb_Documento);
    const Value id = highest.eof() ? Value() : highest.value("Dcb_ID");
    return four_digits(is_null(id) ? 1 : static_cast<std::int64_t>(to_number(id)) + 1);
}

std::string frmFormaPago::answer() const {
    return filled("{}|{}|{}|{}", txtNBanco.Text(), txtReferencia.Text(), txtCuenta.Text(), txtBanco.Text());
}

}  // namespace cuvexa::dialogs
