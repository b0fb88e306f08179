// A company in a server's database, reached through ODBC.
#include "company/engine.h"
#include "company/version.h"
#ifdef CUVEXA_WITH_ODBC
#include "cuvexa/database/odbc_connection.h"
#endif

namespace cuvexa::company {

#ifdef CUVEXA_WITH_ODBC
namespace {

class Odbc_engine final : public Engine {
public:
    explicit Odbc_engine(const Company_options& options) : options_(options) {}

    bool stands() const override { return version_of(*session()).has_value(); }

    Opened open(Access) const override { return opened(session()); }

    void create(const Fill& fill) const override {
        auto server = session();
        if (version_of(*server)) throw Company_error("Ya existe y no se toca: " + options_.shown());
        server->prepare_database();
        fill(opened(std::move(server)));
    }

private:
    std::unique_ptr<Odbc_connection> session() const {
        Odbc_options engine;
        engine.lock_timeout_ms = static_cast<int>(options_.wait_s * 1000);
        engine.password = password_of(options_);
        return std::make_unique<Odbc_connection>(options_.database, engine);
    }

    static Opened opened(std::unique_ptr<Odbc_connection> server) {
        const Date_style style = server->date_style();
        return {.connection = std::move(server), .date_style = style};
    }

    Company_options options_;
};

}  // namespace

std::unique_ptr<Engine> odbc_engine(const Company_options& options) {
    return std::make_unique<Odbc_engine>(options);
}
#else
std::unique_ptr<Engine> odbc_engine(const Company_options& options) {
    throw Company_error("Este programa se construyó sin servidores de base de datos (ODBC): " + options.shown());
}
#endif

}  // namespace cuvexa::company
