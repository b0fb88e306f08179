#include "database/dialect/limits.h"

#include <algorithm>

namespace cuvexa::dialect {
namespace {

constexpr std::string_view middle_words = ": admite ";
constexpr std::string_view length_hole = "$2";

std::string_view last_words(std::string_view takes) {
    const std::size_t hole = takes.find(length_hole);
    return hole == std::string_view::npos ? takes : takes.substr(hole + length_hole.size());
}

std::string refusal(std::string_view column, std::string_view why) {
    return std::string("El valor no cabe en la columna ").append(column).append(why);
}

// Past the last of the signs with which an engine opens a name in its message, in whatever language that is.
std::size_t begin_of_name(std::string_view message) {
    std::size_t begin = 0;
    for (const std::string_view sign :
         {std::string_view("CHECK constraint failed: "), std::string_view("\""), std::string_view("«")}) {
        if (const auto at = message.rfind(sign); at != std::string_view::npos) {
            begin = std::max(begin, at + sign.size());
        }
    }
    return begin;
}

// … violates check constraint "Rp_Banco: admite hasta 400 caracteres"
std::optional<std::string> told_by_constraint(std::string_view message) {
    const std::size_t middle = message.find(middle_words);
    if (middle == std::string_view::npos) return std::nullopt;
    const std::size_t begin = begin_of_name(message.substr(0, middle));
    if (begin == 0 || begin == middle) return std::nullopt;
    const std::string_view rest = message.substr(middle);
    if (rest.substr(middle_words.size()).starts_with(takes_numbers)) return std::string(no_number_text);
    for (const std::string_view last : {last_words(takes_characters), last_words(takes_dates)}) {
        if (const auto end = rest.find(last); end != std::string_view::npos) {
            return refusal(message.substr(begin, middle - begin), rest.substr(0, end + last.size()));
        }
    }
    return std::nullopt;
}

// String or binary data would be truncated in table 'dbo.T', column 'Rp_Banco'. Truncated value: …
std::optional<std::string> told_by_sql_server(std::string_view message) {
    constexpr std::string_view before = "would be truncated in table '", name = "', column '";
    const std::size_t table = message.find(before);
    if (table == std::string_view::npos) return std::nullopt;
    const std::size_t column = message.find(name, table);
    if (column == std::string_view::npos) return std::nullopt;
    const std::string_view rest = message.substr(column + name.size());
    return refusal(rest.substr(0, rest.find('\'')), " (").append(message).append(")");
}

}  // namespace

std::string limit_name(std::string_view column, std::string_view takes, std::string_view length) {
    std::string name = std::string(column).append(middle_words).append(takes);
    if (const auto hole = name.find(length_hole); hole != std::string::npos) {
        name.replace(hole, length_hole.size(), length);
    }
    return name;
}

std::optional<std::string> limit_refusal(std::string_view message) {
    auto refusal = told_by_constraint(message);
    return refusal ? refusal : told_by_sql_server(message);
}

}  // namespace cuvexa::dialect
