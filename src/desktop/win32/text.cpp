#include "desktop/win32/text.h"

namespace cuvexa::win32 {

std::wstring wide(std::string_view text) {
    if (text.empty()) return {};
    const int bytes = static_cast<int>(text.size());
    std::wstring out(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, out.data(), static_cast<int>(out.size()));
    return out;
}

std::string utf8(std::wstring_view text) {
    if (text.empty()) return {};
    const int units = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, out.data(), bytes, nullptr, nullptr);
    return out;
}

std::wstring label_text(std::string_view text) {
    std::wstring out;
    for (const wchar_t c : wide(text)) {
        out += c;
        if (c == L'&') out += c;
    }
    return out;
}

std::wstring lines_of(std::string_view text) {
    std::wstring out;
    for (const wchar_t c : wide(text)) {
        const bool break_alone = c == L'\n' && (out.empty() || out.back() != L'\r');
        if (!out.empty() && out.back() == L'\r' && c != L'\n') out += L'\n';
        if (break_alone) out += L'\r';
        out += c;
    }
    if (!out.empty() && out.back() == L'\r') out += L'\n';
    return out;
}

std::wstring text_of(HWND window) {
    std::wstring out(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    out.resize(static_cast<std::size_t>(GetWindowTextW(window, out.data(), static_cast<int>(out.size()))));
    return out;
}

}  // namespace cuvexa::win32
