#include "desktop/win32/list_window.h"

#include <algorithm>
#include <cwctype>

#include "desktop/win32/text.h"

namespace cuvexa::win32 {
namespace {

constexpr int id_sought = 1000;
constexpr int id_table = 1001;
constexpr int id_count = 1002;

/// The table got the keyboard, which belongs to the search field.
constexpr UINT wm_give_back_focus = WM_APP + 1;

/// Names of columns carry no accents; headings do.
std::wstring heading(const std::string& column) {
    if (column == "DESCRIPCION") return L"Descripción";
    if (column == "CODIGO") return L"Código";
    std::wstring text = wide(column);
    if (column.size() == 2 || column == "CLABE") return text;
    for (auto& c : text) c = c == L'_' ? L' ' : static_cast<wchar_t>(std::towlower(c));
    if (!text.empty()) text[0] = static_cast<wchar_t>(std::towupper(text[0]));
    return text;
}

std::wstring count_text(std::size_t rows) {
    const std::wstring found = rows == 0   ? L"Sin coincidencias"
                               : rows == 1 ? L"1 renglón"
                                           : std::to_wstring(rows) + L" renglones";
    return found + L"    ↑ ↓ elegir    Enter tomar    Esc regresar";
}

}  // namespace

List_window::List_window(Choice_list& list, const Suite_colors& colors, Open_windows& open)
    : Modal_window(open, wide(list.title()), colors, WS_THICKFRAME), list_(list), columns_(list.columns()) {
    label_ = add_child(L"STATIC", L"Buscar:", SS_LEFT | SS_CENTERIMAGE);
    sought_ = add_child(L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, id_sought);
    table_ = add_child(
        WC_LISTVIEWW, L"",
        LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | LVS_SHAREIMAGELISTS | WS_BORDER, id_table);
    ListView_SetExtendedListViewStyle(table_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    count_ = add_child(L"STATIC", L"", SS_LEFT | SS_CENTERIMAGE, id_count);
    add_columns();
    look_for({});
}

List_window::~List_window() {
    if (row_height_) ImageList_Destroy(row_height_);
}

void List_window::add_columns() {
    for (std::size_t at = 0; at < columns_.size(); ++at) {
        std::wstring text = heading(columns_[at]);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM;
        column.fmt = LVCFMT_LEFT;
        column.pszText = text.data();
        column.iSubItem = static_cast<int>(at);
        SendMessageW(table_, LVM_INSERTCOLUMNW, at, reinterpret_cast<LPARAM>(&column));
    }
}

void List_window::look_for(const std::string& text) {
    rows_ = list_.rows(text);
    SendMessageW(table_, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(table_);
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            std::wstring cell = wide(rows_[row][column]);
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(row);
            item.iSubItem = static_cast<int>(column);
            item.pszText = cell.data();
            SendMessageW(table_, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
    }
    if (!rows_.empty()) ListView_SetItemState(table_, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SendMessageW(table_, WM_SETREDRAW, TRUE, 0);
    SetWindowTextW(count_, count_text(rows_.size()).c_str());
}

// ---- Sizes and places ----------------------------------------------------------------------------------------------

SIZE List_window::natural_size() {
    column_widths_.clear();
    int whole = GetSystemMetrics(SM_CXVSCROLL) + px(4);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        int width = looks().width_of(heading(columns_[column]), looks().text());
        for (const auto& row : rows_) width = std::max(width, looks().width_of(wide(row[column]), looks().text()));
        column_widths_.push_back(width + px(24));
        whole += column_widths_.back();
    }
    return {std::clamp(whole + px(36), looks().letters(60), looks().letters(140)), looks().letters(46)};
}

void List_window::arrange(SIZE inside) {
    for (const HWND child : {label_, table_, count_}) set_font(child, looks().text());
    const int left = px(18);
    const int width = static_cast<int>(inside.cx) - 2 * left;
    const int line = looks().line_height(looks().text());
    int y = px(16);
    place(label_, left, y, width, line);
    y += line + px(6);
    frame_ = {left, y, left + width, y + looks().field_height()};
    looks().place_edit(sought_, frame_, looks().text());
    y = frame_.bottom + px(8);
    const int below = px(8) + line + px(14);
    place(table_, left, y, width, std::max(px(40), static_cast<int>(inside.cy) - y - below));
    place(count_, left, static_cast<int>(inside.cy) - px(14) - line, width, line);
    set_row_height();
    const auto& colors = looks().colors();
    ListView_SetBkColor(table_, color_ref(colors.field));
    ListView_SetTextBkColor(table_, color_ref(colors.field));
    ListView_SetTextColor(table_, color_ref(colors.text));
    fit_columns();
}

/// A table has no height of rows, but a row is as high as its picture.
void List_window::set_row_height() {
    const HIMAGELIST before = row_height_;
    row_height_ = ImageList_Create(1, looks().line_height(looks().text()) + px(8), ILC_COLOR, 1, 1);
    ListView_SetImageList(table_, row_height_, LVSIL_SMALL);
    if (before) ImageList_Destroy(before);
}

/// Each as wide as its longest text when the window opened; the last takes what is left.
void List_window::fit_columns() {
    RECT inside{};
    GetClientRect(table_, &inside);
    int left_over = inside.right;
    for (std::size_t column = 0; column < column_widths_.size(); ++column) {
        const bool last = column + 1 == column_widths_.size();
        const int width = last ? std::max(left_over, column_widths_[column]) : column_widths_[column];
        ListView_SetColumnWidth(table_, static_cast<int>(column), width);
        left_over -= width;
    }
}

// ---- Painting ------------------------------------------------------------------------------------------------------

void List_window::paint(HDC dc) {
    looks().draw_field(dc, frame_, GetFocus() == sought_ ? Field_state::focused : Field_state::ordinary);
}

HBRUSH List_window::dress(HDC dc, HWND child) {
    const auto& colors = looks().colors();
    const std::uint32_t ground = child == sought_ ? colors.field : colors.form;
    SetTextColor(dc, color_ref(child == count_ ? colors.quiet_text : colors.text));
    SetBkColor(dc, color_ref(ground));
    return looks().brush(ground);
}

LRESULT List_window::draw(NMLVCUSTOMDRAW& drawing) {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const auto& colors = looks().colors();
    const int row = static_cast<int>(drawing.nmcd.dwItemSpec);
    const bool chosen = row == current_row();
    // The system would draw a chosen row in colours of its own.
    drawing.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED | CDIS_FOCUS);
    drawing.clrText = color_ref(chosen ? colors.accent_text : colors.text);
    drawing.clrTextBk = color_ref(chosen ? colors.accent : row % 2 == 0 ? colors.field : colors.form);
    return CDRF_NEWFONT;
}

// ---- From the user -------------------------------------------------------------------------------------------------

void List_window::started() {
    SetFocus(sought_);
}

bool List_window::key_pressed(int key) {
    switch (key) {
        case VK_UP:
        case VK_DOWN:
        case VK_PRIOR:
        case VK_NEXT:
            SendMessageW(table_, WM_KEYDOWN, static_cast<WPARAM>(key), 0);
            return true;
        case VK_RETURN:
            take_row();
            return true;
        case VK_ESCAPE:
            end();
            return true;
        case VK_TAB:
            return true;  // there is but one place for the keyboard
        default:
            return false;
    }
}

LRESULT List_window::message(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wparam) == id_sought && HIWORD(wparam) == EN_CHANGE) look_for(utf8(text_of(sought_)));
            return 0;
        case WM_NOTIFY:
            return notified(*reinterpret_cast<const NMHDR*>(lparam));
        case wm_give_back_focus:
            SetFocus(sought_);
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {px(420), px(300)};
            return 0;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(dress(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam)));
        default:
            return Modal_window::message(message, wparam, lparam);
    }
}

LRESULT List_window::notified(const NMHDR& notice) {
    if (notice.hwndFrom != table_) return 0;
    switch (notice.code) {
        case NM_CUSTOMDRAW:
            return draw(const_cast<NMLVCUSTOMDRAW&>(reinterpret_cast<const NMLVCUSTOMDRAW&>(notice)));
        case NM_SETFOCUS:
            PostMessageW(window(), wm_give_back_focus, 0, 0);
            return 0;
        case NM_DBLCLK:
            take_row();
            return 0;
        case LVN_ITEMCHANGED:
            InvalidateRect(table_, nullptr, FALSE);
            return 0;
        default:
            return 0;
    }
}

int List_window::current_row() const {
    return ListView_GetNextItem(table_, -1, LVNI_SELECTED);
}

void List_window::take_row() {
    const int row = current_row();
    if (row < 0 || row >= static_cast<int>(rows_.size())) return;
    chosen_ = rows_[static_cast<std::size_t>(row)].front();
    end();
}

std::optional<std::string> List_window::choose() {
    run();
    return chosen_;
}

}  // namespace cuvexa::win32
