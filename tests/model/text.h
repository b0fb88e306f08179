// Texts, numbers and dates as statements carry them and as the database keeps them, and the two ways in which an
// operation ends before its last step.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cuvexa/date.h"

namespace cuvexa::model {

using Text = std::string;

/// A column that may hold NULL: every date, and what a CASE without ELSE leaves.
using Nullable = std::optional<Text>;

/// A business refusal: the whole text that `Error` will hold.
struct Refusal {
    Text text;
};

/// A run-time failure: what the handler of the operation puts behind its tag.
struct Failure {
    Text description;
};

/// The engine's and the run-time's own words.
namespace words {
inline const Text overflow = "Desbordamiento";
inline const Text type_mismatch = "No coinciden los tipos";
inline const Text no_number = "El resultado no cabe en un número";
inline const Text use_of_null = "Uso no válido de Null";
inline const Text two_values = "La subconsulta devolvió más de un valor donde se espera uno solo";
}  // namespace words

inline const Text line_break = "\r\n";

/// A source tag, a line break and what follows.
inline Text tagged(const Text& tag, const Text& message) {
    return tag + line_break + message;
}

/// What stands in a column: a text, or NULL.
struct Column {
    Column(const Text& text) : null(false), text(text) {}
    Column(const char* text) : null(false), text(text) {}
    Column(std::string_view text) : null(false), text(text) {}
    Column(const Nullable& column) : null(!column), text(column ? std::string_view(*column) : std::string_view()) {}

    bool null;
    std::string_view text;
};

/// Whether a column equals a text, or differs from it, as the database compares: without regard to case, of letters with
/// accents too, and to blanks at the end. A NULL does neither.
bool same(Column column, std::string_view text);
bool differs(Column column, std::string_view text);
Text in_one_case(std::string_view text);
/// The order in which the database sorts texts.
bool before(std::string_view a, std::string_view b);

/// As the program itself compares codes: the letters A to Z without regard to case.
bool same_code(std::string_view a, std::string_view b);

/// How many characters a column must take for the text: blanks at the end need no room.
std::size_t characters(std::string_view text);

/// A text that the component puts between the quotes of a statement, as the database gets it: doubled apostrophes stand
/// for themselves, a lone one fails the statement before it is sent. What fails first is named, so the order counts.
Text quoted(const Text& text);

/// A number that is written into a statement, as the database gets it: its ordinary text holds 15 digits.
double bare(double number);

/// Dates as the data service writes them.
Text sql_date(Date date);       ///< 2024-03-15
Text sql_date_time(Date date);  ///< 2024-03-15 10:20:30

/// A column read as a date, as a number.
Date date_of(const Nullable& column);
double number_of(const Text& text);

/// "0001"; a longer number is not cut.
Text four_digits(int number);

/// To the cent, as the suite rounds; half a cent is nothing.
double cents(double amount);
inline constexpr double half_a_cent = 0.005;

/// Of a total that a statement added up: it strays in its last digits.
bool adds_up_to_zero(double total);

/// Without blanks at both ends.
Text trimmed(const Text& text);

}  // namespace cuvexa::model
