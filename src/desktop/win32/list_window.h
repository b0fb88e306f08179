// The list that F2 opens: what is typed narrows it, Enter takes the row.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cuvexa/dialogs.h"
#include "desktop/win32/modal_window.h"

namespace cuvexa::win32 {

class List_window : public Modal_window {
public:
    List_window(Choice_list& list, const Suite_colors& colors, Open_windows& open);
    ~List_window() override;

    /// Shows the list; the first column of the chosen row, or nothing.
    std::optional<std::string> choose();

protected:
    SIZE natural_size() override;
    void arrange(SIZE inside) override;
    void paint(HDC dc) override;
    void started() override;
    bool key_pressed(int key) override;
    void close_asked() override { end(); }
    void focus_came() override { SetFocus(sought_); }
    LRESULT message(UINT message, WPARAM wparam, LPARAM lparam) override;

private:
    void add_columns();
    void look_for(const std::string& text);
    void set_row_height();
    void fit_columns();
    LRESULT notified(const NMHDR& notice);
    LRESULT draw(NMLVCUSTOMDRAW& drawing);
    int current_row() const;
    void take_row();
    HBRUSH dress(HDC dc, HWND child);

    Choice_list& list_;
    std::vector<std::string> columns_;
    std::vector<std::vector<std::string>> rows_;
    std::vector<int> column_widths_;
    HWND label_ = nullptr;
    HWND sought_ = nullptr;
    HWND table_ = nullptr;
    HWND count_ = nullptr;
    HIMAGELIST row_height_ = nullptr;
    RECT frame_{};
    std::optional<std::string> chosen_;
};

}  // namespace cuvexa::win32
