#include "simulator/remedy.h"

#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/module.h"
#include "database/sqlite/engine.h"
#include "interruptions/advice.h"

namespace cuvexa::simulator {
namespace {

constexpr auto lifted =
    "UPDATE Parametro_Sistema SET Ps_Valor = '0' WHERE Ps_Nombre IN ('GEN_FORZAR_TIEMPO_REAL', "
    "'GEN_VALIDAR_PERIODO_OPERATIVO');"
    "UPDATE Servidor_Suite SET Sv_Servidor_Id = '', Sv_Replica = 'NO';"
    "UPDATE Sucursal SET Sc_Servidor_Id = '';"
    "UPDATE Folio_Serie SET Fs_Abierta = 'SI';"
    "UPDATE Poliza SET Es_Cve_Estado = 'AC' WHERE Es_Cve_Estado = 'CE';"
    "UPDATE Periodo_Operativo SET Po_Estado = 'AB';"
    "DELETE FROM Documento_Contabilizado";

void copy(sqlite3* from, sqlite3* to) {
    sqlite3_backup* const backup = sqlite3_backup_init(to, "main", from, "main");
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(to));
    if (sqlite3_exec(to, lifted, nullptr, nullptr, nullptr) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(to));
}

}  // namespace

std::vector<std::string> follow_all_advice(sqlite3* database, Date now, const std::set<Named>& before) {
    Sqlite_connection connection(":memory:", {.synchronous = Synchronous::off});
    copy(database, sqlite::handle_of(connection));
    const auto suite = std::make_shared<Reference_suite>(
        connection, Suite_options{.user = "AUDITOR", .server_date = now, .report_error = [](const auto&) {}});
    Module module(suite);
    Tesoreria treasury(module);
    const auto look = [&] {
        now.days += 1 / 1440.0;
        suite->set_server_date(now);
        std::vector<cuvexa::Finding> found = audit(connection);
        std::erase_if(found, [&](const auto& finding) { return before.contains({finding.check, finding.document}); });
        return found;
    };
    const tests::Followed followed = tests::follow_to_the_end({treasury, *suite, connection}, look);
    std::vector<std::string> left;
    for (const auto& finding : followed.left) {
        left.push_back("advice does not help: " + finding.check + ", " + finding.document + ", " + finding.figures +
                       "; after:" + followed.told);
    }
    return left;
}

}  // namespace cuvexa::simulator
