// Texts on their way between the forms (UTF-8) and the system (UTF-16).
#pragma once

#include <string>
#include <string_view>

#include "desktop/win32/system.h"

namespace cuvexa::win32 {

std::wstring wide(std::string_view text);
std::string utf8(std::wstring_view text);

/// A text of a label or button, in which an ampersand is an ampersand.
std::wstring label_text(std::string_view text);

/// A text of several lines, its breaks as the system's controls want them.
std::wstring lines_of(std::string_view text);

/// What stands in the window.
std::wstring text_of(HWND window);

}  // namespace cuvexa::win32
