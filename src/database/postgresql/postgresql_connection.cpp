#include "cuvexa/database/postgresql_connection.h"

#include "database/postgresql/engine.h"

namespace cuvexa {

using postgresql::Engine;

Postgresql_connection::Postgresql_connection(const std::string& conninfo, const Postgresql_options& options)
    : engine_(std::make_unique<Engine>(conninfo, options)) {}

Postgresql_connection::~Postgresql_connection() = default;

std::unique_ptr<Recordset> Postgresql_connection::execute(std::string_view text) {
    return engine_->execute(text);
}

std::uint64_t Postgresql_connection::conflicts() const noexcept {
    return engine_->session().conflicts();
}

void Postgresql_connection::prepare_database() {
    engine_->prepare_database();
}

Date_style Postgresql_connection::date_style() const noexcept {
    return engine_->session().server().date_style;
}

const std::string& Postgresql_connection::server_name() const noexcept {
    return engine_->session().name();
}

std::string Postgresql_connection::translate(std::string_view text) const {
    return engine_->translate(text);
}

}  // namespace cuvexa
