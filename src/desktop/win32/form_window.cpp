#include "desktop/win32/form_window.h"

#include <algorithm>

#include "desktop/win32/list_window.h"
#include "desktop/win32/text.h"

namespace cuvexa::win32 {
namespace {

/// Numbers of the children: that of the first, the others follow. Assistive programs know the controls by them.
constexpr int first_id = 1000;

/// A child got the keyboard; its number comes along.
constexpr UINT wm_focus_settled = WM_APP + 1;

constexpr const wchar_t* date_format = L"dd'/'MM'/'yyyy";
constexpr const wchar_t* refusal = L"No existe o no puede usarse aquí";

SYSTEMTIME system_day(Date date) {
    const Calendar day = calendar(date);
    SYSTEMTIME out{};
    out.wYear = static_cast<WORD>(day.year);
    out.wMonth = static_cast<WORD>(day.month);
    out.wDay = static_cast<WORD>(day.day);
    return out;
}

/// The code under which forms know a key; 0 for the others.
int form_key(int key) {
    switch (key) {
        case VK_TAB:
            return key_tab;
        case VK_RETURN:
            return key_enter;
        case VK_ESCAPE:
            return key_escape;
        case VK_F2:
            return key_f2;
        case VK_F4:
            return key_f4;
        default:
            return 0;
    }
}

}  // namespace

Form_dialog::Form_dialog(Form& form, Open_windows& open)
    : Modal_window(open, wide(form.Caption()), form.colors(), 0), form_(form) {
    title_ = add_child(L"STATIC", label_text(form.Caption()), SS_LEFT);
    for (const auto& row : form.rows()) add_row(row);
    keys_ = add_child(L"STATIC", L"F2 lista    Enter siguiente", SS_LEFT | SS_CENTERIMAGE);
    add(form.buttons().b1);
    add(form.buttons().b2);
    for (const auto& item : items_) refresh(*item.control);
}

HWND Form_dialog::window_of(const Control& control) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.control == &control; });
    return found == items_.end() ? nullptr : found->window;
}

// ---- Windows -------------------------------------------------------------------------------------------------------

/// A label stands right before its field: so assistive programs find the field's name.
void Form_dialog::add_row(const Form_row& row) {
    if (row.label) add(*row.label);
    if (row.field) add(*row.field);
    if (!row.beside) return;
    add(*row.beside);
    items_.back().key = dynamic_cast<const LookupTextBox*>(row.field);
    items_.back().note = add_child(L"STATIC", refusal, SS_LEFT | SS_CENTERIMAGE);
    ShowWindow(items_.back().note, SW_HIDE);
}

void Form_dialog::add(Control& control) {
    const int id = first_id + static_cast<int>(items_.size());
    Item item;
    item.control = &control;
    item.window = make_window(control, id);
    items_.push_back(item);
}

HWND Form_dialog::make_window(Control& control, int id) {
    if (dynamic_cast<LookupTextBox*>(&control)) return make_field(id);
    if (auto* box = dynamic_cast<Check_box*>(&control)) {
        return add_child(L"BUTTON", label_text(box->caption), WS_TABSTOP | BS_CHECKBOX | BS_NOTIFY, id);
    }
    if (dynamic_cast<DatePicker*>(&control)) return make_picker(id);
    if (auto* button = dynamic_cast<Bar_button*>(&control)) {
        const std::wstring caption = label_text(button->caption + "   " + button->shortcut);
        return add_child(L"BUTTON", caption, WS_TABSTOP | BS_OWNERDRAW | BS_NOTIFY, id);
    }
    return add_child(L"STATIC", L"", SS_LEFT | SS_CENTERIMAGE, id);
}

HWND Form_dialog::make_field(int id) {
    const HWND edit = add_child(L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, id);
    // As long as texts are; the system's own limit of old is shorter than a description may be.
    SendMessageW(edit, EM_SETLIMITTEXT, 0, 0);
    return edit;
}

HWND Form_dialog::make_picker(int id) {
    const HWND picker = add_child(DATETIMEPICK_CLASSW, L"", WS_TABSTOP | DTS_SHORTDATEFORMAT, id);
    // It stands in the frame of the form: none of its own, nor that of visual styles where the host has them.
    SetWindowTheme(picker, L"", L"");
    SetWindowLongPtrW(picker, GWL_EXSTYLE, GetWindowLongPtrW(picker, GWL_EXSTYLE) & ~LONG_PTR{WS_EX_CLIENTEDGE});
    SetWindowPos(picker, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SendMessageW(picker, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(date_format));
    return picker;
}

Form_dialog::Item* Form_dialog::item_of(const Control* control) {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.control == control; });
    return found == items_.end() ? nullptr : &*found;
}

