// The two ways a captured check request goes on: authorized, or cancelled. Both work on the database alone.
#include "core/codes.h"
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {

bool Tesoreria::Autorizar_Solicitud_Cheque(const std::string& Folio) {
    return operation(module_, error_, "Cuvexa.dll - Autorizar_Solicitud_Cheque()", [&](Operation& op) {
        op.refuse_if(Folio.empty(), "Debe especificar un folio válido para la solicitud");
        auto request = op.query(
            "SELECT * "
            "FROM Solicitud_Cheque "
            "WHERE "
            "   Sch_Folio = '{}' AND "
            "   Es_Cve_Estado <> 'CA' ",
            Folio);
        op.refuse_if(request.eof(), "La solicitud de cheque no existe o está de baja");

        // Neither update looks at the present state: cancelled lines come back with the live ones.
        op.execute("UPDATE Solicitud_Cheque SET Es_Cve_Estado = 'AC' WHERE Sch_Folio = '{}'", Folio);
        auto live_lines = op.query(
            "SELECT * "
            "FROM Solicitud_Cheque_Detalle "
            "WHERE "
            "   Sch_Folio = '{}' AND "
            "   Es_Cve_Estado <> 'CA' ",
            Folio);
        if (live_lines.eof()) return;
        op.execute("UPDATE Solicitud_Cheque_Detalle SET Es_Cve_Estado = 'AC' WHERE Sch_Folio = '{}'", Folio);
    });
}

bool Tesoreria::Cancelar_Solicitud_Cheque(const std::string& Folio) {
    return operation(module_, error_, "Cuvexa.dll - Cancelar_Solicitud_Cheque()", [&](Operation& op) {
        op.refuse_if(Folio.empty(), "Debe especificar un folio válido para la solicitud");
        auto request = op.query("SELECT Sch_Folio, Es_Cve_Estado FROM Solicitud_Cheque WHERE Sch_Folio = '{}' ", Folio);
        op.refuse_if(request.eof(),
                     "Imposible localizar la solicitud de cheque! \r\n"
                     "Solicitud: {}",
                     Folio);
        op.refuse_if(request.text("Es_Cve_Estado") == state::cancelled,
                     "La solicitud de cheque ya está cancelada! \r\n"
                     "Solicitud: {}",
                     Folio);
        auto check = op.query(
            "SELECT Ch_Folio "
            "FROM Cheque "
            "WHERE "
            "   Ch_Tabla = 'SOLICITUD_CHEQUE' AND "
            "   Ch_Documento = '{}' AND "
            "   Es_Cve_Estado <> 'CA' "
            "ORDER BY Ch_Folio ",
            Folio);
        if (!check.eof()) {
            op.refuse(
                "La solicitud ya está aplicada\r\n"
                "Debe cancelar el cheque antes de continuar\r\n"
                "Cheque: {}",
                check.text("Ch_Folio"));
        }

        const std::string user = op.session().GetUserName();
        const std::string stamp = op.server_stamp();
        op.execute(
            "UPDATE Solicitud_Cheque_Detalle SET "
            "   Es_Cve_Estado = 'CA', "
            "   Oper_Baja = '{}', "
            "   Fecha_Baja = '{}' "
            "WHERE Sch_Folio = '{}'",
            user, stamp, Folio);
        op.execute(
            "UPDATE Solicitud_Cheque SET "
            "   Es_Cve_Estado = 'CA', "
            "   Oper_Baja = '{}', "
            "   Fecha_Baja = '{}' "
            "WHERE Sch_Folio = '{}'",
            user, stamp, Folio);
    });
}

}  // namespace cuvexa
