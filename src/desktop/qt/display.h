// Whether there is a screen to show a window on.
#pragma once

#include <string>

namespace cuvexa::qt {

/// Why this process can show no window, in Spanish; empty when it can. Asked before the application object is made,
/// because that ends the process when there is no display.
std::string missing_display();

}  // namespace cuvexa::qt
