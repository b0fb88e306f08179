#include "com_suite/automation_suite.h"

#include <optional>

#include "com_suite/late_database.h"
#include "com_suite/record_object.h"

namespace cuvexa::com_suite {
namespace {

/// A text that the called operation may change.
struct Changing {
    std::string& text;
};

/// One argument on its way: a by-reference text stands here during the call.
class Outgoing {
public:
    template <class Type>
    explicit Outgoing(const Type& value) {
        if constexpr (Record<Type>) {
            argument_ = any(Record_object<Type>::made(value));
        } else {
            argument_ = any(value);
        }
    }
    explicit Outgoing(Any given) : argument_(std::move(given)) {}
    explicit Outgoing(const Changing& changing) : changing_(&changing.text), text_(any(changing.text)) { refer(); }
    explicit Outgoing(Slot) : text_(any("")) { refer(); }
    Outgoing(const Outgoing&) = delete;
    Outgoing& operator=(const Outgoing&) = delete;

    Any& argument() { return argument_; }

    void give_back() const {
        if (changing_) *changing_ = text_of(text_->bstrVal);
    }

private:
    void refer() {
        argument_->vt = VT_BYREF | VT_BSTR;
        argument_->pbstrVal = &text_->bstrVal;
    }

    std::string* changing_ = nullptr;
    Any text_;
    Any argument_;
};

/// A service's object.
class Late_service {
public:
    explicit Late_service(const std::string& prog_id) : object_(Late_object::create(prog_id)) {}

protected:
    /// Members without arguments may be properties of the object as well.
    template <class... Arguments>
    Any ask(std::string_view name, const Arguments&... arguments) {
        Outgoing outgoing[] = {Outgoing(arguments)..., Outgoing(Any())};
        Any given[sizeof...(arguments) + 1];
        for (std::size_t i = 0; i < sizeof...(arguments); ++i) given[i] = std::move(outgoing[i].argument());
        Any result = object_.invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {given, sizeof...(arguments)});
        for (const Outgoing& argument : outgoing) argument.give_back();
        return result;
    }

    template <class Result, class... Arguments>
    Result call(std::string_view name, const Arguments&... arguments) {
        return value_of<Result>(*ask(name, arguments...).get());
    }

private:
    Late_object object_;
};

class Late_session final : public SessionServices, Late_service {
public:
    using Late_service::Late_service;

    Connection& GetConnection() override {
        connection_.use(object_in(*ask("GetConnection").get()));
        return connection_;
    }
    Value GetParameter(const std::string& name, int flag, const std::string& type,
                       const std::string& fallback) override {
        return call<Value>("GetParameter", name, static_cast<std::int16_t>(flag), type, fallback);
    }
    std::string GetUserName() override { return call<std::string>("GetUserName"); }
    std::string GetServerId() override { return call<std::string>("GetServerId"); }
    bool IsReplicaServer() override { return call<bool>("IsReplicaServer"); }
    void ReportError(const std::string& description, int style, const std::string& routine, const std::string& title,
                     const std::string& project, const std::string& code) override {
        ask("ReportError", description, std::int32_t{style}, routine, title, project, code);
    }

private:
    Late_connection connection_;
};

class Late_data final : public DataServices, Late_service {
public:
    using Late_service::Late_service;

    std::string LookupValue(const std::string& column, const std::string& key_column, const std::string& key,
                            const std::string& table, const std::string& condition) override {
        if (condition.empty()) return call<std::string>("LookupValue", column, key_column, key, Slot(), Slot(), table);
        return call<std::string>("LookupValue", column, key_column, key, Slot(), Slot(), table, condition);
    }
    Date GetServerDate() override { return call<Date>("GetServerDate"); }
    std::string GetNextFolio(const std::string& branch, const std::string& document_code) override {
        return call<std::string>("GetNextFolio", branch, document_code);
    }
    bool IsOperatingPeriodOpen(Date date, const std::string& module) override {
        return call<bool>("IsOperatingPeriodOpen", date, module);
    }
    std::string SqlDate(Date date) override { return call<std::string>("SqlDate", date); }
    std::string SqlDateTime(Date date) override { return call<std::string>("SqlDateTime", date); }
    bool RegisterDocument(const std::string& document_code, const std::string& folio) override {
        return call<bool>("RegisterDocument", document_code, folio);
    }
    bool IsDocumentPosted(const std::string& document_code, const std::string& folio) override {
        return call<bool>("IsDocumentPosted", document_code, folio);
    }
    std::string LastErrorText() override { return call<std::string>("LastErrorText"); }
};

class Late_payment_methods final : public PaymentMethodService, Late_service {
public:
    using Late_service::Late_service;

    bool ValidatePaymentLine(const std::string& payment_method, const std::string& reference_number,
                             const std::string& bank, double amount, const std::string& document_code,
                             const std::string& folio, const std::string& reference,
                             const std::string& comment) override {
        return call<bool>("ValidatePaymentLine", payment_method, reference_number, bank, amount, document_code, folio,
                          reference, comment);
    }
    bool ReleasePaymentLine(const std::string& payment_method, const std::string& reference_number,
                            const std::string& bank) override {
        return call<bool>("ReleasePaymentLine", payment_method, reference_number, bank);
    }
    std::string LastError() override { return call<std::string>("LastError"); }
};

class Late_document_payments final : public DocumentPaymentsService, Late_service {
public:
    using Late_service::Late_service;

