#include "cuvexa/tesoreria.h"
#include "dialogs/frm_forma_pago.h"
#include "dialogs/run_dialog.h"

namespace cuvexa {

std::string Tesoreria::PedirDatosFormaPago(const std::string& FormaPago, const std::string& Dcb_Tabla,
                                           const std::string& Dcb_Documento, const std::string& Banco,
                                           const std::string& Referencia, const std::string& Cuenta,
                                           const std::string& nBanco, bool bSugerirCuenta) {
    std::string answer;
    dialogs::run_dialog(module_, error_, "PedirDatosFormaPago()", [&](Dialog_toolkit& toolkit) {
        dialogs::frmFormaPago form(module_);
        form.Dcb_Tabla = Dcb_Tabla;
        form.Dcb_Documento = Dcb_Documento;
        form.bSugerirCuenta = bSugerirCuenta;
        if (!form.Mostrar(FormaPago)) return;
        form.fill_in(Banco, Referencia, Cuenta, nBanco);
        toolkit.show_modal(form);
        if (form.accepted()) answer = form.answer();
    });
    return answer;
}

}  // namespace cuvexa
