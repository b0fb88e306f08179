// The servers that are known, one row each: all in which they differ.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/data_access.h"
#include "cuvexa/database/replica.h"
#include "cuvexa/date.h"
#include "database/dialect/dialect.h"

namespace cuvexa::database {

/// How long a session waits before it gives a statement up.
struct Waits {
    int lock_ms = 0;
    int statement_s = 0;  ///< 0: without end
};

/// What an engine says first when another session was in the way.
inline constexpr std::string_view conflict_text = "Otra sesión trabaja con los mismos datos; repita la operación";

/// What keeping a unit of work fails with when a statement of it has failed and the server takes no more of it.
inline constexpr std::string_view undone_text =
    "La unidad de trabajo se deshizo, porque falló una de sus instrucciones";

/// A row whose key is there already.
class Repeated_key_error : public Database_error {
public:
    using Database_error::Database_error;
};

/// What a session is told before and after a statement that begins or ends a transaction; empty: nothing.
struct Transaction_words {
    std::string_view before, after;
};

struct Server {
    /// Stands in what the server calls itself.
    std::string_view name;

    /// The engine's own dialect; null: it takes the SQL Server dialect as it stands.
    const dialect::Dialect* dialect;

    /// What a session begins with, in the server's words. "$lock_ms" and "$statement_ms" stand for the waits; without
    /// "$statement_ms" it is the driver that ends a statement which runs too long.
    std::span<const std::string_view> session;

    /// Gives a new database what the column types of the schema need; empty: nothing.
    std::string_view preparation;

    /// Gives a row where capital letters equal small ones.
    std::string_view letters_are_equal;

    /// Gives `code_page`, the number of that through which the texts of a statement go into the database.
    std::string_view code_page;

    /// Gives `column_name`, in lower case, of the columns that hold dates, of those whose '' the server refuses; empty:
    /// it takes '' for 1 January 1900.
    std::string_view date_columns;

    /// Gives, on a replica alone, one row: `behind_s`, `unapplied_bytes`, `receives`; empty: the server does not say.
    std::string_view replica;

    /// How the SQLSTATE begins when the connection was lost.
    std::span<const std::string_view> lost;

    /// How the SQLSTATE begins when another session was in the way.
    std::span<const std::string_view> conflict;

    /// The SQLSTATE of a key that is there already, where it may mean that another session was in the way; empty: another session
    /// shows in `conflict` alone.
    std::string_view repeated_key;

    /// What makes transactions, and nothing else, serializable: told before one begins, and again after it has ended;
    /// empty where the dialect's BEGIN says it.
    std::string_view serializable;
    std::string_view as_before;

    /// Whether a statement that fails ends the unit of work: it can only be undone then.
    bool failure_ends_unit;

    /// How a statement writes a date.
    Date_style date_style;

    /// The statements with which a session begins.
    std::vector<std::string> session_statements(const Waits& waits) const;

    /// How far behind the server is, told by `ask`, which runs a text in the server's words.
    std::optional<Replica> replica_told(const std::function<std::unique_ptr<Recordset>(std::string_view)>& ask) const;

    /// Whether the session itself ends a statement that runs too long.
    bool ends_statements() const noexcept;

    /// Whether that SQLSTATE says that the connection was lost.
    bool says_lost(std::string_view state) const noexcept;

    /// Whether that SQLSTATE says that another session was in the way.
    bool says_conflict(std::string_view state) const noexcept;

    /// Whether that SQLSTATE says so of a key.
    bool says_repeated_key(std::string_view state) const noexcept {
        return !repeated_key.empty() && state == repeated_key;
    }

    /// Whether that SQLSTATE says that a result is no finite number or too large for its type: the standard's own.
    bool says_no_number(std::string_view state) const noexcept { return state == "22003"; }

    /// What goes around a statement that begins with this word.
    Transaction_words around(std::string_view first_word) const noexcept;
};

/// The server that calls itself so. One that no row names is spoken to as the first, SQL Server.
const Server& server_called(std::string_view name) noexcept;

}  // namespace cuvexa::database
