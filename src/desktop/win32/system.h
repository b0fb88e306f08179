// The system's headers, in the one way this room includes them.
#pragma once

#ifndef UNICODE
#define UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <uxtheme.h>
// clang-format on

#include <string>

namespace cuvexa::win32 {

/// Of the DLL or program that this code is linked into, which need not be the one that the process was started with.
HINSTANCE this_module();

/// Ends what cannot go on without the window, the font or the class that the system did not give.
[[noreturn]] void fail(const std::string& what);

/// Dots per inch where the window stands, as far as the host asked for the truth.
int dpi_of(HWND window);

/// Dots per inch that the program was started with.
int dpi_of_system();

}  // namespace cuvexa::win32
