// How the texts of a file compare: as under the collations of SQL Server that tell accents apart and capitals not.
#pragma once

#include <string_view>

struct sqlite3;

namespace cuvexa::sqlite {

/// Less than, equal to, greater than 0. Blanks at the end do not count; a capital equals its small letter, with its accent
/// (É and é, Ñ and ñ), and neither equals the letter without it. Of other letters than Latin ones the bytes decide.
int compared(std::string_view a, std::string_view b) noexcept;

/// The indexes of a file stand in the order in which its texts compared when it was made, so that the order must never
/// change under them: a new file is marked, and in a marked one NOCASE compares as above, and LIKE alike. An older one goes
/// on as SQLite has it, where only A to Z equal a to z. Throws `Database_error` when the engine does not take it.
void install_comparison(sqlite3* database, bool writable);

}  // namespace cuvexa::sqlite
