// Accounts receivable over `Cuenta_x_Cobrar`, `Pago_Cxc` and `Anticipo_Cxc`.
//
// After every operation the balance of a receivable equals its amount less its live payments, and its payments are
// numbered without gaps. An advance stands among the receivables ('ANTICIPO_CXC', the advance's folio as document) with
// negative figures, and so do its payments.
#pragma once

#include "suite/receivable_ledger.h"

namespace cuvexa::reference {

class Receivables : public AccountsReceivableService {
public:
    explicit Receivables(std::shared_ptr<Context> context) : context_(std::move(context)), ledger_(*context_) {}

    /// Pays the receivables of the document that the receipt names, or, when it names none, the customer's open
    /// receivables of that currency, oldest first; what is left is kept as an advance of the receipt. Refuses an
    /// unknown or retired customer and an amount that is not positive.
    bool ApplyReceipt(const Receipt_application& receipt) override;

    /// Refuses an unknown or retired customer or currency, no amount, a rate that is not positive, a first balance
    /// other than the amount, a closed folio series. The amount is the net price, or where that is not given the net or
    /// the total.
    bool CreateReceivable(const Receivable& receivable) override;

    /// Creates the receivable of an expense to be justified, unless it has one already. Refuses an unknown or cancelled
    /// expense.
    bool ApplyCustomerDocument(const std::string& document_folio) override;

    /// Refuses when a live receivable of the document has live payments or is posted by hand.
    bool ValidateDocumentCancellation(const std::string& document_code, const std::string& folio) override;

    /// Refuses, before anything is cancelled, when one of the advances is used or posted by hand.
    bool CancelDocumentAdvances(const std::string& document_code, const std::string& folio) override;

    /// Refuses, before anything is cancelled, when one of the receivables has live payments or is posted by hand.
    bool CancelDocumentReceivables(const std::string& document_code, const std::string& folio) override;

    bool CancelPayment(const std::string& receivable_folio, const std::string& payment_id) override;

    /// Refuses an unknown, cancelled or withdrawn receivable, an amount that is not positive, and, where the balance is
    /// to be validated, more than the balance: both are compared by their whole units.
    bool RegisterPayment(const Receivable_payment& payment) override;

    /// For an advance: refuses an unknown or cancelled one. For any document: refuses one posted by hand, and all while
    /// the period of CUENTAS_X_COBRAR of today is closed.
    bool DocumentCheck(const std::string& document_code, const std::string& folio) override;

    std::string LastError() override { return last_error_; }

private:
    double pay_open_receivables(const Receipt_application& receipt);
    double pay_from(const Receipt_application& receipt, Rows open, double left);

    std::shared_ptr<Context> context_;
    Receivable_ledger ledger_;
    std::string last_error_;
};

}  // namespace cuvexa::reference
