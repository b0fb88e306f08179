// What the reference services share: statements, refusals, and the few look-ups that all of them need.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "core/rows.h"
#include "core/statement.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa {

/// A piece of a statement that is a name or a condition, not a value.
struct Raw {
    std::string_view text;
};

/// A business refusal on its way to `LastError`.
struct Suite_refusal {
    std::string text;
};

/// Runs `body`; a refusal becomes `last_error` and False. The only place where the suite catches.
template <class Body>
bool serve(std::string& last_error, Body&& body) {
    last_error.clear();
    try {
        body();
        return true;
    } catch (const Suite_refusal& refusal) {
        last_error = refusal.text;
        return false;
    }
}

template <class... Arguments>
[[noreturn]] void refuse(Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
    throw Suite_refusal{filled(message, arguments...)};
}

template <class... Arguments>
void refuse_if(bool condition, Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
    if (condition) throw Suite_refusal{filled(message, arguments...)};
}

/// A text value as it stands between the quotes of a statement.
std::string escaped(std::string_view text);

inline std::string_view sql_piece(Raw raw) {
    return raw.text;
}
template <std::convertible_to<std::string_view> Text>
std::string sql_piece(const Text& text) {
    return escaped(text);
}
inline double sql_piece(double number) {
    return number;
}
inline int sql_piece(int number) {
    return number;
}

/// A statement with its holes filled: texts escaped, names and conditions as they stand.
template <class... Arguments>
std::string sql(Holes<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
    std::string text;
    append_filled(text, statement.literal(), {Piece(sql_piece(arguments)).view()...});
    return text;
}

class Suite_context {
public:
    Suite_context(Connection& connection, Suite_options options)
        : connection_(connection),
          own_(options.own_connection ? *options.own_connection : connection),
          options_(std::move(options)) {}

    Connection& session_connection() { return connection_; }
    Connection& own_connection() { return own_; }
    const Suite_options& options() const { return options_; }
    const std::string& user() const { return options_.user; }
    void set_user(std::string user) { options_.user = std::move(user); }
    void set_server_date(std::optional<Date> date) { options_.server_date = date; }

    Date now() const { return options_.server_date ? *options_.server_date : local_now(); }
    std::string day_text(Date date) const;
    std::string time_text(Date date) const;
    std::string stamp() const { return time_text(now()); }

    template <class... Arguments>
    Rows query(Holes<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
        return Rows(own_.execute(sql(statement, arguments...)));
    }
    template <class... Arguments>
    void execute(Holes<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
        query(statement, arguments...);
    }

    /// `column` of the active row of `table` whose key equals; empty when there is none. `condition` is SQL or empty.
    std::string look_up(std::string_view column, std::string_view key_column, std::string_view key,
                        std::string_view table, std::string_view condition = {});

    /// A system parameter as text, or `fallback` when it is absent.
    std::string parameter(std::string_view name, std::string_view fallback = {});

    /// The next number of a series as a folio; empty, with `why` filled, when the series is closed.
    std::string next_folio(const std::string& branch, const std::string& document_code, std::string& why);
    /// The same; a closed series is a refusal.
    std::string take_folio(const std::string& branch, const std::string& document_code);

    void register_document(std::string_view document_code, std::string_view folio);
    bool is_posted(std::string_view document_code, std::string_view folio);

    /// Whether the operating period exists and is open.
    bool is_period_open(Date date, std::string_view module);
    /// Whether somebody closed the operating period; one that does not exist is not closed.
    bool is_period_closed(Date date, std::string_view module);

private:
    void begin_series(std::string_view code, std::string_view branch);
    std::string period_state(Date date, std::string_view module);

    Connection& connection_;
    Connection& own_;
    Suite_options options_;
};

/// The amount as a text shows it, to the cent.
double cents(double amount);

/// Half a cent: what is nearer to nothing than this is nothing.
inline constexpr double tolerance = 0.005;

}  // namespace cuvexa
