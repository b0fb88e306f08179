#include "suite/receivable_ledger.h"

#include "core/case.h"
#include "core/codes.h"

namespace cuvexa::reference {
namespace {

constexpr std::string_view advance_code = document::customer_advance;

}  // namespace

void Receivable_ledger::cancel_payment(const std::string& folio, const std::string& payment_id) {
    const Rows payment = context_.query(
        "SELECT Pc_Tabla, Pc_Documento, Pc_Referencia FROM Pago_Cxc WHERE Cxc_Folio = '{}' AND Pc_ID = '{}'", folio,
        payment_id);
    Ledger::cancel_payment(folio, payment_id);
    const std::string reference = payment.text("Pc_Referencia");
    const Account account = *find(folio);
    if (same_text(account.source_table, advance_code)) {
        if (!reference.empty()) {
            cancel_where(sql("Pc_Documento = '{}' AND Pc_Tabla = '{}' AND Pc_Referencia = '{}'",
                             account.source_document, advance_code, reference));
        }
        reopen_advance(account.source_document);
    } else if (same_text(payment.text("Pc_Tabla"), advance_code)) {
        const std::string advance = payment.text("Pc_Documento");
        for (const std::string& own : of_document(advance_code, advance)) {
            if (reference.empty()) continue;
            cancel_where(sql("Cxc_Folio = '{}' AND Pc_Referencia = '{}'", own, reference));
        }
        reopen_advance(advance);
    }
}

std::string Receivable_ledger::open_advance(const New_account& advance) {
    refuse_if(!(advance.amount > 0), "El importe del anticipo debe ser mayor que cero; indique un importe");
    std::string folio = context_.take_folio(advance.branch, std::string(advance_code));
    const std::string now = context_.stamp();

    New_account receivable = advance;
    receivable.source_table = advance_code;
    receivable.source_document = folio;
    receivable.total = receivable.net = receivable.amount = -advance.amount;
    open(receivable);

    context_.execute(
        "INSERT INTO Anticipo_Cxc (An_Folio, An_Tabla, An_Documento, An_Fecha, Sc_Cve_Sucursal, Cl_Cve_Cliente, "
        "Mn_Cve_Moneda, An_Tipo_Cambio, An_Importe, An_Referencia, An_Comentario, Oper_Alta, Fecha_Alta, "
        "Oper_Ult_Modif, "
        "Fecha_Ult_Modif, Es_Cve_Estado) "
        "VALUES ('{}', '{}', '{}', '{}', '{}', '{}', '{}', {}, {}, '{}', '{}', '{}', '{}', '{}', '{}', 'AC')",
        folio, advance.source_table, advance.source_document, context_.day_text(advance.date), advance.branch,
        advance.party, advance.currency, advance.exchange_rate, advance.amount, advance.reference, advance.comment,
        context_.user(), now, context_.user(), now);
    return folio;
}

void Receivable_ledger::require_unused_advance(const std::string& advance_folio) {
    for (const std::string& own : of_document(advance_code, advance_folio)) {
        refuse_if(has_live_payments(own), "El anticipo: {}, ya está aplicado; cancele antes su aplicación",
                  advance_folio);
    }
    refuse_if(context_.is_posted(advance_code, advance_folio),
              "El anticipo: {}, está contabilizado; cancele antes su registro en contabilidad", advance_folio);
}

void Receivable_ledger::cancel_advance(const std::string& advance_folio) {
    const std::string now = context_.stamp();
    for (const std::string& own : of_document(advance_code, advance_folio)) cancel(own);
    context_.execute(
        "UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'CA', Oper_Baja = '{}', Fecha_Baja = '{}', Oper_Ult_Modif = '{}', "
        "Fecha_Ult_Modif = '{}' WHERE An_Folio = '{}'",
        context_.user(), now, context_.user(), now, advance_folio);
}

void Receivable_ledger::cancel_where(std::string_view condition) {
    Rows payments =
        context_.query("SELECT Cxc_Folio, Pc_ID FROM Pago_Cxc WHERE {} AND Es_Cve_Estado <> 'CA'", Raw{condition});
    for (; !payments.eof(); payments.next()) {
        mark_payment_cancelled(payments.text("Cxc_Folio"), payments.text("Pc_ID"));
    }
}

void Receivable_ledger::reopen_advance(std::string_view advance_folio) {
    context_.execute(
        "UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AC', Oper_Ult_Modif = '{}', Fecha_Ult_Modif = '{}' "
        "WHERE An_Folio = '{}' AND Es_Cve_Estado = 'AP'",
        context_.user(), context_.stamp(), advance_folio);
}

}  // namespace cuvexa::reference
