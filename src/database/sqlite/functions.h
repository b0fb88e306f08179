// The functions that rewritten statements call. No stored schema uses them.
#pragma once

#include <string_view>

struct sqlite3;
struct sqlite3_value;

namespace cuvexa::sqlite {

/// Adds to an open SQLite handle:
/// - cuvexa_single(x): aggregate; its only value, NULL of none, an error at the second row;
/// - cuvexa_year(x), cuvexa_month(x), cuvexa_day(x): parts of a date text, NULL of NULL, an error of other text.
/// Throws `Database_error` when the engine does not take them.
void install_functions(sqlite3* database);

/// The bytes of a value as text; valid until it is asked for otherwise.
std::string_view text_of(sqlite3_value* value);

}  // namespace cuvexa::sqlite
