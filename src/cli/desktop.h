// Windows for commands that may show a dialog.
#pragma once

#include <memory>

#include "cuvexa/module.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa::cli {

/// What draws the dialogs; null when this program was built without windows.
std::shared_ptr<Dialog_toolkit> desktop();

/// Shows what the suite reports in its error dialog when there is a display; without one it stays a line on standard
/// error.
void report_in_windows(Suite_options& options, const std::shared_ptr<Dialog_toolkit>& desktop);

}  // namespace cuvexa::cli
