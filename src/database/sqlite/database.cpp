#include "database/sqlite/database.h"

#ifndef _WIN32
#include <unistd.h>
#endif

#include <cctype>
#include <chrono>
#include <filesystem>
#include <thread>

#include "cuvexa/errors.h"
#include "database/dialect/limits.h"
#include "database/sqlite/comparison.h"
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
    if (const auto refusal = dialect::limit_refusal(engine); refusal && (code & 0xFF) == SQLITE_CONSTRAINT) {
        return *refusal;
    }
    const char* text = operator_text(code);
    return text == nullptr ? engine : std::string(text) + " (" + engine + ")";
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
    if (options.read_only) run(database, "PRAGMA query_only = ON");
    install_functions(database);
    install_comparison(database, !options.read_only);
}

// ---- Names ---------------------------------------------------------------------------------------------------------

namespace fs = std::filesystem;

fs::path path_of(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}

bool stands(const std::string& name) {
    std::error_code ignored;
    return fs::exists(path_of(name), ignored);
}

std::string absolute(const std::string& name) {
    const std::u8string path = fs::absolute(path_of(name)).u8string();
    return {path.begin(), path.end()};
}

/// The engine takes a name that begins with "file:" apart; one from the root it does not.
std::string literal_name(const std::string& path) {
    return path == ":memory:" ? path : absolute(path);
}

/// The same with a setting.
std::string name_with(const std::string& path, const char* setting) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string name = "file:";
    for (const char c : absolute(path)) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || c == '/') {
            name += c;
        } else {
            name.append({'%', digits[byte >> 4], digits[byte & 0xF]});
        }
    }
    return name + '?' + setting;
}

// What a killed program has left in the log can be read by one who may write beside it, or with an index that stands
// there.
void require_readable_log(const std::string& path) {
    if (!has_log(path) || stands(path + "-shm")) return;
    throw Database_error("Un programa terminó a medias y dejó cambios en " + path +
                         "-wal; la base de datos debe abrirla primero quien pueda escribirla");
}

std::string name_to_read(const std::string& path) {
    switch (reading_of(path)) {
        case Reading::shared:
            return literal_name(path);
        case Reading::beside:
            return name_with(path, "readonly_shm=1");
        case Reading::frozen:
            require_readable_log(path);
            return name_with(path, "immutable=1");
    }
    return path;
}

sqlite3* opened(const std::string& name, int flags, Database& database) {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    database.reset(raw);
    if (code != SQLITE_OK) fail(raw, code);
    return raw;
}

// One who may write the file opens it so for reading, too: a reader without that right could not take away in the end
// what stands beside the file while it is read, and others could not write there.
Database open_to_read(const std::string& path, const Sqlite_options& options) {
    const bool others_log = has_log(path);
    const bool shared = reading_of(path) == Reading::shared;
    Database database;
    sqlite3* raw =
        opened(name_to_read(path), (shared ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY) | SQLITE_OPEN_URI, database);
    if (others_log) sqlite3_db_config(raw, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    configure(raw, options);
    return database;
}

Database open_to_write(const std::string& path, const Sqlite_options& options) {
    const bool makes = options.create || path == ":memory:";
    Database database;
    sqlite3* raw = opened(literal_name(path), SQLITE_OPEN_READWRITE | (makes ? SQLITE_OPEN_CREATE : 0), database);
    if (sqlite3_db_readonly(raw, "main") == 1) throw Database_error("La base de datos es de solo lectura");
    configure(raw, options);
    return database;
}

#ifdef _WIN32
/// What beside a file hinders there is not a matter of rights.
bool may_write(const std::string&) {
    return true;
}
#else
bool may_write(const std::string& path) {
    return access(path.c_str(), W_OK) == 0 && access(path_of(absolute(path)).parent_path().c_str(), W_OK) == 0;
}
#endif

}  // namespace

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

bool has_log(const std::string& path) {
    std::error_code error;
    const auto size = fs::file_size(path_of(path + "-wal"), error);
    return !error && size > 0;
}

Reading reading_of(const std::string& path) {
    if (path == ":memory:" || may_write(path)) return Reading::shared;
    return stands(path + "-wal") && stands(path + "-shm") ? Reading::beside : Reading::frozen;
}

Database open_database(const std::string& path, const Sqlite_options& options) {
    try {
        return options.read_only ? open_to_read(path, options) : open_to_write(path, options);
    } catch (const Conflict_error& error) {
        throw Conflict_error(std::string(error.what()) + ": " + path);
    } catch (const Database_error& error) {
        throw Database_error(std::string(error.what()) + ": " + path);
    }
}

}  // namespace cuvexa::sqlite
