#include "database/odbc/session.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "cuvexa/lost_connection.h"
#include "database/connection_string.h"
#include "database/dialect/limits.h"
#include "database/odbc/results.h"
#include "database/utf16.h"

namespace cuvexa::odbc {
namespace {

// A server that hears ends what takes too long by itself, or by its driver; who hears nothing so long after that hears
// nothing any more.
constexpr int answer_grace_s = 5;

SQLPOINTER seconds(int s) noexcept {
    return number_attribute(static_cast<std::uintptr_t>(s));
}

/// What a driver said when a call failed.
struct Driver_failure {
    std::vector<Diagnostic> records;
};

std::string no_answer(int after_s) {
    return "el servidor no respondió en " + std::to_string(after_s) + " segundos";
}

}  // namespace

/// What the driver holds of a session. A call that was given up keeps it until it comes back.
struct Session::Line {
    Line() {
        SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, number_attribute(SQL_OV_ODBC3), 0);
        database.emplace(SQL_HANDLE_DBC, environment);
    }
    ~Line() {
        if (connected) SQLDisconnect(*database);
    }

    void connect(std::u16string text, int login_timeout_s, Outcome& outcome);
    void run(std::u16string text, int timeout_s, Outcome& outcome);
    std::string information(SQLUSMALLINT what) const;
    bool is_dead() const;

    Handle environment{SQL_HANDLE_ENV, SQL_NULL_HANDLE};
    std::optional<Handle> database;
    bool connected = false;
};

/// What came of a call.
struct Session::Outcome {
    std::unique_ptr<database::Row_set> rows;
    std::string name;
    std::vector<Diagnostic> failure;
    bool failed = false;
    bool dead = false;
};

void Session::Line::connect(std::u16string text, int login_timeout_s, Outcome& outcome) {
    SQLSetConnectAttrW(*database, SQL_ATTR_LOGIN_TIMEOUT, seconds(login_timeout_s), 0);
    const SQLRETURN code = SQLDriverConnectW(*database, nullptr, wide(text), static_cast<SQLSMALLINT>(text.size()),
                                             nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    connected = SQL_SUCCEEDED(code);
    outcome.failed = !connected;
    if (connected) {
        outcome.name = information(SQL_DBMS_NAME);
    } else {
        outcome.failure = diagnostics(*database);
    }
}

void Session::Line::run(std::u16string text, int timeout_s, Outcome& outcome) {
    const Handle statement(SQL_HANDLE_STMT, *database);
    // Braces and question marks of a text are its own.
    SQLSetStmtAttrW(statement, SQL_ATTR_NOSCAN, number_attribute(SQL_NOSCAN_ON), 0);
    if (timeout_s > 0) SQLSetStmtAttrW(statement, SQL_ATTR_QUERY_TIMEOUT, seconds(timeout_s), 0);
    const SQLRETURN code = SQLExecDirectW(statement, wide(text), static_cast<SQLINTEGER>(text.size()));
    try {
        outcome.rows = read_results(statement, code, [&] { throw Driver_failure{diagnostics(statement)}; });
    } catch (Driver_failure& failure) {
        outcome.failed = true;
        outcome.failure = std::move(failure.records);
        outcome.dead = is_dead();
    }
}

std::string Session::Line::information(SQLUSMALLINT what) const {
    std::u16string text(128, u'\0');
    SQLSMALLINT bytes = 0;
    SQLGetInfoW(*database, what, wide(text), static_cast<SQLSMALLINT>(text.size() * sizeof(char16_t)), &bytes);
    return database::utf8_from(std::u16string_view(text).substr(0, static_cast<std::size_t>(bytes) / sizeof(char16_t)));
}

bool Session::Line::is_dead() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(*database, SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
    return dead == SQL_CD_TRUE;
}

Session::Session(const std::string& connection_string, const Odbc_options& options)
    : secrets_(database::passwords(database::with_password(connection_string, options.password))),
      line_(std::make_shared<Line>()),
      statement_limit_s_(options.statement_timeout_s) {
    connect(database::without_savepoints(database::with_password(connection_string, options.password)),
            options.login_timeout_s);
    server_ = &database::server_called(name_);
    if (!server_->ends_statements()) statement_timeout_s_ = options.statement_timeout_s;
    for (const std::string& statement :
         server_->session_statements({options.lock_timeout_ms, options.statement_timeout_s})) {
        run(statement);
    }
}

// Hanging up may wait for the server as well.
Session::~Session() {
    try {
        comes_back([line = std::exchange(line_, nullptr)] {}, answer_grace_s);
    } catch (...) {
        // There is no memory for it: then it ends here.
    }
}

std::unique_ptr<Recordset> Session::run(std::string_view text) {
    if (lost_) throw Lost_connection_error("La conexión con el servidor de base de datos se perdió");
    const auto outcome = std::make_shared<Outcome>();
    const auto call = [line = line_, outcome, wide_text = database::utf16_from(text), limit_s = statement_timeout_s_] {
        line->run(wide_text, limit_s, *outcome);
    };
    if (!comes_back(call, statement_limit_s_)) {
        lost_ = true;
        throw Lost_connection_error("Se perdió la conexión con el servidor de base de datos (" +
                                    no_answer(statement_limit_s_) + ")");
    }
    if (outcome->failed) refuse(*outcome);
    return std::move(outcome->rows);
}

void Session::connect(const std::string& connection_string, int login_timeout_s) {
    const auto outcome = std::make_shared<Outcome>();
    const auto call = [line = line_, outcome, text = database::utf16_from(connection_string), login_timeout_s] {
        line->connect(text, login_timeout_s, *outcome);
    };
    const bool answered = comes_back(call, login_timeout_s);
    if (answered && !outcome->failed) {
        name_ = outcome->name;
        return;
    }
    throw Database_error(
        "No es posible abrir la sesión con el servidor de base de datos (" +
        (answered ? database::without_secrets(description(outcome->failure), secrets_) : no_answer(login_timeout_s)) +
        ")");
}

// False: it was given up. Without a limit it is waited for in place.
bool Session::comes_back(std::function<void()> call, int limit_s) {
    if (limit_s <= 0) {
        call();
        return true;
    }
    if (!calls_) calls_.emplace();
    return calls_->run(std::move(call), std::chrono::seconds(limit_s + answer_grace_s));
}

void Session::refuse(const Outcome& outcome) {
    const std::string text = database::without_secrets(description(outcome.failure), secrets_);
    if (const auto refusal = dialect::limit_refusal(text)) throw Database_error(*refusal);
    if (says(outcome, &database::Server::says_no_number)) throw Database_error(std::string(dialect::no_number_text));
    lost_ = outcome.dead || says(outcome, &database::Server::says_lost);
    if (lost_) throw Lost_connection_error("Se perdió la conexión con el servidor de base de datos (" + text + ")");
    if (says(outcome, &database::Server::says_repeated_key)) throw database::Repeated_key_error(text);
    if (!says(outcome, &database::Server::says_conflict)) throw Database_error(text);
    ++conflicts_;
    throw Conflict_error(std::string(database::conflict_text) + " (" + text + ")");
}

bool Session::says(const Outcome& outcome, bool (database::Server::*says_it)(std::string_view) const noexcept) const {
    return std::any_of(outcome.failure.begin(), outcome.failure.end(),
                       [&](const Diagnostic& record) { return (server_->*says_it)(record.state); });
}

}  // namespace cuvexa::odbc
