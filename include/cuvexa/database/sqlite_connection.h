// The embedded database: a SQLite file that is spoken to in the SQL Server dialect.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "cuvexa/data_access.h"

namespace cuvexa {

namespace sqlite {
class Engine;
}

/// What an acknowledged statement survives.
enum class Synchronous {
    full,    ///< a power cut
    normal,  ///< a crash of the program; the last statements may be lost with the power
    off,     ///< a crash of the program; the file may be damaged with the power
};

/// The setting of that name ("full", "normal", "off", whatever the case). Throws `Database_error` for another name.
Synchronous synchronous_named(std::string_view name);

struct Sqlite_options {
    Synchronous synchronous = Synchronous::full;
    int busy_timeout_ms = 10000;        ///< how long a statement waits for another program
    int statement_timeout_s = 60;       ///< how long a statement may run; 0: without end
    bool create = false;                ///< make the file when there is none
    bool read_only = false;             ///< change nothing, and leave nothing beside the file that was not there
    std::size_t kept_statements = 256;  ///< prepared statements kept, by shape

    /// When it becomes true, statements that take long end; none when null. It must outlive the connection.
    const std::atomic<bool>* interrupt = nullptr;
};

/// A SQLite file, whatever its name, or ":memory:". Used by one thread; several connections and programs may share a file.
///
/// Rows are read completely before `execute` returns: an open recordset holds no lock and sees no later change.
/// After a failure the connection remains usable.
class Sqlite_connection : public Connection {
public:
    /// Throws `Database_error` when the file cannot be opened or is not a database.
    explicit Sqlite_connection(const std::string& path, const Sqlite_options& options = {});
    ~Sqlite_connection() override;

    Sqlite_connection(const Sqlite_connection&) = delete;
    Sqlite_connection& operator=(const Sqlite_connection&) = delete;

    std::unique_ptr<Recordset> execute(std::string_view text) override;
    std::uint64_t conflicts() const noexcept override { return conflicts_; }

    /// The statement as the engine would be given it with its literals in place.
    std::string translate(std::string_view text) const;

    /// Whether the file is read as one that nobody changes, for want of the right to make others wait: what they write
    /// meanwhile is seen in part or not at all.
    bool reads_frozen() const noexcept { return reads_frozen_; }

    /// Gives the file back; every later `execute` fails. Destruction does the same.
    void close() noexcept;

private:
    friend class sqlite::Engine;

    bool reads_frozen_ = false;
    std::unique_ptr<sqlite::Engine> engine_;
    std::uint64_t conflicts_ = 0;
};

}  // namespace cuvexa
