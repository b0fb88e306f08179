#include "database/sqlite/copy.h"

#include "cuvexa/errors.h"
#include "database/sqlite/engine.h"

namespace cuvexa::sqlite {

namespace {

constexpr int pages_at_once = 256;

void run(sqlite3* database, const char* statement) {
    const int code = sqlite3_exec(database, statement, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) fail(database, code);
}

/// While it lives, its connection sees what it saw first. A copy would begin anew at each write of another program.
class Standstill {
public:
    explicit Standstill(sqlite3* database) : database_(database) {
        run(database_, "BEGIN");
        run(database_, "SELECT COUNT(*) FROM sqlite_master");  // it is a reader from here on
    }
    ~Standstill() { sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr); }
    Standstill(const Standstill&) = delete;
    Standstill& operator=(const Standstill&) = delete;

private:
    sqlite3* database_;
};

// Without a log beside it: what is committed is in the file.
Database new_file(const std::string& name) {
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    Database database(opened);
    if (code != SQLITE_OK) fail(opened, code);
    return database;
}

struct Finisher {
    void operator()(sqlite3_backup* copying) const noexcept { sqlite3_backup_finish(copying); }
};

void copy_pages(sqlite3* from, sqlite3* to, const std::function<void(int)>& progress) {
    std::unique_ptr<sqlite3_backup, Finisher> copying(sqlite3_backup_init(to, "main", from, "main"));
    if (!copying) fail(to, sqlite3_errcode(to));
    int code = SQLITE_OK;
    while (code == SQLITE_OK) {
        code = sqlite3_backup_step(copying.get(), pages_at_once);
        const int all = sqlite3_backup_pagecount(copying.get()), left = sqlite3_backup_remaining(copying.get());
        if (progress && all > 0) progress(static_cast<int>(100LL * (all - left) / all));
    }
    if (code != SQLITE_DONE) fail(to, code);
}

void require_soundness(sqlite3* database) {
    std::string verdict;
    const auto keep = [](void* text, int, char** values, char**) {
        *static_cast<std::string*>(text) = values[0];
        return 0;
    };
    const int code = sqlite3_exec(database, "PRAGMA integrity_check(1)", keep, &verdict, nullptr);
    if (code != SQLITE_OK) fail(database, code);
    if (verdict != "ok") throw Database_error("La base de datos está dañada: " + verdict);
}

}  // namespace

void copy_database(const Sqlite_connection& from, const std::string& to, const std::function<void(int)>& progress) {
    sqlite3* const source = handle_of(from);
    const Database copy = new_file(to);
    {
        const Standstill reader(source);
        if (progress) progress(0);
        copy_pages(source, copy.get(), progress);
    }
    require_soundness(copy.get());
}

}  // namespace cuvexa::sqlite
