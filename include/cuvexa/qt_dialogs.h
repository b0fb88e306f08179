// The two dialogs drawn with Qt 6 Widgets. Link Cuvexa::qt.
#pragma once

#include <memory>

#include "cuvexa/dialogs.h"

namespace cuvexa {

/// A toolkit of Qt windows, to be given to a `Module`:
///
///     module.dialog_toolkit(make_qt_toolkit());
///
/// In a program with a QApplication the windows belong to its active window. In any other program the first dialog
/// makes the application object, which then stays; without a display there is an obstacle instead. To be used by the
/// thread that shows the first dialog, and by no other.
std::shared_ptr<Dialog_toolkit> make_qt_toolkit();

}  // namespace cuvexa
