// A company in a server's database: PostgreSQL by its own protocol, or whatever ODBC reaches.
#include "company/engine.h"
#include "company/version.h"
#include "cuvexa/database/server_connection.h"
#ifdef CUVEXA_WITH_ODBC
#include "cuvexa/database/odbc_connection.h"
#endif
#ifdef CUVEXA_WITH_POSTGRESQL
#include "cuvexa/database/postgresql_connection.h"
#endif

namespace cuvexa::company {

namespace {

// Nearly every unit of work takes a folio.
[[maybe_unused]] constexpr const char* queue_table = "Folio_Serie";

using Session = std::unique_ptr<Server_connection>;

/// Opens a session of a kind of server.
using Open_session = Session (*)(const Company_options& options);

template <class Connection, class Options>
[[maybe_unused]] Session session_of(const Company_options& options) {
    Options engine;
    engine.lock_timeout_ms = static_cast<int>(options.wait_s * 1000);
    engine.password = password_of(options);
    if constexpr (requires { engine.queue_table; }) engine.queue_table = queue_table;
    return std::make_unique<Connection>(options.database, engine);
}

[[maybe_unused]] Session built_without(const Company_options& options) {
    throw Company_error("Este programa se construyó sin estos servidores de base de datos: " + options.shown());
}

#ifdef CUVEXA_WITH_ODBC
constexpr Open_session odbc_session = session_of<Odbc_connection, Odbc_options>;
#else
constexpr Open_session odbc_session = built_without;
#endif
#ifdef CUVEXA_WITH_POSTGRESQL
constexpr Open_session postgresql_session = session_of<Postgresql_connection, Postgresql_options>;
#else
constexpr Open_session postgresql_session = built_without;
#endif

class Server_engine final : public Engine {
public:
    Server_engine(const Company_options& options, Open_session open_session)
        : options_(options), open_session_(open_session) {}

    bool stands() const override { return version_of(*open_session_(options_)).has_value(); }

    Opened open(Access) const override { return opened(open_session_(options_)); }

    void create(const Fill& fill) const override {
        Session server = open_session_(options_);
        if (version_of(*server)) throw Company_error("Ya existe y no se toca: " + options_.shown());
        server->prepare_database();
        fill(opened(std::move(server)));
    }

private:
    static Opened opened(Session server) {
        const Date_style style = server->date_style();
        return {.connection = std::move(server), .date_style = style};
    }

    Company_options options_;
    Open_session open_session_;
};

}  // namespace

std::unique_ptr<Engine> odbc_engine(const Company_options& options) {
    return std::make_unique<Server_engine>(options, odbc_session);
}

std::unique_ptr<Engine> postgresql_engine(const Company_options& options) {
    return std::make_unique<Server_engine>(options, postgresql_session);
}

}  // namespace cuvexa::company
