#include "cuvexa/tesoreria.h"
#include "dialogs/frm_deposito.h"
#include "dialogs/toolkit.h"

namespace cuvexa {

std::string Tesoreria::PedirDatosDeposito(Date FechaDeposito, const std::string& Moneda, int EnFirme,
                                          const std::string& Empresa) {
    const auto toolkit = dialogs::usable_toolkit(module_);
    dialogs::frmDeposito form(module_);
    form.FechaDeposito = FechaDeposito;
    form.Mn_Cve_Moneda = Moneda;
    form.Em_Cve_Empresa = Empresa;
    form.prepare(EnFirme);
    toolkit->show_modal(form);
    return form.accepted() ? form.answer() : std::string();
}

}  // namespace cuvexa
