#include "database/sqlite/whole.h"

#include "cuvexa/errors.h"
#include "database/sqlite/database.h"

namespace cuvexa::sqlite {

namespace {

/// The first column of the only row that a statement gives.
std::string answer(sqlite3* database, const char* text) {
    sqlite3_stmt* raw = nullptr;
    int code = sqlite3_prepare_v2(database, text, -1, &raw, nullptr);
    const Statement statement(raw);
    if (code == SQLITE_OK) code = sqlite3_step(raw);
    if (code != SQLITE_ROW) fail(database, code);
    const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(raw, 0));
    return value == nullptr ? std::string() : value;
}

}  // namespace

// What is read must come from the file: a page that was written and lost would be found in this connection's memory. So
// it is opened anew when the log has been emptied.
void require_whole(const std::string& file) {
    Sqlite_options options;
    options.statement_timeout_s = 0;
    const auto log_left = [&] { return answer(open_database(file, options).get(), "PRAGMA wal_checkpoint(TRUNCATE)"); };
    if (log_left() != "0") throw Database_error("No se pudo escribir toda la base de datos: " + file);
    const Database database = open_database(file, options);
    const std::string verdict = answer(database.get(), "PRAGMA integrity_check(1)");
    if (verdict != "ok") throw Database_error("La base de datos está dañada (" + verdict + "): " + file);
    if (has_log(file)) throw Database_error("No se pudo escribir toda la base de datos: " + file);
}

}  // namespace cuvexa::sqlite
