// The SQL Server dialect rewritten for another engine.
//
// The rewriting itself is the same for every engine; what differs stands in the tables of a `Dialect`.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lexer.h"

namespace cuvexa {

/// A function call: its name, its number of arguments (-1: any) and what stands in its place, "$1" being an argument
/// and "$*" all of them.
struct Function_rule {
    std::string_view name;
    int arguments;
    std::string_view replacement;
    bool gives_text;  ///< the result is compared as text
};

/// A column type, without its length, and what stands in its place.
struct Type_rule {
    std::string_view name;
    std::string_view column;  ///< in a column definition
    std::string_view cast;    ///< in CAST and CONVERT
    bool text;
};

/// A whole statement that is replaced by another.
struct Statement_rule {
    std::string_view statement;
    std::string_view replacement;
};

/// What an engine wants instead of the SQL Server dialect.
struct Dialect {
    std::span<const Function_rule> functions;
    std::span<const Type_rule> types;
    std::span<const Statement_rule> statements;

    /// Added to a text expression that is not a column, so that it compares without regard to case; empty: nothing.
    std::string_view text_collation;

    /// Aggregate that gives its only value and fails at a second one; empty where the engine itself refuses a scalar
    /// sub-select of two rows.
    std::string_view single_value;
};

/// SQLite with the functions that `Sqlite_connection` adds.
const Dialect& sqlite_dialect();

/// A statement rewritten. Literals can be put back or replaced by parameters.
class Translation {
public:
    /// The statement with its literals in place.
    std::string with_literals() const;

    /// The statement with ?1, ?2, … in place of the literals that may vary. The parameter of the i-th literal of the
    /// source is i + 1, whatever order the rewriting gave them.
    std::string with_parameters() const;

    /// Whether the statement may be prepared with parameters (a definition may not).
    bool takes_parameters() const noexcept { return takes_parameters_; }

    /// Literals of the source, by position, that stay in place because their value decides what the statement means.
    const std::vector<std::size_t>& pinned() const noexcept { return pinned_; }

    struct Piece {
        std::string text;
        int literal = -1;  ///< position among the literals of the source, or -1
        bool pinned = false;
    };

private:
    friend Translation translate(std::string_view, const std::vector<Token>&, const Dialect&);
    std::string render(bool parameters) const;

    std::vector<Piece> pieces_;
    std::vector<std::size_t> pinned_;
    bool takes_parameters_ = true;
};

/// Rewrites a statement that `tokenize` has read. What it does not know it passes on as it stands.
Translation translate(std::string_view text, const std::vector<Token>& tokens, const Dialect& dialect);

}  // namespace cuvexa
