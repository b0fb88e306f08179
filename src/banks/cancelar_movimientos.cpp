// Cancellation of bank movements, one by its folio or all those of a source document.
#include "core/codes.h"
#include "core/operation.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

/// Takes the movement of the current row out of both balances and marks it cancelled. Amounts are stored signed, so
/// subtracting the stored one undoes inflows and outflows alike.
void reverse_movement(Operation& op, const Rows& movement, const std::string& stamp) {
    const std::string user = op.session().GetUserName();
    const double amount = movement.number("Importe");

    op.execute(
        "UPDATE Banco_Cuenta SET "
        "   Bc_Saldo = Bc_Saldo - {}, "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Bc_Cve_Banco_Cuenta = '{}'",
        amount, user, stamp, movement.text("Bc_Cve_Banco_Cuenta"));
    op.execute(
        "UPDATE Banco SET "
        "   Bn_Saldo = Bn_Saldo - {}, "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Bn_Cve_Banco = '{}'",
        amount, user, stamp, movement.text("Bn_Cve_Banco"));
    op.execute(
        "UPDATE Banco_Movimiento SET "
        "    Es_Cve_Estado = 'CA', "
        "    Oper_Ult_Modif = '{}', "
        "    Fecha_Ult_Modif = '{}', "
        "    Oper_Baja = '{}', "
        "    Fecha_Baja = '{}' "
        "WHERE "
        "   Bm_Folio = '{}'",
        user, stamp, user, stamp, movement.text("Bm_Folio"));
}

void refuse_if_cancelled(Operation& op, const Rows& movement) {
    op.refuse_if(movement.text("Es_Cve_Estado") == state::cancelled, "El movimiento:{}, está cancelado!",
                 movement.text("Bm_Folio"));
}

bool register_movement(Operation& op, const std::string& folio) {
    return op.data().RegisterDocument(document::bank_movement, folio);
}

}  // namespace

bool Tesoreria::Cancelar_Movimiento_Bancos(const std::string& Bm_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Cancelar_Movimiento_Bancos()", [&](Operation& op) {
        const std::string stamp = op.server_stamp();

        auto movement = op.query(
            "SELECT "
            "   Banco_Movimiento.Bm_Folio, "
            "   Banco_Movimiento.Bm_Fecha, "
            "   Banco_Movimiento.Bc_Cve_Banco_Cuenta,"
            "   Banco_Cuenta.Bn_Cve_Banco, "
            "   Banco_Movimiento.Es_Cve_Estado, "
            "   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) as Importe "
            "FROM Banco_Movimiento "
            "   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Banco_Movimiento.Bc_Cve_Banco_Cuenta "
            "WHERE "
            "   Banco_Movimiento.Bm_Folio = '{}' "
            "GROUP BY "
            "   Banco_Movimiento.Bm_Folio, "
            "   Banco_Movimiento.Bm_Fecha, "
            "   Banco_Movimiento.Bc_Cve_Banco_Cuenta,"
            "   Banco_Cuenta.Bn_Cve_Banco, "
            "   Banco_Movimiento.Es_Cve_Estado ",
            Bm_Folio);
        op.refuse_if(movement.eof(), "No se encontró el movimiento de banco: {}", Bm_Folio);
        refuse_if_cancelled(op, movement);
        check_same_day(op, movement, "Bm_Fecha", Wording::tagged);
        check_operating_period(op, movement, "Bm_Fecha", Wording::tagged);
        op.relay_unless(Valida_Poliza_Contable(document::bank_movement, Bm_Folio));

        reverse_movement(op, movement, stamp);
        // Under the registration's tag: callers parse this text.
        op.under("Cuvexa.dll - Registra_Movimiento_Banco()")
            .relay_unless(register_movement(op, movement.text("Bm_Folio")), op.data());
    });
}

bool Tesoreria::Cancelar_Documento_Bancos(const std::string& Bm_Tabla, const std::string& Bm_Documento) {
    return operation(module_, error_, "Cuvexa.dll - Cancelar_Documento_Bancos()", [&](Operation& op) {
        const std::string stamp = op.server_stamp();

        // Cancelled movements are read too: a document half cancelled stops at the first of them.
        auto movements = op.query(
            "SELECT "
            "   Banco_Movimiento.Bm_Folio, "
            "   Banco_Movimiento.Bc_Cve_Banco_Cuenta,"
            "   Banco_Cuenta.Bn_Cve_Banco, "
            "   Banco_Movimiento.Es_Cve_Estado, "
            "   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) as Importe "
            "FROM Banco_Movimiento "
            "   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Banco_Movimiento.Bc_Cve_Banco_Cuenta "
            "WHERE "
            "   Banco_Movimiento.Bm_Documento = '{}' AND "
            "   Banco_Movimiento.Bm_Tabla = '{}' "
            "GROUP BY "
            "   Banco_Movimiento.Bm_Folio, "
            "   Banco_Movimiento.Bc_Cve_Banco_Cuenta,"
            "   Banco_Cuenta.Bn_Cve_Banco, "
            "   Banco_Movimiento.Es_Cve_Estado ",
            Bm_Documento, Bm_Tabla);
        op.refuse_if(movements.eof(), "No se encontraron documentos relacionados a la tabla:{} y documento:{}",
                     Bm_Tabla, Bm_Documento);
        while (!movements.eof()) {
            const std::string folio = movements.text("Bm_Folio");
            refuse_if_cancelled(op, movements);
            op.relay_unless(Valida_Poliza_Contable(document::bank_movement, folio));
            reverse_movement(op, movements, stamp);
            movements.next();
            op.relay_unless(register_movement(op, folio), op.data());
        }
    });
}

}  // namespace cuvexa
