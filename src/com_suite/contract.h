// What travels between this component and a suite that is reached through automation: the services, the operations of each
// and the fields of the records. Both sides – the calls on a suite, and the reference suite's own objects – find names and
// types here, and a test holds docs/suite-automation.md against it on any machine: nothing here needs the headers of Windows.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "cuvexa/services.h"

namespace cuvexa::com_suite {

// ---- Records: objects with a property per field ---------------------------------------------------------------------

/// A field under the name that it has as a property.
template <class Record, class Type>
struct Property {
    std::string_view name;
    Type Record::*place;
};

/// The fields of a record in their order. Empty for what is no record.
template <class Record>
inline constexpr std::tuple<> properties{};

template <>
inline constexpr std::tuple properties<Payable>{
    Property{"Supplier", &Payable::supplier},
    Property{"Branch", &Payable::branch},
    Property{"Date", &Payable::date},
    Property{"Comment", &Payable::comment},
    Property{"SourceTable", &Payable::source_table},
    Property{"SourceDocument", &Payable::source_document},
    Property{"DueDate", &Payable::due_date},
    Property{"Amount", &Payable::amount},
    Property{"NetAmount", &Payable::net_amount},
    Property{"Reference", &Payable::reference},
    Property{"Currency", &Payable::currency},
    Property{"ExchangeRate", &Payable::exchange_rate},
};

template <>
inline constexpr std::tuple properties<Supplier_advance>{
    Property{"Date", &Supplier_advance::date},
    Property{"Reference", &Supplier_advance::reference},
    Property{"CheckFolio", &Supplier_advance::check_folio},
    Property{"Currency", &Supplier_advance::currency},
    Property{"ExchangeRate", &Supplier_advance::exchange_rate},
    Property{"Branch", &Supplier_advance::branch},
    Property{"Supplier", &Supplier_advance::supplier},
    Property{"Amount", &Supplier_advance::amount},
    Property{"ConceptText", &Supplier_advance::concept_text},
    Property{"BankAccount", &Supplier_advance::bank_account},
};

template <>
inline constexpr std::tuple properties<Payment_line>{
    Property{"Date", &Payment_line::date},
    Property{"PayableFolio", &Payment_line::payable_folio},
    Property{"CheckFolio", &Payment_line::check_folio},
    Property{"CheckNumber", &Payment_line::check_number},
    Property{"PaymentMethod", &Payment_line::payment_method},
    Property{"Amount", &Payment_line::amount},
    Property{"ExchangeRate", &Payment_line::exchange_rate},
    Property{"Currency", &Payment_line::currency},
    Property{"BankName", &Payment_line::bank_name},
    Property{"BankAccountNumber", &Payment_line::bank_account_number},
    Property{"Bank", &Payment_line::bank},
};

template <>
inline constexpr std::tuple properties<Receipt_application>{
    Property{"Customer", &Receipt_application::customer},
    Property{"DocumentCode", &Receipt_application::document_code},
    Property{"Folio", &Receipt_application::folio},
    Property{"Date", &Receipt_application::date},
    Property{"Reference", &Receipt_application::reference},
    Property{"Comment", &Receipt_application::comment},
    Property{"Branch", &Receipt_application::branch},
    Property{"Amount", &Receipt_application::amount},
    Property{"Currency", &Receipt_application::currency},
    Property{"ExchangeRate", &Receipt_application::exchange_rate},
};

template <>
inline constexpr std::tuple properties<Receivable>{
    Property{"Branch", &Receivable::branch},
    Property{"Customer", &Receivable::customer},
    Property{"ExchangeRate", &Receivable::exchange_rate},
    Property{"Currency", &Receivable::currency},
    Property{"SourceTable", &Receivable::source_table},
    Property{"SourceDocument", &Receivable::source_document},
    Property{"Comment", &Receivable::comment},
    Property{"Reference", &Receivable::reference},
    Property{"Date", &Receivable::date},
    Property{"DueDate", &Receivable::due_date},
    Property{"Amount", &Receivable::amount},
    Property{"NetAmount", &Receivable::net_amount},
    Property{"NetPriceAmount", &Receivable::net_price_amount},
    Property{"Balance", &Receivable::balance},
};

template <>
inline constexpr std::tuple properties<Receivable_payment>{
    Property{"ReceivableFolio", &Receivable_payment::receivable_folio},
    Property{"Amount", &Receivable_payment::amount},
    Property{"Date", &Receivable_payment::date},
    Property{"ConceptText", &Receivable_payment::concept_text},
    Property{"SourceTable", &Receivable_payment::source_table},
    Property{"SourceDocument", &Receivable_payment::source_document},
    Property{"Reference", &Receivable_payment::reference},
    Property{"Currency", &Receivable_payment::currency},
    Property{"ExchangeRate", &Receivable_payment::exchange_rate},
    Property{"PaymentMethod", &Receivable_payment::payment_method},
    Property{"UpdateBalance", &Receivable_payment::update_balance},
    Property{"ValidateBalance", &Receivable_payment::validate_balance},
    Property{"RegisterDocument", &Receivable_payment::register_document},
};

template <class Type>
concept Travelling_record = std::tuple_size_v<std::remove_const_t<decltype(properties<Type>)>> >
0;

// ---- Operations: their arguments in order ---------------------------------------------------------------------------

/// An argument by reference that the component passes as an empty text and does not look at afterwards.
struct Slot {};

/// A text at the end that may be left out.
struct Optional_text {
    std::string text;
};

/// A number that suites declare 16 bits wide.
struct Short {
    int number = 0;
};

/// An operation under its name: a member function of the service, or a function that takes the service first where what
/// travels is not what the service takes.
template <auto operation>
struct Named {
    std::string_view name;
};
#define CUVEXA_NAMED(service, operation) \
    Named<&service::operation> {         \
#operation                       \
    }

/// The operations of a service, in the order of their numbers.
template <class Service>
inline constexpr std::tuple<> operations{};

inline Value get_parameter(SessionServices& session, const std::string& name, Short flag, const std::string& type,
                           const std::string& fallback) {
    return session.GetParameter(name, flag.number, type, fallback);
}

template <>
inline constexpr std::tuple operations<SessionServices>{
    CUVEXA_NAMED(SessionServices, GetConnection),   Named<&get_parameter>{"GetParameter"},
    CUVEXA_NAMED(SessionServices, GetUserName),     CUVEXA_NAMED(SessionServices, GetServerId),
    CUVEXA_NAMED(SessionServices, IsReplicaServer), CUVEXA_NAMED(SessionServices, ReportError),
};

inline std::string look_up(DataServices& data, const std::string& column, const std::string& key_column,
                           const std::string& key, Slot, Slot, const std::string& table,
                           const Optional_text& condition) {
    return data.LookupValue(column, key_column, key, table, condition.text);
}

template <>
inline constexpr std::tuple operations<DataServices>{
    Named<&look_up>{"LookupValue"},
    CUVEXA_NAMED(DataServices, GetServerDate),
    CUVEXA_NAMED(DataServices, GetNextFolio),
    CUVEXA_NAMED(DataServices, IsOperatingPeriodOpen),
    CUVEXA_NAMED(DataServices, SqlDate),
    CUVEXA_NAMED(DataServices, SqlDateTime),
    CUVEXA_NAMED(DataServices, RegisterDocument),
    CUVEXA_NAMED(DataServices, IsDocumentPosted),
    CUVEXA_NAMED(DataServices, LastErrorText),
};

template <>
inline constexpr std::tuple operations<PaymentMethodService>{
    CUVEXA_NAMED(PaymentMethodService, ValidatePaymentLine),
    CUVEXA_NAMED(PaymentMethodService, ReleasePaymentLine),
    CUVEXA_NAMED(PaymentMethodService, LastError),
};

template <>
inline constexpr std::tuple operations<DocumentPaymentsService>{
    CUVEXA_NAMED(DocumentPaymentsService, CancelDocumentPayments),
    CUVEXA_NAMED(DocumentPaymentsService, LastError),
};

template <>
inline constexpr std::tuple operations<AccountsPayableService>{
    CUVEXA_NAMED(AccountsPayableService, NewDocument),
    CUVEXA_NAMED(AccountsPayableService, CreatePayable),
    CUVEXA_NAMED(AccountsPayableService, CreateSupplierAdvance),
    CUVEXA_NAMED(AccountsPayableService, AddPaymentLine),
    CUVEXA_NAMED(AccountsPayableService, ApplyPayments),
    CUVEXA_NAMED(AccountsPayableService, CancelPayment),
    CUVEXA_NAMED(AccountsPayableService, ValidateAdvanceCancellation),
    CUVEXA_NAMED(AccountsPayableService, CancelDocumentPayables),
    CUVEXA_NAMED(AccountsPayableService, LastError),
};

template <>
inline constexpr std::tuple operations<AccountsReceivableService>{
    CUVEXA_NAMED(AccountsReceivableService, ApplyReceipt),
    CUVEXA_NAMED(AccountsReceivableService, CreateReceivable),
    CUVEXA_NAMED(AccountsReceivableService, ApplyCustomerDocument),
    CUVEXA_NAMED(AccountsReceivableService, ValidateDocumentCancellation),
    CUVEXA_NAMED(AccountsReceivableService, CancelDocumentAdvances),
    CUVEXA_NAMED(AccountsReceivableService, CancelDocumentReceivables),
    CUVEXA_NAMED(AccountsReceivableService, CancelPayment),
    CUVEXA_NAMED(AccountsReceivableService, RegisterPayment),
    CUVEXA_NAMED(AccountsReceivableService, DocumentCheck),
    CUVEXA_NAMED(AccountsReceivableService, LastError),
};

inline bool post_document(AccountingService& accounting, const std::string& document_code, const std::string& folio,
                          const Optional_text& company) {
    return accounting.PostDocument(document_code, folio, company.text);
}

template <>
inline constexpr std::tuple operations<AccountingService>{
    CUVEXA_NAMED(AccountingService, IsPostingEnabled),
    Named<&post_document>{"PostDocument"},
    CUVEXA_NAMED(AccountingService, ValidateVoucherCancellation),
    CUVEXA_NAMED(AccountingService, LastError),
};
#undef CUVEXA_NAMED

/// What the function of an operation takes and gives.
template <class Function>
struct Signature;
template <class Service_, class Result_, class... Parameter>
struct Signature<Result_ (Service_::*)(Parameter...)> {
    using Service = Service_;
    using Result = Result_;
    using Parameters = std::tuple<Parameter...>;
};
template <class Service_, class Result_, class... Parameter>
struct Signature<Result_ (*)(Service_&, Parameter...)> : Signature<Result_ (Service_::*)(Parameter...)> {};

/// The name of an operation of the lists.
template <auto operation>
inline constexpr std::string_view name_of =
    std::get<Named<operation>>(operations<typename Signature<decltype(operation)>::Service>).name;

// ---- Services -------------------------------------------------------------------------------------------------------

/// A service under the name that its class and its setting have, and how a suite gives it.
template <class Service>
struct Named_service {
    std::string_view name;
    std::string_view subject;  ///< what it is about, for whom looks at the registry
    std::shared_ptr<Service> (*take)(Suite& suite);
};

template <auto give>
auto taken(Suite& suite) {
    auto service = (suite.*give)();
    return std::shared_ptr<typename decltype(service)::element_type>(std::move(service));
}

/// In the order that gives the classes of CuvexaSuite.dll their identifiers: another one goes to the end.
inline constexpr std::tuple services{
    Named_service{"SessionServices", "session", &taken<&Suite::session>},
    Named_service{"DataServices", "data", &taken<&Suite::data>},
    Named_service{"PaymentMethodService", "payment methods", &taken<&Suite::payment_methods>},
    Named_service{"DocumentPaymentsService", "document payments", &taken<&Suite::document_payments>},
    Named_service{"AccountsPayableService", "accounts payable", &taken<&Suite::new_accounts_payable>},
    Named_service{"AccountsReceivableService", "accounts receivable", &taken<&Suite::new_accounts_receivable>},
    Named_service{"AccountingService", "accounting", &taken<&Suite::new_accounting>},
};

template <class Service>
inline constexpr const Named_service<Service>& service = std::get<Named_service<Service>>(services);

/// Runs `body` with every service of the list in turn.
template <class Body>
void for_each_service(Body&& body) {
    std::apply([&](const auto&... service) { (body(service), ...); }, services);
}

}  // namespace cuvexa::com_suite
