// What the audit found, with the way to the document.
#pragma once

#include "cuvexa/suite/audit.h"
#include "reports/document.h"

namespace cuvexa::reports {

/// The document or account that a finding is about; empty when it has no page.
Address address_of(const Finding& finding);

}  // namespace cuvexa::reports
