// How the windows look: the suite's colours in what the windows answer to the system and draw.
#include <memory>

#include "windows/dialogs/desk.h"

namespace cuvexa::tests {
namespace {

using win32::color_ref;

const Suite_colors colors;
constexpr auto account = "txt_Bc_Cve_Banco_Cuenta";

/// A place to draw on that is no screen.
class Canvas {
public:
    Canvas(int width, int height) {
        BITMAPINFO format{};
        format.bmiHeader.biSize = sizeof format.bmiHeader;
        format.bmiHeader.biWidth = width;
        format.bmiHeader.biHeight = -height;
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        void* points = nullptr;
        bitmap_ = CreateDIBSection(dc_, &format, DIB_RGB_COLORS, &points, nullptr, 0);
        before_ = SelectObject(dc_, bitmap_);
    }
    ~Canvas() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    HDC dc() const { return dc_; }
    COLORREF at(int x, int y) const { return GetPixel(dc_, x, y); }

private:
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

/// The window's inside, without its children.
std::unique_ptr<Canvas> inside_of(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    auto canvas = std::make_unique<Canvas>(area.right, area.bottom);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas->dc()), PRF_CLIENT);
    return canvas;
}

/// What the window above answers a control that asks for its colours.
struct Answer {
    COLORREF text, ground;
    bool operator==(const Answer&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    return out << std::hex << answer.text << " on " << answer.ground;
}
Answer answer_to(HWND child, UINT message = WM_CTLCOLORSTATIC) {
    const Canvas canvas(1, 1);
    const auto brush =
        SendMessageW(GetParent(child), message, reinterpret_cast<WPARAM>(canvas.dc()), reinterpret_cast<LPARAM>(child));
    LOGBRUSH filled{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(brush), sizeof filled, &filled);
    EXPECT_EQ(filled.lbColor, GetBkColor(canvas.dc()));
    return {GetTextColor(canvas.dc()), filled.lbColor};
}
Answer looks_like(std::uint32_t text, std::uint32_t ground) {
    return {color_ref(text), color_ref(ground)};
}

/// The colour of the frame at the left of the field.
COLORREF frame_of(Desk& desk, const std::string& name) {
    const HWND field = desk.control(name);
    RECT area{};
    GetWindowRect(field, &area);
    MapWindowPoints(nullptr, GetParent(field), reinterpret_cast<POINT*>(&area), 2);
    const auto canvas = inside_of(GetParent(field));
    return canvas->at(area.left - 9, (area.top + area.bottom) / 2);
}

TEST(Win32_looks, a_field_shows_whether_it_is_refused_locked_or_has_the_keyboard) {
    Desk desk;
    desk.deposit(
        {look([](Desk& desk) {
             EXPECT_EQ(answer_to(desk.control(account), WM_CTLCOLOREDIT), looks_like(colors.text, colors.field));
             EXPECT_EQ(answer_to(desk.control("txt_Bc_Descripcion")), looks_like(colors.text, colors.locked_field));
             EXPECT_EQ(answer_to(desk.control("Label1")), looks_like(colors.text, colors.form));
             EXPECT_EQ(frame_of(desk, account), color_ref(colors.accent));
             EXPECT_EQ(frame_of(desk, "txt_Bc_Descripcion"), color_ref(colors.locked_field));
         }),
         type(L"NADA"), key(VK_RETURN), look([](Desk& desk) {
             EXPECT_EQ(answer_to(desk.control(account), WM_CTLCOLOREDIT),
                       looks_like(colors.text, colors.refused_field));
             EXPECT_EQ(frame_of(desk, account), color_ref(colors.refused));
             const HWND note = GetWindow(desk.control("txt_Bc_Descripcion"), GW_HWNDNEXT);
             EXPECT_EQ(answer_to(note), looks_like(colors.refused, colors.locked_field));
         }),
         key(VK_ESCAPE)});
    desk.payment({look([](Desk& desk) {
                      EXPECT_EQ(frame_of(desk, "txtCuenta"), color_ref(colors.border));
                      EXPECT_EQ(answer_to(desk.control("txtCuenta")), looks_like(colors.disabled_text, colors.form));
                      EXPECT_EQ(answer_to(desk.control("lbInfo")), looks_like(colors.quiet_text, colors.form));
                  }),
                  key(VK_ESCAPE)},
                 "04");
}

/// The colour of the ground of a button.
COLORREF ground_of(HWND button, UINT state) {
    const Canvas canvas(200, 40);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.itemState = state;
    item.hwndItem = button;
    item.hDC = canvas.dc();
    item.rcItem = {0, 0, 200, 40};
    SendMessageW(GetParent(button), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(canvas.at(0, 20) == color_ref(colors.text), (state & ODS_FOCUS) != 0) << "the mark of the keyboard";
    return canvas.at(6, 20);
}

TEST(Win32_looks, the_button_that_accepts_stands_out_and_the_keyboard_is_seen_on_both) {
    Desk desk;
    desk.deposit({look([](Desk& desk) {
                      for (const UINT state : {UINT{0}, UINT{ODS_FOCUS}}) {
                          EXPECT_EQ(ground_of(desk.control("Controles.b1"), state), color_ref(colors.accent));
                          EXPECT_EQ(ground_of(desk.control("Controles.b2"), state), color_ref(colors.field));
                      }
                      EXPECT_EQ(ground_of(desk.control("Controles.b2"), ODS_SELECTED), color_ref(colors.locked_field));
                  }),
                  key(VK_ESCAPE)});
}

/// The colours of a row of the list on top.
Answer row_colors(int row) {
    NMLVCUSTOMDRAW drawing{};
    drawing.nmcd.hdr = {Desk::child(id_table), id_table, static_cast<UINT>(NM_CUSTOMDRAW)};
    drawing.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    drawing.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
    SendMessageW(Desk::top(), WM_NOTIFY, id_table, reinterpret_cast<LPARAM>(&drawing));
    return {drawing.clrText, drawing.clrTextBk};
}

TEST(Win32_looks, the_chosen_row_of_the_list_has_the_suites_colour_and_rows_alternate) {
    Desk desk;
    desk.deposit({key(VK_F2), key(VK_DOWN), look([](Desk&) {
                      EXPECT_EQ(row_colors(0), looks_like(colors.text, colors.field));
                      EXPECT_EQ(row_colors(1), looks_like(colors.accent_text, colors.accent));
                      EXPECT_EQ(row_colors(2), looks_like(colors.text, colors.field));
                  }),
                  key(VK_UP), look([](Desk&) { EXPECT_EQ(row_colors(1), looks_like(colors.text, colors.form)); }),
                  key(VK_ESCAPE), key(VK_ESCAPE)});
}

TEST(Win32_looks, the_error_dialog_has_the_icon_of_its_style_and_without_one_begins_at_the_left) {
    Desk desk;
    std::vector<std::vector<COLORREF>> icons;
    std::vector<LONG> lefts;
    for (const int style : {16, 32, 48, 64, 0}) {
        desk.run({look([&](Desk&) {
                      const auto canvas = inside_of(Desk::top());
                      auto& icon = icons.emplace_back();
                      for (int y = 22; y < 54; ++y) {
                          for (int x = 24; x < 56; ++x) icon.push_back(canvas->at(x, y));
                      }
                      RECT text{};
                      GetWindowRect(Desk::child(id_description), &text);
                      MapWindowPoints(nullptr, Desk::top(), reinterpret_cast<POINT*>(&text), 2);
                      lefts.push_back(text.left);
                  }),
                  key(VK_RETURN)},
                 [&] {
                     desk.toolkit->show_error({"Texto", style, "R()", "", "Cuvexa", ""});
                 });
    }
    for (std::size_t one = 0; one < icons.size(); ++one) {
        for (std::size_t other = 0; other < one; ++other) EXPECT_NE(icons[one], icons[other]) << one << " " << other;
    }
    EXPECT_LT(lefts[4], lefts[0]);
    EXPECT_EQ(lefts[3], lefts[0]);
}

}  // namespace
}  // namespace cuvexa::tests
