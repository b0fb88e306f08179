#include "support/test_server.h"

#include <stdexcept>

#include "database/connection_string.h"
#include "database/conninfo.h"
#ifdef CUVEXA_WITH_ODBC
#include "cuvexa/database/odbc_connection.h"
#endif
#ifdef CUVEXA_WITH_POSTGRESQL
#include "cuvexa/database/postgresql_connection.h"
#endif

namespace cuvexa::tests {
namespace {

template <class Connection, class Options>
[[maybe_unused]] std::unique_ptr<Server_connection> opened(const std::string& text, const Session_options& asked) {
    Options options;
    options.lock_timeout_ms = asked.lock_timeout_ms;
    options.statement_timeout_s = asked.statement_timeout_s;
    options.password = asked.password;
    return std::make_unique<Connection>(text, options);
}

}  // namespace

std::unique_ptr<Server_connection> open_server(const std::string& text,
                                               [[maybe_unused]] const Session_options& options) {
#ifdef CUVEXA_WITH_POSTGRESQL
    if (database::is_conninfo(text)) return opened<Postgresql_connection, Postgresql_options>(text, options);
#endif
#ifdef CUVEXA_WITH_ODBC
    if (!database::is_conninfo(text)) return opened<Odbc_connection, Odbc_options>(text, options);
#endif
    throw std::runtime_error("this build reaches no such server: " + text);
}

Apart without_its_password(const std::string& text) {
    Apart apart;
    if (database::is_conninfo(text)) {
        const auto colon = text.find(':', text.find("://") + 3), at = text.find('@');
        return {text.substr(0, colon) + text.substr(at), text.substr(colon + 1, at - colon - 1)};
    }
    for (const auto& [key, value] : database::connection_attributes(text)) {
        if (database::is_password_key(key)) {
            apart.password = database::plain_value(value);
        } else {
            apart.text.append(key).append("=").append(value).append(";");
        }
    }
    return apart;
}

}  // namespace cuvexa::tests
