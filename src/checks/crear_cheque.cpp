// Creation of a check by the purpose of the payment.
//
//                                     adds its line   budget check        bank movement         besides
// Crear_Cheque_Pago_Proveedor         no              no                  always
// Crear_Cheque_Devolucion_Anticipo    no              no                  always
// Crear_Cheque_Anticipo_Cxp           yes             supplier advance    unless held back
// Crear_Cheque_Devolucion_Cliente     no              customer refund     unless held back
// Crear_Cheque_Gasto_x_Comprobar      yes             expense to verify   unless held back      the expense
// Crear_Cheque_Deudor                 yes             debtor loan         unless held back
// Crear_Traspaso_Cuenta_Propia        no              no                  never                 refuses a missing folio
#include "core/codes.h"
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

/// The budget check, then the bank movement unless the budget holds the check back. True when there is a movement.
bool budget_then_movement(Operation& op, Tesoreria& treasury, const std::string& folio, int kind) {
    op.pass_on_unless(treasury.Afectar_Cheque_Presupuesto(folio, kind));
    if (op.data().LookupValue("Es_Cve_Estado", "Ch_Folio", folio, "Cheque") == state::waiting) return false;
    op.pass_on_unless(treasury.Registra_Movimiento_Bancario_Cheque(folio));
    return true;
}

/// The expense to be justified that the money pays. It waits until the check has its movement.
void insert_expense(Operation& op, const std::string& expense, const tTsEncabezado& check, double line_rate,
                    const std::string& stamp) {
    const std::string user = op.session().GetUserName();
    op.execute(
        "INSERT INTO Gasto_X_Comprobar("
        "   Gc_Folio, "
        "   Gc_Fecha, "
        "   Gc_Tabla, "
        "   Gc_Documento, "
        "   Gc_Referencia, "
        "   Mn_Cve_Moneda, "
        "   Sc_Cve_Sucursal, "
        "   Cl_Cve_Cliente, "
        "   Gc_Importe, "
        "   Gc_Tipo_Cambio, "
        "   Gc_Comentario, "
        "   Bc_Cve_Banco_Cuenta, "
        "   Oper_Alta, "
        "   Fecha_Alta, "
        "   Oper_Ult_Modif, "
        "   Fecha_Ult_Modif, "
        "   Es_Cve_Estado) "
        "SELECT '{}', '{}', 'CHEQUE', '{}', '{}', '{}', '{}', '{}', "
        "(SELECT Ch_Importe FROM Cheque WHERE Ch_Folio = '{}'), {}, '{}', '{}', '{}', '{}', '{}', '{}', 'PXA'",
        expense, op.data().SqlDate(check.Ch_Fecha), check.Ch_Folio, check.Ch_Referencia, check.Mn_Cve_Moneda,
        check.Sucursal.Sc_Cve_Sucursal, check.Ch_Solicitar_Valor, check.Ch_Folio, line_rate, check.Ch_Concepto,
        check.Bc_Cve_Banco_Cuenta, user, stamp, user, stamp);
}

void point_lines_to(Operation& op, const std::string& check, const std::string& expense) {
    op.execute(
        "UPDATE Cheque_x_Aplicar SET "
        "   Cxp_Folio = '{}' "
        "WHERE Ch_Folio = '{}'",
        expense, check);
}

void mark_paid(Operation& op, const std::string& expense) {
    op.execute(
        "UPDATE Gasto_x_Comprobar SET "
        "   Es_Cve_Estado = 'PA' "
        "WHERE Gc_Folio = '{}'",
        expense);
}

}  // namespace

bool Tesoreria::Crear_Cheque_Pago_Proveedor(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Crear_Cheque_Pago_Proveedor()", [&](Operation& op) {
        op.pass_on_unless(Inserta_Cheque(Ch_Folio));
        op.pass_on_unless(Registra_Movimiento_Bancario_Cheque(check_.Ch_Folio));
    });
}

bool Tesoreria::Crear_Cheque_Devolucion_Anticipo(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Crear_Cheque_Devolucion_Anticipo()", [&](Operation& op) {
        op.pass_on_unless(Inserta_Cheque(Ch_Folio));
        op.pass_on_unless(Registra_Movimiento_Bancario_Cheque(check_.Ch_Folio));
    });
}

bool Tesoreria::Crear_Cheque_Anticipo_Cxp() {
    return operation(module_, error_, "Cuvexa.dll - Crear_Cheque_Anticipo_Cxp()", [&](Operation& op) {
        op.pass_on_unless(Add_Cheque_Detalle());
        op.pass_on_unless(Inserta_Cheque(check_.Ch_Folio));
        budget_then_movement(op, *this, check_.Ch_Folio, budget::supplier_advance);
    });
}

bool Tesoreria::Crear_Cheque_Devolucion_Cliente() {
    return operation(module_, error_, "Cuvexa.dll - Crear_Cheque_Devolucion_Cliente()", [&](Operation& op) {
        op.pass_on_unless(Inserta_Cheque(check_.Ch_Folio));
        budget_then_movement(op, *this, check_.Ch_Folio, budget::customer_refund);
    });
}

bool Tesoreria::Crear_Cheque_Gasto_x_Comprobar() {
    return operation(module_, error_, "Cuvexa.dll - Crear_Cheque_Gasto_x_Comprobar()", [&](Operation& op) {
        op.pass_on_unless(Add_Cheque_Detalle());
        op.pass_on_unless(Inserta_Cheque(check_.Ch_Folio));

        const std::string expense = op.data().GetNextFolio(check_.Sucursal.Sc_Cve_Sucursal, "Gasto_x_Comprobar");
        op.refuse_plain_if(expense.empty(), "No se pudo generar el folio del gasto por comprobar");
        // The rate is the line's, not the header's: the expense is justified at the rate at which the money left.
        insert_expense(op, expense, check_, check_line_.Ch_Tipo_Cambio, check_stamp_);
        point_lines_to(op, check_.Ch_Folio, expense);

        if (budget_then_movement(op, *this, check_.Ch_Folio, budget::expense_to_verify)) mark_paid(op, expense);
    });
}

bool Tesoreria::Crear_Cheque_Deudor() {
    return operation(module_, error_, "Cuvexa.dll - Crear_Cheque_Deudor()", [&](Operation& op) {
        op.pass_on_unless(Add_Cheque_Detalle());
        op.pass_on_unless(Inserta_Cheque(check_.Ch_Folio));
        budget_then_movement(op, *this, check_.Ch_Folio, budget::debtor_loan);
    });
}

bool Tesoreria::Crear_Traspaso_Cuenta_Propia() {
    return operation(module_, error_, "Cuvexa.dll - Crear_Traspaso_Cuenta_Propia()", [&](Operation& op) {
        op.refuse_plain_if(check_.Ch_Folio.empty(), "No se proporcionó el folio del cheque o transferencia");
        op.pass_on_unless(Inserta_Cheque(check_.Ch_Folio));
    });
}

}  // namespace cuvexa
