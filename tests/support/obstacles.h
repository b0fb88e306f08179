// A suite over another one, whose operations can be told to refuse, to answer or to fail, and which notes the calls.
//
// `failing_statement = n` makes the n-th statement of the component fail, `failing_call = n` the n-th service call, whatever
// it is: a test that counts n up until the operation succeeds has met every failure there is.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cuvexa/services.h"

namespace cuvexa::tests {

/// One call of the suite's error dialog.
struct Report {
    std::string description;
    int style = 0;
    std::string routine, title, project, code;
    bool operator==(const Report&) const = default;
};

/// What stands in the way of the services' operations, by operation name.
class Obstacles {
public:
    /// The operation answers False and leaves `text` as the last error of its service.
    void refuse(const std::string& operation, const std::string& text) { answers_[operation] = {false, text}; }

    /// The operation answers True and leaves `text` as the last error of its service.
    void accept(const std::string& operation, const std::string& text = {}) { answers_[operation] = {true, text}; }

    /// The operation refuses only a call that is noted as `call`.
    void refuse_call(const std::string& call, const std::string& text) { answers_[call] = {false, text}; }

    /// The operation throws; any operation of the services, also those that give no Boolean.
    void fail(const std::string& operation, const std::string& description) { failures_[operation] = description; }

    /// Every operation that is not told otherwise agrees and does nothing: True, but for documents, none of which is posted.
    bool agreeing = false;

    /// Nothing answers: every operation and every statement of the component fails.
    bool offline = false;

    /// `GetNextFolio` gives this.
    std::optional<std::string> next_folio;
    /// `GetServerDate` gives this.
    std::optional<Date> server_date;
    /// `IsReplicaServer` gives this.
    std::optional<bool> replica;
    /// `GetParameter` gives these.
    std::map<std::string, Value> parameters;
    /// `GetUserName` and `GetServerId` give these.
    std::optional<std::string> user;
    std::optional<std::string> server_id;
    /// What was shown in the suite's error dialog: routine, code and description.
    std::vector<std::string> reports;

    /// The same with everything that was passed.
    std::vector<Report> reports_in_full;

    /// The Boolean operations called, as "Name(argument, argument)".
    std::vector<std::string> calls;

    /// Every operation called, by name, and the one of them, counted from 1, that throws `obstructed::call_failure`.
    std::vector<std::string> asked;
    std::size_t failing_call = 0;

    /// What was handed to `CreatePayable`, `CreateReceivable` and `ApplyReceipt`.
    std::vector<Payable> payables;
    std::vector<Receivable> receivables;
    std::vector<Receipt_application> applications;
    /// To `CreateSupplierAdvance`, `AddPaymentLine` and `RegisterPayment`.
    std::vector<Supplier_advance> supplier_advances;
    std::vector<Payment_line> payment_lines;
    std::vector<Receivable_payment> receivable_payments;

    /// What was handed to `ValidatePaymentLine`, the eight arguments parted by "|".
    std::vector<std::string> validated_lines;

    /// The statements that the component itself sent (those of the services are not among them).
    std::vector<std::string> statements;
    /// Those of them that the database refused.
    std::vector<std::string> refused;
    /// The one of them, counted from 1, that fails instead of running.
    std::size_t failing_statement = 0;
    /// The one, counted the same way, that gives no rows, as if they had gone meanwhile.
    std::size_t silent_statement = 0;

    void clear() {
        offline = false;
        answers_.clear();
        failures_.clear();
        next_folio.reset();
        failing_statement = silent_statement = 0;
        failing_call = 0;
    }

    /// Forgets what was noted so far.
    void forget() {
        calls.clear();
        statements.clear();
        refused.clear();
        reports.clear();
        reports_in_full.clear();
        asked.clear();
        payables.clear();
        receivables.clear();
        applications.clear();
        supplier_advances.clear();
        payment_lines.clear();
        validated_lines.clear();
        receivable_payments.clear();
    }

