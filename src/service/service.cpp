#include "service/service.h"

#include <arpa/inet.h>
#include <openssl/err.h>

#include <charconv>
#include <exception>
#include <optional>
#include <stdexcept>
#include <utility>

#include "automation/openrpc.h"
#include "service/console.h"
#include "service/form.h"
#include "service/kept_answers.h"
#include "service/resources.h"
#include "service/secrets.h"

namespace cuvexa::service {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::seconds span_of_attempts = 60s;
constexpr std::string_view cookie_name = "cuvexa_token";

bool is_loopback(const std::string& host) {
    return host == "localhost" || host == "::1" || (host.starts_with("127.") && inet_addr(host.c_str()) != INADDR_NONE);
}

std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> tls_of(const Service_options& options) {
    std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> context(nullptr, SSL_CTX_free);
    if (options.certificate.empty() && options.key.empty()) {
        if (!is_loopback(options.host)) {
            throw std::runtime_error("Sin TLS solo se escucha en direcciones de esta máquina, no en " + options.host);
        }
        return context;
    }
    context.reset(SSL_CTX_new(TLS_server_method()));
    SSL_CTX* const tls = context.get();
    const bool fits = tls != nullptr && SSL_CTX_set_min_proto_version(tls, TLS1_2_VERSION) == 1 &&
                      SSL_CTX_use_certificate_chain_file(tls, options.certificate.c_str()) == 1 &&
                      SSL_CTX_use_PrivateKey_file(tls, options.key.c_str(), SSL_FILETYPE_PEM) == 1 &&
                      SSL_CTX_check_private_key(tls) == 1;
    if (!fits) throw std::runtime_error("El certificado o su llave no sirven: " + options.certificate);
    SSL_CTX_set_mode(tls, SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    SSL_CTX_set_options(tls, SSL_OP_NO_RENEGOTIATION | SSL_OP_NO_COMPRESSION | SSL_OP_IGNORE_UNEXPECTED_EOF);
    return context;
}

Companies companies_of(const Service_options& options) {
    Companies companies;
    for (const auto& [name, company] : options.companies) {
        companies.emplace(name, std::make_unique<Company_sessions>(company, options.connections, options.server_date));
    }
    return companies;
}

/// Counts itself among those at work while it lives.
class At_work {
public:
    At_work(std::atomic<std::size_t>& count, std::size_t most) : count_(count), fits_(++count <= most) {}
    ~At_work() { --count_; }
    At_work(const At_work&) = delete;
    At_work& operator=(const At_work&) = delete;

    bool fits() const { return fits_; }

private:
    std::atomic<std::size_t>& count_;
    bool fits_;
};

Reply overloaded() {
    Reply reply = error_reply(503, "too many requests at once; nothing was done");
    reply.headers.emplace("Retry-After", "1");
    return reply;
}

bool is_key(std::string_view text) {
    return !text.empty() && text.size() <= 200;
}

const char* name_of(Fate fate) {
    switch (fate) {
        case Fate::kept:
            return "kept";
        case Fate::undone:
            return "undone";
        case Fate::by_itself:
            return "statement-by-statement";
        case Fate::unknown:
            return "unknown";
        case Fate::not_tried:
            break;
    }
    return "not-tried";
}

/// "0.412"; what is not known is told so.
std::string seconds_of(const std::optional<double>& number) {
    if (!number) return "unknown";
    char digits[400];
    return {digits, std::to_chars(digits, digits + sizeof digits, *number, std::chars_format::fixed, 3).ptr};
}

}  // namespace

/// A request on its way to its answer.
struct Service::Request {
    const httplib::Request& http;
    const httplib::ContentReader* read;  ///< null where there is no body
    Clock::time_point begun = Clock::now();
    std::vector<std::string> steps = {};  ///< of the path; that of the company is taken away when it is known
    std::optional<Token> token = {};
    Company_sessions* company = nullptr;
    Told_request told = {};

