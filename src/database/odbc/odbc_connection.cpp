#include "cuvexa/database/odbc_connection.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "database/connection_string.h"
#include "database/dialect/batch.h"
#include "database/dialect/lexer.h"
#include "database/dialect/postgresql.h"
#include "database/dialect/translation.h"
#include "database/row_set.h"
#include "database/utf16.h"

namespace cuvexa {
namespace {

using namespace database;
using dialect::Date_columns;
using dialect::Token;
using dialect::Token_kind;

/// A handle of the driver manager, given back in the end.
class Handle {
public:
    Handle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_)))
            throw Database_error("No hay memoria para la conexión con el servidor de base de datos");
    }
    ~Handle() { SQLFreeHandle(kind_, handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    operator SQLHANDLE() const noexcept { return handle_; }
    SQLSMALLINT kind() const noexcept { return kind_; }

private:
    SQLSMALLINT kind_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

SQLWCHAR* wide(std::u16string& text) noexcept {
    static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
    return reinterpret_cast<SQLWCHAR*>(text.data());
}

SQLPOINTER number_attribute(std::uintptr_t value) noexcept {
    return reinterpret_cast<SQLPOINTER>(value);
}

struct Diagnostic {
    std::string state;
    int native = 0;
    std::string message;
};

std::vector<Diagnostic> diagnostics(const Handle& handle) {
    std::vector<Diagnostic> records;
    std::u16string message(2048, u'\0');
    for (SQLSMALLINT record = 1; record < 100; ++record) {
        std::array<SQLWCHAR, 6> state{};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(handle.kind(), handle, record, state.data(), &native, wide(message),
                                          static_cast<SQLSMALLINT>(message.size()), &length)))
            break;
        const auto taken =
            std::min<std::size_t>(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), message.size() - 1);
        records.push_back({std::string(state.begin(), state.end() - 1), native,
                           utf8_from(std::u16string_view(message).substr(0, taken))});
    }
    return records;
}

std::string trimmed_end(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ')) text.pop_back();
    return text;
}

/// Every record on a line of its own: "message [SQLSTATE, native code]".
std::string description(const std::vector<Diagnostic>& records) {
    std::string text;
    for (const Diagnostic& record : records) {
        if (!text.empty()) text += "\r\n";
        text += trimmed_end(record.message) + " [" + record.state + ", " + std::to_string(record.native) + "]";
    }
    return text.empty() ? "El servidor de base de datos no dijo por qué falló" : text;
}

/// The passwords of a connection string, so that no text that leaves gives one away.
std::vector<std::string> passwords(const std::string& connection_string) {
    std::vector<std::string> found;
    for (const auto& [key, value] : connection_attributes(connection_string)) {
        if (!is_password_key(key) || value.empty()) continue;
        found.emplace_back(value);
        found.push_back(plain_value(value));
    }
    return found;
}

std::string with_password(const std::string& connection_string) {
    const char* const password = std::getenv("CUVEXA_PASSWORD");
    if (password == nullptr || !passwords(connection_string).empty()) return connection_string;
    return connection_string + (connection_string.ends_with(';') ? "" : ";") + "PWD=" + guarded_value(password);
}

Date date_from(const SQL_TIMESTAMP_STRUCT& stamp) {
    Date date = make_date(stamp.year, stamp.month, stamp.day, stamp.hour, stamp.minute, stamp.second);
    // The automation date counts the time of day away from the day, before its first day too.
    const double rest = stamp.fraction / 1e9 / 86400;
    date.days += date.days < 0 ? -rest : rest;
    return date;
}

/// Reads the cells of a statement's current row.
class Cells {
public:
    Cells(const Handle& statement, const std::function<void()>& fail) : statement_(statement), fail_(fail) {
        SQLSMALLINT count = 0;
        if (!SQL_SUCCEEDED(SQLNumResultCols(statement_, &count))) fail_();
        auto names = std::make_shared<std::vector<std::string>>();
        for (SQLUSMALLINT column = 1; column <= count; ++column) names->push_back(describe(column));
        names_ = std::move(names);
    }

    const Column_names& names() const noexcept { return names_; }

