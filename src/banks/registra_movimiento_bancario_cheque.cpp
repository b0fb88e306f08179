// The bank movement of a check or transfer, always in transit.
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

tBnMovimiento movement_of(Module& module, const Rows& check) {
    const bool transfer = check.text("Ch_Transferencia") == "SI";
    // A check in another currency than its account's moves the account by its amount in local currency.
    const bool converted = check.text("Ch_Moneda") != check.text("Mn_Cve_Moneda");
    const double rate = check.number("Ch_Tipo_Cambio");

    tBnMovimiento movement;
    movement.Bm_Comentario = check.text("Ch_Concepto");
    movement.Bt_Cve_Banco_Tipo_Movimiento =
        module.text_parameter(transfer ? "TES_MOVIMIENTO_TRANSFERENCIA" : "TES_MOVIMIENTO_CHEQUE");
    movement.Bm_Documento = check.text("Ch_Folio");
    movement.Bm_Tabla = "Cheque";
    movement.Bm_Referencia = check.text("Ch_Referencia");
    movement.Bm_Fecha = movement.Bm_Fecha_Firme = check.date("Ch_Fecha");
    movement.Cuenta.Bc_Cve_Banco_Cuenta = check.text("Bc_Cve_Banco_Cuenta");
    movement.Bm_Importe = check.number("Ch_Importe") * (converted ? rate : 1);
    movement.Bm_Tipo_Cambio = rate;
    return movement;
}

}  // namespace

bool Tesoreria::Registra_Movimiento_Bancario_Cheque(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Registra_Movimiento_Bancario_Cheque()", [&](Operation& op) {
        const Rows check = op.query(
            "SELECT Cheque.*, Cheque_x_Aplicar.Mn_Cve_Moneda as Ch_Moneda, Banco_Cuenta.Mn_Cve_Moneda "
            "FROM Cheque "
            "   INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio "
            "   INNER JOIN Banco_Cuenta ON Cheque.Bc_Cve_Banco_cuenta = Banco_Cuenta.Bc_Cve_Banco_cuenta "
            "WHERE Cheque.Ch_Folio = '{}'",
            Ch_Folio);
        op.refuse_if(check.eof(), "No se encontró el cheque o transferencia especificados");
        tBnMovimiento movement = movement_of(module_, check);
        op.pass_on_unless(Registra_Movimiento_Banco(movement));
    });
}

}  // namespace cuvexa
