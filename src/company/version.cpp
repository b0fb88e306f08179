#include "company/version.h"

#include <algorithm>
#include <string_view>

#include "core/rows.h"
#include "cuvexa/company.h"
#include "cuvexa/database/script.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::company {

namespace {

/// How an engine says that there is no such table, column or schema.
constexpr std::string_view nothing_there[] = {"no such table", "no such column", "[42P01", "[42703",
                                              "[3F000",        "[42S02",         "[42S22"};

/// How a server says that the user may not read it.
constexpr std::string_view no_right[] = {"[42501", "[42000, 229]"};

template <std::size_t count>
bool says(const Database_error& error, const std::string_view (&beginnings)[count]) {
    const std::string_view text = error.what();
    return std::any_of(beginnings, beginnings + count,
                       [&](std::string_view each) { return text.find(each) != std::string_view::npos; });
}

Company_error other_version(int found, const std::string& name, const std::string& remedy) {
    return Company_error("La versión del esquema de la base de datos es " + std::to_string(found) +
                         " y la de este programa es " + std::to_string(schema_version) + ": " + name + " (" + remedy +
                         ")");
}

/// The program that a newer database asks for.
std::string program_for(Connection& connection) {
    const Rows rows(connection.execute("SELECT Eq_Programa FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'"));
    return "cuvexa " + rows.text("Eq_Programa") + " o posterior";
}

/// Marks a database of the version before as one of that version; false when it is none.
bool is_due(const Schema_upgrade& upgrade, Connection& connection) {
    const std::string version = std::to_string(upgrade.version), before = std::to_string(upgrade.version - 1);
    const Rows marked(
        connection.execute("UPDATE Esquema_Suite SET Eq_Version = " + version +
                           " OUTPUT inserted.Eq_Version WHERE Eq_Nombre = 'CUVEXA' AND Eq_Version = " + before));
    return !marked.eof();
}

}  // namespace

std::optional<int> version_of(Connection& connection) {
    try {
        const Rows rows(connection.execute("SELECT Eq_Version FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'"));
        if (rows.eof()) return std::nullopt;
        return static_cast<int>(rows.number("Eq_Version"));
    } catch (const Database_error& error) {
        if (says(error, nothing_there)) return std::nullopt;
        throw;
    }
}

std::optional<int> readable_version(Connection& connection, const std::string& name) {
    try {
        return version_of(connection);
    } catch (const Database_error& error) {
        const char* const why = says(error, no_right) ? "El usuario no tiene permiso para leer la base de datos: "
                                                      : "No es posible leer la base de datos: ";
        throw Company_error(why + name + " (" + error.what() + ")");
    }
}

int known_version(Connection& connection, const std::string& name) {
    const std::optional<int> found = readable_version(connection, name);
    if (!found) throw Company_error("No es una base de datos de Cuvexa: " + name);
    if (*found > schema_version) throw other_version(*found, name, "se trabaja con " + program_for(connection));
    return *found;
}

void require_this_version(Connection& connection, const std::string& name) {
    const int found = known_version(connection, name);
    if (found < schema_version) throw other_version(found, name, "se actualiza con: cuvexa upgrade --db " + name);
}

void run_upgrades(Connection& connection, const Work_progress& progress) {
    if (progress) progress(0);
    for (const Schema_upgrade& upgrade : schema_upgrades()) {
        if (is_due(upgrade, connection)) run_scripts(connection, {upgrade.sql}, progress);
    }
}

void run_scripts(Connection& connection, const std::vector<std::string_view>& scripts, const Work_progress& progress) {
    std::size_t bytes = 0, before = 0;
    for (const std::string_view script : scripts) bytes += script.size();
    for (const std::string_view script : scripts) {
        run_script(connection, script, [&](std::size_t done) {
            if (progress) progress(static_cast<int>(100 * (before + done) / bytes));
        });
        before += script.size();
    }
}

}  // namespace cuvexa::company
