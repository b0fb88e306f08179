#include "database/postgresql/session.h"

#include <poll.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <map>
#include <regex>

#include "core/text.h"
#include "cuvexa/lost_connection.h"
#include "database/connection_string.h"
#include "database/conninfo.h"
#include "database/dialect/limits.h"

namespace cuvexa::postgresql {
namespace {

using std::chrono::steady_clock;

constexpr int oldest_version = 120000;
// The server ends a statement itself; who hears nothing so long after that hears nothing any more.
constexpr int answer_grace_s = 10;

using Settings = std::map<std::string, std::string>;

Settings settings_of(PQconninfoOption* options) {
    Settings settings;
    for (const PQconninfoOption* option = options; option != nullptr && option->keyword != nullptr; ++option) {
        if (option->val != nullptr) settings.emplace(option->keyword, option->val);
    }
    PQconninfoFree(options);
    return settings;
}

Settings parsed(const std::string& conninfo) {
    char* ignored = nullptr;
    PQconninfoOption* const options = PQconninfoParse(conninfo.c_str(), &ignored);
    PQfreemem(ignored);
    if (options == nullptr) {
        throw Database_error("El texto de conexión no es válido: " + database::conninfo_without_password(conninfo));
    }
    return settings_of(options);
}

bool is_set(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// What the text says, and what a session needs where neither it nor a service says otherwise.
Settings complete(Settings settings, const Postgresql_options& options) {
    if (!options.password.empty()) settings.emplace("password", options.password);
    settings["client_encoding"] = "UTF8";
    settings.emplace("fallback_application_name", "cuvexa");
    if (settings.contains("service") || is_set("PGSERVICE")) return settings;
    if (!is_set("PGCONNECT_TIMEOUT")) settings.emplace("connect_timeout", std::to_string(options.login_timeout_s));
    // A line that a firewall has closed without a word is found out within a minute.
    settings.emplace("keepalives_idle", "30");
    settings.emplace("keepalives_interval", "10");
    settings.emplace("keepalives_count", "3");
    settings.emplace("tcp_user_timeout", "60000");
    return settings;
}

std::string one_line(std::string_view text) {
    std::string line;
    for (const char c : trimmed(text, " \r\n\t")) {
        if (c != '\n' && c != '\r') {
            line += c == '\t' ? ' ' : c;
        } else {
            line += ' ';
        }
    }
    return line;
}

std::string_view field(const PGresult* result, int code) noexcept {
    const char* const text = PQresultErrorField(result, code);
    return text == nullptr ? std::string_view{} : std::string_view(text);
}

/// "ERROR: message (detail) [SQLSTATE]"
std::string description(const PGresult* result) {
    std::string text(field(result, PG_DIAG_SEVERITY));
    text.append(": ").append(field(result, PG_DIAG_MESSAGE_PRIMARY));
    if (const auto detail = field(result, PG_DIAG_MESSAGE_DETAIL); !detail.empty()) {
        text.append(" (").append(detail).append(")");
    }
    return text.append(" [").append(state_of(result)).append("]");
}

/// Whether a server has answered that it lets nobody in.
bool says_refused(const PGconn* connection) {
    return PQstatus(connection) == CONNECTION_BAD &&
           std::string_view(PQerrorMessage(connection)).find("FATAL:  ") != std::string_view::npos;
}

/// Why nobody was let in, of a text that names the SQLSTATE before each refusal and the place in the server's source behind
/// it: without the places, and the last SQLSTATE at the end.
std::string refusal_of_session(const std::string& verbose) {
    static const std::regex place("\\n[^\\n]*[.]c:[0-9]+"), state(":  ([0-9A-Z]{5}): ");
    const std::sregex_iterator none;
    std::string last = "08001";
    for (std::sregex_iterator found(verbose.begin(), verbose.end(), state); found != none; ++found) last = (*found)[1];
    return one_line(std::regex_replace(std::regex_replace(verbose, place, ""), state, ":  ")) + " [" + last + "]";
}

int sends(PGconn* connection, const std::string& text) {
    return PQsendQueryParams(connection, text.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0);
}

}  // namespace

bool failed(const PGresult* result) noexcept {
    const ExecStatusType status = PQresultStatus(result);
    return status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK;
}

std::string_view state_of(const PGresult* result) noexcept {
    return field(result, PG_DIAG_SQLSTATE);
}

Session::Session(const std::string& conninfo, const Postgresql_options& options)
    : server_(&database::server_called(name_)) {
    connect(conninfo, options);
    refuse_what_does_not_serve();
    begin(options);
}

void Session::connect(const std::string& conninfo, const Postgresql_options& options) {
    const Settings settings = complete(parsed(conninfo), options);
    std::vector<const char*> keywords, values;
    for (const auto& [keyword, value] : settings) {
        keywords.push_back(keyword.c_str());
        values.push_back(value.c_str());
    }
    keywords.push_back(nullptr);
    values.push_back(nullptr);
    connection_.reset(PQconnectdbParams(keywords.data(), values.data(), 0));
    if (connection_ == nullptr) throw std::bad_alloc();
    if (says_refused(connection_.get())) {
        // The SQLSTATE is told only to who asked for it before.
        PQsetErrorVerbosity(connection_.get(), PQERRORS_VERBOSE);
        PQreset(connection_.get());
        PQsetErrorVerbosity(connection_.get(), PQERRORS_DEFAULT);
    }
    if (const char* const password = PQpass(connection_.get()); password != nullptr && *password != '\0') {
        secrets_.emplace_back(password);
    }
    if (PQstatus(connection_.get()) == CONNECTION_OK) return;
    throw Database_error("No es posible abrir la sesión con el servidor de base de datos (" +
                         database::without_secrets(refusal_of_session(PQerrorMessage(connection_.get())), secrets_) +
                         ")");
}

void Session::refuse_what_does_not_serve() const {
    const int version = PQserverVersion(connection_.get());
    if (version < oldest_version) {
        throw Database_error("El servidor es PostgreSQL " + std::to_string(version / 10000) +
                             "; se necesita PostgreSQL 12 o posterior [0A000]");
    }
    const char* const encoding = PQparameterStatus(connection_.get(), "server_encoding");
    if (encoding != nullptr && std::string_view(encoding) != "UTF8") {
        throw Database_error("La base de datos guarda sus textos en " + std::string(encoding) +
                             "; créela con la codificación UTF8 [22021]");
    }
}

// Dates in the one form that is read, and what every session of this server begins with, in one go.
void Session::begin(const Postgresql_options& options) {
    PQsetNoticeReceiver(
        connection_.get(), [](void*, const PGresult*) {}, nullptr);
    if (options.statement_timeout_s > 0) answer_timeout_s_ = options.statement_timeout_s + answer_grace_s;
    std::string all = "SET datestyle = ISO";
    for (const std::string& text :
         server_->session_statements({options.lock_timeout_ms, options.statement_timeout_s})) {
        all.append("; ").append(text);
    }
    send(PQsendQuery(connection_.get(), all.c_str()));
    const Result result = answer();
    if (failed(result.get())) refuse(result.get());
}

Result Session::run(std::string_view text) {
    refuse_when_lost();
    const std::string sent(text);
    Result result = answer_to([&] { return sends(connection_.get(), sent); });
    if (failed(result.get())) refuse(result.get());
    return result;
}

// A text that the server refuses would end the transaction, in which it may well stand with its literals in place.
bool Session::prepare(const std::string& name, const std::string& text, const std::vector<Oid>& types) {
    refuse_when_lost();
    if (!in_transaction()) {
        forget_names();
        return prepares(name, text, types);
    }
    run("SAVEPOINT cuvexa");
    const bool prepared = prepares(name, text, types);
    if (!prepared) run("ROLLBACK TO SAVEPOINT cuvexa");
    run("RELEASE SAVEPOINT cuvexa");
    return prepared;
}

bool Session::prepares(const std::string& name, const std::string& text, const std::vector<Oid>& types) {
    send(PQsendPrepare(connection_.get(), name.c_str(), text.c_str(), static_cast<int>(types.size()), types.data()));
    const Result result = answer();
    return !failed(result.get());
}

// One that the server does not know any more ends the row; nothing depends on it.
void Session::forget_names() {
    if (forgotten_.empty()) return;
    std::string all;
    for (const std::string& name : forgotten_) all.append("DEALLOCATE ").append(name).append(";");
    forgotten_.clear();
    send(PQsendQuery(connection_.get(), all.c_str()));
    answer();
}

Result Session::run_prepared(const std::string& name, const Values& values) {
    refuse_when_lost();
    return answer_to([&] {
        return PQsendQueryPrepared(connection_.get(), name.c_str(), static_cast<int>(values.size()), values.data(),
                                   nullptr, nullptr, 0);
    });
}

/// The result of a statement, which goes behind the begin of its transaction where that has not been sent.
template <class Send>
Result Session::answer_to(const Send& send_statement) {
    if (begin_.empty()) {
        send(send_statement());
        return answer();
    }
    const std::vector<std::string> begin = std::exchange(begin_, {});
    send(PQenterPipelineMode(connection_.get()));
    for (const std::string& text : begin) send(sends(connection_.get(), text));
    send(send_statement());
    send(PQpipelineSync(connection_.get()));
    Result result = answer_behind_begin();
    send(PQexitPipelineMode(connection_.get()));
    return result;
}

void Session::send(int accepted) {
    if (accepted != 1) lose(one_line(PQerrorMessage(connection_.get())) + " [08006]");
}

/// What comes next; null where a statement ends.
Result Session::next_result() {
    while (PQisBusy(connection_.get()) == 1) wait_for_input();
    return Result(PQgetResult(connection_.get()));
}

/// The result of what was sent: the last one, or the first that failed.
Result Session::answer() {
    Result last;
    for (;;) {
        Result next = next_result();
        if (next == nullptr) break;
        if (last == nullptr || !failed(last.get())) last = std::move(next);
    }
    return checked(std::move(last));
}

/// The same of several statements, up to the end of the pipeline.
Result Session::answer_behind_begin() {
    Result last;
    for (bool ended = false;;) {
        Result next = next_result();
        if (next == nullptr && ended) break;
        ended = next == nullptr;
        if (ended) continue;
        if (PQresultStatus(next.get()) == PGRES_PIPELINE_SYNC) break;
        if (last == nullptr || !failed(last.get())) last = std::move(next);
    }
    return checked(std::move(last));
}

/// A result that tells of no lost connection.
Result Session::checked(Result last) {
    const bool dead = last == nullptr || PQstatus(connection_.get()) == CONNECTION_BAD;
    if (last != nullptr && failed(last.get()) && server_->says_lost(state_of(last.get()))) {
        lose(description(last.get()));
    }
    if (dead) lose(one_line(PQerrorMessage(connection_.get())) + " [08006]");
    return last;
}

void Session::wait_for_input() {
    const auto end = steady_clock::now() + std::chrono::seconds(answer_timeout_s_);
    for (;;) {
        pollfd socket{.fd = PQsocket(connection_.get()), .events = POLLIN, .revents = 0};
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now());
        if (answer_timeout_s_ > 0 && left.count() <= 0) {
            lose("No respondió en " + std::to_string(answer_timeout_s_) + " segundos [08006]");
        }
        const int ready = poll(&socket, 1, answer_timeout_s_ > 0 ? static_cast<int>(left.count()) : -1);
        if (ready > 0 || (ready < 0 && errno != EINTR)) break;
    }
    PQconsumeInput(connection_.get());
}

void Session::lose(const std::string& why) {
    lost_ = true;
    connection_.reset();
    throw Lost_connection_error("Se perdió la conexión con el servidor de base de datos (" +
                                database::without_secrets(why, secrets_) + ")");
}

void Session::refuse_when_lost() const {
    if (lost_) throw Lost_connection_error("La conexión con el servidor de base de datos se perdió");
}

void Session::refuse(const PGresult* result) {
    const std::string text = database::without_secrets(description(result), secrets_);
    if (const auto refusal = dialect::limit_refusal(text)) throw Database_error(*refusal);
    if (server_->says_no_number(state_of(result))) throw Database_error(std::string(dialect::no_number_text));
    if (server_->says_repeated_key(state_of(result))) throw database::Repeated_key_error(text);
    if (!server_->says_conflict(state_of(result))) throw Database_error(text);
    ++conflicts_;
    throw Conflict_error(std::string(database::conflict_text) + " (" + text + ")");
}

}  // namespace cuvexa::postgresql
