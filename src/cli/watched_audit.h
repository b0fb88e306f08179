// The audit, with a line that tells which of its rules is at work.
#pragma once

#include <vector>

#include "cuvexa/suite/audit.h"

namespace cuvexa::cli {

/// Throws `Interrupted` when Ctrl-C ends it. `line_wanted`: whether a person may see the line.
std::vector<Finding> watched_audit(Connection& connection, bool line_wanted = true);

}  // namespace cuvexa::cli
