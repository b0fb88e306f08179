// The members that belong to no subsystem: construction, the check's header and line, what is not supported.
#include "cuvexa/tesoreria.h"

#include <utility>

#include "core/number_text.h"
#include "core/report.h"

namespace cuvexa {
namespace {

constexpr auto not_supported = "Esta operación no está soportada por la versión del sistema";

}  // namespace

Tesoreria::Tesoreria(Module& module) : module_(module) {}

void Tesoreria::Encabezado(const tTsEncabezado& value) {
    if (!check_.Ch_Folio.empty()) return;
    // The folio is the component's, and of the branch only the key is kept. The second currency and its rate are never
    // taken from the caller.
    tTsEncabezado taken = value;
    taken.Ch_Folio.clear();
    taken.Mn_Cve_Moneda_2.clear();
    taken.Ch_Tipo_Cambio_2 = 0;
    taken.Sucursal = {};
    taken.Sucursal.Sc_Cve_Sucursal = value.Sucursal.Sc_Cve_Sucursal;
    check_ = std::move(taken);
}

void Tesoreria::Detalle(const tTsDetalle& value) {
    reporting(module_, "Property Let Detalle()", "ERR-ID:7500012", [&] { check_line_ = value; });
}

void Tesoreria::Nuevo() {
    line_counter_ = 0;
    check_.Ch_Folio.clear();
    check_.Tc_Cve_Tipo_Cheque.clear();
    check_.Ch_Transferencia.clear();
    check_.Ch_Tabla.clear();
    check_.Ch_Documento.clear();
    check_.Ch_Referencia.clear();
    check_.Ch_Concepto.clear();
    check_.Ch_Beneficiario.clear();
    check_.Bc_Cve_Banco_Cuenta.clear();
    check_.Mn_Cve_Moneda.clear();
    check_.Ch_Solicitar_Valor.clear();
    check_.Ch_Tipo_Cambio = 0;
    check_.Ch_Fecha = module_.data().GetServerDate();
}

bool Tesoreria::Crear_Cheque(const std::string&) {
    error_ = not_supported;
    return false;
}

bool Tesoreria::Registrar_Deposito_Recibo_Caja(const std::string&, const std::string&) {
    error_ = not_supported;
    return false;
}

std::string Tesoreria::next_line_id() {
    return next_line_number(line_counter_);
}

}  // namespace cuvexa
