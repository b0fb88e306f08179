#include "suite/receivable_ledger.h"

#include "core/case.h"
#include "core/codes.h"

namespace cuvexa::reference {
namespace {

constexpr std::string_view advance_code = document::customer_advance;

}  // namespace

void Receivable_ledger::cancel_payment(const std::string& folio, const std::string& payment_id) {
    const Rows payment = Ledger::cancel_payment(folio, payment_id);
    const std::string reference = payment.text("Pc_Referencia");
    const std::string now = context_.time_text(context_.time_of(payment));
    if (same_text(payment.text("Tabla"), advance_code)) {
        const std::string advance = payment.text("Documento");
        if (!reference.empty()) {
            cancel_where(sql("Pc_Documento = '{}' AND Pc_Tabla = '{}' AND Pc_Referencia = '{}'", advance, advance_code,
                             reference),
                         now);
        }
        reopen_advance(advance, now);
    } else if (same_text(payment.text("Pc_Tabla"), advance_code)) {
        const std::string advance = payment.text("Pc_Documento");
        if (!reference.empty()) {
            for (const Live_account& own : of_document(advance_code, advance)) {
                cancel_where(sql("Cxc_Folio = '{}' AND Pc_Referencia = '{}'", own.folio, reference), now);
            }
        }
        reopen_advance(advance, now);
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
    for (const Live_account& own : of_document(advance_code, advance_folio)) {
        refuse_if(own.paid, "El anticipo: {}, ya está aplicado; cancele antes su aplicación", advance_folio);
    }
    refuse_if(context_.is_posted(advance_code, advance_folio),
              "El anticipo: {}, está contabilizado; cancele antes su registro en contabilidad", advance_folio);
}

void Receivable_ledger::cancel_advance(const std::string& advance_folio) {
    const std::string now = context_.stamp();
    for (const Live_account& own : of_document(advance_code, advance_folio)) cancel(own);
    context_.execute(
        "UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'CA', Oper_Baja = '{}', Fecha_Baja = '{}', Oper_Ult_Modif = '{}', "
        "Fecha_Ult_Modif = '{}' WHERE An_Folio = '{}'",
        context_.user(), now, context_.user(), now, advance_folio);
}

void Receivable_ledger::cancel_where(std::string_view condition, const std::string& now) {
    Rows payments =
        context_.query("SELECT Cxc_Folio, Pc_ID FROM Pago_Cxc WHERE {} AND Es_Cve_Estado <> 'CA'", Raw{condition});
    for (; !payments.eof(); payments.next()) {
        mark_payment_cancelled(payments.text("Cxc_Folio"), payments.text("Pc_ID"), now);
    }
}

void Receivable_ledger::reopen_advance(std::string_view advance_folio, const std::string& now) {
    context_.execute(
        "UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AC', Oper_Ult_Modif = '{}', Fecha_Ult_Modif = '{}' "
        "WHERE An_Folio = '{}' AND Es_Cve_Estado = 'AP'",
        context_.user(), now, advance_folio);
}

}  // namespace cuvexa::reference
