// Windows for commands that may show a dialog.
#pragma once

#include <memory>

#include "cuvexa/module.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa::cli {

/// What draws the dialogs; null when this program was built without windows.
std::shared_ptr<Dialog_toolkit> desktop();

/// The options with what the suite reports shown in the desktop's error dialog; without a display they stay as they are.
Suite_options reporting_in(const std::shared_ptr<Dialog_toolkit>& desktop, Suite_options options);

}  // namespace cuvexa::cli
