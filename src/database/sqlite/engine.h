// The engine behind a Sqlite_connection: statements of the SQL Server dialect, each translated and planned once.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/data_access.h"
#include "cuvexa/database/sqlite_connection.h"
#include "database/dialect/lexer.h"
#include "database/kept_statements.h"
#include "database/shape.h"
#include "database/sqlite/answers.h"
#include "database/sqlite/database.h"
#include "database/sqlite/kept_statement.h"

namespace cuvexa::sqlite {

/// How long the statement under way has been running.
class Statement_clock {
public:
    using Clock = std::chrono::steady_clock;

    /// No limit when that is 0; an `interrupt` that becomes true ends a statement too.
    Statement_clock(int limit_s, const std::atomic<bool>* interrupt) : limit_(limit_s), interrupt_(interrupt) {}

    /// Whether there is anything to look for.
    bool is_watching() const noexcept { return limit_.count() > 0 || interrupt_ != nullptr; }

    bool is_interrupted() const noexcept { return interrupt_ != nullptr && *interrupt_; }

    std::chrono::seconds limit() const noexcept { return limit_; }
    void start() noexcept {
        start_ = Clock::now();
        running_ = true;
    }
    void stop() noexcept { running_ = false; }
    bool is_over() const noexcept {
        return running_ && (is_interrupted() || (limit_.count() > 0 && Clock::now() - start_ > limit_));
    }

private:
    std::chrono::seconds limit_;
    const std::atomic<bool>* interrupt_;
    Clock::time_point start_;
    bool running_ = false;
};

class Engine {
public:
    Engine(const std::string& path, const Sqlite_options& options);

    /// The engine of a connection. Throws `Database_error` when it is closed.
    static Engine& of(const Sqlite_connection& connection);

    std::unique_ptr<Recordset> execute(std::string_view text);

    sqlite3* handle() const noexcept { return database_.get(); }

    /// Prepared statements held now, and texts translated so far.
    std::size_t kept_statements() const noexcept { return kept_.size(); }
    std::uint64_t translations() const noexcept { return translations_; }

private:
    Kept_statement prepare(std::string_view text);
    Statement try_prepare(const std::string& text);
    [[noreturn]] void fail_unprepared() const;
    std::unique_ptr<Recordset> run(Kept_statement& kept);
    void bind(const Kept_statement& kept);
    void bind_text(sqlite3_stmt* statement, int parameter, std::string_view literal);
    void shrink_buffers();
    [[noreturn]] void fail_running(int code) const;

    Statement_clock clock_;
    Answers answers_;  ///< of the statement under way
    Database database_;
    database::Kept_statements<Kept_statement> kept_;
    std::uint64_t translations_ = 0;

    std::vector<dialect::Token> tokens_;  ///< of the text under way
    database::Shape shape_{mark_of};      ///< of the text under way
    std::string scratch_;
};

/// SQLite's own handle of an open connection, for what only it can do.
inline sqlite3* handle_of(const Sqlite_connection& connection) {
    return Engine::of(connection).handle();
}

}  // namespace cuvexa::sqlite
