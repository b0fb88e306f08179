// Sessions with the server that CUVEXA_TEST_DB names, by whichever way the text goes: PostgreSQL's own protocol or ODBC.
#pragma once

#include <memory>
#include <string>

#include "cuvexa/database/server_connection.h"

namespace cuvexa::tests {

struct Session_options {
    int lock_timeout_ms = 10000;
    int statement_timeout_s = 60;
    std::string password = {};
};

/// Throws what the connection throws; and `std::runtime_error` where the build lacks what the text needs.
std::unique_ptr<Server_connection> open_server(const std::string& text, const Session_options& options = {});

/// The server's text without its password, and the password.
struct Apart {
    std::string text, password;
};
Apart without_its_password(const std::string& text);

}  // namespace cuvexa::tests
