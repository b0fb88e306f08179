// Undoes the application of a check: each line's effect, the states, and the movement back in transit.
#include "core/codes.h"
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

/// Cancels the payments that the check made on the line's payable.
void cancel_supplier_payments(Operation& op, const std::string& check, const std::string& payable) {
    auto payments = op.query(
        "SELECT "
        "   Cxp_Folio, "
        "   Pc_ID "
        "FROM Pago_Cxp "
        "WHERE "
        "   Pc_Tabla = 'CHEQUE' AND "
        "   Cxp_Folio = '{}' AND "
        "   Pc_Documento = '{}' AND "
        "   Es_Cve_Estado <> 'CA' "
        "ORDER BY Pc_ID ",
        payable, check);
    if (payments.eof()) return;
    const auto payables = op.module().suite().new_accounts_payable();
    for (; !payments.eof(); payments.next()) {
        op.relay_unless(payables->CancelPayment(payments.text("Cxp_Folio"), payments.text("Pc_Id")), *payables);
    }
}

void validate_receivables_withdrawal(Operation& op, const std::string& table, const std::string& document) {
    const auto receivables = op.module().suite().new_accounts_receivable();
    op.relay_unless(receivables->ValidateDocumentCancellation(table, document), *receivables);
}

// Withdrawal rewrites the table code, so that the row matches no look-up by document any more and keeps its history. It
// happens once: the condition asks for the plain code.

void withdraw_expense_receivable(Operation& op, const std::string& expense) {
    validate_receivables_withdrawal(op, document::expense, expense);
    op.execute(
        "UPDATE Cuenta_x_Cobrar SET "
        "   Cxc_Tabla = 'GASTO_X_COMPROBAR-CA:' + Cxc_Folio "
        "WHERE "
        "   Cxc_Tabla = 'GASTO_X_COMPROBAR' AND "
        "   Cxc_Documento = '{}'",
        expense);
}

void withdraw_check_receivables(Operation& op, const std::string& check) {
    validate_receivables_withdrawal(op, document::check, check);
    op.execute(
        "UPDATE Cuenta_x_Cobrar SET "
        "   Cxc_Tabla = 'CHEQUE-CA:' + Cxc_Folio "
        "WHERE "
        "   Cxc_Tabla = 'CHEQUE' AND "
        "   Cxc_Documento = '{}'",
        check);
}

void withdraw_supplier_advance(Operation& op, const std::string& advance) {
    auto payments = op.query(
        "SELECT * "
        "FROM Pago_Cxp "
        "WHERE "
        "   Cxp_Folio IN (SELECT Cxp_Folio FROM Cuenta_x_Pagar "
        "                 WHERE CxP_Tabla = 'ANTICIPO_CXP' AND Cxp_Documento = '{}') AND "
        "   Es_Cve_Estado <> 'CA' ",
        advance);
    op.refuse_if(!payments.eof(), "El cheque contiene o proviene de un anticipo a proveedor y este ya está aplicado!");

    const auto payables = op.module().suite().new_accounts_payable();
    op.relay_unless(payables->ValidateAdvanceCancellation(advance), *payables);
    op.execute(
        "UPDATE Cuenta_X_Pagar SET "
        "   Cxp_Tabla = 'ANTICIPO_CXP-CA:' + Cxp_Folio "
        "WHERE "
        "   CxP_Tabla = 'ANTICIPO_CXP' AND "
        "   Cxp_Documento = '{}'",
        advance);
}

void return_to_active(Operation& op, const std::string& check, const std::string& stamp) {
    const std::string user = op.session().GetUserName();
    op.execute(
        "UPDATE Cheque_x_Aplicar SET "
        "   Es_Cve_Estado = 'AC', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Ch_Folio = '{}'",
        user, stamp, check);
    op.execute(
        "UPDATE Cheque SET "
        "   Es_Cve_Estado = 'AC', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Ch_Folio = '{}'",
        user, stamp, check);
    op.execute(
        "UPDATE Banco_Movimiento SET "
        "   Es_Cve_Estado = 'TR', "
        "   Bm_Fecha_Firme = Bm_Fecha, "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE "
        "   Bm_Documento = '{}' AND "
        "   Bm_Tabla = 'CHEQUE' AND "
        "   Es_Cve_Estado <> 'CA'",
        user, stamp, check);
}

}  // namespace

bool Tesoreria::Cancelar_Aplicacion_Cheque(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Cancelar_Aplicacion_Cheque()", [&](Operation& op) {
        const std::string stamp = op.server_stamp();

        auto lines = op.query(
            "SELECT "
            "   Cheque_x_Aplicar.*, "
            "   Tipo_Cheque.Tc_Solicitar, "
            "   Tipo_Cheque.Tc_Proveedor_Pago "
            "FROM Cheque "
            "   INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio "
            "   INNER JOIN Tipo_Cheque ON Cheque.Tc_Cve_Tipo_Cheque = Tipo_Cheque.Tc_Cve_Tipo_Cheque "
            "WHERE Cheque.Ch_Folio = '{}' "
            "ORDER BY Cheque_x_Aplicar.Cxa_ID ",
            Ch_Folio);
        op.refuse_if(lines.eof(), "No se encontró el detalle del cheque");

        for (; !lines.eof(); lines.next()) {
            const std::string kind = lines.text("Tc_Solicitar");
            const std::string document = lines.text("Cxp_Folio");
            if (kind == check_purpose::supplier_payment) {
                if (lines.text("Tc_Proveedor_Pago") == "SI") cancel_supplier_payments(op, Ch_Folio, document);
            } else if (kind == check_purpose::expense_to_verify) {
                op.relay_unless(Cancelar_Aplicacion_Cheque_Anticipo(Ch_Folio));
                withdraw_expense_receivable(op, document);
            } else if (kind == check_purpose::customer_refund || kind == check_purpose::debtor_loan) {
                withdraw_check_receivables(op, Ch_Folio);
            } else if (kind == check_purpose::supplier_advance) {
                withdraw_supplier_advance(op, document);
            }
        }
        return_to_active(op, Ch_Folio, stamp);
    });
}

}  // namespace cuvexa
