#include "desktop/win32/looks.h"

#include <algorithm>
#include <cwchar>

#include "desktop/win32/text.h"

namespace cuvexa::win32 {
namespace {

/// Type that is read without leaning forward.
constexpr int least_points = 12;

/// A device context of the screen, in which texts are measured.
class Measure {
public:
    explicit Measure(HFONT font) : before_(SelectObject(dc_, font)) {}
    ~Measure() {
        SelectObject(dc_, before_);
        ReleaseDC(nullptr, dc_);
    }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;
    HDC dc() const { return dc_; }

private:
    HDC dc_ = GetDC(nullptr);
    HGDIOBJ before_;
};

int CALLBACK note_font(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool has_font(const wchar_t* face) {
    LOGFONTW sought{};
    sought.lfCharSet = DEFAULT_CHARSET;
    std::wcsncpy(sought.lfFaceName, face, LF_FACESIZE - 1);
    bool found = false;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &sought, note_font, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    return found;
}

}  // namespace

COLORREF color_ref(std::uint32_t color) {
    return RGB((color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF);
}

Looks::Looks(const Suite_colors& colors, int dpi) : colors_(colors), dpi_(dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    face_ = metrics.lfMessageFont;
    points_ = std::max(MulDiv(std::abs(static_cast<int>(face_.lfHeight)), 72, dpi_of_system()), least_points);
    text_ = make_font(points_, FW_NORMAL, face_.lfFaceName, DEFAULT_PITCH);
    bold_ = make_font(points_, FW_BOLD, face_.lfFaceName, DEFAULT_PITCH);
    title_ = make_font(points_ + 3, FW_BOLD, face_.lfFaceName, DEFAULT_PITCH);
    alphabet_width_ = width_of(L"abcdefghijklmnopqrstuvwxyz", text());
}

Owned<HFONT> Looks::make_font(int points, int weight, const wchar_t* face, BYTE pitch) const {
    LOGFONTW font{};
    font.lfHeight = -MulDiv(points, dpi_, 72);
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    font.lfPitchAndFamily = pitch;
    std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1);
    Owned<HFONT> made(CreateFontIndirectW(&font));
    if (!made) fail("un tipo de letra");
    return made;
}

HFONT Looks::named(const std::string& name) {
    if (name.empty()) return text();
    auto& font = named_[name];
    if (!font) {
        // A fixed pitch stands for the bitmap fonts of old where a system does not have them.
        const std::wstring face = wide(name);
        font = has_font(face.c_str()) ? make_font(points_, FW_NORMAL, face.c_str(), DEFAULT_PITCH)
                                      : make_font(points_, FW_NORMAL, L"Consolas", FIXED_PITCH | FF_MODERN);
    }
    return font.get();
}

int Looks::line_height(HFONT font) const {
    const Measure measure(font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(measure.dc(), &metrics);
    return metrics.tmHeight;
}

int Looks::width_of(const std::wstring& text, HFONT font) const {
    const Measure measure(font);
    SIZE size{};
    GetTextExtentPoint32W(measure.dc(), text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int Looks::height_of(const std::wstring& text, int width) const {
    const Measure measure(this->text());
    RECT area{0, 0, width, 0};
    DrawTextW(measure.dc(), text.data(), static_cast<int>(text.size()), &area,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL);
    return area.bottom;
}

HBRUSH Looks::brush(std::uint32_t color) {
    auto& brush = brushes_[color];
    if (!brush) brush.reset(CreateSolidBrush(color_ref(color)));
    return brush.get();
}

void Looks::frame(HDC dc, RECT area, std::uint32_t color, int thickness) {
    for (int i = 0; i < thickness; ++i) {
        FrameRect(dc, &area, brush(color));
        InflateRect(&area, -1, -1);
    }
}

std::uint32_t Looks::ground(Field_state state) const {
    switch (state) {
        case Field_state::refused:
            return colors_.refused_field;
        case Field_state::locked:
            return colors_.locked_field;
        case Field_state::disabled:
            return colors_.form;
        default:
            return colors_.field;
    }
}

void Looks::draw_field(HDC dc, const RECT& area, Field_state state) {
    fill(dc, area, ground(state));
    switch (state) {
        case Field_state::focused:
            frame(dc, area, colors_.accent, px(2));
            break;
        case Field_state::refused:
            frame(dc, area, colors_.refused, px(2));
            break;
        case Field_state::locked:
            break;
        default:
            frame(dc, area, colors_.border, px(1));
    }
}

void Looks::place_edit(HWND edit, const RECT& frame, HFONT font) const {
    SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SendMessageW(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);  // a font brings margins of its own
    const int height = line_height(font);
    const int top = frame.top + (frame.bottom - frame.top - height) / 2;
    SetWindowPos(edit, nullptr, frame.left + px(9), top, frame.right - frame.left - px(18), height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void Looks::draw_button(const DRAWITEMSTRUCT& item, bool accepts) {
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    RECT area = item.rcItem;
    fill(item.hDC, area, accepts ? colors_.accent : pressed ? colors_.locked_field : colors_.field);
    if ((item.itemState & ODS_FOCUS) != 0) {
        frame(item.hDC, area, colors_.text, px(3));
    } else {
        frame(item.hDC, area, accepts ? colors_.accent : colors_.border, px(1));
    }
    const HGDIOBJ before = SelectObject(item.hDC, accepts ? bold() : text());
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, color_ref(accepts ? colors_.accent_text : colors_.text));
    if (pressed) OffsetRect(&area, 0, px(1));
    const std::wstring caption = text_of(item.hwndItem);
    DrawTextW(item.hDC, caption.data(), static_cast<int>(caption.size()), &area,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SelectObject(item.hDC, before);
}

}  // namespace cuvexa::win32
