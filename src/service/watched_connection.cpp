#include "service/watched_connection.h"

#include "cuvexa/lost_connection.h"

namespace cuvexa::service {

// In the words of the embedded engine, and of PostgreSQL by either way: "[53100]", "[53100, 7]".
bool Watched_connection::is_disk_full(std::string_view description) {
    return description.starts_with("No hay espacio en el disco") ||
           description.find("[53100") != std::string_view::npos;
}

void Watched_connection::watch(Clock::time_point until) {
    until_ = until;
    statements_ = 0;
    late_ = lost_ = full_ = false;
    conflicts_before_ = conflicts();
}

std::unique_ptr<Recordset> Watched_connection::execute(std::string_view text) {
    if (Clock::now() >= until_) {
        late_ = true;
        throw Database_error("Se agotó el tiempo de la solicitud");
    }
    ++statements_;
    try {
        return connection_.execute(text);
    } catch (const Lost_connection_error&) {
        lost_ = true;
        throw;
    } catch (const Database_error& error) {
        full_ = full_ || is_disk_full(error.what());
        throw;
    }
}

bool Watched_connection::is_alive() {
    try {
        connection_.execute("SELECT Eq_Version FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'");
        return true;
    } catch (const Database_error&) {
        return false;
    }
}

}  // namespace cuvexa::service
