// Module start-up: the services and parameters that all instances of one thread share.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "cuvexa/services.h"

namespace cuvexa {

class Dialog_toolkit;

/// System parameters read once, at start-up, and kept for the life of the module.
struct Cached_parameters {
    bool TES_REDONDEA_IMPORTE_CHEQUE = false;     ///< cached only: check amounts are never rounded
    std::string TES_FORMA_PAGO_CHEQUE;            ///< payment method of a paper check
    std::string TES_FORMA_PAGO_TRANSFERENCIA;     ///< payment method of an electronic transfer
    std::string TES_MOVIMIENTO_DEPOSITO;          ///< cached only: deposits read it afresh
    std::string FIN_MONEDA_LOCAL;                 ///< local currency; cached only
    bool GEN_FORZAR_TIEMPO_REAL = false;          ///< documents must carry today's date
    bool TES_AUTORIZAR_SOLICITUD_CHEQUE = false;  ///< check requests wait for authorization
};

/// What a loaded component holds for one thread. Instances of `Tesoreria` refer to it and must not outlive it. Not for use
/// by two threads at once; a program with several threads gives each its own module.
class Module {
public:
    /// Starts the module: takes the shared services from the suite, reads the server id and the seven parameters. Throws
    /// what the services throw.
    explicit Module(std::shared_ptr<Suite> suite);

    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    Suite& suite() { return *suite_; }
    SessionServices& session() { return *session_; }
    DataServices& data() { return *data_; }
    PaymentMethodService& payment_methods() { return *payment_methods_; }
    DocumentPaymentsService& document_payments() { return *document_payments_; }
    const Cached_parameters& parameters() const { return parameters_; }

    /// Identifier of this server, as read at start-up.
    const std::string& server_id() const { return server_id_; }

    /// What draws the two dialogs (`cuvexa/dialogs.h`); none at first, and then they cannot be shown.
    std::shared_ptr<Dialog_toolkit> dialog_toolkit() const { return dialog_toolkit_; }
    void dialog_toolkit(std::shared_ptr<Dialog_toolkit> toolkit) { dialog_toolkit_ = std::move(toolkit); }

    /// The buffer into which every statement is composed before it runs; each statement overwrites it.
    std::string& statement() { return statement_; }

    /// A Boolean parameter, read now.
    bool boolean_parameter(const std::string& name);

    /// A text parameter, read now.
    std::string text_parameter(const std::string& name);

private:
    std::shared_ptr<Suite> suite_;
    std::shared_ptr<SessionServices> session_;
    std::shared_ptr<DataServices> data_;
    std::shared_ptr<PaymentMethodService> payment_methods_;
    std::shared_ptr<DocumentPaymentsService> document_payments_;
    Cached_parameters parameters_;
    std::string server_id_;
    std::string statement_;
    std::shared_ptr<Dialog_toolkit> dialog_toolkit_;
};

}  // namespace cuvexa