    void read_row(Row_set& rows) {
        for (std::size_t i = 0; i < types_.size(); ++i) read(rows, static_cast<SQLUSMALLINT>(i + 1), types_[i]);
    }

private:
    std::string describe(SQLUSMALLINT column) {
        std::u16string name(256, u'\0');
        SQLSMALLINT length = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(statement_, column, wide(name), static_cast<SQLSMALLINT>(name.size()),
                                           &length, &type, &size, &digits, &nullable)))
            fail_();
        types_.push_back(type);
        return utf8_from(std::u16string_view(name).substr(0, static_cast<std::size_t>(length)));
    }

    void read(Row_set& rows, SQLUSMALLINT column, SQLSMALLINT type) {
        switch (type) {
            case SQL_BIT:
            case SQL_TINYINT:
            case SQL_SMALLINT:
            case SQL_INTEGER:
            case SQL_BIGINT:
                return add(rows, column, SQL_C_SBIGINT, std::int64_t{});
            case SQL_REAL:
            case SQL_FLOAT:
            case SQL_DOUBLE:
            case SQL_DECIMAL:
            case SQL_NUMERIC:
                return add(rows, column, SQL_C_DOUBLE, double{});
            case SQL_DATETIME:
            case SQL_TIMESTAMP:
            case SQL_TYPE_DATE:
            case SQL_TYPE_TIMESTAMP:
                return add(rows, column, SQL_C_TYPE_TIMESTAMP, SQL_TIMESTAMP_STRUCT{});
            default:
                return add_text(rows, column);
        }
    }

    template <class Cell>
    void add(Row_set& rows, SQLUSMALLINT column, SQLSMALLINT type, Cell cell) {
        SQLLEN length = 0;
        if (!SQL_SUCCEEDED(SQLGetData(statement_, column, type, &cell, sizeof cell, &length))) fail_();
        if (length == SQL_NULL_DATA) return rows.add_null();
        if constexpr (std::is_same_v<Cell, SQL_TIMESTAMP_STRUCT>)
            rows.add(date_from(cell));
        else
            rows.add(cell);
    }

    // In pieces, until the driver has no more.
    void add_text(Row_set& rows, SQLUSMALLINT column) {
        text_.clear();
        for (;;) {
            SQLLEN length = 0;
            const SQLRETURN code = SQLGetData(statement_, column, SQL_C_WCHAR, piece_.data(),
                                              static_cast<SQLLEN>(piece_.size() * sizeof(char16_t)), &length);
            if (code == SQL_NO_DATA) break;
            if (!SQL_SUCCEEDED(code)) fail_();
            if (length == SQL_NULL_DATA) return rows.add_null();
            const std::size_t most = piece_.size() - 1;
            const bool more = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) / sizeof(char16_t) > most;
            text_.append(piece_.data(), more ? most : static_cast<std::size_t>(length) / sizeof(char16_t));
            if (!more) break;
        }
        rows.add(std::string_view(utf8_from(text_)));
    }

    const Handle& statement_;
    const std::function<void()>& fail_;
    Column_names names_;
    std::vector<SQLSMALLINT> types_;
    std::array<char16_t, 2048> piece_;
    std::u16string text_;
};

std::vector<std::string> session_statements(Server_kind kind, const Odbc_options& options) {
    if (kind == Server_kind::sql_server) return {"SET LOCK_TIMEOUT " + std::to_string(options.lock_timeout_ms)};
    return {"SET lock_timeout = " + std::to_string(options.lock_timeout_ms),
            "SET statement_timeout = " + std::to_string(options.statement_timeout_s * 1000),
            "SET standard_conforming_strings = on", "SET client_min_messages = warning"};
}

Server_kind kind_of(std::string_view name) {
    return name.find("PostgreSQL") != std::string_view::npos ? Server_kind::postgresql : Server_kind::sql_server;
}

constexpr std::string_view date_columns_query =
    "SELECT LOWER(column_name) AS column_name FROM information_schema.columns "
    "WHERE table_schema = ANY (current_schemas(false)) GROUP BY LOWER(column_name) "
    "HAVING BOOL_AND(data_type IN ('date', 'timestamp without time zone', 'timestamp with time zone'))";

