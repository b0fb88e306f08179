#include "desktop/win32/error_window.h"

#include <algorithm>

#include "desktop/win32/text.h"

namespace cuvexa::win32 {
namespace {

constexpr int id_description = 1000;
constexpr int id_where = 1001;

/// The system's icon of a style of message; none for the styles without.
HICON icon_of(int style) {
    switch (style) {
        case 16:
            return LoadIconW(nullptr, IDI_ERROR);
        case 32:
            return LoadIconW(nullptr, IDI_QUESTION);
        case 48:
            return LoadIconW(nullptr, IDI_WARNING);
        case 64:
            return LoadIconW(nullptr, IDI_INFORMATION);
        default:
            return nullptr;
    }
}

std::string where(const Error_report& report) {
    return report.code.empty() ? report.routine : report.code + "  ·  " + report.routine;
}

}  // namespace

Error_window::Error_window(const Error_report& report, Open_windows& open)
    : Modal_window(open, wide(report.title.empty() ? report.project : report.title), Suite_colors(), 0),
      style_(report.style),
      icon_(icon_of(report.style)),
      text_(lines_of(report.description)),
      place_text_(lines_of(where(report))) {
    // A field, so that the text can be copied, and reaches the eye whole when it is long.
    description_ = add_child(L"EDIT", text_, ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, id_description);
    where_ = add_child(L"STATIC", place_text_, SS_LEFT | SS_NOPREFIX, id_where);
    button_ = add_child(L"BUTTON", L"Aceptar", WS_TABSTOP | BS_OWNERDRAW, IDOK);
}

void Error_window::show() {
    MessageBeep(icon_ ? static_cast<UINT>(style_) : MB_OK);
    run();
}

// ---- Sizes and places ----------------------------------------------------------------------------------------------

int Error_window::most_height() {
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    return std::max(looks().line_height(looks().text()), static_cast<int>(screen.bottom - screen.top) / 2);
}

SIZE Error_window::natural_size() {
    int width = looks().width_of(place_text_, looks().text());
    std::size_t from = 0;
    while (from <= text_.size()) {
        const auto to = std::min(text_.find(L"\r\n", from), text_.size());
        width = std::max(width, looks().width_of(text_.substr(from, to - from), looks().text()));
        from = to + 2;
    }
    // A little more than measured: the field keeps a margin of its own.
    width = std::clamp(width + px(12), px(300), looks().letters(80));
    const int whole = whole_height(width);
    const int text =
        std::max(std::min(whole, most_height()) + px(10) + looks().height_of(place_text_, width), icon_size());
    if (whole > most_height()) width += GetSystemMetrics(SM_CXVSCROLL);
    return {text_left() + width + px(24), px(22) + text + px(18) + button_height() + px(18)};
}

void Error_window::arrange(SIZE inside) {
    const int width = static_cast<int>(inside.cx) - text_left() - px(24);
    for (const HWND child : {description_, where_, button_}) set_font(child, looks().text());
    SendMessageW(description_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    const int whole = whole_height(width);
    const int height = std::min(whole, most_height());
    ShowScrollBar(description_, SB_VERT, height < whole);
    place(description_, text_left(), px(22), width, height);
    place(where_, text_left(), px(22) + height + px(10), width, looks().height_of(place_text_, width));
    const int button = looks().width_of(L"Aceptar", looks().bold()) + px(88);
    place(button_, static_cast<int>(inside.cx) - px(24) - button,
          static_cast<int>(inside.cy) - px(18) - button_height(), button, button_height());
}

void Error_window::paint(HDC dc) {
    if (icon_) DrawIconEx(dc, px(24), px(22), icon_, icon_size(), icon_size(), 0, nullptr, DI_NORMAL);
}

// ---- From the user -------------------------------------------------------------------------------------------------

bool Error_window::key_pressed(int key) {
    switch (key) {
        case VK_RETURN:
        case VK_ESCAPE:
            end();
            return true;
        case VK_UP:
        case VK_DOWN:
        case VK_PRIOR:
        case VK_NEXT:
            SendMessageW(description_, EM_SCROLL,
                         key == VK_UP     ? SB_LINEUP
                         : key == VK_DOWN ? SB_LINEDOWN
                         : key == VK_NEXT ? SB_PAGEDOWN
                                          : SB_PAGEUP,
                         0);
            return true;
        default:
            return false;
    }
}

LRESULT Error_window::message(UINT message, WPARAM wparam, LPARAM lparam) {
    const auto& colors = looks().colors();
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wparam) == IDOK && HIWORD(wparam) == BN_CLICKED) end();
            return 0;
        case WM_DRAWITEM:
            looks().draw_button(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam), true);
            return TRUE;
        case WM_CTLCOLORSTATIC: {
            const bool quiet = reinterpret_cast<HWND>(lparam) == where_;
            SetTextColor(reinterpret_cast<HDC>(wparam), color_ref(quiet ? colors.quiet_text : colors.text));
            SetBkColor(reinterpret_cast<HDC>(wparam), color_ref(colors.form));
            return reinterpret_cast<LRESULT>(looks().brush(colors.form));
        }
        default:
            return Modal_window::message(message, wparam, lparam);
    }
}

}  // namespace cuvexa::win32
