// The reference suite on an embedded database: what the servers work with on a machine that has no other suite.
#pragma once

#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/database/trace.h"
#include "cuvexa/services.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa::com_suite {

struct Embedded_settings {
    std::string database;  ///< the file
    bool try_out = false;  ///< nobody named the file: it is made, with the sample company, when it is not there
    std::string trace;     ///< one JSON object per statement is appended to this file
    std::string synchronous = "full";
    double wait_s = 10;           ///< how long a statement waits for another program
    std::string user = "CUVEXA";  ///< written to the audit columns
    std::optional<Date> server_date;
};

/// From the environment (CUVEXA_DB, CUVEXA_TRACE, CUVEXA_SYNCHRONOUS, CUVEXA_WAIT, CUVEXA_USER, CUVEXA_SERVER_DATE);
/// the file also from the value `BaseDeDatos` of the key `Software\Cuvexa`, and otherwise `Cuvexa\empresa.db` in the
/// local application data of the user; the user is the one of Windows unless the environment names another. Throws
/// `Database_error` with a Spanish text for a setting that cannot be read.
Embedded_settings embedded_settings();

/// The reference suite with the database that it works on; its services must not outlive it.
class Embedded_suite final : public Suite {
public:
    /// Throws `Database_error`, in Spanish, when the file is missing, is no database of this version, or cannot be
    /// opened.
    Embedded_suite(const Embedded_settings& settings, std::function<void(const Reported_error&)> report_error);

    Connection& connection() { return traced_ ? static_cast<Connection&>(*traced_) : engine_; }
    Sqlite_connection& engine() { return engine_; }

    std::shared_ptr<SessionServices> session() override { return suite_->session(); }
    std::shared_ptr<DataServices> data() override { return suite_->data(); }
    std::shared_ptr<PaymentMethodService> payment_methods() override { return suite_->payment_methods(); }
    std::shared_ptr<DocumentPaymentsService> document_payments() override { return suite_->document_payments(); }
    std::unique_ptr<AccountsPayableService> new_accounts_payable() override { return suite_->new_accounts_payable(); }
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override {
        return suite_->new_accounts_receivable();
    }
    std::unique_ptr<AccountingService> new_accounting() override { return suite_->new_accounting(); }

private:
    Sqlite_connection engine_;
    std::ofstream trace_;
    std::optional<Traced_connection> traced_;
    std::optional<Reference_suite> suite_;
};

/// The suite that the settings of this process name. `report_error` shows what the component reports to the user.
std::shared_ptr<Suite> make_embedded_suite(std::function<void(const Reported_error&)> report_error);

}  // namespace cuvexa::com_suite