    bool is(std::string_view method, std::string_view resource) const {
        return steps.size() == 1 && steps[0] == resource &&
               (http.method == method || (method == "GET" && http.method == "HEAD"));
    }
};

Service::Service(Service_options options, std::ostream& log)
    : options_(std::move(options)),
      log_(log),
      tokens_(options_.tokens),
      attempts_(options_.failed_attempts, span_of_attempts),
      companies_(companies_of(options_)),
      tls_(tls_of(options_)),
      http_(std::make_unique<Http_server>(options_.http, tls_.get())) {
    using httplib::Server;
    http_->set_pre_routing_handler([this](const auto& request, auto& response) {
        // The body of a POST is read by the handler below, and only for who may send one.
        if (request.method == "POST" && refusal_of_form(request, options_.body_bytes).status == 0) {
            return Server::HandlerResponse::Unhandled;
        }
        answer(request, response, nullptr);
        return Server::HandlerResponse::Handled;
    });
    http_->Post(R"([\s\S]*)",
                [this](const auto& request, auto& response, const auto& read) { answer(request, response, &read); });
    http_->set_error_handler([](const auto&, auto& response) {
        if (response.body.empty()) {
            response.set_content(error_reply(response.status, "not a request").body, "application/json");
        }
    });
    port_ = http_->bind(options_.host, options_.port);
}

Service::~Service() = default;

void Service::serve() {
    http_->serve();
}

void Service::stop() {
    http_->end();
}

// ---- From a request to its answer -----------------------------------------------------------------------------------

void Service::answer(const httplib::Request& http, httplib::Response& response, const httplib::ContentReader* read) {
    Request request{http, read};
    request.told.resource = "none";
    finish(request, guarded_reply(request), response);
}

Reply Service::guarded_reply(Request& request) {
    try {
        if (Reply refused = refusal_of_form(request.http, options_.body_bytes); refused.status != 0) return refused;
        request.steps = steps_of(request.http.path);
        return reply_to(request);
    } catch (const Overloaded&) {
        return overloaded();
    } catch (const Company_error& error) {
        request.told.failure = error.what();
        return error_reply(503, "the database does not open; nothing was done");
    } catch (const std::exception& error) {
        request.told.failure = error.what();
        return error_reply(500, "a failure of the service");
    }
}

void Service::finish(Request& request, const Reply& reply, httplib::Response& response) {
    response.status = reply.status;
    if (!reply.body.empty()) response.set_content(reply.body, reply.type);
    response.set_header("X-Content-Type-Options", "nosniff");
    if (!reply.headers.contains("Cache-Control")) response.set_header("Cache-Control", "no-store");
    for (const auto& [name, value] : reply.headers) response.set_header(name, value);

    Told_request& told = request.told;
    told.status = reply.status;
    told.milliseconds = std::chrono::duration<double, std::milli>(Clock::now() - request.begun).count();
    if (request.token) told.token = request.token->name;
    metrics_.count(told);
    const std::string line = log_line(told) + '\n';
    const std::lock_guard lock(log_mutex_);
    log_ << line << std::flush;
}

/// What anybody may see, or what its bearer's token allows.
Reply Service::reply_to(Request& request) {
    if (auto console = console_reply(request.http, !companies_.contains(""))) {
        request.told.resource = "console";
        return *std::move(console);
    }
    if (request.is("GET", "healthz")) {
        request.told.resource = "healthz";
        return {200, R"({"status":"alive"})"};
    }
    if (request.is("GET", "readyz")) {
        request.told.resource = "readyz";
        return ready();
    }
    if (request.is("GET", "openrpc.json")) {
        request.told.resource = "openrpc";
        return {200, automation::openrpc_document(), "application/json", {{"Cache-Control", "no-cache"}}};
    }
    request.token = bearer(request.http);
    return request.token ? reply_to_bearer(request) : unauthorized(request);
}

Reply Service::reply_to_bearer(Request& request) {
    if (request.is("GET", "metrics")) {
        request.told.resource = "metrics";
        return {200, metrics_text(), "text/plain; version=0.0.4"};
    }
    if (request.is("POST", "session") || request.is("DELETE", "session")) {
        request.told.resource = "session";
        return sign_in(request);
    }
    std::string name;
    if (!companies_.contains("") && !request.steps.empty()) {
        name = request.steps.front();
        request.steps.erase(request.steps.begin());
    }
    const auto company = companies_.find(name);
    const bool allowed = request.token->company.empty() || request.token->company == name;
    if (company == companies_.end() || !allowed) return error_reply(403, "not authorized");
    request.company = company->second.get();
    request.told.company = name;
    return reply_of_company(request);
}

Reply Service::reply_of_company(Request& request) {
    const At_work at_work(at_work_, options_.requests);
    if (!at_work.fits()) return overloaded();
    if (request.is("POST", "rpc")) {
        request.told.resource = "rpc";
        return request.token->read_only ? error_reply(403, "not authorized") : rpc(request);
    }
    if (request.http.method == "GET" && request.steps.size() > 1 && request.steps[0] == "requests-done") {
        request.told.resource = "requests-done";
        return request_done(request);
    }
    const bool reads = request.http.method == "GET" || request.http.method == "HEAD";
    if (reads && is_resource(request.steps)) {
        request.told.resource = request.steps[0];
        return read(request);
    }
    return error_reply(404, "no such resource");
}

// ---- Who may --------------------------------------------------------------------------------------------------------

/// Whose token the request carries: in its header, or in the cookie of who signed in by a browser.
std::optional<Token> Service::bearer(const httplib::Request& http) {
    constexpr std::string_view scheme = "Bearer ";
    const std::string header = http.get_header_value("Authorization");
    if (!header.empty()) {
        if (http.get_header_value_count("Authorization") > 1 || !header.starts_with(scheme)) return std::nullopt;
        return tokens_.owner(std::string_view(header).substr(scheme.size()));
    }
    // No page of another site can send a body of this type with the cookie: the browser would ask first.
    const bool reads = http.method == "GET" || http.method == "HEAD";
    if (!reads && !lists(http.get_header_value("Content-Type"), "application/json")) return std::nullopt;
    return tokens_.owner(cookie(http, cookie_name));
}

// A good token passes whatever its address has done: those of one office, or behind one proxy, share an address.
Reply Service::unauthorized(const Request& request) {
    const std::string& address = request.http.remote_addr;
    Reply reply = error_reply(401, "not authorized");
    if (attempts_.fail(address)) {
        reply = error_reply(429, "too many failed attempts");
        reply.headers.emplace("Retry-After", std::to_string(attempts_.span().count()));
    } else {
        reply.headers.emplace("WWW-Authenticate", "Bearer");
    }
    return reply;
}

Reply Service::sign_in(const Request& request) const {
    const bool leaves = request.http.method == "DELETE";
    const std::string header = request.http.get_header_value("Authorization");
    if (!leaves && header.empty()) return error_reply(400, "sign in with a token in the header Authorization");
    std::string value(cookie_name);
    value += '=' + (leaves ? std::string() : header.substr(header.find(' ') + 1));
    value += "; Path=/; HttpOnly; SameSite=Strict";
    if (tls_) value += "; Secure";
    if (leaves) value += "; Max-Age=0";
    return {204, "", "", {{"Set-Cookie", value}}};
}

// ---- The resources --------------------------------------------------------------------------------------------------

bool Service::read_body(Request& request, std::string& body, Reply& reply) const {
    bool too_long = false;
    const bool whole = (*request.read)([&](const char* bytes, std::size_t count) {
        too_long = body.size() + count > options_.body_bytes;
        if (!too_long) body.append(bytes, count);
        return !too_long;
    });
    if (whole) {
        Http_server::body_was_read();
    } else if (too_long) {
        reply = error_reply(413, "a body of more than " + std::to_string(options_.body_bytes) + " bytes");
    } else {
        reply = error_reply(408, "the body did not come whole, or not in time");
    }
    return whole;
}

Reply Service::rpc(Request& request) {
    std::string body;
    Reply reply;
    if (!read_body(request, body, reply)) return reply;

    const bool by_itself = lists(request.http.get_header_value("Prefer"), "statement-by-statement");
    Unit_request unit{body, request.token->name, !by_itself, {}, Clock::now() + options_.time};
    if (request.http.has_header("Idempotency-Key")) {
        const std::string key = request.http.get_header_value("Idempotency-Key");
        if (by_itself) return error_reply(400, "a key settles what is kept as a whole, not statement by statement");
        if (!is_key(key)) return error_reply(400, "a key has 1 to 200 characters");
        unit.key = Request_key{unit.user, sha256(key), sha256(body)};
    }
    Unit_reply done = run_unit(*request.company, unit, options_.batch);
    if (unit.key && done.fate == Fate::kept) forget_old_answers(*request.company);

    reply = {done.status, std::move(done.body)};
    if (done.fate != Fate::not_tried) reply.headers.emplace("Cuvexa-Outcome", name_of(done.fate));
    if (done.ended_by) reply.headers.emplace("Cuvexa-Ended-By", std::to_string(*done.ended_by));
    reply.headers.emplace("Cuvexa-Repeats", std::to_string(done.repeats));
    if (done.replayed) reply.headers.emplace("Idempotency-Replayed", "true");
    if (by_itself) reply.headers.emplace("Preference-Applied", "statement-by-statement");
    if (done.status == 503) reply.headers.emplace("Retry-After", "1");

    request.told.fate = done.replayed ? "replayed" : name_of(done.fate);
    request.told.members = std::move(done.members);
    request.told.refusals = std::move(done.refusals);
    request.told.statements = done.statements;
    request.told.repeats = done.repeats;
    return reply;
}

/// What was answered to a request with a key, which may hold slashes: who lost the answer asks here.
Reply Service::request_done(Request& request) {
    constexpr std::string_view resource = "/requests-done/";
    const std::string& path = request.http.path;
    const std::string key = path.substr(path.find(resource) + resource.size());
    auto session = request.company->lend(Access::read, Clock::now() + options_.time);
    try {
        auto kept = find_answer(session->connection().unwatched(), {request.token->name, sha256(key), ""});
        if (!kept) return error_reply(404, "nothing was kept under this key");
        return {kept->status, std::move(kept->body), "application/json", {{"Cuvexa-Outcome", "kept"}}};
    } catch (const Database_error& error) {
        session.give_up();
        throw Company_error(error.what());
    }
}

/// What there is to read, each statement of it as the database stands.
Reply Service::read(Request& request) {
    auto session = request.company->lend(Access::read, Clock::now() + options_.time);
    Watched_connection& connection = session->connection();
    connection.watch(Clock::now() + options_.time);
    try {
        const auto replica = session->replica();
        Reply reply = resource({connection, session->date_style()}, request.steps, request.http);
        if (replica) reply.headers.emplace("Cuvexa-Replica-Lag", seconds_of(replica->behind_s));
        request.told.statements = connection.statements();
        return reply;
    } catch (const Database_error& error) {
        request.told.failure = error.what();
        if (connection.was_late()) return error_reply(504, "not done in time");
        session.give_up();
        throw Company_error(error.what());
    }
}

/// Now and then; a failure is for the next time.
void Service::forget_old_answers(Company_sessions& company) {
    if (!company.is_time_to_tidy(Clock::now())) return;
    try {
        auto session = company.lend(Access::write, Clock::now() + options_.time);
        forget_answers(session->connection().unwatched(), *session->suite()->data(), options_.key_days);
    } catch (const std::exception&) {
    }
}

/// Every company's database answers.
Reply Service::ready() {
    for (const auto& [name, company] : companies_) {
        try {
            auto session = company->lend(Access::read, Clock::now() + 2s);
            if (session->connection().is_alive()) continue;
            session.give_up();
            company->forget_idle();
        } catch (const Company_error&) {
        } catch (const Overloaded&) {
        }
        return error_reply(503, "not ready");
    }
    return {200, R"({"status":"ready"})"};
}

std::string Service::metrics_text() const {
    std::string text = metrics_.text();
    text +=
        "# HELP cuvexa_connections_in_use Sessions of a database that are at work.\n"
        "# TYPE cuvexa_connections_in_use gauge\n";
    for (const auto& [name, company] : companies_) {
        text += "cuvexa_connections_in_use{company=\"" + name + "\"} " + std::to_string(company->in_use()) + '\n';
    }
    text +=
        "# HELP cuvexa_clients Connections of clients that are open.\n# TYPE cuvexa_clients gauge\ncuvexa_clients " +
        std::to_string(http_->connections()) + '\n';
    return text;
}

}  // namespace cuvexa::service
