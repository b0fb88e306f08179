#include "database/postgresql/kept_statement.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace cuvexa::postgresql {
namespace {

constexpr char text_mark = '\1';
// '' is a date where a date is wanted, so it is not any text.
constexpr char empty_text_mark = '\2';
constexpr char integer_mark = '\3';
constexpr char bigint_mark = '\4';
constexpr char numeric_mark = '\5';

constexpr Oid bigint_type = 20, integer_type = 23, numeric_type = 1700;

char mark_of_number(std::string_view literal) noexcept {
    std::int64_t whole = 0;
    const char* const end = literal.data() + literal.size();
    const auto [stop, error] = std::from_chars(literal.data(), end, whole);
    if (error != std::errc() || stop != end) return numeric_mark;
    return whole <= std::numeric_limits<std::int32_t>::max() ? integer_mark : bigint_mark;
}

}  // namespace

bool Kept_statement::serves(const database::Shape& other) const {
    return std::all_of(pinned.begin(), pinned.end(),
                       [&](const auto& literal) { return other.literal(literal.first) == literal.second; });
}

char mark_of(dialect::Token_kind kind, std::string_view literal) noexcept {
    if (kind == dialect::Token_kind::number) return mark_of_number(literal);
    return literal.ends_with("'") && (literal == "''" || literal == "N''" || literal == "n''") ? empty_text_mark
                                                                                               : text_mark;
}

Oid type_of(const database::Shape& shape, std::size_t literal) noexcept {
    if (!shape.is_number(literal)) return 0;
    switch (mark_of_number(shape.literal(literal))) {
        case integer_mark:
            return integer_type;
        case bigint_mark:
            return bigint_type;
        default:
            return numeric_type;
    }
}

}  // namespace cuvexa::postgresql
