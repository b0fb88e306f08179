#include "database/sqlite/kept_statement.h"

#include <algorithm>

namespace cuvexa::sqlite {

bool Kept_statement::serves(const database::Shape& other) const {
    return std::all_of(pinned.begin(), pinned.end(),
                       [&](const auto& literal) { return other.literal(literal.first) == literal.second; });
}

char mark_of(dialect::Token_kind kind, std::string_view) noexcept {
    return kind == dialect::Token_kind::text ? '?' : '\0';
}

}  // namespace cuvexa::sqlite
