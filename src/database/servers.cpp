#include "database/servers.h"

#include <algorithm>
#include <array>

#include "core/case.h"
#include "database/dialect/postgresql.h"

namespace cuvexa::database {
namespace {

using namespace std::string_view_literals;

constexpr std::array sql_server_session = {"SET LOCK_TIMEOUT $lock_ms"sv};
constexpr std::array sql_server_lost = {"08"sv};
constexpr std::array sql_server_conflict = {"40001"sv};

constexpr std::array postgresql_session = {"SET lock_timeout = $lock_ms"sv, "SET statement_timeout = $statement_ms"sv,
                                           "SET standard_conforming_strings = on"sv,
                                           "SET client_min_messages = warning"sv};
constexpr std::array postgresql_lost = {"08"sv, "57P0"sv};
// A serialization failure, a deadlock, a lock that was waited for too long.
constexpr std::array postgresql_conflict = {"40001"sv, "40P01"sv, "55P03"sv};

constexpr std::array servers = {
    Server{.name = "SQL Server",
           .dialect = nullptr,
           .session = sql_server_session,
           .preparation = "",
           .letters_are_equal = "SELECT 1 WHERE 'a' = 'A'",
           .code_page =
               "SELECT CAST(COLLATIONPROPERTY(CAST(DATABASEPROPERTYEX(DB_NAME(), 'Collation') AS varchar(128)), "
               "'CodePage') AS int) AS code_page",
           .date_columns = "",
           .replica = "",
           .lost = sql_server_lost,
           .conflict = sql_server_conflict,
           .repeated_key = "",
           .serializable = "SET TRANSACTION ISOLATION LEVEL SERIALIZABLE",
           .as_before = "SET TRANSACTION ISOLATION LEVEL READ COMMITTED",
           .failure_ends_unit = false,
           .date_style = Date_style::neutral},
    Server{.name = "PostgreSQL",
           .dialect = &dialect::postgresql,
           .session = postgresql_session,
           .preparation = "CREATE EXTENSION IF NOT EXISTS citext",
           .letters_are_equal = "SELECT 1 WHERE 'a'::citext = 'A'",
           .code_page =
               "SELECT CASE getdatabaseencoding() WHEN 'WIN1252' THEN 1252 WHEN 'LATIN1' THEN 28591 ELSE 65001 "
               "END AS code_page",
           .date_columns =
               "SELECT LOWER(column_name) AS column_name FROM information_schema.columns "
               "WHERE table_schema = ANY (current_schemas(false)) GROUP BY LOWER(column_name) "
               "HAVING BOOL_AND(data_type IN ('date', 'timestamp without time zone', 'timestamp with time zone'))",
           .replica =
               "SELECT EXTRACT(EPOCH FROM clock_timestamp() - pg_last_xact_replay_timestamp()) AS behind_s, "
               "COALESCE(pg_wal_lsn_diff(pg_last_wal_receive_lsn(), pg_last_wal_replay_lsn()), 0) AS unapplied_bytes, "
               "(SELECT COUNT(*) FROM pg_stat_wal_receiver) AS receives WHERE pg_is_in_recovery()",
           .lost = postgresql_lost,
           .conflict = postgresql_conflict,
           .repeated_key = "23505",
           .serializable = "",
           .as_before = "",
           .failure_ends_unit = true,
           .date_style = Date_style::iso},
};

constexpr std::string_view lock_hole = "$lock_ms";
constexpr std::string_view statement_hole = "$statement_ms";

void fill(std::string& text, std::string_view hole, int number) {
    if (const auto at = text.find(hole); at != std::string::npos) text.replace(at, hole.size(), std::to_string(number));
}

bool begins_with_one_of(std::string_view state, std::span<const std::string_view> beginnings) {
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](std::string_view beginning) { return state.starts_with(beginning); });
}

}  // namespace

std::vector<std::string> Server::session_statements(const Waits& waits) const {
    std::vector<std::string> texts(session.begin(), session.end());
    for (std::string& text : texts) {
        fill(text, lock_hole, waits.lock_ms);
        fill(text, statement_hole, waits.statement_s * 1000);
    }
    return texts;
}

std::optional<Replica> Server::replica_told(
    const std::function<std::unique_ptr<Recordset>(std::string_view)>& ask) const {
    if (replica.empty()) return std::nullopt;
    const auto row = ask(replica);
    if (row->eof()) return std::nullopt;
    const Value behind_s = row->field("behind_s");
    return Replica{.behind_s = is_null(behind_s) ? std::nullopt : std::optional(std::max(to_number(behind_s), 0.0)),
                   .unapplied_bytes = static_cast<std::int64_t>(to_number(row->field("unapplied_bytes"))),
                   .receives = to_number(row->field("receives")) != 0};
}

bool Server::ends_statements() const noexcept {
    return std::any_of(session.begin(), session.end(),
                       [](std::string_view text) { return text.find(statement_hole) != std::string_view::npos; });
}

bool Server::says_lost(std::string_view state) const noexcept {
    return begins_with_one_of(state, lost);
}

bool Server::says_conflict(std::string_view state) const noexcept {
    return begins_with_one_of(state, conflict);
}

Transaction_words Server::around(std::string_view first_word) const noexcept {
    if (same_text(first_word, "BEGIN")) return {.before = serializable, .after = ""};
    const bool ends = same_text(first_word, "COMMIT") || same_text(first_word, "ROLLBACK");
    return {.before = "", .after = ends ? as_before : ""};
}

const Server& server_called(std::string_view name) noexcept {
    const auto server = std::find_if(servers.begin(), servers.end(), [&](const Server& each) {
        return name.find(each.name) != std::string_view::npos;
    });
    return server == servers.end() ? servers.front() : *server;
}

}  // namespace cuvexa::database
