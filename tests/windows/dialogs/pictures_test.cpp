// The pictures of the documentation, taken from the screen when CUVEXA_PICTURES names a folder for them (see
// tests/windows/pictures); without it there is nothing to take, and often no screen.
#include <cstdlib>
#include <fstream>

#include "windows/dialogs/desk.h"

namespace cuvexa::tests {
namespace {

std::string folder() {
    const char* value = std::getenv("CUVEXA_PICTURES");
    return value ? value : "";
}

/// What the open windows cover of the screen.
RECT covered() {
    RECT all{};
    for (const HWND window : Desk::open_windows()) {
        RECT one{};
        GetWindowRect(window, &one);
        UnionRect(&all, &all, &one);
    }
    return all;
}

void write_bitmap(const std::string& file, HDC dc, HBITMAP bitmap, LONG width, LONG height) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    std::vector<char> points(static_cast<std::size_t>(width * height) * 4);
    GetDIBits(dc, bitmap, 0, static_cast<UINT>(height), points.data(), reinterpret_cast<BITMAPINFO*>(&header),
              DIB_RGB_COLORS);
    BITMAPFILEHEADER first{};
    first.bfType = 0x4D42;
    first.bfOffBits = sizeof first + sizeof header;
    first.bfSize = first.bfOffBits + static_cast<DWORD>(points.size());
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&first), sizeof first);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(points.data(), static_cast<std::streamsize>(points.size()));
}

/// The window system draws when it is asked for nothing else. The sign on the button that closes a window is of a font
/// that a distribution's Wine may lack: the frames are shown without it.
void settle(Desk&) {
    for (const HWND window : Desk::open_windows()) {
        SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) & ~LONG_PTR{WS_SYSMENU});
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
    GdiFlush();
    Sleep(100);
}

Steps with_picture(Steps before, const std::string& name, const Steps& after) {
    for (int i = 0; i < 4; ++i) before.emplace_back(settle);
    before.push_back([=](Desk&) {
        const RECT area = covered();
        const LONG width = area.right - area.left;
        const LONG height = area.bottom - area.top;
        const HDC screen = GetDC(nullptr);
        const HDC copy = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
        const HGDIOBJ old = SelectObject(copy, bitmap);
        BitBlt(copy, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
        SelectObject(copy, old);
        write_bitmap(folder() + "/win32-" + name + ".bmp", copy, bitmap, width, height);
        DeleteObject(bitmap);
        DeleteDC(copy);
        ReleaseDC(nullptr, screen);
    });
    before.insert(before.end(), after.begin(), after.end());
    return before;
}

class Win32_pictures : public ::testing::Test {
protected:
    void SetUp() override {
        if (folder().empty()) GTEST_SKIP() << "CUVEXA_PICTURES names no folder";
        MoveWindow(ground.window(), 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), TRUE);
    }
    Host_window ground;
    Desk desk;
};

TEST_F(Win32_pictures, of_the_deposit) {
    desk.deposit(with_picture({type(L"SRR-MXN"), key(VK_RETURN), key(VK_SPACE), key(VK_RETURN)}, "deposit",
                              {key(VK_RETURN), key(VK_ESCAPE)}));
    desk.deposit(with_picture({type(L"SRR-USD"), key(VK_RETURN)}, "deposit-refused-key", {key(VK_ESCAPE)}));
    desk.deposit(with_picture({type(L"SRR-USD"), key(VK_F4)}, "deposit-refusing", {key(VK_RETURN), key(VK_ESCAPE)}));
    desk.deposit(with_picture({key(VK_F2), type(L"s"), key(VK_DOWN)}, "list", {key(VK_ESCAPE), key(VK_ESCAPE)}));
}

TEST_F(Win32_pictures, of_the_payment_method) {
    const Steps fill = {type(L"SIERRA"), key(VK_RETURN),      type(L"Monterrey Centro"),
                        key(VK_RETURN),  type(L"0901000123"), key(VK_RETURN)};
    Steps filled = fill;
    filled.push_back(type(L"TR-5"));
    desk.payment(with_picture(filled, "payment-method", {key(VK_ESCAPE)}));
    Steps refused = fill;
    refused.push_back(key(VK_F4));
    desk.payment(with_picture(refused, "payment-method-refusing", {key(VK_RETURN), key(VK_ESCAPE)}));
    desk.payment(with_picture({}, "payment-method-reference-only", {key(VK_ESCAPE)}), "04");
}

TEST_F(Win32_pictures, of_errors) {
    std::string text;
    for (int line = 1; line <= 80; ++line) text += "Renglón " + std::to_string(line) + " de una descripción larga\n";
    desk.run(with_picture({}, "error-long", {key(VK_RETURN)}), [&] {
        desk.toolkit->show_error({text, 48, "Rutina()", "", "Cuvexa", "ERR-ID:1234567"});
    });
    desk.run(with_picture({}, "error-short", {key(VK_RETURN)}), [&] {
        desk.toolkit->show_error({"¿Sí & no? ñandú", 64, "Rutina()", "Aviso & más", "Cuvexa", ""});
    });
}

}  // namespace
}  // namespace cuvexa::tests
