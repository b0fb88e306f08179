#include "cuvexa/database/sqlite_connection.h"

#include <vector>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "database/dialect/sqlite.h"
#include "database/dialect/translation.h"
#include "database/sqlite/engine.h"

namespace cuvexa {

Synchronous synchronous_named(std::string_view name) {
    for (const Synchronous value : {Synchronous::full, Synchronous::normal, Synchronous::off}) {
        if (same_text(name, sqlite::name_of(value))) return value;
    }
    throw Database_error("No existe la sincronización: " + std::string(name) + " (full, normal, off)");
}

Sqlite_connection::Sqlite_connection(const std::string& path, const Sqlite_options& options)
    : reads_frozen_(options.read_only && sqlite::reading_of(path) == sqlite::Reading::frozen),
      engine_(std::make_unique<sqlite::Engine>(path, options)) {}

Sqlite_connection::~Sqlite_connection() = default;

std::unique_ptr<Recordset> Sqlite_connection::execute(std::string_view text) {
    try {
        return sqlite::Engine::of(*this).execute(text);
    } catch (const Conflict_error&) {
        ++conflicts_;
        throw;
    }
}

std::string Sqlite_connection::translate(std::string_view text) const {
    std::vector<dialect::Token> tokens;
    tokenize(text, tokens);
    return dialect::translate(text, tokens, dialect::sqlite).with_literals();
}

void Sqlite_connection::close() noexcept {
    engine_.reset();
}

sqlite::Engine& sqlite::Engine::of(const Sqlite_connection& connection) {
    if (!connection.engine_) throw Database_error("La conexión está cerrada");
    return *connection.engine_;
}

}  // namespace cuvexa
