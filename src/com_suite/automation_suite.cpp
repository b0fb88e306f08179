#include "com_suite/automation_suite.h"

#include <tuple>
#include <vector>

#include "com_suite/late_database.h"
#include "com_suite/record_object.h"

namespace cuvexa::com_suite {
namespace {

/// One argument on its way to a parameter: what the called operation may change stands here during the call.
template <class Parameter>
class Outgoing {
public:
    using Type = std::remove_cvref_t<Parameter>;
    static constexpr bool may_change = std::is_same_v<Parameter, std::string&>;

    explicit Outgoing(Parameter value) : value_(value) {}

    void add_to(std::vector<Any>& arguments) {
        if constexpr (may_change) {
            arguments.push_back(reference(value_));
        } else if constexpr (std::is_same_v<Type, Slot>) {
            arguments.push_back(reference({}));
        } else if constexpr (std::is_same_v<Type, Optional_text>) {
            if (!value_.text.empty()) arguments.push_back(any(value_.text));
        } else if constexpr (std::is_same_v<Type, Short>) {
            arguments.push_back(any(static_cast<std::int16_t>(value_.number)));
        } else if constexpr (Travelling_record<Type>) {
            arguments.push_back(any(Record_object<Type>::made(value_)));
        } else {
            arguments.push_back(any(value_));
        }
    }

    void give_back() {
        if constexpr (may_change) value_ = text_of(text_->bstrVal);
    }

private:
    Any reference(const std::string& text) {
        text_ = any(text);
        Any argument;
        argument->vt = VT_BYREF | VT_BSTR;
        argument->pbstrVal = &text_->bstrVal;
        return argument;
    }

    Parameter value_;
    Any text_;
};

template <class Parameters>
struct Outgoing_arguments;
template <class... Parameter>
struct Outgoing_arguments<std::tuple<Parameter...>> {
    using Type = std::tuple<Outgoing<Parameter>...>;
};

/// A service's object, whose members are called by the names of the list.
class Late_service {
public:
    explicit Late_service(const std::string& prog_id) : object_(Late_object::create(prog_id)) {}

protected:
    /// The operation with arguments for each of its parameters. What is neither nothing nor a plain value comes as it is.
    template <auto operation, class... Arguments>
    auto ask(Arguments&&... arguments) {
        using Its = Signature<decltype(operation)>;
        using Result = std::remove_cvref_t<typename Its::Result>;
        typename Outgoing_arguments<typename Its::Parameters>::Type outgoing(std::forward<Arguments>(arguments)...);
        std::vector<Any> given;
        std::apply([&](auto&... argument) { (argument.add_to(given), ...); }, outgoing);
        Any result = invoke<operation>(given);
        std::apply([](auto&... argument) { (argument.give_back(), ...); }, outgoing);
        if constexpr (Travels<Result>) {
            return value_of<Result>(*result.get());
        } else if constexpr (!std::is_void_v<Result>) {
            return result;
        }
    }

    /// Members without arguments may be properties of the object as well.
    template <auto operation>
    Any invoke(std::span<Any> arguments) {
        return object_.invoke(name_of<operation>, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
    }

private:
    Late_object object_;
};

class Late_session final : public SessionServices, Late_service {
public:
    using Late_service::Late_service;

    Connection& GetConnection() override {
        connection_.use(object_in(*ask<&SessionServices::GetConnection>().get()));
        return connection_;
    }
    Value GetParameter(const std::string& name, int flag, const std::string& type,
                       const std::string& fallback) override {
        return ask<&get_parameter>(name, Short{flag}, type, fallback);
    }
    std::string GetUserName() override { return ask<&SessionServices::GetUserName>(); }
    std::string GetServerId() override { return ask<&SessionServices::GetServerId>(); }
    bool IsReplicaServer() override { return ask<&SessionServices::IsReplicaServer>(); }
    void ReportError(const std::string& description, int style, const std::string& routine, const std::string& title,
                     const std::string& project, const std::string& code) override {
        ask<&SessionServices::ReportError>(description, style, routine, title, project, code);
    }

private:
    Late_connection connection_;
};

class Late_data final : public DataServices, Late_service {
public:
    using Late_service::Late_service;

