#include "cli/command.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "cuvexa/errors.h"
#include "cuvexa/unit_of_work.h"
#include "database/script.h"
#include "suite/administration.h"
#include "suite/schema.h"

namespace cuvexa::cli {

namespace {

Sqlite_options engine_options(const Database_options& options, Access access) {
    Sqlite_options engine;
    engine.synchronous = synchronous_named(options.synchronous);
    engine.busy_timeout_ms = static_cast<int>(options.wait_s * 1000);
    engine.read_only = access == Access::read;
    return engine;
}

// The engine would say the same of a missing file and of a folder: that it cannot open it.
const std::string& existing_file(const std::string& file) {
    std::error_code ignored;
    const auto status = std::filesystem::status(file, ignored);
    if (!std::filesystem::exists(status)) {
        throw Refused("No existe la base de datos: " + file + " (se crea con: cuvexa init --db " + file + ")");
    }
    if (std::filesystem::is_directory(status)) throw Refused("No es una base de datos sino una carpeta: " + file);
    return file;
}

bool stands(const std::string& file) {
    return std::filesystem::symlink_status(file).type() != std::filesystem::file_type::not_found;
}

/// The engine would take what a deleted database left beside it for a part of the new one.
void refuse_in_place(const std::string& file) {
    if (stands(file)) throw Refused("Ya existe y no se toca: " + file);
    for (const char* ending : {"-wal", "-journal"}) {
        if (stands(file + ending)) throw Refused("Quedan restos de otra base de datos: " + file + ending);
    }
    const auto folder = std::filesystem::absolute(file).parent_path();
    if (!std::filesystem::is_directory(folder)) throw Refused("No existe la carpeta: " + folder.string());
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
        if (link(name_.c_str(), file.c_str()) == 0) return sync_folder(file);
        const int error = errno;
        refuse_in_place(file);
        if (error != EPERM && error != ENOTSUP) throw std::system_error(error, std::generic_category(), file);
        std::filesystem::rename(name_, file);  // a file system without links
        sync_folder(file);
    }

private:
    void remove() {
        std::error_code ignored;
        for (const char* ending : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(name_ + ending, ignored);
    }

    /// The name survives a power cut only when its folder has reached the disk.
    static void sync_folder(const std::string& file) {
        const int folder = open(std::filesystem::absolute(file).parent_path().c_str(), O_RDONLY | O_DIRECTORY);
        if (folder < 0) return;
        fsync(folder);
        close(folder);
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
    if (!trace.empty() && std::filesystem::equivalent(trace, database, ignored)) {
        throw Refused("El rastro no puede escribirse en la base de datos: " + trace);
    }
}

}  // namespace

void Database_options::add_to(CLI::App& command, bool db_required) {
    command.add_option("--db", file, "Database file")->required(db_required)->type_name("FILE");
    command.add_option("--trace", trace, "Append one JSON object per statement to this file")->type_name("FILE");
    command.add_option("--synchronous", synchronous, "What an acknowledged statement survives: full, normal or off")
        ->check(CLI::IsMember({"full", "normal", "off"}, CLI::ignore_case))
        ->capture_default_str();
    command.add_option("--wait", wait_s, "Seconds to wait for another program that is writing")
        ->check(CLI::Range(0.0, 3600.0))
        ->capture_default_str();
}

Database::Database(const Database_options& options, Access access)
    : Database(existing_file(options.file), engine_options(options, access), options.trace) {
    require_this_version(engine_, options.file);
}

Database::Database(const std::string& file, const Sqlite_options& engine, const std::string& trace)
    : engine_(file, engine) {
    if (trace.empty()) return;
    refuse_trace_over(trace, file);
    trace_file_.open(trace, std::ios::app);
    if (!trace_file_) throw Refused("No se puede escribir el rastro: " + trace);
    traced_.emplace(engine_, trace_file_);
}

std::unique_ptr<Database> Database::filled(const std::string& file, const Database_options& options, bool sample) {
    Sqlite_options engine = engine_options(options, Access::write);
    engine.create = true;
    std::unique_ptr<Database> database(new Database(file, engine, options.trace));
    Unit_of_work whole(database->connection());
    run_script(database->connection(), schema_sql());
    if (sample) run_script(database->connection(), sample_company_sql());
    whole.commit();
    return database;
}

std::unique_ptr<Database> Database::in_memory(const Database_options& options, bool sample) {
    return filled(":memory:", options, sample);
}

void Database::create(const Database_options& options, bool sample) {
    refuse_in_place(options.file);
    Draft draft(options.file);
    filled(draft.name(), options, sample);
    draft.become(options.file);
}

Connection& Database::connection() {
    if (traced_) return *traced_;
    return engine_;
}

}  // namespace cuvexa::cli