    bool CancelDocumentPayments(const std::string& document_code, const std::string& folio) override {
        return call<bool>("CancelDocumentPayments", document_code, folio);
    }
    std::string LastError() override { return call<std::string>("LastError"); }
};

class Late_payables final : public AccountsPayableService, Late_service {
public:
    using Late_service::Late_service;

    Payable NewDocument() override {
        document_ = Late_object(object_in(*ask("NewDocument").get()));
        return record_in<Payable>(document_);
    }
    /// The suite gets its own document back, filled, with whatever else it keeps there.
    bool CreatePayable(const Payable& payable) override {
        if (!document_) return call<bool>("CreatePayable", payable);
        Late_object document = std::exchange(document_, {});
        put_record(document, payable);
        return call<bool>("CreatePayable", document.object());
    }
    bool CreateSupplierAdvance(const Supplier_advance& advance, std::string& payable_folio) override {
        return call<bool>("CreateSupplierAdvance", advance, Changing{payable_folio});
    }
    bool AddPaymentLine(const Payment_line& line) override { return call<bool>("AddPaymentLine", line); }
    bool ApplyPayments() override { return call<bool>("ApplyPayments"); }
    bool CancelPayment(const std::string& payable_folio, const std::string& payment_id) override {
        return call<bool>("CancelPayment", payable_folio, payment_id);
    }
    bool ValidateAdvanceCancellation(const std::string& advance_folio) override {
        return call<bool>("ValidateAdvanceCancellation", advance_folio);
    }
    bool CancelDocumentPayables(const std::string& document_code, const std::string& folio) override {
        return call<bool>("CancelDocumentPayables", document_code, folio);
    }
    std::string LastError() override { return call<std::string>("LastError"); }

private:
    Late_object document_;
};

class Late_receivables final : public AccountsReceivableService, Late_service {
public:
    using Late_service::Late_service;

    bool ApplyReceipt(const Receipt_application& receipt) override { return call<bool>("ApplyReceipt", receipt); }
    bool CreateReceivable(const Receivable& receivable) override { return call<bool>("CreateReceivable", receivable); }
    bool ApplyCustomerDocument(const std::string& document_folio) override {
        return call<bool>("ApplyCustomerDocument", document_folio);
    }
    bool ValidateDocumentCancellation(const std::string& document_code, const std::string& folio) override {
        return call<bool>("ValidateDocumentCancellation", document_code, folio);
    }
    bool CancelDocumentAdvances(const std::string& document_code, const std::string& folio) override {
        return call<bool>("CancelDocumentAdvances", document_code, folio);
    }
    bool CancelDocumentReceivables(const std::string& document_code, const std::string& folio) override {
        return call<bool>("CancelDocumentReceivables", document_code, folio);
    }
    bool CancelPayment(const std::string& receivable_folio, const std::string& payment_id) override {
        return call<bool>("CancelPayment", receivable_folio, payment_id);
    }
    bool RegisterPayment(const Receivable_payment& payment) override { return call<bool>("RegisterPayment", payment); }
    bool DocumentCheck(const std::string& document_code, const std::string& folio) override {
        return call<bool>("DocumentCheck", document_code, folio);
    }
    std::string LastError() override { return call<std::string>("LastError"); }
};

class Late_accounting final : public AccountingService, Late_service {
public:
    using Late_service::Late_service;

    bool IsPostingEnabled(const std::string& document_code) override {
        return call<bool>("IsPostingEnabled", document_code);
    }
    bool PostDocument(const std::string& document_code, const std::string& folio, const std::string& company) override {
        if (company.empty()) return call<bool>("PostDocument", document_code, folio);
        return call<bool>("PostDocument", document_code, folio, company);
    }
    bool ValidateVoucherCancellation(const std::string& document_code, const std::string& folio) override {
        return call<bool>("ValidateVoucherCancellation", document_code, folio);
    }
    std::string LastError() override { return call<std::string>("LastError"); }
};

class Automation_suite final : public Suite {
public:
    explicit Automation_suite(Suite_objects names) : names_(std::move(names)) {}

    std::shared_ptr<SessionServices> session() override { return shared<Late_session>(session_, names_.session); }
    std::shared_ptr<DataServices> data() override { return shared<Late_data>(data_, names_.data); }
    std::shared_ptr<PaymentMethodService> payment_methods() override {
        return shared<Late_payment_methods>(payment_methods_, names_.payment_methods);
    }
    std::shared_ptr<DocumentPaymentsService> document_payments() override {
        return shared<Late_document_payments>(document_payments_, names_.document_payments);
    }

    std::unique_ptr<AccountsPayableService> new_accounts_payable() override {
        return std::make_unique<Late_payables>(names_.accounts_payable);
    }
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override {
        return std::make_unique<Late_receivables>(names_.accounts_receivable);
    }
    std::unique_ptr<AccountingService> new_accounting() override {
        return std::make_unique<Late_accounting>(names_.accounting);
    }

private:
    template <class Late, class Service>
    static std::shared_ptr<Service> shared(std::shared_ptr<Service>& kept, const std::string& prog_id) {
        if (!kept) kept = std::make_shared<Late>(prog_id);
        return kept;
    }

    Suite_objects names_;
    std::shared_ptr<SessionServices> session_;
    std::shared_ptr<DataServices> data_;
    std::shared_ptr<PaymentMethodService> payment_methods_;
    std::shared_ptr<DocumentPaymentsService> document_payments_;
};

}  // namespace

std::shared_ptr<Suite> make_automation_suite(const Suite_objects& names) {
    return std::make_shared<Automation_suite>(names);
}

}  // namespace cuvexa::com_suite
