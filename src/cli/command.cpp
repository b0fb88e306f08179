#include "cli/command.h"

#ifndef _WIN32
#include <fcntl.h>
#endif
#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/errors.h"
#include "cuvexa/suite/administration.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/unit_of_work.h"
#include "database/connection_string.h"
#ifdef CUVEXA_WITH_ODBC
#include "cuvexa/database/odbc_connection.h"
#endif

namespace cuvexa::cli {

namespace {

namespace fs = std::filesystem;

/// Texts are UTF-8, also where the system's narrow texts are not.
fs::path path(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}
std::string text(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

Sqlite_options engine_options(const Database_options& options, Access access) {
    Sqlite_options engine;
    engine.synchronous = synchronous_named(options.synchronous);
    engine.busy_timeout_ms = static_cast<int>(options.wait_s * 1000);
    engine.read_only = access == Access::read;
    return engine;
}

Sqlite_options new_file_options(const Database_options& options) {
    Sqlite_options engine = engine_options(options, Access::write);
    engine.create = true;
    return engine;
}

#ifdef CUVEXA_WITH_ODBC
std::unique_ptr<Connection> open_server(const Database_options& options) {
    Odbc_options engine;
    engine.lock_timeout_ms = static_cast<int>(options.wait_s * 1000);
    return std::make_unique<Odbc_connection>(options.file, engine);
}

void prepare_server(Connection& connection) {
    dynamic_cast<Odbc_connection&>(connection).prepare_database();
}

Date_style style_of(const Connection& connection) {
    const auto* server = dynamic_cast<const Odbc_connection*>(&connection);
    return server != nullptr ? server->date_style() : Date_style::iso;
}
#else
std::unique_ptr<Connection> open_server(const Database_options& options) {
    throw Refused("Este programa se construyó sin servidores de base de datos (ODBC): " + options.shown());
}

void prepare_server(Connection&) {}

Date_style style_of(const Connection&) {
    return Date_style::iso;
}
#endif

// The engine would say the same of a missing file and of a folder: that it cannot open it.
const std::string& existing_file(const std::string& file) {
    std::error_code ignored;
    const auto status = fs::status(path(file), ignored);
    if (!fs::exists(status)) {
        throw Refused("No existe la base de datos: " + file + " (se crea con: cuvexa init --db " + file + ")");
    }
    if (fs::is_directory(status)) throw Refused("No es una base de datos sino una carpeta: " + file);
    return file;
}

bool stands(const std::string& file) {
    return fs::symlink_status(path(file)).type() != fs::file_type::not_found;
}

/// The engine would take what a deleted database left beside it for a part of the new one.
void refuse_in_place(const std::string& file) {
    if (stands(file)) throw Refused("Ya existe y no se toca: " + file);
    for (const char* ending : {"-wal", "-journal"}) {
        if (stands(file + ending)) throw Refused("Quedan restos de otra base de datos: " + file + ending);
    }
    const auto folder = fs::absolute(path(file)).parent_path();
    if (!fs::is_directory(folder)) throw Refused("No existe la carpeta: " + text(folder));
}

/// A file in the making, under a name of its own; gone in the end, with what the engine put beside it.
class Draft {
public:
    explicit Draft(const std::string& file) : name_(file + ".nueva-" + std::to_string(getpid())) { remove(); }
    ~Draft() { remove(); }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    const std::string& name() const { return name_; }

    /// Gives it its name, unless another program has made a file of that name meanwhile.
    void become(const std::string& file) {
        std::error_code error;
        fs::create_hard_link(path(name_), path(file), error);
        if (!error) return sync_folder(file);
        refuse_in_place(file);
        if (error != std::errc::operation_not_permitted && error != std::errc::not_supported &&
            error != std::errc::function_not_supported)
            throw std::system_error(error, file);
        fs::rename(path(name_), path(file));  // a file system without links
        sync_folder(file);
    }

private:
    void remove() {
        std::error_code ignored;
        for (const char* ending : {"", "-wal", "-shm", "-journal"}) fs::remove(path(name_ + ending), ignored);
    }

    /// The name survives a power cut only when its folder has reached the disk. Windows has no such call.
    static void sync_folder([[maybe_unused]] const std::string& file) {
#ifndef _WIN32
        const int folder = open(fs::absolute(path(file)).parent_path().c_str(), O_RDONLY | O_DIRECTORY);
        if (folder < 0) return;
        fsync(folder);
        close(folder);
#endif
    }

    std::string name_;
};

void require_this_version(Connection& connection, const std::string& file) {
    if (!has_schema(connection)) throw Refused("No es una base de datos de Cuvexa: " + file);
    const auto rows = connection.execute("SELECT Eq_Version FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'");
    const std::string found = rows->eof() ? "desconocida" : to_text(rows->field("Eq_Version"));
    if (found == std::to_string(schema_version)) return;
    throw Refused("La versión del esquema de la base de datos es " + found + " y la de este programa es " +
                  std::to_string(schema_version) + ": " + file);
}

/// A trace in the database's place would damage it.
void refuse_trace_over(const std::string& trace, const std::string& database) {
    std::error_code ignored;
    if (!trace.empty() && fs::equivalent(path(trace), path(database), ignored)) {
        throw Refused("El rastro no puede escribirse en la base de datos: " + trace);
    }
}

std::unique_ptr<Connection> open_engine(const Database_options& options, Access access) {
    if (options.is_server()) return open_server(options);
    return std::make_unique<Sqlite_connection>(existing_file(options.file), engine_options(options, access));
}

}  // namespace

bool Database_options::is_server() const {
    return database::is_connection_string(file);
}

std::string Database_options::shown() const {
    return is_server() ? database::without_password(file) : file;
}

bool Database_options::stands() const {
    if (!is_server()) return fs::exists(path(file));
    return has_schema(*open_server(*this));
}

void Database_options::add_to(CLI::App& command, bool db_required) {
    command
        .add_option("--db", file,
                    "Database file, or the ODBC connection string of a server (password: CUVEXA_PASSWORD)")
        ->required(db_required)
        ->type_name("FILE");
    command.add_option("--trace", trace, "Append one JSON object per statement to this file")->type_name("FILE");
    command.add_option("--synchronous", synchronous, "What an acknowledged statement survives: full, normal or off")
        ->check(CLI::IsMember({"full", "normal", "off"}, CLI::ignore_case))
        ->capture_default_str();
    command.add_option("--wait", wait_s, "Seconds to wait for another program that is writing")
        ->check(CLI::Range(0.0, 3600.0))
        ->capture_default_str();
}

Database::Database(const Database_options& options, Access access)
    : Database(open_engine(options, access), options.file, options.trace) {
    require_this_version(*engine_, options.shown());
}

Database::Database(std::unique_ptr<Connection> engine, const std::string& file, const std::string& trace)
    : engine_(std::move(engine)), date_style_(style_of(*engine_)) {
    if (trace.empty()) return;
    refuse_trace_over(trace, file);
    trace_file_.open(path(trace), std::ios::app);
    if (!trace_file_) throw Refused("No se puede escribir el rastro: " + trace);
    traced_.emplace(*engine_, trace_file_);
}

std::unique_ptr<Database> Database::filled(std::unique_ptr<Connection> engine, const std::string& file,
                                           const Database_options& options, bool sample) {
    std::unique_ptr<Database> database(new Database(std::move(engine), file, options.trace));
    Unit_of_work whole(database->connection());
    run_script(database->connection(), schema_sql());
    if (sample) run_script(database->connection(), sample_company_sql());
    whole.commit();
    return database;
}

std::unique_ptr<Database> Database::in_memory(const Database_options& options, bool sample) {
    const std::string file = ":memory:";
    return filled(std::make_unique<Sqlite_connection>(file, new_file_options(options)), file, options, sample);
}

void Database::create(const Database_options& options, bool sample) {
    if (options.is_server()) {
        auto server = open_server(options);
        if (has_schema(*server)) throw Refused("Ya existe y no se toca: " + options.shown());
        prepare_server(*server);
        filled(std::move(server), options.file, options, sample);
        return;
    }
    refuse_in_place(options.file);
    Draft draft(options.file);
    filled(std::make_unique<Sqlite_connection>(draft.name(), new_file_options(options)), draft.name(), options, sample);
    draft.become(options.file);
}

Connection& Database::connection() {
    if (traced_) return *traced_;
    return *engine_;
}

}  // namespace cuvexa::cli
