// What fits into a column. SQL Server refuses a longer text, a date outside its calendar and a number that is not finite; the
// column types that say so become constraints where the engine has no such types, and what an engine says of one is told alike
// everywhere.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cuvexa::dialect {

/// What a column takes, "$2" being its length.
inline constexpr std::string_view takes_characters = "hasta $2 caracteres", takes_dates = "de 1753-01-01 a 9999-12-31",
                                  takes_numbers = "números finitos";

/// What every engine says of a result that is no finite number or too large for its type, wherever it would have gone.
inline constexpr std::string_view no_number_text = "El resultado no cabe en un número";

/// The name of the constraint: it tells the column and what fits, so that any program that meets it reads why.
std::string limit_name(std::string_view column, std::string_view takes, std::string_view length);

/// The refusal for the operator, where that is what the engine's message says.
std::optional<std::string> limit_refusal(std::string_view message);

}  // namespace cuvexa::dialect