Form_dialog::Item* Form_dialog::item_with(int id) {
    const int at = id - first_id;
    return at >= 0 && at < static_cast<int>(items_.size()) ? &items_[static_cast<std::size_t>(at)] : nullptr;
}

// ---- From the form to the windows ----------------------------------------------------------------------------------

void Form_dialog::refresh(Control& control) {
    auto* item = item_of(&control);
    if (!item || !window()) return;
    refreshing_ = true;
    EnableWindow(item->window, control.Enabled());
    if (auto* field = dynamic_cast<LookupTextBox*>(&control)) {
        refresh_field(*item, *field);
    } else if (auto* box = dynamic_cast<Check_box*>(&control)) {
        SendMessageW(item->window, BM_SETCHECK, box->Value() == 1 ? BST_CHECKED : BST_UNCHECKED, 0);
    } else if (auto* picker = dynamic_cast<DatePicker*>(&control)) {
        refresh_picker(*item, *picker);
    } else if (auto* label = dynamic_cast<CaptionLabel*>(&control)) {
        set_text(item->window, label_text(label->caption()));
    }
    refreshing_ = false;
    InvalidateRect(window(), &item->frame, FALSE);
    InvalidateRect(item->window, nullptr, TRUE);
}

void Form_dialog::set_text(HWND window, const std::wstring& text) {
    if (text_of(window) != text) SetWindowTextW(window, text.c_str());
}

void Form_dialog::refresh_field(Item& item, LookupTextBox& field) {
    const std::wstring text = wide(field.shown());
    const std::wstring before = text_of(item.window);
    if (text != before) {
        DWORD from = 0, to = 0;
        SendMessageW(item.window, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        SetWindowTextW(item.window, text.c_str());
        const bool typing = before.size() == text.size();  // only the letter case changed
        if (!typing) from = to = static_cast<DWORD>(text.size());
        if (field.Locked()) from = to = 0;  // a long description shows its beginning
        SendMessageW(item.window, EM_SETSEL, from, static_cast<LPARAM>(to));
    }
    const bool read_only = (GetWindowLongPtrW(item.window, GWL_STYLE) & ES_READONLY) != 0;
    if (read_only != field.Locked()) SendMessageW(item.window, EM_SETREADONLY, field.Locked(), 0);
    show_notes();
}

/// Why a key is refused, in the place of the empty description, unless the user is about to write there.
void Form_dialog::show_notes() {
    for (const auto& item : items_) {
        if (!item.note) continue;
        const auto* description = dynamic_cast<const LookupTextBox*>(item.control);
        const bool empty = description && description->shown().empty() && GetFocus() != item.window;
        const bool shown = item.key && item.key->refused() && empty;
        ShowWindow(item.note, shown ? SW_SHOWNA : SW_HIDE);
        ShowWindow(item.window, shown ? SW_HIDE : SW_SHOWNA);
    }
}

void Form_dialog::refresh_picker(const Item& item, const DatePicker& picker) {
    const SYSTEMTIME day = system_day(picker.Value());
    SYSTEMTIME shown{};
    SendMessageW(item.window, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&day));
    SendMessageW(item.window, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
    const bool taken = shown.wYear == day.wYear && shown.wMonth == day.wMonth && shown.wDay == day.wDay;
    // The control knows no day before its calendar's first; such a day is shown as it is, until another is chosen.
    const std::wstring format = taken ? date_format : L"'" + wide(short_date(picker.Value())) + L"'";
    SendMessageW(item.window, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(format.c_str()));
}

void Form_dialog::set_focus(Control& control) {
    const auto* item = item_of(&control);
    if (!item || !window()) return;
    SetFocus(item->window);
    if (dynamic_cast<LookupTextBox*>(&control)) SendMessageW(item->window, EM_SETSEL, 0, -1);
}

std::optional<std::string> Form_dialog::choose(Choice_list& list) {
    return List_window(list, form_.colors(), open_windows()).choose();
}

// ---- From the user to the form -------------------------------------------------------------------------------------

void Form_dialog::started() {
    // Which field has the keyboard is always to be seen, not only after the first Tab.
    SendMessageW(window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    form_.shown_in(*this);
}

bool Form_dialog::calendar_open() const {
    const auto* picker = dynamic_cast<const DatePicker*>(form_.active());
    const HWND window = picker ? window_of(*picker) : nullptr;
    const LRESULT month = window ? SendMessageW(window, DTM_GETMONTHCAL, 0, 0) : 0;
    return month != 0 && IsWindowVisible(reinterpret_cast<HWND>(month));
}

bool Form_dialog::key_pressed(int key) {
    const int code = form_key(key);
    if (code == 0) return false;
    if (calendar_open()) return code == key_f4;  // its other keys are the calendar's; F4 would close it
    return form_.key_down(code, GetKeyState(VK_SHIFT) < 0, GetKeyState(VK_CONTROL) < 0);
}

void Form_dialog::focus_came() {
    const HWND active = form_.active() ? window_of(*form_.active()) : nullptr;
    if (active) SetFocus(active);
}

LRESULT Form_dialog::message(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_COMMAND:
            if (lparam != 0) commanded(LOWORD(wparam), HIWORD(wparam));
            return 0;
        case WM_NOTIFY:
            notified(*reinterpret_cast<const NMHDR*>(lparam));
            return 0;
        case wm_focus_settled:
            focus_settled(static_cast<int>(wparam));
            return 0;
        case WM_LBUTTONDOWN:
            clicked_beside({static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))});
            return 0;
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
            looks().draw_button(item, item.hwndItem == window_of(form_.buttons().b1));
            return TRUE;
        }
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(dress(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam)));
        default:
            return Modal_window::message(message, wparam, lparam);
    }
}

