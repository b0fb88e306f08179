#include "cuvexa/database/postgresql_connection.h"

#include "database/postgresql/engine.h"
#include "database/renewable.h"

namespace cuvexa {

using postgresql::Engine;

struct Postgresql_connection::Parts : database::Renewable<Engine> {
    using Renewable::Renewable;
};

postgresql::Engine& postgresql::Engine::of(const Postgresql_connection& connection) {
    return connection.parts_->session();
}

Postgresql_connection::Postgresql_connection(const std::string& conninfo, const Postgresql_options& options)
    : parts_(std::make_unique<Parts>([conninfo, options] { return std::make_unique<Engine>(conninfo, options); })) {}

Postgresql_connection::~Postgresql_connection() = default;

std::unique_ptr<Recordset> Postgresql_connection::execute(std::string_view text) {
    return parts_->execute(text);
}

std::uint64_t Postgresql_connection::conflicts() const noexcept {
    return parts_->conflicts();
}

void Postgresql_connection::prepare_database() {
    parts_->session().prepare_database();
}

Date_style Postgresql_connection::date_style() const noexcept {
    return parts_->session().session().server().date_style;
}

const std::string& Postgresql_connection::server_name() const noexcept {
    return parts_->session().session().name();
}

std::optional<Replica> Postgresql_connection::replica() {
    return parts_->session().replica();
}

std::string Postgresql_connection::translate(std::string_view text) const {
    return parts_->session().translate(text);
}

}  // namespace cuvexa
