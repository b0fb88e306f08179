// What travels between this component and a suite that is reached through automation: the operations of every service,
// and the fields of the records. Both sides – the calls on a suite, and the reference suite's own objects – are made
// from these lists; docs/suite-automation.md lists the same.
#pragma once

#include <string>
#include <string_view>
#include <tuple>

#include "cuvexa/services.h"

namespace cuvexa::com_suite {

// ---- Records: objects with a property per field ---------------------------------------------------------------------

/// A field under the name that it has as a property.
template <class Record, class Type>
struct Field {
    std::string_view name;
    Type Record::*place;
};

/// The fields of a record in their order. Empty for what is no record.
template <class Record>
inline constexpr std::tuple<> fields{};

template <>
inline constexpr auto fields<Payable> = std::tuple{
    Field{"Supplier", &Payable::supplier},
    Field{"Branch", &Payable::branch},
    Field{"Date", &Payable::date},
    Field{"Comment", &Payable::comment},
    Field{"SourceTable", &Payable::source_table},
    Field{"SourceDocument", &Payable::source_document},
    Field{"DueDate", &Payable::due_date},
    Field{"Amount", &Payable::amount},
    Field{"NetAmount", &Payable::net_amount},
    Field{"Reference", &Payable::reference},
    Field{"Currency", &Payable::currency},
    Field{"ExchangeRate", &Payable::exchange_rate},
};

template <>
inline constexpr auto fields<Supplier_advance> = std::tuple{
    Field{"Date", &Supplier_advance::date},
    Field{"Reference", &Supplier_advance::reference},
    Field{"CheckFolio", &Supplier_advance::check_folio},
    Field{"Currency", &Supplier_advance::currency},
    Field{"ExchangeRate", &Supplier_advance::exchange_rate},
    Field{"Branch", &Supplier_advance::branch},
    Field{"Supplier", &Supplier_advance::supplier},
    Field{"Amount", &Supplier_advance::amount},
    Field{"ConceptText", &Supplier_advance::concept_text},
    Field{"BankAccount", &Supplier_advance::bank_account},
};

template <>
inline constexpr auto fields<Payment_line> = std::tuple{
    Field{"Date", &Payment_line::date},
    Field{"PayableFolio", &Payment_line::payable_folio},
    Field{"CheckFolio", &Payment_line::check_folio},
    Field{"CheckNumber", &Payment_line::check_number},
    Field{"PaymentMethod", &Payment_line::payment_method},
    Field{"Amount", &Payment_line::amount},
    Field{"ExchangeRate", &Payment_line::exchange_rate},
    Field{"Currency", &Payment_line::currency},
    Field{"BankName", &Payment_line::bank_name},
    Field{"BankAccountNumber", &Payment_line::bank_account_number},
    Field{"Bank", &Payment_line::bank},
};

template <>
inline constexpr auto fields<Receipt_application> = std::tuple{
    Field{"Customer", &Receipt_application::customer},   Field{"DocumentCode", &Receipt_application::document_code},
    Field{"Folio", &Receipt_application::folio},         Field{"Date", &Receipt_application::date},
    Field{"Reference", &Receipt_application::reference}, Field{"Comment", &Receipt_application::comment},
    Field{"Branch", &Receipt_application::branch},       Field{"Amount", &Receipt_application::amount},
    Field{"Currency", &Receipt_application::currency},   Field{"ExchangeRate", &Receipt_application::exchange_rate},
};

template <>
inline constexpr auto fields<Receivable> = std::tuple{
    Field{"Branch", &Receivable::branch},
    Field{"Customer", &Receivable::customer},
    Field{"ExchangeRate", &Receivable::exchange_rate},
    Field{"Currency", &Receivable::currency},
    Field{"SourceTable", &Receivable::source_table},
    Field{"SourceDocument", &Receivable::source_document},
    Field{"Comment", &Receivable::comment},
    Field{"Reference", &Receivable::reference},
    Field{"Date", &Receivable::date},
    Field{"DueDate", &Receivable::due_date},
    Field{"Amount", &Receivable::amount},
    Field{"NetAmount", &Receivable::net_amount},
    Field{"NetPriceAmount", &Receivable::net_price_amount},
    Field{"Balance", &Receivable::balance},
};

template <>
inline constexpr auto fields<Receivable_payment> = std::tuple{
    Field{"ReceivableFolio", &Receivable_payment::receivable_folio},
    Field{"Amount", &Receivable_payment::amount},
    Field{"Date", &Receivable_payment::date},
    Field{"ConceptText", &Receivable_payment::concept_text},
    Field{"SourceTable", &Receivable_payment::source_table},
    Field{"SourceDocument", &Receivable_payment::source_document},
    Field{"Reference", &Receivable_payment::reference},
    Field{"Currency", &Receivable_payment::currency},
    Field{"ExchangeRate", &Receivable_payment::exchange_rate},
    Field{"PaymentMethod", &Receivable_payment::payment_method},
    Field{"UpdateBalance", &Receivable_payment::update_balance},
    Field{"ValidateBalance", &Receivable_payment::validate_balance},
    Field{"RegisterDocument", &Receivable_payment::register_document},
};

template <class Type>
concept Record = std::tuple_size_v<std::remove_const_t<decltype(fields<Type>)>> >
0;

// ---- Operations: their arguments in order ---------------------------------------------------------------------------

/// An argument by reference that the component passes as an empty text and does not look at afterwards.
struct Slot {};

/// A text at the end that may be left out.
struct Optional_text {
    std::string text;
};

/// An operation under its name: a member function of the service, or a function that takes the service first.
template <class Function>
struct Operation {
    std::string_view name;
    Function function;
};

/// The operations of a service, in the order of their numbers.
template <class Service>
inline constexpr std::tuple<> operations{};

template <>
inline constexpr auto operations<SessionServices> = std::tuple{
    Operation{"GetConnection", &SessionServices::GetConnection},
    Operation{"GetParameter", &SessionServices::GetParameter},
    Operation{"GetUserName", &SessionServices::GetUserName},
    Operation{"GetServerId", &SessionServices::GetServerId},
    Operation{"IsReplicaServer", &SessionServices::IsReplicaServer},
    Operation{"ReportError", &SessionServices::ReportError},
};

inline std::string look_up(DataServices& data, const std::string& column, const std::string& key_column,
                           const std::string& key, Slot, Slot, const std::string& table,
                           const Optional_text& condition) {
    return data.LookupValue(column, key_column, key, table, condition.text);
}

template <>
inline constexpr auto operations<DataServices> = std::tuple{
    Operation{"LookupValue", &look_up},
    Operation{"GetServerDate", &DataServices::GetServerDate},
    Operation{"GetNextFolio", &DataServices::GetNextFolio},
    Operation{"IsOperatingPeriodOpen", &DataServices::IsOperatingPeriodOpen},
    Operation{"SqlDate", &DataServices::SqlDate},
    Operation{"SqlDateTime", &DataServices::SqlDateTime},
    Operation{"RegisterDocument", &DataServices::RegisterDocument},
    Operation{"IsDocumentPosted", &DataServices::IsDocumentPosted},
    Operation{"LastErrorText", &DataServices::LastErrorText},
};

template <>
inline constexpr auto operations<PaymentMethodService> = std::tuple{
    Operation{"ValidatePaymentLine", &PaymentMethodService::ValidatePaymentLine},
    Operation{"ReleasePaymentLine", &PaymentMethodService::ReleasePaymentLine},
    Operation{"LastError", &PaymentMethodService::LastError},
};

template <>
inline constexpr auto operations<DocumentPaymentsService> = std::tuple{
    Operation{"CancelDocumentPayments", &DocumentPaymentsService::CancelDocumentPayments},
    Operation{"LastError", &DocumentPaymentsService::LastError},
};

template <>
inline constexpr auto operations<AccountsPayableService> = std::tuple{
    Operation{"NewDocument", &AccountsPayableService::NewDocument},
    Operation{"CreatePayable", &AccountsPayableService::CreatePayable},
    Operation{"CreateSupplierAdvance", &AccountsPayableService::CreateSupplierAdvance},
    Operation{"AddPaymentLine", &AccountsPayableService::AddPaymentLine},
    Operation{"ApplyPayments", &AccountsPayableService::ApplyPayments},
    Operation{"CancelPayment", &AccountsPayableService::CancelPayment},
    Operation{"ValidateAdvanceCancellation", &AccountsPayableService::ValidateAdvanceCancellation},
    Operation{"CancelDocumentPayables", &AccountsPayableService::CancelDocumentPayables},
    Operation{"LastError", &AccountsPayableService::LastError},
};

template <>
inline constexpr auto operations<AccountsReceivableService> = std::tuple{
    Operation{"ApplyReceipt", &AccountsReceivableService::ApplyReceipt},
    Operation{"CreateReceivable", &AccountsReceivableService::CreateReceivable},
    Operation{"ApplyCustomerDocument", &AccountsReceivableService::ApplyCustomerDocument},
    Operation{"ValidateDocumentCancellation", &AccountsReceivableService::ValidateDocumentCancellation},
    Operation{"CancelDocumentAdvances", &AccountsReceivableService::CancelDocumentAdvances},
    Operation{"CancelDocumentReceivables", &AccountsReceivableService::CancelDocumentReceivables},
    Operation{"CancelPayment", &AccountsReceivableService::CancelPayment},
    Operation{"RegisterPayment", &AccountsReceivableService::RegisterPayment},
    Operation{"DocumentCheck", &AccountsReceivableService::DocumentCheck},
    Operation{"LastError", &AccountsReceivableService::LastError},
};

inline bool post_document(AccountingService& accounting, const std::string& document_code, const std::string& folio,
                          const Optional_text& company) {
    return accounting.PostDocument(document_code, folio, company.text);
}

template <>
inline constexpr auto operations<AccountingService> = std::tuple{
    Operation{"IsPostingEnabled", &AccountingService::IsPostingEnabled},
    Operation{"PostDocument", &post_document},
    Operation{"ValidateVoucherCancellation", &AccountingService::ValidateVoucherCancellation},
    Operation{"LastError", &AccountingService::LastError},
};

}  // namespace cuvexa::com_suite
