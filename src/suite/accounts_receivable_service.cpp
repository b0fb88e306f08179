#include "suite/accounts_receivable_service.h"

#include <algorithm>
#include <cmath>

#include "core/case.h"
#include "core/codes.h"

namespace cuvexa::reference {
namespace {

double whole_units(double amount) {
    return std::trunc(std::abs(cents(amount)));
}

double first_given(double a, double b, double c) {
    return a != 0 ? a : b != 0 ? b : c;
}

}  // namespace

bool Receivables::ApplyReceipt(const Receipt_application& receipt) {
    return serve(last_error_, [&] {
        ledger_.require_party(receipt.customer);
        refuse_if(!(receipt.amount > 0), "El importe a aplicar del recibo: {}, debe ser mayor que cero", receipt.folio);
        const double left = pay_open_receivables(receipt);
        if (left < tolerance) return;
        ledger_.open_advance({.party = receipt.customer,
                              .branch = receipt.branch,
                              .source_table = receipt.document_code,
                              .source_document = receipt.folio,
                              .date = receipt.date,
                              .due_date = receipt.date,
                              .currency = receipt.currency,
                              .exchange_rate = receipt.exchange_rate,
                              .amount = left,
                              .reference = receipt.reference,
                              .comment = receipt.comment});
    });
}

bool Receivables::CreateReceivable(const Receivable& receivable) {
    return serve(last_error_, [&] {
        ledger_.require_party(receivable.customer);
        const double amount = first_given(receivable.net_price_amount, receivable.net_amount, receivable.amount);
        refuse_if(receivable.balance != 0 && std::abs(receivable.balance - amount) > tolerance,
                  "El saldo inicial: {}, de la cuenta por cobrar debe ser igual a su importe: {}", receivable.balance,
                  amount);
        ledger_.open({.party = receivable.customer,
                      .branch = receivable.branch,
                      .source_table = receivable.source_table,
                      .source_document = receivable.source_document,
                      .date = receivable.date,
                      .due_date = receivable.due_date,
                      .currency = receivable.currency,
                      .exchange_rate = receivable.exchange_rate,
                      .total = receivable.amount,
                      .net = receivable.net_amount,
                      .amount = amount,
                      .reference = receivable.reference,
                      .comment = receivable.comment});
    });
}

bool Receivables::ApplyCustomerDocument(const std::string& document_folio) {
    return serve(last_error_, [&] {
        const Rows expense = context_->query("SELECT * FROM Gasto_x_Comprobar WHERE Gc_Folio = '{}'", document_folio);
        refuse_if(expense.eof(), "El gasto por comprobar: {}, no existe; verifique el folio", document_folio);
        refuse_if(expense.text("Es_Cve_Estado") == state::cancelled,
                  "El gasto por comprobar: {}, está cancelado; genere otro", document_folio);
        if (!ledger_.of_document(document::expense, document_folio).empty()) return;
        const double amount = expense.number("Gc_Importe");
        ledger_.open({.party = expense.text("Cl_Cve_Cliente"),
                      .branch = expense.text("Sc_Cve_Sucursal"),
                      .source_table = document::expense,
                      .source_document = document_folio,
                      .date = expense.date("Gc_Fecha"),
                      .due_date = expense.date("Gc_Fecha"),
                      .currency = expense.text("Mn_Cve_Moneda"),
                      .exchange_rate = expense.number("Gc_Tipo_Cambio"),
                      .total = amount,
                      .net = amount,
                      .amount = amount,
                      .reference = expense.text("Gc_Referencia"),
                      .comment = expense.text("Gc_Comentario")});
    });
}

bool Receivables::ValidateDocumentCancellation(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] { ledger_.require_unpaid(ledger_.of_document(document_code, folio)); });
}

bool Receivables::CancelDocumentAdvances(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] {
        std::vector<std::string> advances;
        Rows rows = context_->query(
            "SELECT An_Folio FROM Anticipo_Cxc WHERE An_Documento = '{}' AND An_Tabla = '{}' AND Es_Cve_Estado <> 'CA' "
            "ORDER BY An_Folio",
            folio, document_code);
        for (; !rows.eof(); rows.next()) advances.push_back(rows.text("An_Folio"));
        for (const std::string& advance : advances) ledger_.require_unused_advance(advance);
        for (const std::string& advance : advances) ledger_.cancel_advance(advance);
    });
}

bool Receivables::CancelDocumentReceivables(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] {
        const std::vector<Live_account> receivables = ledger_.of_document(document_code, folio);
        ledger_.require_unpaid(receivables);
        for (const Live_account& receivable : receivables) ledger_.cancel(receivable);
    });
}

