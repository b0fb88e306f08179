// A statement of the SQL Server dialect in another engine's words.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "database/dialect/dialect.h"
#include "database/dialect/lexer.h"

namespace cuvexa::dialect {

/// Columns that hold dates, by name in lower case. A name is here when it names a date wherever it names a column.
using Date_columns = std::unordered_set<std::string>;

/// A statement rewritten. Refers into the text it was made from and into the tables of its dialect.
class Translation {
public:
    /// The statement with its literals in place.
    std::string with_literals() const;

    /// The statement with ?1, ?2, … in place of the literals that may vary, or with that mark in place of the ?. The
    /// parameter of the i-th literal of the source is ?(i + 1), whatever order the rewriting gave them.
    std::string with_parameters(char mark = '?') const;

    /// Whether the statement may be prepared with parameters (a definition may not).
    bool takes_parameters() const noexcept { return takes_parameters_; }

    /// Literals of the source, by position, that stay in place because their value decides what the statement means.
    std::vector<std::size_t> pinned() const;

    struct Piece {
        std::string_view text;
        int literal = -1;  ///< position among the literals of the source, or -1
        bool pinned = false;
        bool folded_name = false;                          ///< a marked name, to be written as the engine keeps it
        std::shared_ptr<const std::string> composed = {};  ///< keeps a text that the rewriting composed
    };

    Translation(std::vector<Piece> pieces, bool takes_parameters)
        : pieces_(std::move(pieces)), takes_parameters_(takes_parameters) {}

private:
    std::vector<Piece> pieces_;
    bool takes_parameters_;
};

/// Rewrites a statement that `tokenize` has read. What it does not know it passes on as it stands. An empty text that
/// is put into one of `dates`, or compared with it, becomes 1 January 1900, for which SQL Server takes it.
Translation translate(std::string_view text, const std::vector<Token>& tokens, const Dialect& dialect,
                      const Date_columns& dates = {});

}  // namespace cuvexa::dialect
