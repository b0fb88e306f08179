// What a member that shows a dialog needs of the program.
#pragma once

#include <memory>

#include "cuvexa/dialogs.h"

namespace cuvexa::dialogs {

/// The toolkit that shows dialogs. Throws `Automation_error` with the reason when the program has none, or when it can show
/// none now: the two members have no trap of their own.
std::shared_ptr<Dialog_toolkit> usable_toolkit(Module& module);

}  // namespace cuvexa::dialogs