bool Receivables::CancelPayment(const std::string& receivable_folio, const std::string& payment_id) {
    return serve(last_error_, [&] { ledger_.cancel_payment(receivable_folio, payment_id); });
}

bool Receivables::RegisterPayment(const Receivable_payment& payment) {
    return serve(last_error_, [&] {
        const Account account = ledger_.require(payment.receivable_folio);
        refuse_if(!(payment.amount > 0), "El importe del pago de la cuenta por cobrar: {}, debe ser mayor que cero",
                  account.folio);
        const double amount = Ledger::in_currency_of(account, payment.amount, payment.currency, payment.exchange_rate);
        const bool beyond = whole_units(amount) > whole_units(account.balance) ||
                            (account.balance != 0 && (account.balance < 0) != (account.amount < 0));
        refuse_if(payment.validate_balance && beyond,
                  "El pago: {}, es mayor al saldo: {}, de la cuenta por cobrar: {}; pague a lo más el saldo", amount,
                  cents(account.balance), account.folio);
        const std::string id = ledger_.pay(account, {.date = payment.date,
                                                     .amount = account.amount < 0 ? -payment.amount : payment.amount,
                                                     .currency = payment.currency,
                                                     .exchange_rate = payment.exchange_rate,
                                                     .source_table = payment.source_table,
                                                     .source_document = payment.source_document,
                                                     .reference = payment.reference,
                                                     .concept_text = payment.concept_text,
                                                     .payment_method = payment.payment_method,
                                                     .affects_balance = payment.update_balance});
        if (payment.register_document) {
            context_->register_document(document::receivable_payment, account.folio + ":" + id);
        }
    });
}

bool Receivables::DocumentCheck(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] {
        if (same_text(document_code, document::customer_advance)) {
            const Rows advance = context_->query("SELECT Es_Cve_Estado FROM Anticipo_Cxc WHERE An_Folio = '{}'", folio);
            refuse_if(advance.eof(), "El anticipo: {}, no existe; verifique el folio", folio);
            refuse_if(advance.text("Es_Cve_Estado") == state::cancelled,
                      "El anticipo: {}, está cancelado; sus pagos no pueden cambiar", folio);
        }
        refuse_if(context_->is_posted(document_code, folio),
                  "{}: {}, está contabilizado; cancele antes su registro en contabilidad", document_code, folio);
        refuse_if(context_->is_period_closed(context_->now(), receivable_names.module),
                  "El período de CUENTAS_X_COBRAR está cerrado; ábralo para cancelar los pagos de {}: {}",
                  document_code, folio);
    });
}

double Receivables::pay_open_receivables(const Receipt_application& receipt) {
    const Rows named = context_->query(
        "SELECT TOP 1 Rp_Tabla, Rp_Documento FROM Recibo_Pago WHERE Rp_Folio = '{}' AND Rp_Tabla <> '' AND "
        "Rp_Documento <> '' "
        "ORDER BY Rp_Id",
        receipt.folio);
    std::string condition;
    if (!named.eof()) {
        condition =
            sql(" AND Cxc_Tabla = '{}' AND Cxc_Documento = '{}'", named.text("Rp_Tabla"), named.text("Rp_Documento"));
    }
    Rows open = context_->query(
        "SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cl_Cve_Cliente = '{}' AND Mn_Cve_Moneda = '{}' AND "
        "Cxc_Precio_Neto_Saldo > {} AND Es_Cve_Estado <> 'CA' AND Cxc_Tabla NOT LIKE '%-CA:%'{} "
        "ORDER BY Cxc_Fecha, Cxc_Folio",
        receipt.customer, receipt.currency, tolerance, Raw{condition});
    return pay_from(receipt, std::move(open), receipt.amount);
}

/// Pays the open receivables in turn and gives what is left.
double Receivables::pay_from(const Receipt_application& receipt, Rows open, double left) {
    for (; !open.eof() && left >= tolerance; open.next()) {
        const Account account = ledger_.require(open.text("Cxc_Folio"));
        const double amount = std::min(left, account.balance);
        ledger_.pay(account, {.date = receipt.date,
                              .amount = amount,
                              .currency = receipt.currency,
                              .exchange_rate = receipt.exchange_rate,
                              .source_table = receipt.document_code,
                              .source_document = receipt.folio,
                              .reference = receipt.reference,
                              .concept_text = receipt.comment,
                              .payment_method = {}});
        left -= amount;
    }
    return left;
}

}  // namespace cuvexa::reference
