// How the windows look: the suite's colours, fonts and sizes at the resolution of one window.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <type_traits>

#include "cuvexa/dialogs.h"
#include "desktop/win32/system.h"

namespace cuvexa::win32 {

struct Delete_object {
    void operator()(void* object) const { DeleteObject(object); }
};
template <class Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Delete_object>;

COLORREF color_ref(std::uint32_t color);

/// How the frame of a field is drawn.
enum class Field_state { ordinary, focused, refused, locked, disabled };

class Looks {
public:
    Looks(const Suite_colors& colors, int dpi);

    const Suite_colors& colors() const { return colors_; }

    /// Pixels of a size that is given as at 96 dots per inch.
    int px(int units) const { return MulDiv(units, dpi_, USER_DEFAULT_SCREEN_DPI); }

    HFONT text() const { return text_.get(); }
    HFONT bold() const { return bold_.get(); }
    HFONT title() const { return title_.get(); }
    /// The font of that name; empty: that of the texts.
    HFONT named(const std::string& name);

    int line_height(HFONT font) const;
    /// The width of so many letters, as they are on average.
    int letters(int count) const { return MulDiv(alphabet_width_, count, 26); }
    int width_of(const std::wstring& text, HFONT font) const;
    /// The height of a text that is broken into lines of that width.
    int height_of(const std::wstring& text, int width) const;

    /// The height of one line of a form: a field with its frame.
    int field_height() const { return line_height(text()) + px(14); }

    HBRUSH brush(std::uint32_t color);
    void fill(HDC dc, const RECT& area, std::uint32_t color) { FillRect(dc, &area, brush(color)); }
    void frame(HDC dc, RECT area, std::uint32_t color, int thickness);

    void draw_field(HDC dc, const RECT& area, Field_state state);
    /// The ground that the texts of a field in that state stand on.
    std::uint32_t ground(Field_state state) const;
    /// Puts an edit control that has no frame of its own inside the frame of a field.
    void place_edit(HWND edit, const RECT& frame, HFONT font) const;
    void draw_button(const DRAWITEMSTRUCT& item, bool accepts);

private:
    Owned<HFONT> make_font(int points, int weight, const wchar_t* face, BYTE pitch) const;

    Suite_colors colors_;
    int dpi_;
    LOGFONTW face_{};
    int points_ = 0;
    Owned<HFONT> text_;
    Owned<HFONT> bold_;
    Owned<HFONT> title_;
    std::map<std::string, Owned<HFONT>> named_;
    std::map<std::uint32_t, Owned<HBRUSH>> brushes_;
    int alphabet_width_ = 0;
};

}  // namespace cuvexa::win32
