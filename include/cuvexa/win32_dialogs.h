// The two dialogs drawn with the controls of Windows. Link Cuvexa::win32.
#pragma once

#include <memory>

#include "cuvexa/dialogs.h"

namespace cuvexa {

/// A toolkit of the system's own windows, to be given to a `Module`:
///
///     module.dialog_toolkit(make_win32_toolkit());
///
/// A dialog belongs to the active window of the thread that shows it, and keeps the other windows of that thread from
/// the user until it closes; the program's other messages go on. It has the resolution that the program asked for, and
/// follows a change of monitor where the program does. The program needs no preparation. In a service, which has no
/// desktop, there is an obstacle instead. To be used by one thread.
std::shared_ptr<Dialog_toolkit> make_win32_toolkit();

}  // namespace cuvexa
