// The component for programs on other machines: what is asked by HTTP, by whom, and what is answered.
#pragma once

#include <httplib.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cuvexa/company.h"
#include "service/attempts.h"
#include "service/batch.h"
#include "service/companies.h"
#include "service/http_server.h"
#include "service/metrics.h"
#include "service/reply.h"
#include "service/tokens.h"
#include "service/unit_request.h"

namespace cuvexa::service {

struct Service_options {
    std::string host = "127.0.0.1";
    int port = 8470;                                   ///< 0: one that is free
    std::map<std::string, Company_options> companies;  ///< by name; one called "" stands alone, its paths without it
    std::string tokens;                                ///< the file
    std::string certificate;                           ///< PEM; empty: without TLS, on loopback addresses alone
    std::string key;
    std::size_t connections = 8;  ///< sessions of each database, at most
    std::size_t requests = 128;   ///< at work or waiting for a session, at most; further ones get 503
    std::size_t body_bytes = std::size_t{8} * 1024 * 1024;
    std::chrono::milliseconds time{30000};  ///< of one request
    int key_days = 30;                      ///< how long the answer to a request with a key is kept
    std::size_t failed_attempts = 20;       ///< of one address in a minute
    Batch_limits batch;
    Http_limits http;
    std::optional<Date> server_date;
};

class Service {
public:
    /// Throws `std::runtime_error` when an option does not fit or the address is taken. `log` gets a line per request.
    Service(Service_options options, std::ostream& log);
    ~Service();

    /// The port that it listens on.
    int port() const { return port_; }

    /// Serves until `stop`, which may be called from another thread.
    void serve();
    void stop();

    /// Answers one request, whoever has read its head: what `serve` does with each. `read` gives its body; null where there
    /// is none.
    void answer(const httplib::Request& http, httplib::Response& response, const httplib::ContentReader* read);

private:
    struct Request;

    Reply guarded_reply(Request& request);
    Reply reply_to(Request& request);
    Reply reply_to_bearer(Request& request);
    Reply reply_of_company(Request& request);
    std::optional<Token> bearer(const httplib::Request& http);
    Reply unauthorized(const Request& request);
    Reply sign_in(const Request& request) const;
    Reply rpc(Request& request);
    Reply request_done(Request& request);
    Reply read(Request& request);
    void forget_old_answers(Company_sessions& company);
    bool read_body(Request& request, std::string& body, Reply& reply) const;
    Reply ready();
    std::string metrics_text() const;
    void finish(Request& request, const Reply& reply, httplib::Response& response);

    Service_options options_;
    std::ostream& log_;
    std::mutex log_mutex_;
    Tokens tokens_;
    Attempts attempts_;
    Companies companies_;
    Metrics metrics_;
    std::atomic<std::size_t> at_work_ = 0;
    std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> tls_;
    std::unique_ptr<Http_server> http_;
    int port_ = 0;
};

}  // namespace cuvexa::service
