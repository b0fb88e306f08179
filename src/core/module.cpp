#include "cuvexa/module.h"

#include <utility>

#include "core/operation.h"

namespace cuvexa {

Module::Module(std::shared_ptr<Suite> suite)
    : suite_(std::move(suite)),
      session_(suite_->session()),
      data_(suite_->data()),
      payment_methods_(suite_->payment_methods()),
      document_payments_(suite_->document_payments()) {
    const Notice_to_suite notice(*session_);
    server_id_ = session_->GetServerId();
    parameters_.TES_REDONDEA_IMPORTE_CHEQUE = boolean_parameter("TES_REDONDEA_IMPORTE_CHEQUE");
    parameters_.TES_FORMA_PAGO_CHEQUE = text_parameter("TES_FORMA_PAGO_CHEQUE");
    parameters_.TES_FORMA_PAGO_TRANSFERENCIA = text_parameter("TES_FORMA_PAGO_TRANSFERENCIA");
    parameters_.TES_MOVIMIENTO_DEPOSITO = text_parameter("TES_MOVIMIENTO_DEPOSITO");
    parameters_.FIN_MONEDA_LOCAL = text_parameter("FIN_MONEDA_LOCAL");
    parameters_.GEN_FORZAR_TIEMPO_REAL = boolean_parameter("GEN_FORZAR_TIEMPO_REAL");
    parameters_.TES_AUTORIZAR_SOLICITUD_CHEQUE = boolean_parameter("TES_AUTORIZAR_SOLICITUD_CHEQUE");
}

bool Module::boolean_parameter(const std::string& name) {
    return to_boolean(session_->GetParameter(name, 0, "B", "0"));
}

std::string Module::text_parameter(const std::string& name) {
    return to_text(session_->GetParameter(name, 0, "", ""));
}

}  // namespace cuvexa
