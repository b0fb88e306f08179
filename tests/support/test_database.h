// The database that a test works on: an embedded one of its own, or, when the environment variable CUVEXA_TEST_DB holds
// the connection string of a server, that server's database, brought back to its first rows for every test. One test at
// a time may use a server's database.
#pragma once

#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/administration.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/unit_of_work.h"
#include "database/sqlite/engine.h"
#include "support/snapshot.h"
#include "support/test_server.h"

namespace cuvexa::tests {

/// A date as the reference suite writes it into the embedded database.
inline std::string stored_date(Date date) {
    std::string text = iso_date(date);
    if (const auto t = text.find('T'); t != std::string::npos) text[t] = ' ';
    return text;
}

/// An empty embedded database with the schema; what a server's rows are copied into, so that tests look at both alike.
class Mirror {
public:
    Mirror() : rows_(":memory:", {.synchronous = Synchronous::off}) {
        run_script(rows_, schema_sql());
        read_bare(handle(), "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'",
                  [&](const Snapshot::Row& row) { tables_.push_back(table_of(row[0].second)); });
    }

    sqlite3* handle() const { return sqlite::handle_of(rows_); }

    void empty_all(Connection& connection) const {
        for (const Table& table : tables_) connection.execute("DELETE FROM " + table.name);
    }
    void drop_all(Connection& connection) const {
        for (const Table& table : tables_) {
            try {
                connection.execute("DROP TABLE " + table.name);
            } catch (const Database_error&) {
                // It was not there.
            }
        }
    }

    void read(Connection& connection) {
        run("BEGIN");
        for (const Table& table : tables_) copy(connection, table);
        run("COMMIT");
    }

private:
    struct Table {
        std::string name;
        std::vector<std::string> columns;
        std::string select, insert;
    };

    Table table_of(const std::string& name) {
        Table table{name, {}, "", ""};
        std::string keys, marks;
        read_bare(handle(), "SELECT name, pk FROM pragma_table_info('" + name + "')", [&](const Snapshot::Row& row) {
            table.columns.push_back(row[0].second);
            marks += marks.empty() ? "?" : ", ?";
            if (row[1].second != "0") keys += (keys.empty() ? " ORDER BY " : ", ") + row[0].second;
        });
        table.select = "SELECT * FROM " + name + keys;
        table.insert = "INSERT INTO " + name + " VALUES (" + marks + ")";
        return table;
    }

    void copy(Connection& connection, const Table& table) {
        run("DELETE FROM " + table.name);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle(), table.insert.c_str(), -1, &statement, nullptr);
        for (const auto rows = connection.execute(table.select); !rows->eof(); rows->move_next()) {
            for (std::size_t i = 0; i < table.columns.size(); ++i) {
                bind(statement, static_cast<int>(i + 1), rows->field(table.columns[i]));
            }
            if (sqlite3_step(statement) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(handle()));
            sqlite3_reset(statement);
        }
        sqlite3_finalize(statement);
    }

    void bind(sqlite3_stmt* statement, int parameter, const Value& value) const {
        if (is_null(value)) {
            sqlite3_bind_null(statement, parameter);
        } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
            sqlite3_bind_int64(statement, parameter, *whole);
        } else if (const auto* real = std::get_if<double>(&value)) {
            sqlite3_bind_double(statement, parameter, *real);
        } else {
            const auto* date = std::get_if<Date>(&value);
            const std::string text = date != nullptr ? stored_date(*date) : to_text(value);
            sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
        }
    }

    void run(const std::string& text) {
        if (sqlite3_exec(handle(), text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(text + ": " + sqlite3_errmsg(handle()));
        }
    }

    Sqlite_connection rows_;
    std::vector<Table> tables_;
};

/// A database with the schema and the rows of a script.
class Test_database {
public:
    /// The script must be one and the same text for as long as the program runs.
    explicit Test_database(std::string_view script) {
        if (server_string() == nullptr) {
            embedded_.emplace(":memory:", Sqlite_options{.synchronous = Synchronous::off});
            copy(template_of(script), sqlite::handle_of(*embedded_));
        } else {
            reset_server(script);
        }
    }

    Connection& connection() {
        if (embedded_) return *embedded_;
        return server();
    }

    /// The engine's own handle where the database is embedded, to do what only it can; null on a server.
    sqlite3* embedded() const { return embedded_ ? sqlite::handle_of(*embedded_) : nullptr; }

    /// The rows as they are now, to be read with the embedded engine's own words.
    sqlite3* look() const {
        if (embedded_) return sqlite::handle_of(*embedded_);
        mirror().read(server());
        return mirror().handle();
    }

private:
    static const char* server_string() { return std::getenv("CUVEXA_TEST_DB"); }

    /// Built once per program; each database starts as a copy of it.
    static sqlite3* template_of(std::string_view script) {
        static std::vector<std::pair<const char*, std::unique_ptr<Sqlite_connection>>> made;
        for (const auto& [text, database] : made) {
            if (text == script.data()) return sqlite::handle_of(*database);
        }
        auto database =
            std::make_unique<Sqlite_connection>(":memory:", Sqlite_options{.synchronous = Synchronous::off});
        run_script(*database, schema_sql());
        run_script(*database, script);
        made.emplace_back(script.data(), std::move(database));
        return sqlite::handle_of(*made.back().second);
    }

    static void copy(sqlite3* from, sqlite3* to) {
        sqlite3_backup* const backup = sqlite3_backup_init(to, "main", from, "main");
        if (backup == nullptr) throw std::runtime_error(sqlite3_errmsg(to));
        sqlite3_backup_step(backup, -1);
        if (sqlite3_backup_finish(backup) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(to));
    }

    static Mirror& mirror() {
        static Mirror rows;
        return rows;
    }

    static Server_connection& server() {
        static const std::unique_ptr<Server_connection> connection = open_server(server_string());
        return *connection;
    }
    static void reset_server(std::string_view script) {
        try {
            fill(script, true);
        } catch (const Database_error&) {
            // No schema yet, or a test has taken a table away.
            mirror().drop_all(server());
            server().prepare_database();
            run_script(server(), schema_sql());
            fill(script, false);
        }
    }
    // The rows that the schema itself leaves, behind its definitions.
    static std::string_view schema_rows() { return schema_sql().substr(schema_sql().find("\nINSERT ")); }

    static void fill(std::string_view script, bool empty_first) {
        Unit_of_work whole(server());
        if (empty_first) mirror().empty_all(server());
        if (empty_first) run_script(server(), schema_rows());
        run_script(server(), script);
        whole.commit();
    }

    std::optional<Sqlite_connection> embedded_;
};

}  // namespace cuvexa::tests
