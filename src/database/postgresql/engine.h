// The engine behind a Postgresql_connection: statements of the SQL Server dialect, each translated, parsed and planned once.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "database/interpreter.h"
#include "database/kept_statements.h"
#include "database/postgresql/kept_statement.h"
#include "database/postgresql/session.h"

namespace cuvexa::postgresql {

class Engine {
public:
    Engine(const std::string& conninfo, const Postgresql_options& options);

    /// The engine of a connection's present session.
    static Engine& of(const Postgresql_connection& connection);

    std::unique_ptr<Recordset> execute(std::string_view text);
    void prepare_database();
    std::optional<Replica> replica();
    std::string translate(std::string_view text) { return interpreter_.translate(text); }

    std::uint64_t conflicts() const noexcept { return session_.conflicts(); }

    bool failure_ends_unit() const noexcept { return session_.server().failure_ends_unit; }

    const Session& session() const noexcept { return session_; }

    /// Shapes kept now, and statements prepared so far.
    std::size_t kept_statements() const noexcept { return kept_.size(); }
    std::uint64_t preparations() const noexcept { return preparations_; }

private:
    Result run(std::string_view text);
    std::vector<std::string> beginning(std::string_view text);
    bool may_queue();
    Result run_as_text(std::string_view text);
    Kept_statement& prepare(std::string_view text);
    Prepared prepared(const dialect::Translation& translation, const std::vector<std::size_t>& pinned);
    Result run_prepared(const Kept_statement& kept);
    void fill_values();

    Session session_;
    database::Interpreter interpreter_;
    database::Kept_statements<Kept_statement> kept_;
    bool keeps_;
    std::uint64_t preparations_ = 0;

    std::string queue_table_;
    bool queue_is_known_ = false;
    std::uint64_t conflicts_seen_ = 0;  ///< when a unit was last begun

    database::Shape shape_{mark_of};  ///< of the text under way
    std::string texts_;               ///< the values of its literals, one behind the other
    Values values_;
};

}  // namespace cuvexa::postgresql