    std::string LookupValue(const std::string& column, const std::string& key_column, const std::string& key,
                            const std::string& table, const std::string& condition) override {
        return ask<&look_up>(column, key_column, key, Slot(), Slot(), table, Optional_text{condition});
    }
    Date GetServerDate() override { return ask<&DataServices::GetServerDate>(); }
    std::string GetNextFolio(const std::string& branch, const std::string& document_code) override {
        return ask<&DataServices::GetNextFolio>(branch, document_code);
    }
    bool IsOperatingPeriodOpen(Date date, const std::string& module) override {
        return ask<&DataServices::IsOperatingPeriodOpen>(date, module);
    }
    std::string SqlDate(Date date) override { return ask<&DataServices::SqlDate>(date); }
    std::string SqlDateTime(Date date) override { return ask<&DataServices::SqlDateTime>(date); }
    bool RegisterDocument(const std::string& document_code, const std::string& folio) override {
        return ask<&DataServices::RegisterDocument>(document_code, folio);
    }
    bool IsDocumentPosted(const std::string& document_code, const std::string& folio) override {
        return ask<&DataServices::IsDocumentPosted>(document_code, folio);
    }
    std::string LastErrorText() override { return ask<&DataServices::LastErrorText>(); }
};

class Late_payment_methods final : public PaymentMethodService, Late_service {
public:
    using Late_service::Late_service;

    bool ValidatePaymentLine(const std::string& payment_method, const std::string& reference_number,
                             const std::string& bank, double amount, const std::string& document_code,
                             const std::string& folio, const std::string& reference,
                             const std::string& comment) override {
        return ask<&PaymentMethodService::ValidatePaymentLine>(payment_method, reference_number, bank, amount,
                                                               document_code, folio, reference, comment);
    }
    bool ReleasePaymentLine(const std::string& payment_method, const std::string& reference_number,
                            const std::string& bank) override {
        return ask<&PaymentMethodService::ReleasePaymentLine>(payment_method, reference_number, bank);
    }
    std::string LastError() override { return ask<&PaymentMethodService::LastError>(); }
};

class Late_document_payments final : public DocumentPaymentsService, Late_service {
public:
    using Late_service::Late_service;

    bool CancelDocumentPayments(const std::string& document_code, const std::string& folio) override {
        return ask<&DocumentPaymentsService::CancelDocumentPayments>(document_code, folio);
    }
    std::string LastError() override { return ask<&DocumentPaymentsService::LastError>(); }
};

class Late_payables final : public AccountsPayableService, Late_service {
public:
    using Late_service::Late_service;

    Payable NewDocument() override {
        document_ = Late_object(object_in(*ask<&AccountsPayableService::NewDocument>().get()));
        return record_in<Payable>(document_);
    }
    /// The suite gets its own document back, filled, with whatever else it keeps there.
    bool CreatePayable(const Payable& payable) override {
        if (!document_) return ask<&AccountsPayableService::CreatePayable>(payable);
        Late_object document = std::exchange(document_, {});
        put_record(document, payable);
        Any given[] = {any(document.object())};
        return boolean_in(*invoke<&AccountsPayableService::CreatePayable>(given).get());
    }
    bool CreateSupplierAdvance(const Supplier_advance& advance, std::string& payable_folio) override {
        return ask<&AccountsPayableService::CreateSupplierAdvance>(advance, payable_folio);
    }
    bool AddPaymentLine(const Payment_line& line) override {
        return ask<&AccountsPayableService::AddPaymentLine>(line);
    }
    bool ApplyPayments() override { return ask<&AccountsPayableService::ApplyPayments>(); }
    bool CancelPayment(const std::string& payable_folio, const std::string& payment_id) override {
        return ask<&AccountsPayableService::CancelPayment>(payable_folio, payment_id);
    }
    bool ValidateAdvanceCancellation(const std::string& advance_folio) override {
        return ask<&AccountsPayableService::ValidateAdvanceCancellation>(advance_folio);
    }
    bool CancelDocumentPayables(const std::string& document_code, const std::string& folio) override {
        return ask<&AccountsPayableService::CancelDocumentPayables>(document_code, folio);
    }
    std::string LastError() override { return ask<&AccountsPayableService::LastError>(); }

private:
    Late_object document_;
};

class Late_receivables final : public AccountsReceivableService, Late_service {
public:
    using Late_service::Late_service;

