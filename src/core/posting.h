// The hand-off of a finished document to accounting.
#pragma once

#include <string>

#include "core/operation.h"

namespace cuvexa {

/// Asks accounting for the voucher of a document. Refuses with the service's text when it fails, or when it succeeds
/// but leaves a text all the same.
void post(Operation& op, AccountingService& accounting, const std::string& code, const std::string& folio,
          const std::string& company);

/// The same, only while documents of that code are posted automatically.
void post_if_enabled(Operation& op, AccountingService& accounting, const std::string& code, const std::string& folio,
                     const std::string& company);

}  // namespace cuvexa
