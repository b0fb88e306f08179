// Accounts payable over `Cuenta_x_Pagar` and `Pago_Cxp`.
//
// After every operation the balance of a payable equals its amount less its live payments, and its payments are
// numbered without gaps. A supplier advance is a payable of its own ('ANTICIPO_CXP', its own folio as document) with
// negative figures: the supplier owes it to us. A payment has the sign of its payable.
#pragma once

#include <vector>

#include "suite/ledger.h"

namespace cuvexa::reference {

class Payables : public AccountsPayableService {
public:
    explicit Payables(std::shared_ptr<Context> context)
        : context_(std::move(context)), ledger_(*context_, payable_names) {}

    /// Today's date, local currency, rate 1.
    Payable NewDocument() override;

    /// Refuses an unknown or retired supplier or currency, no amount, a rate that is not positive, a closed folio
    /// series.
    bool CreatePayable(const Payable& payable) override;

    /// Refuses as `CreatePayable`, and an amount that is not positive.
    bool CreateSupplierAdvance(const Supplier_advance& advance, std::string& payable_folio) override;

    /// Refuses an unknown, cancelled or withdrawn payable, no amount, an amount of the other sign, and more than the
    /// balance that the lines already added leave.
    bool AddPaymentLine(const Payment_line& line) override;

    /// Posts the added lines in their order and forgets them.
    bool ApplyPayments() override;

    bool CancelPayment(const std::string& payable_folio, const std::string& payment_id) override;

    /// Refuses an advance with live payments and one posted by hand. There is nothing to withdraw of an unknown
    /// advance.
    bool ValidateAdvanceCancellation(const std::string& advance_folio) override;

    /// Refuses, before anything is cancelled, when one of the payables has live payments or is posted by hand.
    bool CancelDocumentPayables(const std::string& document_code, const std::string& folio) override;

    std::string LastError() override { return last_error_; }

private:
    struct Pending {
        Account account;
        Payment_line line;
        double amount;  ///< in the payable's currency
    };

    void post(const Pending& pending);

    std::shared_ptr<Context> context_;
    Ledger ledger_;
    std::vector<Pending> pending_;
    std::string last_error_;
};

}  // namespace cuvexa::reference
