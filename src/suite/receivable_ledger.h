// Receivables, and the advances that stand among them with negative figures.
#pragma once

#include "suite/ledger.h"

namespace cuvexa::reference {

class Receivable_ledger : public Ledger {
public:
    explicit Receivable_ledger(Context& context) : Ledger(context, receivable_names) {}

    /// Cancels a payment. One that applied an advance has two halves, on the receivable that was paid and on the
    /// advance's own; they share their reference and go together, and the advance may be used again.
    void cancel_payment(const std::string& folio, const std::string& payment_id);

    /// Registers an advance of a document with its receivable and gives its folio.
    std::string open_advance(const New_account& advance);

    /// Refuses an advance that is used, or that accounting holds.
    void require_unused_advance(const std::string& advance_folio);

    void cancel_advance(const std::string& advance_folio);

private:
    void cancel_where(std::string_view condition, const std::string& now);
    void reopen_advance(std::string_view advance_folio, const std::string& now);
};

}  // namespace cuvexa::reference
