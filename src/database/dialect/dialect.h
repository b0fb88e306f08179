// What an engine wants instead of the SQL Server dialect, as a table: the rewriting itself is the same for every engine.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace cuvexa::dialect {

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

/// What a column of a type takes, "$1" being the column and "$2" the length; none where both are empty.
struct Limit {
    std::string_view fits;   ///< when a value fits
    std::string_view takes;  ///< the same in words
};

/// A column type, without its length, and what stands in its place.
struct Type_rule {
    std::string_view name;
    std::string_view column;  ///< in a column definition
    std::string_view cast;    ///< in CAST and CONVERT
    bool text = false;
    Limit limit = {};
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
    std::string_view text_collation = {};

    /// Cast written after a text expression that is not a column, for engines whose texts compare by their type; empty:
    /// none.
    std::string_view text_cast = {};

    /// Aggregate that gives its only value and fails at a second one; empty where the engine itself refuses a scalar
    /// sub-select of two rows.
    std::string_view single_value = {};

    /// Functions that keep the answer of a sub-select while a statement runs, for engines that ask it anew for every row;
    /// empty where the rewriting leaves that to the engine.
    std::string_view recall = {}, remember = {};

    /// The engine keeps names in lower case and takes a marked name to the letter: [Name] is written "name".
    bool folds_names = false;

    /// The engine knows an expression of GROUP BY again elsewhere only by its literals, which are therefore no parameters.
    bool knows_groups_by_literals = false;

    /// The rule for a call of that many arguments; null: the dialect has none.
    const Function_rule* function(std::string_view name, std::size_t arguments) const noexcept;

    /// The rule for a type; null: the dialect has none.
    const Type_rule* type(std::string_view name) const noexcept;
};

}  // namespace cuvexa::dialect
