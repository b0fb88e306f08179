#include "simulator/shared_database.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/schema.h"
#include "database/sqlite/engine.h"
#include "support/test_database.h"
#include "support/test_server.h"

namespace cuvexa::simulator {
namespace {

namespace fs = std::filesystem;

// ---- A file ---------------------------------------------------------------------------------------------------------

constexpr Sqlite_options quickly{.synchronous = Synchronous::off};

/// Goes with the object.
class File {
public:
    File() {
        static std::atomic<int> made = 0;
        const std::string name = "cuvexa-crowd-" + std::to_string(::getpid()) + "-" + std::to_string(++made) + ".db";
        path_ = (fs::temp_directory_path() / name).string();
        const tests::Test_database sample(sample_company_sql());
        Sqlite_options options = quickly;
        options.create = true;
        const Sqlite_connection file(path_, options);
        sqlite3* const to = sqlite::handle_of(file);
        sqlite3_backup* const backup = sqlite3_backup_init(to, "main", sample.embedded(), "main");
        sqlite3_backup_step(backup, -1);
        if (sqlite3_backup_finish(backup) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(to));
    }
    ~File() {
        for (const char* ending : {"", "-wal", "-shm", "-journal"}) fs::remove(path_ + ending);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

class Database_in_a_file : public Shared_database {
public:
    std::unique_ptr<Connection> open() override { return std::make_unique<Sqlite_connection>(file_.path(), quickly); }

    void run(const std::string& statements) override {
        if (sqlite3_exec(look(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(statements + ": " + sqlite3_errmsg(look()));
        }
    }
    sqlite3* look() override { return sqlite::handle_of(connection_); }
    bool units_exclude() const override { return true; }
    bool has_types() const override { return false; }
    std::set<std::size_t> locked_out() override { return {}; }

private:
    File file_;
    Sqlite_connection connection_{file_.path(), quickly};
};

// ---- A PostgreSQL server --------------------------------------------------------------------------------------------

/// "INSERT OR IGNORE INTO …" as that server says it.
std::string in_its_words(std::string statement) {
    const std::string_view ignoring = " OR IGNORE";
    if (const auto at = statement.find(ignoring); at == 6) {
        statement.erase(at, ignoring.size());
        statement += " ON CONFLICT DO NOTHING";
    }
    if (const auto blank = statement.find("VALUES (' ',"); blank != statement.npos) statement.erase(blank + 9, 1);
    return statement;
}

class Database_of_a_server : public Shared_database {
public:
    explicit Database_of_a_server(std::string server) : server_(std::move(server)) {
        // Whoever closes a circle of locks is the one who is refused, at once: the same one whenever it is played.
        run("ALTER ROLE CURRENT_USER SET deadlock_timeout = '1ms'");
    }

    std::unique_ptr<Connection> open() override {
        auto session = tests::open_server(server_);
        const auto row = session->execute("SELECT pg_backend_pid() AS Proceso");
        processes_.push_back(to_text(row->field("Proceso")));
        return session;
    }

    void run(const std::string& statements) override {
        for (std::size_t from = 0; from < statements.size();) {
            const auto to = std::min(statements.find("; ", from), statements.size());
            rows_.connection().execute(in_its_words(statements.substr(from, to - from)));
            from = to + 2;
        }
    }
    sqlite3* look() override { return rows_.look(); }
    bool units_exclude() const override { return false; }
    bool has_types() const override { return true; }

    std::set<std::size_t> locked_out() override {
        std::set<std::size_t> found;
        const auto rows = rows_.connection().execute(
            "SELECT pid AS Proceso FROM pg_stat_activity WHERE cardinality(pg_blocking_pids(pid)) > 0");
        for (; !rows->eof(); rows->move_next()) {
            const auto process = std::find(processes_.begin(), processes_.end(), to_text(rows->field("Proceso")));
            if (process != processes_.end()) found.insert(static_cast<std::size_t>(process - processes_.begin()));
        }
        return found;
    }

private:
    tests::Test_database rows_{sample_company_sql()};
    std::string server_;
    std::vector<std::string> processes_;  ///< the server's, one for each session
};

}  // namespace

std::unique_ptr<Shared_database> new_shared_database() {
    if (const char* const server = std::getenv("CUVEXA_TEST_DB")) return std::make_unique<Database_of_a_server>(server);
    return std::make_unique<Database_in_a_file>();
}

}  // namespace cuvexa::simulator
