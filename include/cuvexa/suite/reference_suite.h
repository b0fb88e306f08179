// The suite's services over one database: what a host provides, so that the component runs whole on one machine.
//
// What the tables of this suite mean, and what each service does with them, is told in docs/reference-suite.md.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "cuvexa/data_access.h"
#include "cuvexa/date.h"
#include "cuvexa/services.h"

namespace cuvexa {

/// What `ReportError` was given.
struct Reported_error {
    std::string description;
    int style = 0;
    std::string routine;
    std::string title;
    std::string project;
    std::string code;
};

struct Suite_options {
    std::string user = "CUVEXA";
    std::optional<Date> server_date = {};     ///< the server date stands still here; without it, the database's clock
    Date_style date_style = Date_style::iso;  ///< of `SqlDate` and `SqlDateTime`
    std::function<void(const Reported_error&)> report_error = {};  ///< without it, one line on standard error
    Connection* own_connection =
        nullptr;  ///< where the suite runs its own statements; without it, the session's connection
};

namespace reference {
class Context;
}

/// The reference suite. Its services keep what they need of it and may outlive it; the connections must outlive both.
/// Used by one thread.
///
/// What holds after every operation, whatever it answered:
/// - the balance of a receivable or payable equals its amount less its live payments;
/// - the payments of one receivable or payable are numbered without gaps, cancelled ones included;
/// - the debits of a live voucher equal its credits, and a document has at most one live voucher;
/// - a folio is given once.
class Reference_suite : public Suite {
public:
    explicit Reference_suite(Connection& connection, Suite_options options = {});
    ~Reference_suite() override;

    /// Fixes the server date from now on, or gives it back to the clock.
    void set_server_date(std::optional<Date> date);

    /// The user from now on.
    void set_user(std::string user);

    std::shared_ptr<SessionServices> session() override;
    std::shared_ptr<DataServices> data() override;
    std::shared_ptr<PaymentMethodService> payment_methods() override;
    std::shared_ptr<DocumentPaymentsService> document_payments() override;

    std::unique_ptr<AccountsPayableService> new_accounts_payable() override;
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override;
    std::unique_ptr<AccountingService> new_accounting() override;

    /// For the suite's own files.
    reference::Context& context() { return *context_; }

private:
    std::shared_ptr<reference::Context> context_;
};

}  // namespace cuvexa
