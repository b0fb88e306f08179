#include "core/posting.h"

namespace cuvexa {

void post(Operation& op, AccountingService& accounting, const std::string& code, const std::string& folio,
          const std::string& company) {
    const bool posted = accounting.PostDocument(code, folio, company);
    const std::string complaint = accounting.LastError();
    op.refuse_if(!posted || !complaint.empty(), "{}", complaint);
}

void post_if_enabled(Operation& op, AccountingService& accounting, const std::string& code, const std::string& folio,
                     const std::string& company) {
    if (accounting.IsPostingEnabled(code)) post(op, accounting, code, folio, company);
}

}  // namespace cuvexa
