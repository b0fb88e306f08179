// Which automation objects are the suite's services.
#pragma once

#include <string>

namespace cuvexa::com_suite {

/// The programmatic identifier of each service's object.
struct Suite_objects {
    std::string session = "CuvexaSuite.SessionServices";
    std::string data = "CuvexaSuite.DataServices";
    std::string payment_methods = "CuvexaSuite.PaymentMethodService";
    std::string document_payments = "CuvexaSuite.DocumentPaymentsService";
    std::string accounts_payable = "CuvexaSuite.AccountsPayableService";
    std::string accounts_receivable = "CuvexaSuite.AccountsReceivableService";
    std::string accounting = "CuvexaSuite.AccountingService";
};

/// As the key `Software\Cuvexa\Servicios` says, the current user's before everybody's; a service that it does not name
/// keeps its default. The values carry the names of the services ("SessionServices", …).
Suite_objects suite_objects_from_registry();

/// Whether a suite is there: the class of its session object is registered for programs of this bitness.
bool is_registered(const Suite_objects& names);

/// A text under `Software\` and the key, the current user's before everybody's; empty when there is none.
std::string registry_setting(const std::wstring& key, const std::wstring& name);

}  // namespace cuvexa::com_suite
