#include "database/sqlite/whole.h"

#include "cuvexa/errors.h"
#include "database/sqlite/database.h"

namespace cuvexa::sqlite {

// What is read must come from the file: a page that was written and lost would be found in this connection's memory. So
// it is opened anew when the log has been emptied.
void require_whole(const std::string& file) {
    Sqlite_options options;
    options.statement_timeout_s = 0;
    const auto log_left = [&] { return pragma(open_database(file, options).get(), "PRAGMA wal_checkpoint(TRUNCATE)"); };
    if (log_left() != "0") throw Database_error("No se pudo escribir toda la base de datos: " + file);
    const Database database = open_database(file, options);
    const std::string verdict = pragma(database.get(), "PRAGMA integrity_check(1)");
    if (verdict != "ok") throw Database_error("La base de datos está dañada (" + verdict + "): " + file);
    if (has_log(file)) throw Database_error("No se pudo escribir toda la base de datos: " + file);
}

}  // namespace cuvexa::sqlite