void Form_dialog::commanded(int id, int code) {
    const auto* item = item_with(id);
    if (!item) return;
    if (auto* field = dynamic_cast<LookupTextBox*>(item->control)) {
        if (code == EN_CHANGE && !refreshing_) form_.type(*field, utf8(text_of(item->window)));
        if (code == EN_SETFOCUS) PostMessageW(window(), wm_focus_settled, static_cast<WPARAM>(id), 0);
        if (code == EN_SETFOCUS || code == EN_KILLFOCUS) {
            InvalidateRect(window(), &item->frame, FALSE);
            show_notes();
        }
        return;
    }
    if (code == BN_SETFOCUS) PostMessageW(window(), wm_focus_settled, static_cast<WPARAM>(id), 0);
    if (code != BN_CLICKED) return;
    if (auto* box = dynamic_cast<Check_box*>(item->control)) {
        form_.go_to(*box);
        form_.click(*box);
    } else if (auto* button = dynamic_cast<Bar_button*>(item->control)) {
        form_.press(*button);
    }
}

void Form_dialog::notified(const NMHDR& notice) {
    const auto* item = item_with(static_cast<int>(notice.idFrom));
    auto* picker = item ? dynamic_cast<DatePicker*>(item->control) : nullptr;
    if (!picker) return;
    if (notice.code == NM_SETFOCUS) PostMessageW(window(), wm_focus_settled, static_cast<WPARAM>(notice.idFrom), 0);
    if (notice.code == NM_SETFOCUS || notice.code == NM_KILLFOCUS) InvalidateRect(window(), &item->frame, FALSE);
    if (notice.code == DTN_DATETIMECHANGE && !refreshing_) {
        const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(notice);
        if (change.dwFlags == GDT_VALID) {
            form_.pick(*picker, make_date(change.st.wYear, change.st.wMonth, change.st.wDay));
        }
    }
}

/// Later than the system's notice, when the focus has settled: the form may send it back.
void Form_dialog::focus_settled(int id) {
    const auto* item = item_with(id);
    if (item && form_.visible() && item->control != form_.active() && GetFocus() == item->window) {
        form_.go_to(*item->control);
    }
}

void Form_dialog::clicked_beside(POINT at) {
    for (const auto& item : items_) {
        if (!PtInRect(&item.frame, at) || !item.control->takes_focus()) continue;
        ShowWindow(item.window, SW_SHOWNA);  // a note may stand in its place
        SetFocus(item.window);
    }
}

}  // namespace cuvexa::win32
