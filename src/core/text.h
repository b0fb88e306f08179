// Small things done to texts.
#pragma once

#include <string>
#include <string_view>

namespace cuvexa {

/// The text without `blanks` at its ends.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = " ") {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// A value as it stands between the quotes of a statement: its own are doubled.
inline std::string sql_escaped(std::string_view value) {
    std::string out;
    out.reserve(value.size());
    for (const char c : value) {
        out += c;
        if (c == '\'') out += c;
    }
    return out;
}

/// A value in quotes.
inline std::string sql_quoted(std::string_view value) {
    return '\'' + sql_escaped(value) + '\'';
}

}  // namespace cuvexa
