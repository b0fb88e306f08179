#include "dialogs/key_text.h"

#include <algorithm>

#include "core/case.h"
#include "core/text.h"

namespace cuvexa::dialogs {
namespace {

/// One pass, so that a mark inside what is put in is never replaced again. A mark begins outside of quotes; what looks
/// like one inside a text is a value.
std::string replaced(std::string_view text, std::string_view mark, std::string_view with) {
    std::string out;
    bool quoted = false;
    for (std::size_t at = 0; at < text.size();) {
        if (!quoted && text.substr(at).starts_with(mark)) {
            out.append(with);
            at += mark.size();
        } else {
            quoted ^= text[at] == '\'';
            out += text[at++];
        }
    }
    return out;
}

bool all_of_digits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string capitals(std::string_view text) {
    std::string out(text);
    for (std::size_t i = 0; i < out.size(); ++i) {
        auto& c = out[i];
        if (c == '\xC3' && i + 1 < out.size()) {
            // U+00E0 … U+00FE, "à" to "þ", but not the division sign between them.
            auto& second = out[++i];
            if (second >= '\xA0' && second <= '\xBE' && second != '\xB7') second = static_cast<char>(second - 0x20);
        } else {
            c = upper_ascii(c);
        }
    }
    return out;
}

std::string formatted(std::string_view key, std::string_view format) {
    if (format.starts_with('>')) return capitals(key);
    const bool zeros = !format.empty() && format.find_first_not_of('0') == std::string_view::npos;
    if (!zeros || !all_of_digits(key) || key.size() >= format.size()) return std::string(key);
    return std::string(format.size() - key.size(), '0').append(key);
}

std::string with_key(std::string_view sql, std::string_view key) {
    return replaced(sql, "'?'", sql_quoted(key));
}

std::string with_pattern(std::string_view sql, std::string_view text) {
    const std::string pattern = std::string("%").append(text).append("%");
    return replaced(sql, "LIKE ?", std::string("LIKE ").append(sql_quoted(pattern)));
}

}  // namespace cuvexa::dialogs
