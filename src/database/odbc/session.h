// A session of a server, in the server's own words.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/data_access.h"
#include "cuvexa/database/odbc_connection.h"
#include "database/odbc/calls.h"
#include "database/odbc/handle.h"
#include "database/row_set.h"
#include "database/servers.h"

namespace cuvexa::odbc {

/// No text that leaves it holds the password.
class Session {
public:
    Session(const std::string& connection_string, const Odbc_options& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Runs a text. Once the connection is lost, every text is refused. It is lost too when the server is silent for longer
    /// than a statement may take, its cancellation included.
    std::unique_ptr<Recordset> run(std::string_view text);

    const database::Server& server() const noexcept { return *server_; }

    /// How many texts another session was in the way of.
    std::uint64_t conflicts() const noexcept { return conflicts_; }

    /// What the server calls itself.
    const std::string& name() const noexcept { return name_; }

private:
    struct Line;
    struct Outcome;

    void connect(const std::string& connection_string, int login_timeout_s);
    bool comes_back(std::function<void()> call, int limit_s);
    [[noreturn]] void refuse(const Outcome& outcome);
    bool says(const Outcome& outcome, bool (database::Server::*says_it)(std::string_view state) const noexcept) const;

    std::vector<std::string> secrets_;
    std::shared_ptr<Line> line_;
    std::optional<Calls> calls_;  ///< where a call has a limit
    bool lost_ = false;
    std::uint64_t conflicts_ = 0;
    std::string name_;
    const database::Server* server_ = nullptr;
    int statement_limit_s_ = 0;    ///< 0: without end
    int statement_timeout_s_ = 0;  ///< for the driver; 0: without end
};

}  // namespace cuvexa::odbc
