// PostgreSQL by its own protocol, spoken to in the SQL Server dialect.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "cuvexa/database/server_connection.h"

namespace cuvexa {

namespace postgresql {
class Engine;
}

struct Postgresql_options {
    int login_timeout_s = 15;           ///< for each host; what the connection string says comes first
    int statement_timeout_s = 60;       ///< how long a statement may run; 0: without end
    int lock_timeout_ms = 10000;        ///< how long a statement waits for another user
    std::string password = {};          ///< for a connection string that holds none
    std::size_t kept_statements = 256;  ///< statements kept prepared on the server, by shape; 0: each goes as text

    /// A table at which a unit of work waits for others of its kind when another session was in the way of the one before:
    /// repeated at once, they come one after the other instead of meeting again. Empty: none waits.
    std::string queue_table = {};
};

/// A session of a PostgreSQL server, version 12 or later. Used by one thread.
///
/// A statement that differs from an earlier one in its literals only is one round trip: the server has it prepared. What
/// a statement does, gives and fails with does not depend on that.
///
/// After a failure the session remains usable. When the connection was lost, that statement fails with a
/// `Lost_connection_error`, and whether it was kept is not known; the next one runs in a new session. Inside a unit of
/// work the server takes nothing more after a failure, a lost connection included: the unit can only be undone, and
/// keeping it fails.
class Postgresql_connection : public Server_connection {
public:
    /// `conninfo` as every PostgreSQL program takes it: "postgresql://user@host:port/base" or "host=… dbname=…"; what it
    /// leaves out comes from the environment, service and password files. Throws `Database_error` when the server lets
    /// nobody in, is too old, or keeps its texts in another encoding than UTF-8.
    explicit Postgresql_connection(const std::string& conninfo, const Postgresql_options& options = {});
    ~Postgresql_connection() override;

    Postgresql_connection(const Postgresql_connection&) = delete;
    Postgresql_connection& operator=(const Postgresql_connection&) = delete;

    std::unique_ptr<Recordset> execute(std::string_view text) override;
    std::uint64_t conflicts() const noexcept override;
    void prepare_database() override;
    Date_style date_style() const noexcept override;
    const std::string& server_name() const noexcept override;
    std::optional<Replica> replica() override;
    std::string translate(std::string_view text) const override;

private:
    friend class postgresql::Engine;

    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace cuvexa
