// The suite's error dialog: what happened, where, and one button.
#pragma once

#include <string>

#include "cuvexa/dialogs.h"
#include "desktop/win32/modal_window.h"

namespace cuvexa::win32 {

class Error_window : public Modal_window {
public:
    Error_window(const Error_report& report, Open_windows& open);

    /// Shows the report until the user has closed it.
    void show();

protected:
    SIZE natural_size() override;
    void arrange(SIZE inside) override;
    void paint(HDC dc) override;
    void started() override { SetFocus(button_); }
    bool key_pressed(int key) override;
    void close_asked() override { end(); }
    void focus_came() override { SetFocus(button_); }
    LRESULT message(UINT message, WPARAM wparam, LPARAM lparam) override;

private:
    int icon_size() { return icon_ ? px(32) : 0; }
    int text_left() { return px(24) + (icon_ ? icon_size() + px(18) : 0); }
    int button_height() { return looks().field_height() + px(6); }
    /// The height that the text takes in that width, and how much of it the screen has room for; what is more scrolls.
    int whole_height(int width) { return looks().height_of(text_, width - px(8)); }
    int most_height();

    int style_;
    HICON icon_;
    std::wstring text_;
    std::wstring place_text_;
    HWND description_ = nullptr;
    HWND where_ = nullptr;
    HWND button_ = nullptr;
};

}  // namespace cuvexa::win32
