#include "cuvexa/tesoreria.h"
#include "dialogs/frm_deposito.h"
#include "dialogs/run_dialog.h"

namespace cuvexa {

std::string Tesoreria::PedirDatosDeposito(Date FechaDeposito, const std::string& Moneda, int EnFirme,
                                          const std::string& Empresa) {
    std::string answer;
    dialogs::run_dialog(module_, error_, "PedirDatosDeposito()", [&](Dialog_toolkit& toolkit) {
        dialogs::frmDeposito form(module_);
        form.FechaDeposito = FechaDeposito;
        form.Mn_Cve_Moneda = Moneda;
        form.Em_Cve_Empresa = Empresa;
        form.prepare(EnFirme);
        toolkit.show_modal(form);
        if (form.accepted()) answer = form.answer();
    });
    return answer;
}

}  // namespace cuvexa
