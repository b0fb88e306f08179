// What the reference services share: statements, refusals, and the few look-ups that all of them need.
#pragma once

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "cuvexa/suite/reference_suite.h"
#include "suite/operation_memory.h"
#include "suite/server_clock.h"
#include "suite/statements.h"

namespace cuvexa::reference {

struct Kept_catalog;
struct Setting;

/// A business refusal on its way to `LastError`.
struct Refusal {
    std::string text;
};

/// Runs `body`; a refusal becomes `last_error` and False. The only place where the suite catches.
template <class Body>
bool serve(std::string& last_error, Body&& body) {
    last_error.clear();
    try {
        body();
        return true;
    } catch (const Refusal& refusal) {
        last_error = refusal.text;
        return false;
    }
}

template <class... Arguments>
[[noreturn]] void refuse(Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
    throw Refusal{filled(message, arguments...)};
}

template <class... Arguments>
void refuse_if(bool condition, Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
    if (condition) refuse(message, arguments...);
}

class Context {
public:
    Context(Connection& connection, Suite_options options)
        : connection_(connection),
          own_(options.own_connection ? *options.own_connection : connection),
          options_(std::move(options)) {}

    Connection& session_connection() { return connection_; }
    Connection& own_connection() { return own_; }
    const Suite_options& options() const { return options_; }
    const std::string& user() const { return options_.user; }
    void set_user(std::string user) { options_.user = std::move(user); }
    void set_server_date(std::optional<Date> date) { options_.server_date = date; }

    /// The fixed date, or the date and time of the database server; the embedded engine's are this machine's.
    Date now();
    Server_clock& clock() { return clock_; }
    Operation_memory& memory() { return memory_; }
    std::string day_text(Date date) const;
    std::string time_text(Date date) const;
    std::string stamp() { return time_text(now()); }

    /// What a query asks so that it tells the time as well, and the time that its row tells.
    std::string_view time_column() const { return options_.server_date ? "" : ", GETDATE() AS Ahora"; }
    Date time_of(const Rows& row);

    /// The year and the month of now, as they stand in a condition.
    std::string year_in_sql() const;
    std::string month_in_sql() const;

    template <class... Arguments>
    Rows query(Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
        return reference::query(own_, statement, arguments...);
    }
    template <class... Arguments>
    void execute(Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
        query(statement, arguments...);
    }

    /// `column` of the active row of `table` whose key equals; empty when there is none. `condition` is SQL or empty.
    /// Throws `Database_error`, and sends nothing, for a name that the schema does not have.
    std::string look_up(std::string_view column, std::string_view key_column, std::string_view key,
                        std::string_view table, std::string_view condition = {});

    /// A system parameter as text, or `fallback` when it is absent.
    std::string parameter(std::string_view name, std::string_view fallback = {});

    /// Whether documents of the code are posted by themselves.
    bool posts_automatically(std::string_view document_code);

    /// What stands of this server in a column of `Servidor_Suite`; empty when nothing does.
    std::string of_this_server(std::string_view column);

    /// The next folio of a series; empty, with `why` filled, when it is closed.
    std::string next_folio(const std::string& branch, const std::string& document_code, std::string& why);
    /// The same; a closed one is a refusal.
    std::string take_folio(const std::string& branch, const std::string& document_code);

    void register_document(std::string_view document_code, std::string_view folio);
    bool is_posted(std::string_view document_code, std::string_view folio);

    /// Whether the operating period exists and is open.
    bool is_period_open(Date date, std::string_view module);
    /// Whether somebody closed the operating period; one that does not exist is not closed.
    bool is_period_closed(Date date, std::string_view module);

private:
    const std::string* setting(const Setting& asked);
    void read_with(const Setting& asked);
    bool is_due(std::span<const Setting> settings, const Setting& asked) const;
    void keep(std::span<const Setting> settings, const Rows& row);
    Rows active_row(std::string_view columns, std::string_view key_column, std::string_view key, std::string_view table,
                    std::string_view condition);
    std::string look_up_in(const Kept_catalog& catalog, std::string_view column, std::string_view key_column,
                           std::string_view key);
    std::string period_state(Date date, std::string_view module);
    bool register_first(std::string_view document_code, std::string_view folio, std::string_view now);
    bool register_again(std::string_view document_code, std::string_view folio, std::string_view now);

    Connection& connection_;
    Connection& own_;
    Suite_options options_;
    Server_clock clock_;
    Operation_memory memory_;

    /// The last folios that were given: their documents are likely to be registered for the first time.
    std::deque<std::string> new_folios_;
};

/// The amount as a text shows it, to the cent.
double cents(double amount);

/// Half a cent: what is nearer to nothing than this is nothing.
inline constexpr double tolerance = 0.005;

}  // namespace cuvexa::reference
