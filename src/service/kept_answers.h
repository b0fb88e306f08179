// What a service remembers of requests with a key, in the company's own database and in the same unit of work.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cuvexa/data_access.h"
#include "cuvexa/services.h"

namespace cuvexa::service {

/// Whose key it is, and for which request.
struct Request_key {
    std::string user;         ///< each has keys of its own
    std::string key;          ///< SHA-256 of what the client calls it
    std::string fingerprint;  ///< SHA-256 of the body
};

struct Kept_answer {
    std::string fingerprint;
    int status = 0;
    std::string body;
};

/// The answer that was kept under a key. Throws `Database_error`.
std::optional<Kept_answer> find_answer(Connection& connection, const Request_key& key);

/// Keeps one. Throws `Database_error`, also when another session has kept one meanwhile.
void keep_answer(Connection& connection, const Request_key& key, int status, std::string_view body);

/// Forgets what is older than that many days, by the database's clock; `dates` writes them for it.
void forget_answers(Connection& connection, DataServices& dates, int days);

}  // namespace cuvexa::service
