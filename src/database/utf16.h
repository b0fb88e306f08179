// Texts as ODBC drivers exchange them.
#pragma once

#include <string>
#include <string_view>

#include "core/utf8.h"

namespace cuvexa::database {

inline std::u16string utf16_from(std::string_view text) {
    std::u16string wide;
    wide.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8_length(text, at);
        char32_t c = length == 0 ? U'\uFFFD' : static_cast<unsigned char>(text[at]);
        if (length > 1) {
            c &= 0x7Fu >> length;
            for (std::size_t i = 1; i < length; ++i) c = (c << 6) | (static_cast<unsigned char>(text[at + i]) & 0x3Fu);
        }
        if (c >= 0x10000) {
            wide += static_cast<char16_t>(0xD7C0 + (c >> 10));
            wide += static_cast<char16_t>(0xDC00 | (c & 0x3FF));
        } else {
            wide += static_cast<char16_t>(c);
        }
        at += length == 0 ? 1 : length;
    }
    return wide;
}

/// A half of a pair that stands alone becomes U+FFFD.
inline std::string utf8_from(std::u16string_view wide) {
    std::string text;
    text.reserve(wide.size());
    for (std::size_t at = 0; at < wide.size(); ++at) {
        char32_t c = wide[at];
        const bool high = c >= 0xD800 && c < 0xDC00;
        const bool pair = high && at + 1 < wide.size() && wide[at + 1] >= 0xDC00 && wide[at + 1] < 0xE000;
        if (pair) {
            c = ((c - 0xD7C0) << 10) | (wide[++at] & 0x3FFu);
        } else if (c >= 0xD800 && c < 0xE000) {
            c = 0xFFFD;
        }
        if (c < 0x80) {
            text += static_cast<char>(c);
            continue;
        }
        const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        text += static_cast<char>((0xFF00u >> (more + 1) & 0xFFu) | c >> (6 * more));
        for (int i = more - 1; i >= 0; --i) text += static_cast<char>(0x80u | (c >> (6 * i) & 0x3Fu));
    }
    return text;
}

}  // namespace cuvexa::database
