// Where the controls of a form stand, and how they look.
#include <algorithm>

#include "desktop/win32/form_window.h"
#include "desktop/win32/text.h"

namespace cuvexa::win32 {

// ---- Sizes and places ----------------------------------------------------------------------------------------------

int Form_dialog::label_width() {
    int widest = 0;
    for (const auto& row : form_.rows()) {
        if (row.label) widest = std::max(widest, looks().width_of(wide(row.label->caption()), looks().text()));
    }
    return widest;
}

SIZE Form_dialog::natural_size() {
    const int rows = static_cast<int>(form_.rows().size());
    const int height = px(18) + looks().line_height(looks().title()) + px(12) + px(12) +
                       rows * (looks().field_height() + px(10)) + px(4) + px(12) + looks().field_height() + px(6) +
                       px(18);
    return {looks().letters(96), height};
}

void Form_dialog::arrange(SIZE inside) {
    const int title_height = looks().line_height(looks().title());
    int y = px(18);
    set_font(title_, looks().title());
    place(title_, px(24), y, inside.cx - px(48), title_height);
    y += title_height + px(12);
    separators_ = {y};
    y += px(12);
    for (const auto& row : form_.rows()) y = arrange_row(row, y, inside);
    y += px(4);
    separators_.push_back(y);
    arrange_buttons(y + px(12), inside);
}

int Form_dialog::arrange_row(const Form_row& row, int y, SIZE inside) {
    const int left = px(24);
    const int first = left + label_width() + px(12);
    const int second = first + field_width() + px(12);
    const int right = inside.cx - px(24);
    if (row.label) place_item(*item_of(row.label), left, y, first - left - px(6));
    if (row.field) {
        const bool whole_line = !row.beside && !dynamic_cast<DatePicker*>(row.field);
        place_item(*item_of(row.field), first, y, whole_line ? right - first : field_width());
    }
    if (row.beside) place_item(*item_of(row.beside), second, y, right - second);
    return y + looks().field_height() + px(10);
}

void Form_dialog::place_item(Item& item, int x, int y, int width) {
    const int height = looks().field_height();
    if (auto* field = dynamic_cast<LookupTextBox*>(item.control)) {
        item.frame = {x, y, x + width, y + height};
        looks().place_edit(item.window, item.frame, looks().named(field->font));
        if (item.note) {
            set_font(item.note, looks().text());
            place(item.note, x + px(9), y + px(2), width - px(18), height - px(4));
        }
        return;
    }
    set_font(item.window, looks().text());
    if (dynamic_cast<DatePicker*>(item.control)) {
        item.frame = {x, y, x + width, y + height};
        // The control writes at its top: it is as high as its text, in the middle of the frame.
        const int own = looks().line_height(looks().text()) + px(3);
        place(item.window, x + px(7), y + (height - own) / 2, width - px(10), own);
    } else if (auto* box = dynamic_cast<Check_box*>(item.control)) {
        width = std::min(width, looks().width_of(wide(box->caption), looks().text()) + px(40));
        place(item.window, x, y, width, height);
    } else {
        place(item.window, x, y, width, height);
    }
}

void Form_dialog::arrange_buttons(int y, SIZE inside) {
    const int height = looks().field_height() + px(6);
    int width = 0;
    for (const auto* button : {&form_.buttons().b1, &form_.buttons().b2}) {
        const int text = looks().width_of(text_of(window_of(*button)), looks().bold());
        width = std::max(width, text + px(88));
    }
    const int second = inside.cx - px(24) - width;
    const int first = second - px(6) - width;
    set_font(keys_, looks().text());
    place(keys_, px(24), y, first - px(30), height);
    place(window_of(form_.buttons().b1), first, y, width, height);
    place(window_of(form_.buttons().b2), second, y, width, height);
}

// ---- Painting ------------------------------------------------------------------------------------------------------

Field_state Form_dialog::state_of(const Item& item) const {
    const auto* field = dynamic_cast<const LookupTextBox*>(item.control);
    if (field && field->refused()) return Field_state::refused;
    if (!item.control->Enabled()) return Field_state::disabled;
    if (field && field->Locked()) return Field_state::locked;
    const HWND focus = GetFocus();
    return focus && (focus == item.window || IsChild(item.window, focus)) ? Field_state::focused
                                                                          : Field_state::ordinary;
}

void Form_dialog::paint(HDC dc) {
    RECT inside{};
    GetClientRect(window(), &inside);
    for (const int y : separators_) {
        looks().fill(dc, {px(24), y, inside.right - px(24), y + px(1)}, looks().colors().locked_field);
    }
    for (const auto& item : items_) {
        if (!IsRectEmpty(&item.frame)) looks().draw_field(dc, item.frame, state_of(item));
    }
}

HBRUSH Form_dialog::dress(HDC dc, HWND child) {
    const auto& colors = looks().colors();
    std::uint32_t text = colors.text;
    std::uint32_t ground = colors.form;
    for (const auto& item : items_) {
        if (item.note == child) {
            text = colors.refused;
            ground = looks().ground(state_of(item));
        } else if (item.window == child) {
            if (!IsRectEmpty(&item.frame)) ground = looks().ground(state_of(item));
            if (!item.control->Enabled()) text = colors.disabled_text;
            if (form_.rows().back().field == item.control && dynamic_cast<CaptionLabel*>(item.control)) {
                text = colors.quiet_text;
            }
        }
    }
    if (child == title_) text = colors.accent;
    if (child == keys_) text = colors.quiet_text;
    SetTextColor(dc, color_ref(text));
    SetBkColor(dc, color_ref(ground));
    return looks().brush(ground);
}

}  // namespace cuvexa::win32
