// A session of a PostgreSQL server: texts and prepared statements, in the server's own words.
#pragma once

#include <libpq-fe.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cuvexa/database/postgresql_connection.h"
#include "database/servers.h"

namespace cuvexa::postgresql {

struct Closer {
    void operator()(PGconn* connection) const noexcept { PQfinish(connection); }
    void operator()(PGresult* result) const noexcept { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, Closer>;

/// What the parameters of a statement are given, in texts that outlive the call.
using Values = std::vector<const char*>;

class Session {
public:
    Session(const std::string& conninfo, const Postgresql_options& options);

    /// Begins a transaction by these texts, together with the next statement that is run: it costs no round trip of its own.
    void begin_with_next(std::vector<std::string> texts) { begin_ = std::move(texts); }

    /// Gives up a transaction that nothing has followed so far. False when there is none.
    bool drop_begin() noexcept {
        const bool was_to_begin = !begin_.empty();
        begin_.clear();
        return was_to_begin;
    }

    /// Runs one statement of the server. Throws `Database_error` when it fails. Once the connection is lost, every
    /// statement is refused.
    Result run(std::string_view text);

    /// Has the server keep a statement under a name. False when it refuses the text; what the session is in the middle of
    /// goes on all the same.
    bool prepare(const std::string& name, const std::string& text, const std::vector<Oid>& types);

    /// Runs what was prepared under that name; `failed` tells how it went. Throws when the connection is lost.
    Result run_prepared(const std::string& name, const Values& values);

    /// Has the server forget a name, when it is convenient.
    void forget(std::string name) { forgotten_.push_back(std::move(name)); }

    bool in_transaction() const noexcept { return PQtransactionStatus(connection_.get()) != PQTRANS_IDLE; }

    /// Whether the server takes nothing more until the transaction is undone.
    bool transaction_failed() const noexcept { return PQtransactionStatus(connection_.get()) == PQTRANS_INERROR; }

    /// Through which it speaks; -1 when the connection is lost.
    int socket() const noexcept { return PQsocket(connection_.get()); }

    const database::Server& server() const noexcept { return *server_; }
    const std::string& name() const noexcept { return name_; }

    /// How many statements another session was in the way of.
    std::uint64_t conflicts() const noexcept { return conflicts_; }

    /// Throws what a failed result says.
    [[noreturn]] void refuse(const PGresult* result);

private:
    void connect(const std::string& conninfo, const Postgresql_options& options);
    void refuse_what_does_not_serve() const;
    void begin(const Postgresql_options& options);
    void forget_names();
    bool prepares(const std::string& name, const std::string& text, const std::vector<Oid>& types);
    template <class Send>
    Result answer_to(const Send& send_statement);
    void send(int accepted);
    Result next_result();
    Result answer();
    Result answer_behind_begin();
    Result checked(Result result);
    void wait_for_input();
    [[noreturn]] void lose(const std::string& why);
    void refuse_when_lost() const;

    std::unique_ptr<PGconn, Closer> connection_;
    std::vector<std::string> secrets_;
    std::string name_ = "PostgreSQL";
    const database::Server* server_;
    std::vector<std::string> forgotten_;
    std::vector<std::string> begin_;  ///< what is to be sent before the next statement
    int answer_timeout_s_ = 0;        ///< how long an answer is waited for; 0: without end
    std::uint64_t conflicts_ = 0;
    bool lost_ = false;
};

bool failed(const PGresult* result) noexcept;

/// The SQLSTATE of a failed result; empty when it has none.
std::string_view state_of(const PGresult* result) noexcept;

}  // namespace cuvexa::postgresql
