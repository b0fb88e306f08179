// Statements of the reference suite: values are escaped, names and conditions stand as they are.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/rows.h"
#include "core/statement.h"
#include "core/text.h"

namespace cuvexa::reference {

/// A piece of a statement that is a name or a condition, not a value.
struct Raw {
    std::string_view text;
};

}  // namespace cuvexa::reference

namespace cuvexa {

template <>
inline constexpr bool stands_unquoted<reference::Raw> = true;

}  // namespace cuvexa

namespace cuvexa::reference {

inline std::string_view sql_piece(Raw raw) {
    return raw.text;
}
template <std::convertible_to<std::string_view> Text>
std::string sql_piece(const Text& text) {
    return sql_escaped(text);
}
inline double sql_piece(double number) {
    return number;
}
inline int sql_piece(int number) {
    return number;
}

/// A statement with its holes filled.
template <class... Arguments>
std::string sql(Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
    std::string text;
    append_filled(text, statement.literal(), {Piece(sql_piece(arguments)).view()...}, statement.quoted());
    return text;
}

/// Runs a statement with its holes filled.
template <class... Arguments>
Rows query(Connection& connection, Statement<std::type_identity_t<Arguments>...> statement,
           const Arguments&... arguments) {
    return Rows(connection.execute(sql(statement, arguments...)));
}

}  // namespace cuvexa::reference
