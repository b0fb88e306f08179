// The SQL Server dialect rewritten for another engine.
//
// The rewriting itself is the same for every engine; what differs stands in the tables of a `Dialect`.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "database/dialect/lexer.h"

namespace cuvexa {

/// What a function gives, as far as text joins and comparisons go.
enum class Function_result : unsigned char {
    other,         ///< nothing that is compared as text
    text,          ///< text
    as_arguments,  ///< text when an argument is text
};

/// A function call: its name, its number of arguments (-1: any) and what stands in its place, "$1" being an argument.
/// An empty replacement leaves the call as it is.
struct Function_rule {
    std::string_view name;
    int arguments;
    std::string_view replacement;
    Function_result result = Function_result::other;
};

/// A column type, without its length, and what stands in its place.
struct Type_rule {
    std::string_view name;
    std::string_view column;  ///< in a column definition
    std::string_view cast;    ///< in CAST and CONVERT
    bool text = false;
};

/// A whole statement, its words parted by single blanks, that is replaced by another.
struct Statement_rule {
    std::string_view statement;
    std::string_view replacement;
};

/// What an engine wants instead of the SQL Server dialect.
struct Dialect {
    std::span<const Function_rule> functions;
    std::span<const Type_rule> types;
    std::span<const Statement_rule> statements;

    /// Collation added to a text expression that is not a column, so that it compares without regard to case; empty:
    /// none.
    std::string_view text_collation;

    /// Aggregate that gives its only value and fails at a second one; empty where the engine itself refuses a scalar
    /// sub-select of two rows.
    std::string_view single_value;

    /// Cast written after a text expression that is not a column, for engines whose texts compare by their type; empty:
    /// none.
    std::string_view text_cast = {};

    /// The engine keeps names in lower case and takes a marked name to the letter: [Name] is written "name".
    bool folds_names = false;
};

/// SQLite with the functions that `install_functions` adds.
const Dialect& sqlite_dialect();

/// PostgreSQL with the extension citext.
const Dialect& postgresql_dialect();

/// Columns that hold dates, by name in lower case. A name is here when it names a date wherever it names a column.
using Date_columns = std::unordered_set<std::string>;

/// A statement rewritten. Refers into the text it was made from and into the tables of its dialect.
class Translation {
public:
    /// The statement with its literals in place.
    std::string with_literals() const;

    /// The statement with ?1, ?2, … in place of the literals that may vary. The parameter of the i-th literal of the
    /// source is ?(i + 1), whatever order the rewriting gave them.
    std::string with_parameters() const;

    /// Whether the statement may be prepared with parameters (a definition may not).
    bool takes_parameters() const noexcept { return takes_parameters_; }

    /// Literals of the source, by position, that stay in place because their value decides what the statement means.
    std::vector<std::size_t> pinned() const;

    struct Piece {
        std::string_view text;
        int literal = -1;  ///< position among the literals of the source, or -1
        bool pinned = false;
        bool folded_name = false;  ///< a marked name, to be written as the engine keeps it
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

}  // namespace cuvexa
