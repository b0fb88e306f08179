#include "desktop/win32/modal_window.h"

#include <algorithm>

namespace cuvexa::win32 {
namespace {

/// The other windows of the thread, which the user must not reach meanwhile. The owner may be of another thread.
class Disabled_windows {
public:
    Disabled_windows(HWND window, HWND owner) {
        found_.window = window;
        EnumThreadWindows(GetCurrentThreadId(), &add, reinterpret_cast<LPARAM>(&found_));
        const auto& others = found_.others;
        if (owner && IsWindowEnabled(owner) && std::find(others.begin(), others.end(), owner) == others.end()) {
            found_.others.push_back(owner);
        }
        for (const HWND other : found_.others) EnableWindow(other, FALSE);
    }
    ~Disabled_windows() {
        for (const HWND other : found_.others) EnableWindow(other, TRUE);
    }
    Disabled_windows(const Disabled_windows&) = delete;
    Disabled_windows& operator=(const Disabled_windows&) = delete;

private:
    struct Found {
        HWND window = nullptr;
        std::vector<HWND> others;
    } found_;

    static BOOL CALLBACK add(HWND window, LPARAM found) {
        auto& all = *reinterpret_cast<Found*>(found);
        if (window != all.window && IsWindowVisible(window) && IsWindowEnabled(window)) all.others.push_back(window);
        return TRUE;
    }
};

bool held(int key) {
    return GetKeyState(key) < 0;
}

/// A key that opens or closes windows, repeated because it is still down: meant for the window before.
bool left_over(const MSG& message) {
    const auto key = message.wParam;
    const bool repeated = (HIWORD(message.lParam) & KF_REPEAT) != 0;
    return repeated && (key == VK_RETURN || key == VK_ESCAPE || key == VK_F2 || key == VK_F4);
}

}  // namespace

HWND Open_windows::owner() const {
    // One of them may have gone with the host's window under it, or not be shown yet.
    const auto last = std::find_if(windows_.rbegin(), windows_.rend(), &IsWindowVisible);
    return last == windows_.rend() ? GetActiveWindow() : *last;
}

Window_class::Window_class(WNDPROC procedure) : name_(L"Cuvexa.Window." + std::to_wstring(GetCurrentThreadId())) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = this_module();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = name_.c_str();
    if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) fail("la clase de ventanas");
}

Modal_window::Modal_window(Open_windows& open, const std::wstring& title, const Suite_colors& colors, DWORD style)
    : open_(open), class_(&procedure), owner_(open.owner()) {
    const INITCOMMONCONTROLSEX controls{sizeof controls,
                                        ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES};
    InitCommonControlsEx(&controls);
    // At the owner's place from the start, so that the resolution is that of its monitor.
    RECT place{0, 0, 0, 0};
    if (owner_) GetWindowRect(owner_, &place);
    CreateWindowExW(WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT, class_.name(), title.c_str(),
                    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | style, place.left, place.top, 100, 100,
                    owner_, nullptr, this_module(), this);
    if (!window_) fail("la ventana");
    looks_ = std::make_unique<Looks>(colors, dpi_of(window_));
    open_.opened(window_);
}

Modal_window::~Modal_window() {
    ready_ = false;  // what the kinds of windows have added is gone
    if (window_) DestroyWindow(window_);
    open_.closed();
}

// ---- Children ------------------------------------------------------------------------------------------------------

HWND Modal_window::add_child(const wchar_t* class_name, const std::wstring& text, DWORD style, int id) {
    const HWND child =
        CreateWindowExW(0, class_name, text.c_str(), WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style, 0, 0, 0, 0,
                        window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), this_module(), nullptr);
    if (!child) fail("un control");
    return child;
}

