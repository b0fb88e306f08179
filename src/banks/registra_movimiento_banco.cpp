// Registration of a bank movement: its row, the balances of the account and of its bank, the hand-off to accounting.
#include "core/codes.h"
#include "core/operation.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

constexpr auto outflow = "2";  // Bt_Tipo of the types that take money out

std::string type_column(Operation& op, const char* column, const tBnMovimiento& movement) {
    return op.data().LookupValue(column, "Bt_Cve_Banco_Tipo_Movimiento", movement.Bt_Cve_Banco_Tipo_Movimiento,
                                 "Banco_Tipo_Movimiento");
}

void insert_movement(Operation& op, const std::string& folio, const tBnMovimiento& movement, const std::string& user,
                     const std::string& stamp) {
    op.execute(
        "INSERT INTO Banco_Movimiento("
        "   Bm_Folio, "
        "   Bc_Cve_Banco_Cuenta, "
        "   Bm_Tabla, "
        "   Bm_Documento, "
        "   Bm_Documento_ID, "
        "   Bm_Referencia, "
        "   Bc_Cuenta_Contable, "
        "   Bm_Comentario, "
        "   Bm_Fecha, "
        "   Bm_Fecha_Firme, "
        "   Bt_Cve_Banco_Tipo_Movimiento, "
        "   Bm_Importe, "
        "   Mn_Cve_Moneda, "
        "   Bm_Tipo_Cambio, "
        "   Oper_Alta, "
        "   Fecha_Alta, "
        "   Oper_Ult_Modif, "
        "   Fecha_Ult_Modif, "
        "   Es_Cve_Estado) "
        "VALUES ('{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', {}, '{}', {}, '{}', '{}', '{}', '{}', "
        "'{}')",
        folio, movement.Cuenta.Bc_Cve_Banco_Cuenta, movement.Bm_Tabla, movement.Bm_Documento, movement.Bm_Documento_ID,
        movement.Bm_Referencia, movement.Cuenta.Bc_Cuenta_Contable, movement.Bm_Comentario,
        op.data().SqlDate(movement.Bm_Fecha), op.data().SqlDate(movement.Bm_Fecha_Firme),
        movement.Bt_Cve_Banco_Tipo_Movimiento, movement.Bm_Importe, movement.Cuenta.Mn_Cve_Moneda,
        movement.Bm_Tipo_Cambio, user, stamp, user, stamp, movement.EnFirme ? state::firm : state::in_transit);
}

/// Both balances move by the signed amount of the row, in whatever currency the account is.
void move_balances(Operation& op, const tBnMovimiento& movement, const std::string& user, const std::string& stamp) {
    const std::string& account = movement.Cuenta.Bc_Cve_Banco_Cuenta;
    op.execute(
        "UPDATE Banco_Cuenta SET "
        "   Bc_Saldo = Bc_Saldo + {}, "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Bc_Cve_Banco_Cuenta = '{}'",
        movement.Bm_Importe, user, stamp, account);
    op.execute(
        "UPDATE Banco SET "
        "   Bn_Saldo = Bn_Saldo + {}, "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Bn_Cve_Banco = (SELECT Bn_Cve_Banco FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = '{}')",
        movement.Bm_Importe, user, stamp, account);
}

}  // namespace

bool Tesoreria::Registra_Movimiento_Banco(tBnMovimiento& Datos) {
    // Callers know both spellings of the tag: with a blank behind it here, without it where `tag_without_blank` reports.
    return operation(module_, error_, "Cuvexa.dll - Registra_Movimiento_Banco() ", [&](Operation& op) {
        Operation tag_without_blank = op.under("Cuvexa.dll - Registra_Movimiento_Banco()");
        const std::string stamp = op.server_stamp();

        {
            const Rows account = op.query("SELECT * FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = '{}' ",
                                          Datos.Cuenta.Bc_Cve_Banco_Cuenta);
            op.refuse_if(account.eof(), "No se encontró la cuenta bancaria");
            op.refuse_if(account.text("Es_Cve_Estado") == state::retired, "La cuenta bancaria está dada de baja");
            check_same_day(tag_without_blank, Datos.Bm_Fecha, Wording::tagged);
            op.refuse_if(type_column(op, "Bt_Descripcion", Datos).empty(),
                         "El tipo de movimiento de banco no existe o está dado de baja");
            Datos.Cuenta.Bc_Cuenta_Contable = account.text("Bc_Cuenta_Contable");
            Datos.Cuenta.Mn_Cve_Moneda = account.text("Mn_Cve_Moneda");
            Datos.Cuenta.Bn_Cve_Banco = account.text("Bn_Cve_Banco");
        }

        const std::string folio = op.data().GetNextFolio("", document::bank_movement);
        op.refuse_if(folio.empty(), "No se pudo generar el folio de movimiento de bancos");
        FolioMovimiento = folio;

        if (type_column(op, "Bt_Tipo", Datos) == outflow) Datos.Bm_Importe *= -1;
        if (Datos.Bm_Tabla.empty()) Datos.Bm_Tabla = "Cheque";

        const std::string user = op.session().GetUserName();
        insert_movement(op, folio, Datos, user, stamp);
        move_balances(op, Datos, user, stamp);
        tag_without_blank.relay_unless(Contabiliza_Banco_Movimiento(folio, "", ""));
        tag_without_blank.relay_unless(op.data().RegisterDocument(document::bank_movement, folio), op.data());
    });
}

}  // namespace cuvexa
