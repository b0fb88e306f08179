// A whole database, copied into another file.
#pragma once

#include <functional>
#include <string>

#include "cuvexa/database/sqlite_connection.h"

namespace cuvexa::sqlite {

/// Copies what `from` holds at this moment into the file `to`, which must be new; others may write to `from` meanwhile.
/// The copy has reached the disk and the engine has found it sound when the function returns. `progress`, if any, is
/// called from time to time with the per cent that are done. Throws `Database_error`; `to` is of no use then.
void copy_database(const Sqlite_connection& from, const std::string& to, const std::function<void(int)>& progress);

}  // namespace cuvexa::sqlite
