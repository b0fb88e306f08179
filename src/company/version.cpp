#include "company/version.h"

#include "core/rows.h"
#include "cuvexa/company.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::company {

std::optional<int> version_of(Connection& connection) {
    try {
        const Rows rows(connection.execute("SELECT Eq_Version FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'"));
        if (rows.eof()) return std::nullopt;
        return static_cast<int>(rows.number("Eq_Version"));
    } catch (const Database_error&) {
        return std::nullopt;
    }
}

void require_this_version(Connection& connection, const std::string& name) {
    const std::optional<int> found = version_of(connection);
    if (!found) throw Company_error("No es una base de datos de Cuvexa: " + name);
    if (*found == schema_version) return;
    throw Company_error("La versión del esquema de la base de datos es " + std::to_string(*found) +
                        " y la de este programa es " + std::to_string(schema_version) + ": " + name);
}

}  // namespace cuvexa::company