    bool ApplyReceipt(const Receipt_application& receipt) override {
        return ask<&AccountsReceivableService::ApplyReceipt>(receipt);
    }
    bool CreateReceivable(const Receivable& receivable) override {
        return ask<&AccountsReceivableService::CreateReceivable>(receivable);
    }
    bool ApplyCustomerDocument(const std::string& document_folio) override {
        return ask<&AccountsReceivableService::ApplyCustomerDocument>(document_folio);
    }
    bool ValidateDocumentCancellation(const std::string& document_code, const std::string& folio) override {
        return ask<&AccountsReceivableService::ValidateDocumentCancellation>(document_code, folio);
    }
    bool CancelDocumentAdvances(const std::string& document_code, const std::string& folio) override {
        return ask<&AccountsReceivableService::CancelDocumentAdvances>(document_code, folio);
    }
    bool CancelDocumentReceivables(const std::string& document_code, const std::string& folio) override {
        return ask<&AccountsReceivableService::CancelDocumentReceivables>(document_code, folio);
    }
    bool CancelPayment(const std::string& receivable_folio, const std::string& payment_id) override {
        return ask<&AccountsReceivableService::CancelPayment>(receivable_folio, payment_id);
    }
    bool RegisterPayment(const Receivable_payment& payment) override {
        return ask<&AccountsReceivableService::RegisterPayment>(payment);
    }
    bool DocumentCheck(const std::string& document_code, const std::string& folio) override {
        return ask<&AccountsReceivableService::DocumentCheck>(document_code, folio);
    }
    std::string LastError() override { return ask<&AccountsReceivableService::LastError>(); }
};

class Late_accounting final : public AccountingService, Late_service {
public:
    using Late_service::Late_service;

    bool IsPostingEnabled(const std::string& document_code) override {
        return ask<&AccountingService::IsPostingEnabled>(document_code);
    }
    bool PostDocument(const std::string& document_code, const std::string& folio, const std::string& company) override {
        return ask<&post_document>(document_code, folio, Optional_text{company});
    }
    bool ValidateVoucherCancellation(const std::string& document_code, const std::string& folio) override {
        return ask<&AccountingService::ValidateVoucherCancellation>(document_code, folio);
    }
    std::string LastError() override { return ask<&AccountingService::LastError>(); }
};

class Automation_suite final : public Suite {
public:
    explicit Automation_suite(Suite_objects objects) : objects_(std::move(objects)) {}

    std::shared_ptr<SessionServices> session() override { return shared<Late_session>(session_); }
    std::shared_ptr<DataServices> data() override { return shared<Late_data>(data_); }
    std::shared_ptr<PaymentMethodService> payment_methods() override {
        return shared<Late_payment_methods>(payment_methods_);
    }
    std::shared_ptr<DocumentPaymentsService> document_payments() override {
        return shared<Late_document_payments>(document_payments_);
    }

    std::unique_ptr<AccountsPayableService> new_accounts_payable() override {
        return made<Late_payables, AccountsPayableService>();
    }
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override {
        return made<Late_receivables, AccountsReceivableService>();
    }
    std::unique_ptr<AccountingService> new_accounting() override { return made<Late_accounting, AccountingService>(); }

private:
    template <class Late, class Service>
    std::unique_ptr<Service> made() const {
        return std::make_unique<Late>(objects_.prog_id<Service>());
    }
    template <class Late, class Service>
    std::shared_ptr<Service> shared(std::shared_ptr<Service>& kept) const {
        if (!kept) kept = made<Late, Service>();
        return kept;
    }

    Suite_objects objects_;
    std::shared_ptr<SessionServices> session_;
    std::shared_ptr<DataServices> data_;
    std::shared_ptr<PaymentMethodService> payment_methods_;
    std::shared_ptr<DocumentPaymentsService> document_payments_;
};

}  // namespace

std::shared_ptr<Suite> make_automation_suite(const Suite_objects& objects) {
    return std::make_shared<Automation_suite>(objects);
}

}  // namespace cuvexa::com_suite
