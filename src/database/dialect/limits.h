// What fits into a column. SQL Server refuses a longer text and a date outside its calendar; the column types that say so
// become constraints where the engine has no such types, and what an engine says of one is told alike everywhere.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cuvexa::dialect {

/// The name of the constraint: it tells the column and what fits, so that any program that meets it reads why.
/// An empty length is that of a date.
std::string limit_name(std::string_view column, std::string_view length);

/// The refusal for the operator, where that is what the engine's message says.
std::optional<std::string> limit_refusal(std::string_view message);

}  // namespace cuvexa::dialect
