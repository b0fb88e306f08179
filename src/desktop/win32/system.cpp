#include "desktop/win32/system.h"

#include <stdexcept>

namespace cuvexa::win32 {

HINSTANCE this_module() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&this_module), &module);
    return module;
}

void fail(const std::string& what) {
    throw std::runtime_error("Windows no pudo crear " + what + " (error " + std::to_string(GetLastError()) + ").");
}

int dpi_of(HWND window) {
    // Not in Windows 7 and 8, which know one resolution per session.
    using Get_dpi = UINT(WINAPI*)(HWND);
    static const auto get_dpi = reinterpret_cast<Get_dpi>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
    const UINT dpi = get_dpi ? get_dpi(window) : 0;
    return dpi != 0 ? static_cast<int>(dpi) : dpi_of_system();
}

int dpi_of_system() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

}  // namespace cuvexa::win32
