#include "database/sqlite/database.h"

#include <chrono>
#include <thread>

#include "cuvexa/errors.h"
#include "database/sqlite/functions.h"

namespace cuvexa::sqlite {
namespace {

const char* operator_text(int code) {
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "La base de datos está ocupada por otro programa";
        case SQLITE_READONLY:
            return "La base de datos es de solo lectura";
        case SQLITE_FULL:
            return "No hay espacio en el disco para la base de datos";
        case SQLITE_IOERR:
            return "Error al leer o escribir el archivo de la base de datos";
        case SQLITE_CANTOPEN:
            return "No es posible abrir el archivo de la base de datos";
        case SQLITE_NOTADB:
            return "El archivo no es una base de datos";
        case SQLITE_CORRUPT:
            return "El archivo de la base de datos está dañado";
        default:
            return nullptr;
    }
}

std::string description(sqlite3* database, int code) {
    const std::string engine = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    const char* text = operator_text(code);
    return text == nullptr ? engine : std::string(text) + " (" + engine + ")";
}

void run(sqlite3* database, const std::string& text) {
    if (const int code = sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr); code != SQLITE_OK) {
        fail(database, code);
    }
}

std::string pragma(sqlite3* database, const char* text) {
    sqlite3_stmt* raw = nullptr;
    int code = sqlite3_prepare_v2(database, text, -1, &raw, nullptr);
    const Statement statement(raw);
    if (code == SQLITE_OK) code = sqlite3_step(raw);
    if (code != SQLITE_ROW) fail(database, code);
    const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(raw, 0));
    return value == nullptr ? std::string() : value;
}

// The engine does not wait by itself when two programs meet in this change.
void use_write_ahead_log(sqlite3* database, int timeout_ms) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    while (pragma(database, "PRAGMA journal_mode") == "delete") {
        const int code = sqlite3_exec(database, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
        if (code == SQLITE_OK) return;
        if ((code & 0xFF) != SQLITE_BUSY || std::chrono::steady_clock::now() >= deadline) fail(database, code);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

void configure(sqlite3* database, const Sqlite_options& options) {
    sqlite3_extended_result_codes(database, 1);
    sqlite3_busy_timeout(database, options.busy_timeout_ms);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    pragma(database, "PRAGMA schema_version");
    if (!options.read_only) use_write_ahead_log(database, options.busy_timeout_ms);
    run(database, std::string("PRAGMA synchronous = ") + name_of(options.synchronous));
    run(database, "PRAGMA cache_size = -65536");
    run(database, "PRAGMA temp_store = MEMORY");
    install_functions(database);
}

}  // namespace

const char* name_of(Synchronous synchronous) noexcept {
    switch (synchronous) {
        case Synchronous::normal:
            return "NORMAL";
        case Synchronous::off:
            return "OFF";
        case Synchronous::full:
            break;
    }
    return "FULL";
}

void fail(sqlite3* database, int code) {
    const int primary = code & 0xFF;
    if (primary == SQLITE_BUSY || primary == SQLITE_LOCKED) throw Conflict_error(description(database, code));
    throw Database_error(description(database, code));
}

Database open_database(const std::string& path, const Sqlite_options& options) {
    int flags = options.read_only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if ((options.create && !options.read_only) || path == ":memory:") flags |= SQLITE_OPEN_CREATE;
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    Database database(raw);
    try {
        if (code != SQLITE_OK) fail(raw, code);
        configure(raw, options);
    } catch (const Database_error& error) {
        throw Database_error(std::string(error.what()) + ": " + path);
    }
    return database;
}

}  // namespace cuvexa::sqlite
