// The embedded engine: a company in a file.
#include "company/engine.h"
#include "company/files.h"
#include "company/version.h"
#include "cuvexa/database/sqlite_connection.h"
#include "database/sqlite/copy.h"

namespace cuvexa::company {

namespace {

namespace fs = std::filesystem;

constexpr double longest_wait_s = 3600;

Sqlite_options engine_options(const Company_options& options) {
    Sqlite_options engine;
    engine.synchronous = synchronous_named(options.synchronous);
    if (!(options.wait_s >= 0 && options.wait_s <= longest_wait_s)) {
        throw Company_error("La espera no es un número de segundos de 0 a 3600: " + std::to_string(options.wait_s));
    }
    engine.busy_timeout_ms = static_cast<int>(options.wait_s * 1000);
    engine.interrupt = options.interrupt;
    return engine;
}

Opened new_database(const std::string& file, const Company_options& options) {
    Sqlite_options engine = engine_options(options);
    engine.create = true;
    return {.connection = std::make_unique<Sqlite_connection>(file, engine), .file = file};
}

/// The engine makes a database of that name in memory.
std::string name_of_file(const std::string& file) {
    return file == ":memory:" ? "./:memory:" : file;
}

// The engine would say the same of a missing file and of a folder: that it cannot open it.
void require_file(const std::string& file) {
    std::error_code ignored;
    const auto status = fs::status(path(file), ignored);
    if (!fs::exists(status)) {
        throw Company_error("No existe la base de datos: " + file + " (se crea con: cuvexa init --db " + file + ")");
    }
    if (fs::is_directory(status)) throw Company_error("No es una base de datos sino una carpeta: " + file);
    if (!fs::is_regular_file(status)) {
        throw Company_error("No es una base de datos sino un dispositivo o un conducto: " + file);
    }
}

class File_engine final : public Engine {
public:
    explicit File_engine(const Company_options& options) : options_(options) {}

    bool stands() const override { return fs::exists(path(file())); }

    Opened open(Access access) const override {
        require_file(file());
        Sqlite_options engine = engine_options(options_);
        engine.read_only = access == Access::read;
        auto connection = std::make_unique<Sqlite_connection>(name_of_file(file()), engine);
        std::string notice;
        if (connection->reads_frozen()) {
            notice =
                "La base de datos solo puede leerse; lo que otro programa escriba mientras tanto no se ve: " + file();
        }
        return {.connection = std::move(connection), .file = file(), .notice = std::move(notice)};
    }

    void create(const Fill& fill) const override {
        refuse_in_place(file());
        Draft draft(file());
        fill(new_database(draft.name(), options_));
        draft.become(file());
    }

    void back_up(const std::string& copy, const Work_progress& progress) const override {
        refuse_in_place(copy);
        const Opened original = open(Access::read);
        known_version(*original.connection, file());
        Draft draft(copy);
        sqlite::copy_database(static_cast<const Sqlite_connection&>(*original.connection), draft.name(), progress);
        if (progress) progress(100);  // found sound; its name is given to it next
        draft.become(copy);
    }

    void restore(const std::string& copy, const Work_progress& progress) const override {
        Company_options of_copy = options_;
        of_copy.database = copy;
        File_engine(of_copy).back_up(file(), progress);
    }

private:
    const std::string& file() const { return options_.database; }

    Company_options options_;
};

}  // namespace

std::unique_ptr<Engine> file_engine(const Company_options& options) {
    return std::make_unique<File_engine>(options);
}

Opened open_in_memory(const Company_options& options) {
    return new_database(":memory:", options);
}

}  // namespace cuvexa::company