void Modal_window::place(HWND child, int x, int y, int width, int height) const {
    SetWindowPos(child, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Modal_window::set_font(HWND child, HFONT font) {
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

// ---- The modal loop ------------------------------------------------------------------------------------------------

void Modal_window::run() {
    const HWND focus_before = GetFocus();
    {
        const Disabled_windows others(window_, owner_);
        take_natural_size();
        move_over_owner();
        ShowWindow(window_, SW_SHOW);
        SetForegroundWindow(window_);
        guarded([this] { started(); });
        loop();
    }
    // The others can take the keyboard again. Not before may the window go, or the system would activate a window of
    // another program.
    if (window_) DestroyWindow(window_);
    if (focus_before && IsWindow(focus_before) && IsWindowEnabled(focus_before)) SetFocus(focus_before);
    if (quit_) PostQuitMessage(quit_code_);
    if (failure_) std::rethrow_exception(failure_);
}

void Modal_window::loop() {
    MSG message{};
    while (!ended_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            quit_ = got == 0;
            quit_code_ = static_cast<int>(message.wParam);
            return;
        }
        if (CallMsgFilterW(&message, MSGF_DIALOGBOX) || taken_as_key(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool Modal_window::taken_as_key(const MSG& message) {
    if (message.message != WM_KEYDOWN || held(VK_CONTROL) || held(VK_MENU)) return false;
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
    if (left_over(message)) return true;
    bool taken = true;  // also when its handler failed
    guarded([&] { taken = key_pressed(static_cast<int>(message.wParam)); });
    return taken;
}

void Modal_window::end() {
    ended_ = true;
    if (window_) PostMessageW(window_, WM_NULL, 0, 0);  // the loop may be waiting
}

/// Nothing may be thrown through the system's code.
template <class Body>
void Modal_window::guarded(Body&& body) noexcept {
    try {
        body();
    } catch (...) {
        if (!failure_) failure_ = std::current_exception();
        end();
    }
}

// ---- Messages ------------------------------------------------------------------------------------------------------

LRESULT CALLBACK Modal_window::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<Modal_window*>(reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<Modal_window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wparam, lparam);
    if (message == WM_NCDESTROY) {
        // Also with its owner, whom a host may destroy under it.
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
        self->ready_ = false;
        self->end();
        return DefWindowProcW(window, message, wparam, lparam);
    }
    if (!self->ready_) return DefWindowProcW(window, message, wparam, lparam);
    LRESULT result = 0;
    self->guarded([&] { result = self->handle(message, wparam, lparam); });
    return result;
}

LRESULT Modal_window::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_CLOSE:
            close_asked();
            return 0;
        case WM_SETFOCUS:
            focus_came();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint_now();
            return 0;
        case WM_PRINTCLIENT:
            paint_all(reinterpret_cast<HDC>(wparam));
            return 0;
        case WM_SIZE:
            arrange({LOWORD(lparam), HIWORD(lparam)});
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_DPICHANGED:
            resolution_changed(HIWORD(wparam), *reinterpret_cast<const RECT*>(lparam));
            return 0;
        default:
            return this->message(message, wparam, lparam);
    }
}

LRESULT Modal_window::message(UINT message, WPARAM wparam, LPARAM lparam) {
    return DefWindowProcW(window_, message, wparam, lparam);
}

void Modal_window::paint_now() {
    PAINTSTRUCT painting{};
    paint_all(BeginPaint(window_, &painting));
    EndPaint(window_, &painting);
}

void Modal_window::paint_all(HDC dc) {
    RECT inside{};
    GetClientRect(window_, &inside);
    looks().fill(dc, inside, looks().colors().form);
    paint(dc);
}

// ---- Size and place ------------------------------------------------------------------------------------------------

void Modal_window::resolution_changed(int dpi, const RECT& suggested) {
    const auto before = std::exchange(looks_, std::make_unique<Looks>(looks_->colors(), dpi));
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    take_natural_size();
}

void Modal_window::take_natural_size() {
    ready_ = true;
    RECT outside{}, inside{};
    GetWindowRect(window_, &outside);
    GetClientRect(window_, &inside);
    const SIZE natural = natural_size();
    SetWindowPos(window_, nullptr, 0, 0, (outside.right - outside.left) - inside.right + natural.cx,
                 (outside.bottom - outside.top) - inside.bottom + natural.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    arrange(natural);  // the size may be the one it had, with other fonts
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Modal_window::move_over_owner() {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner_ ? owner_ : window_, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& screen = monitor.rcWork;
    RECT over = screen;
    if (owner_ && IsWindowVisible(owner_) && !IsIconic(owner_)) GetWindowRect(owner_, &over);
    RECT own{};
    GetWindowRect(window_, &own);
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    const auto within = [](LONG at, LONG first, LONG last) { return std::max(first, std::min(at, last)); };
    SetWindowPos(window_, nullptr, within((over.left + over.right - width) / 2, screen.left, screen.right - width),
                 within((over.top + over.bottom - height) / 2, screen.top, screen.bottom - height), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace cuvexa::win32
