// Cancellation of a check for good.
#include "core/codes.h"
#include "core/operation.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

struct Withdrawal {
    std::string user;
    std::string stamp;
};

/// Cancels the expense to be justified that the check created, or the one that was created for it and not yet linked.
void cancel_expense(Operation& op, const std::string& check, const std::string& line_document, const Withdrawal& by) {
    const std::string linked =
        op.data().LookupValue("Gc_Folio", "Gc_Documento", check, "Gasto_x_Comprobar", "Gc_Tabla = 'CHEQUE'");
    if (!linked.empty()) {
        op.execute(
            "UPDATE Gasto_x_Comprobar SET "
            "   Es_Cve_Estado = 'CA', "
            "   Oper_Baja = '{}', "
            "   Fecha_Baja = '{}' "
            "WHERE "
            "   Gc_Documento = '{}' AND "
            "   Gc_Tabla = 'CHEQUE'",
            by.user, by.stamp, check);
    } else {
        op.execute(
            "UPDATE Gasto_x_Comprobar SET "
            "   Es_Cve_Estado = 'CA', "
            "   Oper_Baja = '{}', "
            "   Fecha_Baja = '{}' "
            "WHERE "
            "   Gc_Folio = '{}' AND "
            "   Gc_Documento = '' AND "
            "   Gc_Tabla = ''",
            by.user, by.stamp, line_document);
    }
    op.execute(
        "UPDATE Gasto_x_Comprobar_Documento SET "
        "   Es_Cve_Estado = 'CA' "
        "WHERE "
        "   Gc_Documento = '{}' AND "
        "   Gc_Tabla = 'CHEQUE'",
        check);
}

void mark_cancelled(Operation& op, const std::string& check, const Withdrawal& by) {
    op.execute(
        "UPDATE Cheque SET "
        "   Es_Cve_Estado = 'CA', "
        "   Oper_Baja = '{}', "
        "   Fecha_Baja = '{}' "
        "WHERE Ch_Folio = '{}'",
        by.user, by.stamp, check);
    op.execute(
        "UPDATE Cheque_x_Aplicar SET "
        "   Es_Cve_Estado = 'CA', "
        "   Oper_Baja = '{}', "
        "   Fecha_Baja = '{}' "
        "WHERE Ch_Folio = '{}'",
        by.user, by.stamp, check);
}

}  // namespace

bool Tesoreria::Cancelar_Cheque(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Cancelar_Cheque()", [&](Operation& op) {
        Withdrawal by;
        by.stamp = op.server_stamp();
        by.user = op.session().GetUserName();

        auto lines = op.query(
            "SELECT "
            "   Cheque_x_Aplicar.*, "
            "   Cheque.Es_Cve_Estado as EstadoCheque, "
            "   Cheque.Ch_Fecha, "
            "   Tipo_Cheque.Tc_Solicitar, "
            "   Tipo_Cheque.Tc_Proveedor_Pago "
            "FROM Cheque "
            "   INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio "
            "   INNER JOIN Tipo_Cheque ON Cheque.Tc_Cve_Tipo_Cheque = Tipo_Cheque.Tc_Cve_Tipo_Cheque "
            "WHERE Cheque.Ch_Folio = '{}' "
            "ORDER BY Cheque_x_Aplicar.Cxa_ID ",
            Ch_Folio);
        op.refuse_if(lines.eof(),
                     "Imposible localizar el cheque! \r\n"
                     "Cheque: {}",
                     Ch_Folio);
        check_same_day(op, lines, "Ch_Fecha", Wording::tagged);
        // The guard speaks under the deposit's tag: callers parse this text.
        op.under("Cuvexa.dll - Cancelar_Deposito()").relay_unless(Valida_Poliza_Contable(document::check, Ch_Folio));

        if (lines.text("Es_Cve_Estado") == state::applied) op.pass_on_unless(Cancelar_Aplicacion_Cheque(Ch_Folio));
        const bool has_movement = lines.text("EstadoCheque") != state::waiting;
        for (; !lines.eof(); lines.next()) {
            if (lines.text("Tc_Solicitar") == check_purpose::expense_to_verify) {
                cancel_expense(op, Ch_Folio, lines.text("Cxp_Folio"), by);
            }
        }
        mark_cancelled(op, Ch_Folio, by);
        if (has_movement) op.pass_on_unless(Cancelar_Documento_Bancos(document::check, Ch_Folio));
    });
}

}  // namespace cuvexa
