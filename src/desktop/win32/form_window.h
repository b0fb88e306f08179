// A form as a window of the system: one control each, and every key, click and change handed to the form.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cuvexa/dialogs.h"
#include "desktop/win32/modal_window.h"

namespace cuvexa::win32 {

class Form_dialog final : public Modal_window, public Form_window {
public:
    Form_dialog(Form& form, Open_windows& open);

    /// Shows the form until it hides.
    void show() { run(); }

    /// The window of that control; null when the form does not show it.
    HWND window_of(const Control& control) const;

    // ---- What the form asks ----------------------------------------------------------------------------------------

    void refresh(Control& control) override;
    void set_focus(Control& control) override;
    void hide() override { end(); }
    std::optional<std::string> choose(Choice_list& list) override;

protected:
    SIZE natural_size() override;
    void arrange(SIZE inside) override;
    void paint(HDC dc) override;
    void started() override;
    bool key_pressed(int key) override;
    void close_asked() override { form_.close(); }
    void focus_came() override;
    LRESULT message(UINT message, WPARAM wparam, LPARAM lparam) override;

private:
    struct Item {
        Control* control = nullptr;
        HWND window = nullptr;
        RECT frame{};                        ///< drawn around a field; empty for the others
        const LookupTextBox* key = nullptr;  ///< of a description: the field that it describes
        HWND note = nullptr;                 ///< of a description: why that key is refused
    };

    void add_row(const Form_row& row);
    void add(Control& control);
    HWND make_window(Control& control, int id);
    HWND make_field(int id);
    HWND make_picker(int id);
    Item* item_of(const Control* control);
    Item* item_with(int id);

    // Sizes and places.
    int label_width();
    int field_width() { return looks().letters(20) + px(18); }
    int arrange_row(const Form_row& row, int y, SIZE inside);
    void place_item(Item& item, int x, int y, int width);
    void arrange_buttons(int y, SIZE inside);

    // From the form to the windows.
    void refresh_field(Item& item, LookupTextBox& field);
    void refresh_picker(const Item& item, const DatePicker& picker);
    void show_notes();
    void set_text(HWND window, const std::wstring& text);
    Field_state state_of(const Item& item) const;
    HBRUSH dress(HDC dc, HWND child);

    // From the user to the form.
    void commanded(int id, int code);
    void notified(const NMHDR& notice);
    void focus_settled(int id);
    void clicked_beside(POINT at);
    bool calendar_open() const;

    Form& form_;
    std::vector<Item> items_;
    HWND title_ = nullptr;
    HWND keys_ = nullptr;
    std::vector<int> separators_;
    bool refreshing_ = false;
};

}  // namespace cuvexa::win32
