// Accounts receivable and customer advances, as the suite keeps them.
#pragma once

#include "model/ledger.h"

namespace cuvexa::model {

struct Receipt_application {
    Text customer, document_code, folio;
    Date date;
    Text reference, comment, branch;
    double amount = 0;
    Text currency;
    double rate = 0;
};

/// A receivable to create; the four amounts are those of the published record.
struct New_receivable {
    Text branch, customer;
    double rate = 0;
    Text currency, table, document, comment, reference;
    Date date, due_date;
    double amount = 0, net_amount = 0, net_price_amount = 0, balance = 0;
};

struct Receivables : Ledger<Receivable_names> {
    using Ledger::Ledger;

    bool ApplyReceipt(const Receipt_application& receipt);
    bool CreateReceivable(const New_receivable& receivable);
    bool ApplyCustomerDocument(const Text& document_folio);
    bool ValidateDocumentCancellation(const Text& document_code, const Text& folio);
    bool CancelDocumentAdvances(const Text& document_code, const Text& folio);
    bool CancelDocumentReceivables(const Text& document_code, const Text& folio);
    bool CancelPayment(const Text& folio, const Text& id);
    bool RegisterPayment(const Text& folio, const New_payment& payment);
    bool DocumentCheck(const Text& document_code, const Text& folio);

    /// Cancels a payment; one that applied an advance takes its twin with it and opens the advance again.
    void cancel_payment(const Text& folio, const Text& id);

private:
    void require_customer(const Text& customer);
    double pay_open_receivables(const Receipt_application& receipt);
    void open_advance(const Receipt_application& receipt, double amount);
    void reopen_advance(const Text& advance);
    template <class Where>
    void cancel_where(Where&& where);
};

}  // namespace cuvexa::model
