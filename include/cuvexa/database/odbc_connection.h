// A database server that many users share, by way of ODBC: SQL Server as it stands, PostgreSQL through the rewriting. A
// server that is not known is spoken to as SQL Server.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "cuvexa/database/server_connection.h"

namespace cuvexa {

struct Odbc_options {
    int login_timeout_s = 15;
    int statement_timeout_s = 60;  ///< how long a statement may run; 0: without end
    int lock_timeout_ms = 10000;   ///< how long a statement waits for another user
    std::string password = {};     ///< for a connection string that holds none
};

/// A session of a server. Used by one thread.
///
/// After a failure the session remains usable. When the connection was lost, that statement fails with a
/// `Lost_connection_error`, and whether it was kept is not known; the next one runs in a new session, unless it belongs to
/// a unit of work, which is over then.
class Odbc_connection : public Server_connection {
public:
    /// `connection_string` as ODBC users know it: "Driver=…;Server=…;Database=…;UID=…;PWD=…" or "DSN=…".
    explicit Odbc_connection(const std::string& connection_string, const Odbc_options& options = {});
    ~Odbc_connection() override;

    Odbc_connection(const Odbc_connection&) = delete;
    Odbc_connection& operator=(const Odbc_connection&) = delete;

    std::unique_ptr<Recordset> execute(std::string_view text) override;
    std::uint64_t conflicts() const noexcept override;
    void prepare_database() override;
    Date_style date_style() const noexcept override;
    const std::string& server_name() const noexcept override;
    std::optional<Replica> replica() override;
    std::string translate(std::string_view text) const override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace cuvexa
