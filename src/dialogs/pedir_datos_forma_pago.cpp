#include "cuvexa/tesoreria.h"
#include "dialogs/frm_forma_pago.h"
#include "dialogs/toolkit.h"

namespace cuvexa {

std::string Tesoreria::PedirDatosFormaPago(const std::string& FormaPago, const std::string& Dcb_Tabla,
                                           const std::string& Dcb_Documento, const std::string& Banco,
                                           const std::string& Referencia, const std::string& Cuenta,
                                           const std::string& nBanco, bool bSugerirCuenta) {
    const auto toolkit = dialogs::usable_toolkit(module_);
    dialogs::frmFormaPago form(module_);
    form.Dcb_Tabla = Dcb_Tabla;
    form.Dcb_Documento = Dcb_Documento;
    form.bSugerirCuenta = bSugerirCuenta;
    if (!form.Mostrar(FormaPago)) return {};
    form.fill_in(Banco, Referencia, Cuenta, nBanco);
    toolkit->show_modal(form);
    return form.accepted() ? form.answer() : std::string();
}

}  // namespace cuvexa