bool is_definition(std::string_view text, const std::vector<Token>& tokens) {
    if (tokens.empty()) return false;
    const std::string_view first = tokens.front().in(text);
    return same_text(first, "CREATE") || same_text(first, "ALTER") || same_text(first, "DROP");
}

bool has_empty_text(std::string_view text, const std::vector<Token>& tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
        return token.kind == Token_kind::text && (token.in(text) == "''" || same_text(token.in(text), "N''"));
    });
}

}  // namespace

class Odbc_connection::Session {
public:
    Session(const std::string& connection_string, const Odbc_options& options)
        : secrets_(passwords(with_password(connection_string))), environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, number_attribute(SQL_OV_ODBC3), 0);
        database_.emplace(SQL_HANDLE_DBC, environment_);
        connect(with_password(connection_string), options);
        name_ = information(SQL_DBMS_NAME);
        kind_ = kind_of(name_);
        if (kind_ == Server_kind::sql_server) statement_timeout_s_ = options.statement_timeout_s;
        for (const std::string& statement : session_statements(kind_, options)) run(statement);
    }

    ~Session() {
        if (connected_) SQLDisconnect(*database_);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    std::unique_ptr<Recordset> execute(std::string_view text) {
        tokenize(text, tokens_);
        if (tokens_.empty()) throw Database_error("La instrucción está vacía");
        if (kind_ == Server_kind::sql_server) {
            refuse_batch(text, tokens_);
            return run(text);
        }
        return run(translated(text));
    }

    /// The statement as PostgreSQL takes it.
    std::string translate(std::string_view text) {
        tokenize(text, tokens_);
        return translated(text);
    }

    /// Runs a text in the server's own words.
    std::unique_ptr<Recordset> run(std::string_view text) {
        if (lost_) throw Database_error("La conexión con el servidor de base de datos se perdió; abra otra sesión");
        const Handle statement(SQL_HANDLE_STMT, *database_);
        const std::function<void()> fail = [&] { refuse(statement); };
        // Braces and question marks of a text are its own.
        SQLSetStmtAttrW(statement, SQL_ATTR_NOSCAN, number_attribute(SQL_NOSCAN_ON), 0);
        if (statement_timeout_s_ > 0)
            SQLSetStmtAttrW(statement, SQL_ATTR_QUERY_TIMEOUT,
                            number_attribute(static_cast<std::uintptr_t>(statement_timeout_s_)), 0);
        std::u16string wide_text = utf16_from(text);
        SQLRETURN code = SQLExecDirectW(statement, wide(wide_text), static_cast<SQLINTEGER>(wide_text.size()));
        std::unique_ptr<Row_set> rows;
        std::int64_t changes = 0;
        // A failure may stand behind a first result.
        if (code == SQL_NO_DATA) code = SQLMoreResults(statement);
        for (; code != SQL_NO_DATA; code = SQLMoreResults(statement)) {
            if (!SQL_SUCCEEDED(code)) fail();
            read_result(statement, fail, rows, changes);
        }
        if (!rows) rows = std::make_unique<Row_set>(std::make_shared<std::vector<std::string>>());
        rows->set_changes(changes);
        return rows;
    }

    Server_kind kind() const noexcept { return kind_; }
    const std::string& name() const noexcept { return name_; }

private:
    // `tokens_` are those of the text.
    std::string translated(std::string_view text) {
        const bool definition = is_definition(text, tokens_);
        if (definition) dates_.reset();
        const Date_columns none;
        const Date_columns& dates = !definition && has_empty_text(text, tokens_) ? known_dates() : none;
        return dialect::translate(text, tokens_, dialect::postgresql, dates).with_literals();
    }

    // Asked of the server when a statement first needs it, and again after a definition of this session.
    const Date_columns& known_dates() {
        if (dates_) return *dates_;
        const auto rows = run(date_columns_query);
        dates_.emplace();
        for (; !rows->eof(); rows->move_next()) dates_->insert(to_text(rows->field("column_name")));
        return *dates_;
    }

    void connect(const std::string& connection_string, const Odbc_options& options) {
        SQLSetConnectAttrW(*database_, SQL_ATTR_LOGIN_TIMEOUT,
                           number_attribute(static_cast<std::uintptr_t>(options.login_timeout_s)), 0);
        std::u16string text = utf16_from(connection_string);
        const SQLRETURN code = SQLDriverConnectW(*database_, nullptr, wide(text), static_cast<SQLSMALLINT>(text.size()),
                                                 nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
        if (!SQL_SUCCEEDED(code)) {
            throw Database_error("No es posible abrir la sesión con el servidor de base de datos (" +
                                 without_secrets(description(diagnostics(*database_))) + ")");
        }
        connected_ = true;
    }

    std::string information(SQLUSMALLINT what) {
        std::u16string text(128, u'\0');
        SQLSMALLINT bytes = 0;
        SQLGetInfoW(*database_, what, wide(text), static_cast<SQLSMALLINT>(text.size() * sizeof(char16_t)), &bytes);
        return utf8_from(std::u16string_view(text).substr(0, static_cast<std::size_t>(bytes) / sizeof(char16_t)));
    }

    static void read_result(const Handle& statement, const std::function<void()>& fail, std::unique_ptr<Row_set>& rows,
                            std::int64_t& changes) {
        Cells cells(statement, fail);
        if (cells.names()->empty()) {
            SQLLEN count = 0;
            if (SQL_SUCCEEDED(SQLRowCount(statement, &count)) && count > 0) changes += count;
            return;
        }
        auto read = std::make_unique<Row_set>(cells.names());
        SQLRETURN code = SQLFetch(statement);
        for (; SQL_SUCCEEDED(code); code = SQLFetch(statement)) cells.read_row(*read);
        if (code != SQL_NO_DATA) fail();
        if (!rows) rows = std::move(read);
    }

    [[noreturn]] void refuse(const Handle& statement) {
        const auto records = diagnostics(statement);
        const std::string text = without_secrets(description(records));
        lost_ = is_lost(records);
        if (!lost_) throw Database_error(text);
        throw Database_error("Se perdió la conexión con el servidor de base de datos (" + text + ")");
    }

    bool is_lost(const std::vector<Diagnostic>& records) const {
        for (const Diagnostic& record : records)
            if (record.state.starts_with("08") || record.state.starts_with("57P0")) return true;
        SQLUINTEGER dead = SQL_CD_FALSE;
        SQLGetConnectAttrW(*database_, SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
        return dead == SQL_CD_TRUE;
    }

    std::string without_secrets(std::string text) const {
        for (const std::string& secret : secrets_)
            for (std::size_t at = text.find(secret); at != std::string::npos; at = text.find(secret, at + 3))
                text.replace(at, secret.size(), "***");
        return text;
    }

    std::vector<std::string> secrets_;
    Handle environment_;
    std::optional<Handle> database_;
    std::string name_;
    Server_kind kind_ = Server_kind::sql_server;
    int statement_timeout_s_ = 0;
    bool connected_ = false;
    bool lost_ = false;
    std::vector<Token> tokens_;
    std::optional<Date_columns> dates_;
};

Odbc_connection::Odbc_connection(const std::string& connection_string, const Odbc_options& options)
    : session_(std::make_unique<Session>(connection_string, options)) {}

Odbc_connection::~Odbc_connection() = default;

std::unique_ptr<Recordset> Odbc_connection::execute(std::string_view text) {
    return session_->execute(text);
}

void Odbc_connection::prepare_database() {
    if (session_->kind() == Server_kind::postgresql) session_->run("CREATE EXTENSION IF NOT EXISTS citext");
    const char* const same =
        session_->kind() == Server_kind::postgresql ? "SELECT 1 WHERE 'a'::citext = 'A'" : "SELECT 1 WHERE 'a' = 'A'";
    if (session_->run(same)->eof())
        throw Database_error(
            "La base de datos distingue mayúsculas de minúsculas; créela con una intercalación que no las distinga");
}

Server_kind Odbc_connection::server_kind() const noexcept {
    return session_->kind();
}

const std::string& Odbc_connection::server_name() const noexcept {
    return session_->name();
}

std::string Odbc_connection::translate(std::string_view text) const {
    if (session_->kind() == Server_kind::sql_server) return std::string(text);
    return session_->translate(text);
}

}  // namespace cuvexa
