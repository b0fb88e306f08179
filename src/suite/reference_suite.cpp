#include "cuvexa/suite/reference_suite.h"

#include "suite/accounting_service.h"
#include "suite/accounts_payable_service.h"
#include "suite/accounts_receivable_service.h"
#include "suite/data_services.h"
#include "suite/document_payments_service.h"
#include "suite/payment_method_service.h"
#include "suite/session_services.h"

namespace cuvexa {

Reference_suite::Reference_suite(Connection& connection, Suite_options options)
    : context_(std::make_shared<reference::Context>(connection, std::move(options))) {}

Reference_suite::~Reference_suite() = default;

void Reference_suite::set_server_date(std::optional<Date> date) {
    context_->set_server_date(date);
}
void Reference_suite::set_user(std::string user) {
    context_->set_user(std::move(user));
}

std::shared_ptr<SessionServices> Reference_suite::session() {
    return std::make_shared<reference::Session>(context_);
}
std::shared_ptr<DataServices> Reference_suite::data() {
    return std::make_shared<reference::Data>(context_);
}

std::shared_ptr<PaymentMethodService> Reference_suite::payment_methods() {
    return std::make_shared<reference::Payment_methods>(context_);
}

std::shared_ptr<DocumentPaymentsService> Reference_suite::document_payments() {
    return std::make_shared<reference::Document_payments>(context_);
}

std::unique_ptr<AccountsPayableService> Reference_suite::new_accounts_payable() {
    return std::make_unique<reference::Payables>(context_);
}

std::unique_ptr<AccountsReceivableService> Reference_suite::new_accounts_receivable() {
    return std::make_unique<reference::Receivables>(context_);
}

std::unique_ptr<AccountingService> Reference_suite::new_accounting() {
    return std::make_unique<reference::Accounting>(context_);
}

}  // namespace cuvexa
