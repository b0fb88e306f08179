// Accounts payable and supplier advances, as the suite keeps them.
#pragma once

#include "model/ledger.h"

namespace cuvexa::model {

struct New_payable {
    Text supplier, branch;
    Date date;
    Text comment, table, document;
    Date due_date;
    double amount = 0, net_amount = 0;
    Text reference, currency;
    double rate = 0;
};

struct Supplier_advance {
    Date date;
    Text reference, check_folio, currency;
    double rate = 0;
    Text branch, supplier;
    double amount = 0;
    Text concept_text, bank_account;
};

struct Payment_line {
    Date date;
    Text payable_folio, check_folio, check_number, method;
    double amount = 0, rate = 0;
    Text currency, bank_name, bank_account_number, bank;
};

struct Payables : Ledger<Payable_names> {
    using Ledger::Ledger;

    bool CreatePayable(const New_payable& payable);
    bool CreateSupplierAdvance(const Supplier_advance& advance, Text& payable_folio);
    bool AddPaymentLine(const Payment_line& line);
    bool ApplyPayments();
    bool CancelPayment(const Text& folio, const Text& id);
    bool ValidateAdvanceCancellation(const Text& advance_folio);
    bool CancelDocumentPayables(const Text& document_code, const Text& folio);

private:
    Text supplier_account(const New_payable& payable);

    struct Pending {
        rows::Cuenta_x_Pagar account;
        Payment_line line;
        double amount = 0;  ///< in the payable's currency
    };
    std::vector<Pending> pending_;
};

}  // namespace cuvexa::model
