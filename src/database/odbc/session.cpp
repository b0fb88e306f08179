#include "database/odbc/session.h"

#include <algorithm>
#include <functional>

#include "cuvexa/lost_connection.h"
#include "database/connection_string.h"
#include "database/dialect/limits.h"
#include "database/odbc/results.h"
#include "database/utf16.h"

namespace cuvexa::odbc {
namespace {

SQLPOINTER seconds(int s) noexcept {
    return number_attribute(static_cast<std::uintptr_t>(s));
}

}  // namespace

Session::Session(const std::string& connection_string, const Odbc_options& options)
    : secrets_(database::passwords(database::with_password(connection_string, options.password))),
      environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, number_attribute(SQL_OV_ODBC3), 0);
    database_.emplace(SQL_HANDLE_DBC, environment_);
    connect(database::without_savepoints(database::with_password(connection_string, options.password)),
            options.login_timeout_s);
    name_ = information(SQL_DBMS_NAME);
    server_ = &database::server_called(name_);
    if (!server_->ends_statements()) statement_timeout_s_ = options.statement_timeout_s;
    for (const std::string& statement :
         server_->session_statements({options.lock_timeout_ms, options.statement_timeout_s})) {
        run(statement);
    }
}

Session::~Session() {
    if (connected_) SQLDisconnect(*database_);
}

std::unique_ptr<Recordset> Session::run(std::string_view text) {
    if (lost_) throw Lost_connection_error("La conexión con el servidor de base de datos se perdió");
    const Handle statement(SQL_HANDLE_STMT, *database_);
    // Braces and question marks of a text are its own.
    SQLSetStmtAttrW(statement, SQL_ATTR_NOSCAN, number_attribute(SQL_NOSCAN_ON), 0);
    if (statement_timeout_s_ > 0) SQLSetStmtAttrW(statement, SQL_ATTR_QUERY_TIMEOUT, seconds(statement_timeout_s_), 0);
    std::u16string wide_text = database::utf16_from(text);
    const SQLRETURN code = SQLExecDirectW(statement, wide(wide_text), static_cast<SQLINTEGER>(wide_text.size()));
    return read_results(statement, code, [&] { refuse(statement); });
}

void Session::connect(const std::string& connection_string, int login_timeout_s) {
    SQLSetConnectAttrW(*database_, SQL_ATTR_LOGIN_TIMEOUT, seconds(login_timeout_s), 0);
    std::u16string text = database::utf16_from(connection_string);
    const SQLRETURN code = SQLDriverConnectW(*database_, nullptr, wide(text), static_cast<SQLSMALLINT>(text.size()),
                                             nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(code)) {
        throw Database_error("No es posible abrir la sesión con el servidor de base de datos (" +
                             database::without_secrets(description(diagnostics(*database_)), secrets_) + ")");
    }
    connected_ = true;
}

std::string Session::information(SQLUSMALLINT what) const {
    std::u16string text(128, u'\0');
    SQLSMALLINT bytes = 0;
    SQLGetInfoW(*database_, what, wide(text), static_cast<SQLSMALLINT>(text.size() * sizeof(char16_t)), &bytes);
    return database::utf8_from(std::u16string_view(text).substr(0, static_cast<std::size_t>(bytes) / sizeof(char16_t)));
}

void Session::refuse(const Handle& statement) {
    const auto records = diagnostics(statement);
    const std::string text = database::without_secrets(description(records), secrets_);
    if (const auto refusal = dialect::limit_refusal(text)) throw Database_error(*refusal);
    lost_ = is_lost(records);
    if (lost_) throw Lost_connection_error("Se perdió la conexión con el servidor de base de datos (" + text + ")");
    if (!is_conflict(records)) throw Database_error(text);
    ++conflicts_;
    throw Conflict_error(std::string(database::conflict_text) + " (" + text + ")");
}

bool Session::is_conflict(const std::vector<Diagnostic>& records) const {
    return std::any_of(records.begin(), records.end(),
                       [&](const Diagnostic& record) { return server_->says_conflict(record.state); });
}

bool Session::is_lost(const std::vector<Diagnostic>& records) const {
    for (const Diagnostic& record : records) {
        if (server_->says_lost(record.state)) return true;
    }
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(*database_, SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
    return dead == SQL_CD_TRUE;
}

}  // namespace cuvexa::odbc
