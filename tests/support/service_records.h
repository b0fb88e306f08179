// What callers hand to the services of payables and receivables: records of the sample company that are accepted as they
// are. A test changes the one thing it is about.
#pragma once

#include <string>

#include "cuvexa/services.h"
#include "support/company.h"

namespace cuvexa::tests {

/// Something owed to the supplier PV01 by a receipt.
inline Payable payable_of(AccountsPayableService& payables, double amount) {
    Payable document = payables.NewDocument();
    document.supplier = "PV01";
    document.branch = "MTY";
    document.source_table = "Recibo_Pago";
    document.source_document = "RP-MTY-00000001";
    document.amount = document.net_amount = amount;
    return document;
}

/// The payment of a payable by a check.
inline Payment_line check_payment(const std::string& payable, double amount) {
    return {.date = Company::now(),
            .payable_folio = payable,
            .check_folio = "CH-MTY-00000001",
            .check_number = "1001",
            .payment_method = "02",
            .amount = amount,
            .exchange_rate = 1,
            .currency = "MXN",
            .bank_name = "Banco de la Sierra",
            .bank_account_number = "0901000001",
            .bank = "SIERRA"};
}

/// Something that the customer CL01 owes by a receipt.
inline Receivable receivable_of(double amount) {
    return {.branch = "MTY",
            .customer = "CL01",
            .exchange_rate = 1,
            .currency = "MXN",
            .source_table = "Recibo_Pago",
            .source_document = "RP-MTY-00000001",
            .comment = "",
            .reference = "",
            .date = Company::now(),
            .due_date = Company::now(),
            .amount = amount,
            .net_amount = amount,
            .net_price_amount = amount,
            .balance = amount};
}

/// A payment of a receivable, in cash.
inline Receivable_payment cash_payment(const std::string& receivable, double amount) {
    Receivable_payment payment;
    payment.receivable_folio = receivable;
    payment.amount = amount;
    payment.date = Company::now();
    payment.currency = "MXN";
    payment.exchange_rate = 1;
    payment.payment_method = "01";
    return payment;
}

/// A receipt of the customer CL01, to be applied to what he owes.
inline Receipt_application receipt_of(double amount, const std::string& folio = "RP-MTY-00000001") {
    return {.customer = "CL01",
            .document_code = "RECIBO_PAGO",
            .folio = folio,
            .date = Company::now(),
            .reference = "",
            .comment = "",
            .branch = "MTY",
            .amount = amount,
            .currency = "MXN",
            .exchange_rate = 1};
}

}  // namespace cuvexa::tests
