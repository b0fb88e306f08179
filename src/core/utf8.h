// Bytes that claim to be UTF-8.
#pragma once

#include <cstddef>
#include <string_view>

namespace cuvexa {

/// Length of the UTF-8 sequence at `at`, or 0 when there is none: overlong forms, surrogates and what lies above
/// U+10FFFF are none.
constexpr std::size_t utf8_length(std::string_view text, std::size_t at) noexcept {
    const auto byte = [&](std::size_t i) {
        return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0u;
    };
    const auto follows = [&](std::size_t i) { return (byte(i) & 0xC0u) == 0x80u; };
    const unsigned first = byte(0), second = byte(1);
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF && follows(1)) return 2;
    if (first >= 0xE0 && first <= 0xEF && follows(1) && follows(2) && !(first == 0xE0 && second < 0xA0) &&
        !(first == 0xED && second > 0x9F)) {
        return 3;
    }
    if (first >= 0xF0 && first <= 0xF4 && follows(1) && follows(2) && follows(3) && !(first == 0xF0 && second < 0x90) &&
        !(first == 0xF4 && second > 0x8F)) {
        return 4;
    }
    return 0;
}

}  // namespace cuvexa
