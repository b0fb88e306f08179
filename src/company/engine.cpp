#include "company/engine.h"

#include <cstdlib>

#include "database/connection_string.h"
#include "database/conninfo.h"

namespace cuvexa::company {

namespace {

/// How a kind is told by a database's name; the first that claims it has it.
struct Kind {
    bool (*claims)(std::string_view database);
    bool server;
    std::string (*shown)(std::string_view database);
    std::unique_ptr<Engine> (*engine)(const Company_options& options);
};

bool any(std::string_view) {
    return true;
}

std::string as_it_is(std::string_view database) {
    return std::string(database);
}

constexpr Kind kinds[] = {
    {database::is_conninfo, true, database::conninfo_without_password, postgresql_engine},
    {database::is_connection_string, true, database::without_password, odbc_engine},
    {any, false, as_it_is, file_engine},
};

const Kind& kind_of(std::string_view database) {
    const Kind* kind = kinds;
    while (!kind->claims(database)) ++kind;
    return *kind;
}

}  // namespace

void Engine::back_up(const std::string&, const Work_progress&) const {
    throw Company_error(
        "La base de datos de un servidor se copia con la herramienta del servidor: pg_dump, en PostgreSQL; "
        "BACKUP DATABASE, en SQL Server");
}

void Engine::restore(const std::string&, const Work_progress&) const {
    throw Company_error(
        "La base de datos de un servidor se recupera con la herramienta del servidor: pg_restore, en PostgreSQL; "
        "RESTORE DATABASE, en SQL Server");
}

std::string password_of(const Company_options& options) {
    const char* const everybody = std::getenv("CUVEXA_PASSWORD");
    return options.password.empty() && everybody ? everybody : options.password;
}

std::unique_ptr<Engine> engine_for(const Company_options& options) {
    return kind_of(options.database).engine(options);
}

}  // namespace cuvexa::company

namespace cuvexa {

bool Company_options::is_server() const {
    return company::kind_of(database).server;
}

std::string Company_options::shown() const {
    return company::kind_of(database).shown(database);
}

}  // namespace cuvexa
