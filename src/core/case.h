// ASCII letters without regard to case.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace cuvexa {

constexpr char lower_ascii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char upper_ascii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string upper_ascii(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = upper_ascii(c);
    return out;
}

constexpr bool same_text(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower_ascii(x) == lower_ascii(y); });
}

}  // namespace cuvexa
