#include "com/pointers.h"

#include <new>

namespace cuvexa::com {

std::wstring wide(std::string_view utf8) {
    if (utf8.empty()) return {};
    const int size = static_cast<int>(utf8.size());
    std::wstring result(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)),
                        L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, result.data(), static_cast<int>(result.size()));
    return result;
}

std::string utf8(std::wstring_view wide) {
    if (wide.empty()) return {};
    const int size = static_cast<int>(wide.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, result.data(), needed, nullptr, nullptr);
    return result;
}

bool same_name(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()), TRUE) ==
           CSTR_EQUAL;
}

std::string text_of(BSTR string) {
    return string ? utf8({string, SysStringLen(string)}) : std::string();
}

BSTR new_string(std::string_view text) {
    const std::wstring characters = wide(text);
    BSTR string = SysAllocStringLen(characters.data(), static_cast<UINT>(characters.size()));
    if (!string) throw std::bad_alloc();
    return string;
}

}  // namespace cuvexa::com
