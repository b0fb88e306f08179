#include "windows/dialogs/desk.h"

#include <algorithm>

namespace cuvexa::tests {

using win32::text_of;
using win32::utf8;

namespace {

BOOL CALLBACK add_if_of_ours(HWND window, LPARAM all) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    const bool ours = std::wstring(name).starts_with(L"Cuvexa.");
    if (ours && IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
    return TRUE;
}

}  // namespace

// ---- The host ------------------------------------------------------------------------------------------------------

Host_window::Host_window(const wchar_t* title)
    : window_(CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 900, 640, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr)),
      field_(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 200, 24, window_, nullptr,
                             GetModuleHandleW(nullptr), nullptr)) {
    SetActiveWindow(window_);
    SetFocus(field_);
}

Host_window::~Host_window() {
    DestroyWindow(window_);
}

// ---- The desk ------------------------------------------------------------------------------------------------------

Desk* Desk::current_ = nullptr;

Desk::Desk() {
    Suite_options options{.user = "CAJA1", .server_date = make_date(2024, 3, 15, 10, 20, 30)};
    options.report_error = [this](const Reported_error& error) {
        reports.push_back(error.routine + " " + error.code + " " + error.description);
        if (on_report) {
            on_report(error);
        } else {
            toolkit->show_error(
                {error.description, error.style, error.routine, error.title, error.project, error.code});
        }
    };
    module.emplace(std::make_shared<Reference_suite>(database.connection(), options));
    module->dialog_toolkit(toolkit);
    treasury.emplace(*module);
}

void Desk::run(const Steps& steps, const std::function<void()>& show) {
    steps_ = steps;
    next_ = 0;
    left_open_ = false;
    current_ = this;
    start_timer();
    show();
    stop_timer();
    current_ = nullptr;
    EXPECT_EQ(next_, steps_.size()) << "the window closed before the last step";
    EXPECT_FALSE(left_open_) << "the last step left a window open";
    EXPECT_THAT(open_windows(), IsEmpty());
}

std::string Desk::deposit(const Steps& steps, int firm) {
    std::string answer;
    run(steps, [&] { answer = treasury->PedirDatosDeposito(make_date(2024, 3, 15), "MXN", firm); });
    return answer;
}

std::string Desk::failure_of_deposit(const Steps& steps) {
    std::string failure;
    run(steps, [&] {
        try {
            treasury->PedirDatosDeposito(make_date(2024, 3, 15), "MXN", 0);
        } catch (const std::exception& thrown) {
            failure = thrown.what();
        }
    });
    return failure;
}

std::string Desk::payment(const Steps& steps, const std::string& method) {
    std::string answer;
    run(steps, [&] { answer = treasury->PedirDatosFormaPago(method, "CLIENTE", "CL01"); });
    return answer;
}

/// A timer of the thread: its turn comes in whatever loop runs, and after all that the step before it has posted.
void Desk::start_timer() {
    timer_ = SetTimer(nullptr, 0, 10, &Desk::time_came);
}

void Desk::stop_timer() {
    if (timer_ != 0) KillTimer(nullptr, timer_);
    timer_ = 0;
}

void CALLBACK Desk::time_came(HWND, UINT, UINT_PTR, DWORD) {
    if (!current_) return;
    current_->stop_timer();
    current_->start_timer();  // also in a loop that the step opens
    try {
        current_->step();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << failure.what();
        current_->next_ = current_->steps_.size();
    }
}

void Desk::step() {
    const HWND window = top();
    if (!window) return;
    BYTE keys[256] = {};
    SetKeyboardState(keys);  // what the step before held down is up again
    if (next_ == steps_.size()) {
        left_open_ = true;
        PostMessageW(window, WM_CLOSE, 0, 0);
        return;
    }
    const Step now = steps_[next_++];
    now(*this);
}

// ---- What a step sees ----------------------------------------------------------------------------------------------

std::vector<HWND> Desk::open_windows() {
    std::vector<HWND> found;
    EnumThreadWindows(GetCurrentThreadId(), &add_if_of_ours, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND Desk::top() {
    for (const HWND window : open_windows()) {
        if (IsWindowEnabled(window)) return window;
    }
    return nullptr;
}

HWND Desk::control(const std::string& name) const {
    for (const HWND window : open_windows()) {
        auto* of_ours = reinterpret_cast<win32::Modal_window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        const auto* dialog = dynamic_cast<const win32::Form_dialog*>(of_ours);
        const auto* found = dialog ? toolkit->shown->find(name) : nullptr;
        if (found && dialog->window_of(*found)) return dialog->window_of(*found);
    }
    throw std::runtime_error("no control " + name);
}

std::string Desk::focus() const {
    for (const auto* candidate : toolkit->shown->tab_order()) {
        if (control(candidate->Name()) == GetFocus()) return candidate->Name();
    }
    return "";
}

// ---- What the user does --------------------------------------------------------------------------------------------

Step key(int code, bool shift) {
    return [=](Desk&) {
        BYTE keys[256] = {};
        if (shift) keys[VK_SHIFT] = 0x80;
        SetKeyboardState(keys);
        const HWND target = GetFocus() ? GetFocus() : Desk::top();
        PostMessageW(target, WM_KEYDOWN, static_cast<WPARAM>(code), 1);
        PostMessageW(target, WM_KEYUP, static_cast<WPARAM>(code), 0xC0000001);
    };
}

Step type(const std::wstring& text) {
    return [=](Desk&) {
        for (const wchar_t c : text) PostMessageW(GetFocus(), WM_CHAR, c, 1);
    };
}

Step click(const std::string& name) {
    return [=](Desk& desk) {
        const HWND window = desk.control(name);
        RECT area{};
        GetClientRect(window, &area);
        const LPARAM at = MAKELPARAM(std::min<LONG>(12, area.right / 2), area.bottom / 2);
        PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(window, WM_LBUTTONUP, 0, at);
    };
}

Step look(const std::function<void(Desk&)>& at) {
    return at;
}

Step focus_is(const std::string& name) {
    return [=](Desk& desk) { EXPECT_EQ(desk.focus(), name); };
}

Step text_is(const std::string& name, const std::string& text) {
    return [=](Desk& desk) { EXPECT_EQ(utf8(text_of(desk.control(name))), text) << name; };
}

std::string cell(int row, int column) {
    wchar_t text[256] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 256;
    SendMessageW(Desk::child(id_table), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return utf8(text);
}

int row_count() {
    return ListView_GetItemCount(Desk::child(id_table));
}

}  // namespace cuvexa::tests
