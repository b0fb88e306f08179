// Comparison of ASCII texts without regard to case.
#pragma once

#include <algorithm>
#include <string_view>

namespace cuvexa {

constexpr char lower_ascii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool same_text(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower_ascii(x) == lower_ascii(y); });
}

}  // namespace cuvexa
