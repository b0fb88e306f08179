#include "suite/expenses.h"

#include "core/codes.h"
#include "core/number_text.h"
#include "cuvexa/errors.h"
#include "suite/receivable_ledger.h"

namespace cuvexa::reference {

std::string register_expense_advance(Reference_suite& suite, const Expense_record& record) {
    Context& context = suite.context();
    std::string folio, error;
    const bool done = serve(error, [&] {
        refuse_if(context.look_up("Cl_Descripcion", "Cl_Cve_Cliente", record.debtor, "Cliente").empty(),
                  "El deudor: {}, no existe o está dado de baja; elija otro", record.debtor);
        folio = Receivable_ledger(context).open_advance({.party = record.debtor,
                                                         .branch = record.branch,
                                                         .source_table = document::expense_record,
                                                         .source_document = record.expense,
                                                         .date = record.date,
                                                         .due_date = record.date,
                                                         .currency = record.currency,
                                                         .exchange_rate = record.exchange_rate,
                                                         .amount = record.amount,
                                                         .reference = record.reference,
                                                         .comment = {}});
    });
    if (!done) throw Database_error(error);
    return folio;
}

void link_advance_to_check(Reference_suite& suite, const std::string& check_folio, const std::string& advance_folio,
                           double amount, double exchange_rate) {
    Context& context = suite.context();
    const Rows count = context.query(
        "SELECT COUNT(*) AS Lineas FROM Gasto_x_Comprobar_Documento WHERE Gc_Documento = '{}' AND Gc_Tabla = 'CHEQUE'",
        check_folio);
    const std::string now = context.stamp();
    context.execute(
        "INSERT INTO Gasto_x_Comprobar_Documento (Gc_Documento, Gc_Tabla, Gcd_ID, Cxc_Folio, Cxc_Importe, "
        "Cxc_Tipo_Cambio, "
        "Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado) "
        "VALUES ('{}', 'CHEQUE', '{}', '{}', {}, {}, '{}', '{}', '{}', '{}', 'AC')",
        check_folio, four_digits(static_cast<int>(count.number("Lineas")) + 1), advance_folio, amount, exchange_rate,
        context.user(), now, context.user(), now);
}

}  // namespace cuvexa::reference
