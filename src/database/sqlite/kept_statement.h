// A prepared statement that is kept for texts of the same shape.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "database/row_set.h"
#include "database/shape.h"
#include "database/sqlite/database.h"

namespace cuvexa::sqlite {

struct Kept_statement {
    std::string shape;
    std::vector<std::pair<std::size_t, std::string>> pinned;  ///< literals that stayed in the text
    Statement statement;
    database::Column_names columns;
    int parameters = 0;  ///< -1: prepared with its literals in place, good for one text
    int repreparations = 0;

    bool serves(const database::Shape& other) const;
};

/// Tells a text and a number apart; neither mark occurs in a text that the lexer lets through.
char mark_of(dialect::Token_kind kind, std::string_view literal) noexcept;

}  // namespace cuvexa::sqlite