    /// Every service operation passes here first.
    void enter(const std::string& operation);

    template <class Forward>
    bool decide(const std::string& operation, std::initializer_list<std::string> arguments,
                std::optional<std::string>& last_error, Forward&& forward) {
        std::string call = operation + "(";
        for (const std::string& argument : arguments) call += (call.back() == '(' ? "" : ", ") + argument;
        call += ")";
        calls.push_back(call);
        enter(operation);
        for (const std::string& key : {call, operation}) {
            if (const auto answer = answers_.find(key); answer != answers_.end()) {
                last_error = answer->second.second;
                return answer->second.first;
            }
        }
        last_error.reset();
        if (agreeing) return operation != "IsPostingEnabled" && operation != "IsDocumentPosted";
        return forward();
    }

private:
    std::map<std::string, std::pair<bool, std::string>> answers_;
    std::map<std::string, std::string> failures_;
};

namespace obstructed {

inline constexpr auto statement_failure = "se perdió la conexión";
inline constexpr auto call_failure = "el servicio no responde";

}  // namespace obstructed

inline void Obstacles::enter(const std::string& operation) {
    asked.push_back(operation);
    if (offline || asked.size() == failing_call) throw std::runtime_error(obstructed::call_failure);
    if (const auto failure = failures_.find(operation); failure != failures_.end()) {
        throw std::runtime_error(failure->second);
    }
}

namespace obstructed {

class Noted_connection : public Connection {
public:
    Noted_connection(Connection& inner, Obstacles& obstacles) : inner_(inner), on_(obstacles) {}
    std::unique_ptr<Recordset> execute(std::string_view text) override {
        on_.statements.emplace_back(text);
        if (on_.offline || on_.statements.size() == on_.failing_statement) throw Database_error(statement_failure);
        if (on_.statements.size() == on_.silent_statement) return inner_.execute("SELECT 0 AS Nada WHERE 0 = 1");
        try {
            return inner_.execute(text);
        } catch (const Database_error&) {
            on_.refused.emplace_back(text);
            throw;
        }
    }

private:
    Connection& inner_;
    Obstacles& on_;
};

class Session : public SessionServices {
public:
    Session(std::shared_ptr<SessionServices> inner, Obstacles& obstacles)
        : inner_(std::move(inner)), on_(obstacles), connection_(inner_->GetConnection(), obstacles) {}
    Connection& GetConnection() override { return connection_; }
    Value GetParameter(const std::string& name, int flag, const std::string& type,
                       const std::string& fallback) override {
        on_.enter("GetParameter");
        const auto set = on_.parameters.find(name);
        return set != on_.parameters.end() ? set->second : inner_->GetParameter(name, flag, type, fallback);
    }
    std::string GetUserName() override {
        on_.enter("GetUserName");
        return on_.user ? *on_.user : inner_->GetUserName();
    }
    std::string GetServerId() override {
        on_.enter("GetServerId");
        return on_.server_id ? *on_.server_id : inner_->GetServerId();
    }
    bool IsReplicaServer() override {
        on_.enter("IsReplicaServer");
        return on_.replica ? *on_.replica : inner_->IsReplicaServer();
    }
    void operation_begins() noexcept override { inner_->operation_begins(); }
    void operation_ends() noexcept override { inner_->operation_ends(); }
    void ReportError(const std::string& description, int style, const std::string& routine, const std::string& title,
                     const std::string& project, const std::string& code) override {
        on_.reports_in_full.push_back({description, style, routine, title, project, code});
        on_.reports.push_back(routine + " " + code + " " + description);
    }

private:
    std::shared_ptr<SessionServices> inner_;
    Obstacles& on_;
    Noted_connection connection_;
};

class Data : public DataServices {
public:
    Data(std::shared_ptr<DataServices> inner, Obstacles& obstacles) : inner_(std::move(inner)), on_(obstacles) {}
    std::string LookupValue(const std::string& column, const std::string& key_column, const std::string& key,
                            const std::string& table, const std::string& condition) override {
        on_.enter("LookupValue");
        return inner_->LookupValue(column, key_column, key, table, condition);
    }
    Date GetServerDate() override {
        on_.enter("GetServerDate");
        return on_.server_date ? *on_.server_date : inner_->GetServerDate();
    }
    std::string GetNextFolio(const std::string& branch, const std::string& document_code) override {
        on_.enter("GetNextFolio");
        return on_.next_folio ? *on_.next_folio : inner_->GetNextFolio(branch, document_code);
    }
    bool IsOperatingPeriodOpen(Date date, const std::string& module) override {
        return on_.decide("IsOperatingPeriodOpen", {iso_date(date), module}, last_error_,
                          [&] { return inner_->IsOperatingPeriodOpen(date, module); });
    }
    std::string SqlDate(Date date) override {
        on_.enter("SqlDate");
        return inner_->SqlDate(date);
    }
    std::string SqlDateTime(Date date) override {
        on_.enter("SqlDateTime");
        return inner_->SqlDateTime(date);
    }
    bool RegisterDocument(const std::string& code, const std::string& folio) override {
        return on_.decide("RegisterDocument", {code, folio}, last_error_,
                          [&] { return inner_->RegisterDocument(code, folio); });
    }
    bool IsDocumentPosted(const std::string& code, const std::string& folio) override {
        return on_.decide("IsDocumentPosted", {code, folio}, last_error_,
                          [&] { return inner_->IsDocumentPosted(code, folio); });
    }
    std::string LastErrorText() override { return last_error_ ? *last_error_ : inner_->LastErrorText(); }

private:
    std::shared_ptr<DataServices> inner_;
    Obstacles& on_;
    std::optional<std::string> last_error_;
};

class Payment_methods : public PaymentMethodService {
public:
    Payment_methods(std::shared_ptr<PaymentMethodService> inner, Obstacles& obstacles)
        : inner_(std::move(inner)), on_(obstacles) {}
    bool ValidatePaymentLine(const std::string& payment_method, const std::string& reference_number,
                             const std::string& bank, double amount, const std::string& document_code,
                             const std::string& folio, const std::string& reference,
                             const std::string& comment) override {
        on_.validated_lines.push_back(payment_method + "|" + reference_number + "|" + bank + "|" + number_text(amount) +
                                      "|" + document_code + "|" + folio + "|" + reference + "|" + comment);
        return on_.decide("ValidatePaymentLine", {payment_method, reference_number, bank}, last_error_, [&] {
            return inner_->ValidatePaymentLine(payment_method, reference_number, bank, amount, document_code, folio,
                                               reference, comment);
        });
    }
    bool ReleasePaymentLine(const std::string& payment_method, const std::string& reference_number,
                            const std::string& bank) override {
        return on_.decide("ReleasePaymentLine", {payment_method, reference_number, bank}, last_error_,
                          [&] { return inner_->ReleasePaymentLine(payment_method, reference_number, bank); });
    }
    std::string LastError() override { return last_error_ ? *last_error_ : inner_->LastError(); }

private:
    std::shared_ptr<PaymentMethodService> inner_;
    Obstacles& on_;
    std::optional<std::string> last_error_;
};

class Document_payments : public DocumentPaymentsService {
public:
    Document_payments(std::shared_ptr<DocumentPaymentsService> inner, Obstacles& obstacles)
        : inner_(std::move(inner)), on_(obstacles) {}
    bool CancelDocumentPayments(const std::string& code, const std::string& folio) override {
        return on_.decide("CancelDocumentPayments", {code, folio}, last_error_,
                          [&] { return inner_->CancelDocumentPayments(code, folio); });
    }
    std::string LastError() override { return last_error_ ? *last_error_ : inner_->LastError(); }

private:
    std::shared_ptr<DocumentPaymentsService> inner_;
    Obstacles& on_;
    std::optional<std::string> last_error_;
};

class Payables : public AccountsPayableService {
public:
    Payables(std::unique_ptr<AccountsPayableService> inner, Obstacles& obstacles)
        : inner_(std::move(inner)), on_(obstacles) {}
    Payable NewDocument() override {
        on_.enter("NewDocument");
        return inner_->NewDocument();
    }
    bool CreatePayable(const Payable& payable) override {
        on_.payables.push_back(payable);
        return on_.decide("CreatePayable", {payable.supplier}, last_error_,
                          [&] { return inner_->CreatePayable(payable); });
    }
    bool CreateSupplierAdvance(const Supplier_advance& advance, std::string& payable_folio) override {
        on_.supplier_advances.push_back(advance);
        return on_.decide("CreateSupplierAdvance", {advance.check_folio}, last_error_,
                          [&] { return inner_->CreateSupplierAdvance(advance, payable_folio); });
    }
    bool AddPaymentLine(const Payment_line& line) override {
        on_.payment_lines.push_back(line);
        return on_.decide("AddPaymentLine", {line.payable_folio, line.check_folio}, last_error_,
                          [&] { return inner_->AddPaymentLine(line); });
    }
    bool ApplyPayments() override {
        return on_.decide("ApplyPayments", {}, last_error_, [&] { return inner_->ApplyPayments(); });
    }
    bool CancelPayment(const std::string& payable_folio, const std::string& payment_id) override {
        return on_.decide("CancelPayablePayment", {payable_folio, payment_id}, last_error_,
                          [&] { return inner_->CancelPayment(payable_folio, payment_id); });
    }
    bool ValidateAdvanceCancellation(const std::string& advance_folio) override {
        return on_.decide("ValidateAdvanceCancellation", {advance_folio}, last_error_,
                          [&] { return inner_->ValidateAdvanceCancellation(advance_folio); });
    }
    bool CancelDocumentPayables(const std::string& code, const std::string& folio) override {
        return on_.decide("CancelDocumentPayables", {code, folio}, last_error_,
                          [&] { return inner_->CancelDocumentPayables(code, folio); });
    }
    std::string LastError() override { return last_error_ ? *last_error_ : inner_->LastError(); }

private:
    std::unique_ptr<AccountsPayableService> inner_;
    Obstacles& on_;
    std::optional<std::string> last_error_;
};

class Receivables : public AccountsReceivableService {
public:
    Receivables(std::unique_ptr<AccountsReceivableService> inner, Obstacles& obstacles)
        : inner_(std::move(inner)), on_(obstacles) {}
    bool ApplyReceipt(const Receipt_application& receipt) override {
        on_.applications.push_back(receipt);
        return on_.decide("ApplyReceipt", {receipt.folio}, last_error_, [&] { return inner_->ApplyReceipt(receipt); });
    }
    bool CreateReceivable(const Receivable& receivable) override {
        on_.receivables.push_back(receivable);
        return on_.decide("CreateReceivable", {receivable.source_table, receivable.source_document}, last_error_,
                          [&] { return inner_->CreateReceivable(receivable); });
    }
    bool ApplyCustomerDocument(const std::string& document_folio) override {
        return on_.decide("ApplyCustomerDocument", {document_folio}, last_error_,
                          [&] { return inner_->ApplyCustomerDocument(document_folio); });
    }
    bool ValidateDocumentCancellation(const std::string& code, const std::string& folio) override {
        return on_.decide("ValidateDocumentCancellation", {code, folio}, last_error_,
                          [&] { return inner_->ValidateDocumentCancellation(code, folio); });
    }
    bool CancelDocumentAdvances(const std::string& code, const std::string& folio) override {
        return on_.decide("CancelDocumentAdvances", {code, folio}, last_error_,
                          [&] { return inner_->CancelDocumentAdvances(code, folio); });
    }
    bool CancelDocumentReceivables(const std::string& code, const std::string& folio) override {
        return on_.decide("CancelDocumentReceivables", {code, folio}, last_error_,
                          [&] { return inner_->CancelDocumentReceivables(code, folio); });
    }
    bool CancelPayment(const std::string& receivable_folio, const std::string& payment_id) override {
        return on_.decide("CancelReceivablePayment", {receivable_folio, payment_id}, last_error_,
                          [&] { return inner_->CancelPayment(receivable_folio, payment_id); });
    }
    bool RegisterPayment(const Receivable_payment& payment) override {
        on_.receivable_payments.push_back(payment);
        return on_.decide("RegisterPayment", {payment.receivable_folio}, last_error_,
                          [&] { return inner_->RegisterPayment(payment); });
    }
    bool DocumentCheck(const std::string& code, const std::string& folio) override {
        return on_.decide("DocumentCheck", {code, folio}, last_error_,
                          [&] { return inner_->DocumentCheck(code, folio); });
    }
    std::string LastError() override { return last_error_ ? *last_error_ : inner_->LastError(); }

private:
    std::unique_ptr<AccountsReceivableService> inner_;
    Obstacles& on_;
    std::optional<std::string> last_error_;
};

class Accounting : public AccountingService {
public:
    Accounting(std::unique_ptr<AccountingService> inner, Obstacles& obstacles)
        : inner_(std::move(inner)), on_(obstacles) {}
    bool IsPostingEnabled(const std::string& code) override {
        return on_.decide("IsPostingEnabled", {code}, last_error_, [&] { return inner_->IsPostingEnabled(code); });
    }
    bool PostDocument(const std::string& code, const std::string& folio, const std::string& company) override {
        return on_.decide("PostDocument", {code, folio, company}, last_error_,
                          [&] { return inner_->PostDocument(code, folio, company); });
    }
    bool ValidateVoucherCancellation(const std::string& code, const std::string& folio) override {
        return on_.decide("ValidateVoucherCancellation", {code, folio}, last_error_,
                          [&] { return inner_->ValidateVoucherCancellation(code, folio); });
    }
    std::string LastError() override { return last_error_ ? *last_error_ : inner_->LastError(); }

private:
    std::unique_ptr<AccountingService> inner_;
    Obstacles& on_;
    std::optional<std::string> last_error_;
};

}  // namespace obstructed

/// The inner suite with `obstacles` in the way of its operations. Both must outlive this one's services.
class Obstructed_suite : public Suite {
public:
    Obstructed_suite(std::shared_ptr<Suite> inner, Obstacles& obstacles) : inner_(std::move(inner)), on_(obstacles) {}

    std::shared_ptr<SessionServices> session() override {
        return std::make_shared<obstructed::Session>(inner_->session(), on_);
    }
    std::shared_ptr<DataServices> data() override { return std::make_shared<obstructed::Data>(inner_->data(), on_); }
    std::shared_ptr<PaymentMethodService> payment_methods() override {
        return std::make_shared<obstructed::Payment_methods>(inner_->payment_methods(), on_);
    }
    std::shared_ptr<DocumentPaymentsService> document_payments() override {
        return std::make_shared<obstructed::Document_payments>(inner_->document_payments(), on_);
    }
    std::unique_ptr<AccountsPayableService> new_accounts_payable() override {
        return std::make_unique<obstructed::Payables>(inner_->new_accounts_payable(), on_);
    }
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override {
        return std::make_unique<obstructed::Receivables>(inner_->new_accounts_receivable(), on_);
    }
    std::unique_ptr<AccountingService> new_accounting() override {
        return std::make_unique<obstructed::Accounting>(inner_->new_accounting(), on_);
    }

private:
    std::shared_ptr<Suite> inner_;
    Obstacles& on_;
};

}  // namespace cuvexa::tests
