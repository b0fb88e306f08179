// A SQLite file, opened: the engine's own objects, and what it says when something fails.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "cuvexa/database/sqlite_connection.h"

namespace cuvexa::sqlite {

struct Closer {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

/// Opens a file with the settings of `options` and the functions that rewritten statements call. Throws `Database_error`
/// when it cannot be opened or is not a database.
Database open_database(const std::string& path, const Sqlite_options& options);

/// Whether a log beside the file holds something that the file does not.
bool has_log(const std::string& path);

/// How a file is opened by one who only reads.
enum class Reading {
    shared,  ///< as writers do, who take their part in the files beside it and remove them in the end
    beside,  ///< with what writers at work have put there
    frozen,  ///< as a file that nobody changes: without rights nobody can be asked to wait
};
Reading reading_of(const std::string& path);

/// Runs a text in the engine's own words. Throws as `fail`.
void run(sqlite3* database, const std::string& text);

/// The one value that a PRAGMA gives. Throws as `fail`.
std::string pragma(sqlite3* database, const char* text);

/// What the engine calls it.
const char* name_of(Synchronous synchronous) noexcept;

/// Throws `Database_error`. What concerns the file is said in the operator's language, with the engine's words after it;
/// what concerns the statement is said in the engine's words alone.
[[noreturn]] void fail(sqlite3* database, int code);

}  // namespace cuvexa::sqlite
