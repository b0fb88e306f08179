#include "model/receivables.h"

namespace cuvexa::model {
namespace {

const Text advance_code = "ANTICIPO_CXC";

double whole_units(double amount) {
    return std::trunc(std::abs(cents(amount)));
}

}  // namespace

bool Receivables::ApplyReceipt(const Receipt_application& receipt) {
    return serve([&] {
        require_customer(receipt.customer);
        refuse_if(!(receipt.amount > 0),
                  {"El importe a aplicar del recibo: ", receipt.folio, ", debe ser mayor que cero"});
        const double left = pay_open_receivables(receipt);
        if (left >= half_a_cent) open_advance(receipt, left);
    });
}

/// Pays what the receipt names, or else the customer's open receivables, oldest first; gives what is left.
double Receivables::pay_open_receivables(const Receipt_application& receipt) {
    const auto lines = db.Recibo_Pago.where(
        [&](const auto& r) {
            return same(r.Rp_Folio, receipt.folio) && differs(r.Rp_Tabla, "") && differs(r.Rp_Documento, "");
        },
        &rows::Recibo_Pago::Rp_Id);
    auto open = db.Cuenta_x_Cobrar.where([&](const auto& r) {
        return same(r.Cl_Cve_Cliente, receipt.customer) && same(r.Mn_Cve_Moneda, receipt.currency) &&
               r.Cxc_Precio_Neto_Saldo > half_a_cent && differs(r.Es_Cve_Estado, "CA") &&
               in_one_case(r.Cxc_Tabla).find("-ca:") == Text::npos &&
               (lines.empty() ||
                (same(r.Cxc_Tabla, lines.front().Rp_Tabla) && same(r.Cxc_Documento, lines.front().Rp_Documento)));
    });
    std::stable_sort(open.begin(), open.end(), [](const auto& a, const auto& b) {
        return a.Cxc_Fecha != b.Cxc_Fecha ? a.Cxc_Fecha < b.Cxc_Fecha : before(a.Cxc_Folio, b.Cxc_Folio);
    });
    double left = receipt.amount;
    for (const auto& row : open) {
        if (left < half_a_cent) break;
        const auto account = require(row.Cxc_Folio);
        const double amount = std::min(left, account.Cxc_Precio_Neto_Saldo);
        pay(account, row.Cxc_Folio,
            {receipt.date,
             amount,
             receipt.currency,
             receipt.rate,
             receipt.document_code,
             receipt.folio,
             receipt.reference,
             receipt.comment,
             {}});
        left -= amount;
    }
    return left;
}

void Receivables::open_advance(const Receipt_application& receipt, double amount) {
    const Text folio = suite.take_folio(receipt.branch, advance_code);
    rows::Cuenta_x_Cobrar account;
    account.Cxc_Tabla = advance_code;
    account.Cxc_Documento = folio;
    account.Cl_Cve_Cliente = receipt.customer;
    account.Mn_Cve_Moneda = receipt.currency;
    account.Cxc_Tipo_Cambio = receipt.rate;
    account.Cxc_Importe = account.Cxc_Neto = account.Cxc_Precio_Neto_Importe = -amount;
    account.Cxc_Referencia = receipt.reference;
    account.Cxc_Comentario = receipt.comment;
    open(account, receipt.branch, receipt.date, receipt.date);

    rows::Anticipo_Cxc advance;
    advance.An_Folio = folio;
    advance.An_Tabla = receipt.document_code;
    advance.An_Documento = receipt.folio;
    advance.An_Fecha = sql_date(receipt.date);
    advance.Sc_Cve_Sucursal = receipt.branch;
    advance.Cl_Cve_Cliente = receipt.customer;
    advance.Mn_Cve_Moneda = receipt.currency;
    advance.An_Tipo_Cambio = bare(receipt.rate);
    advance.An_Importe = bare(amount);
    advance.An_Referencia = receipt.reference;
    advance.An_Comentario = receipt.comment;
    advance.Oper_Alta = advance.Oper_Ult_Modif = suite.user;
    advance.Fecha_Alta = advance.Fecha_Ult_Modif = suite.stamp();
    db.Anticipo_Cxc.insert(advance);
}

bool Receivables::CreateReceivable(const New_receivable& given) {
    return serve([&] {
        require_customer(given.customer);
        const double amount = given.net_price_amount != 0 ? given.net_price_amount
                              : given.net_amount != 0     ? given.net_amount
                                                          : given.amount;
        refuse_if(given.balance != 0 && std::abs(given.balance - amount) > half_a_cent,
                  {"El saldo inicial: ", number_text(given.balance),
                   ", de la cuenta por cobrar debe ser igual a su importe: ", number_text(amount)});
        rows::Cuenta_x_Cobrar account;
        account.Cxc_Tabla = given.table;
        account.Cxc_Documento = given.document;
        account.Cl_Cve_Cliente = given.customer;
        account.Mn_Cve_Moneda = given.currency;
        account.Cxc_Tipo_Cambio = given.rate;
        account.Cxc_Importe = given.amount;
        account.Cxc_Neto = given.net_amount;
        account.Cxc_Precio_Neto_Importe = amount;
        account.Cxc_Referencia = given.reference;
        account.Cxc_Comentario = given.comment;
        open(account, given.branch, given.date, given.due_date);
    });
}

bool Receivables::ApplyCustomerDocument(const Text& document_folio) {
    return serve([&] {
        const auto expense =
            db.Gasto_x_Comprobar.first([&](const auto& r) { return same(r.Gc_Folio, document_folio); });
        refuse_if(!expense, {"El gasto por comprobar: ", document_folio, ", no existe; verifique el folio"});
        refuse_if(expense->Es_Cve_Estado == "CA",
                  {"El gasto por comprobar: ", document_folio, ", está cancelado; genere otro"});
        if (!of_document("GASTO_X_COMPROBAR", document_folio).empty()) return;
        require_customer(expense->Cl_Cve_Cliente);
        rows::Cuenta_x_Cobrar account;
        account.Cxc_Tabla = "GASTO_X_COMPROBAR";
        account.Cxc_Documento = document_folio;
        const Date date = date_of(expense->Gc_Fecha);
        account.Cl_Cve_Cliente = expense->Cl_Cve_Cliente;
        account.Mn_Cve_Moneda = expense->Mn_Cve_Moneda;
        account.Cxc_Tipo_Cambio = expense->Gc_Tipo_Cambio;
        account.Cxc_Importe = account.Cxc_Neto = account.Cxc_Precio_Neto_Importe = expense->Gc_Importe;
        account.Cxc_Referencia = expense->Gc_Referencia;
        account.Cxc_Comentario = expense->Gc_Comentario;
        open(account, expense->Sc_Cve_Sucursal, date, date);
    });
}

bool Receivables::ValidateDocumentCancellation(const Text& document_code, const Text& folio) {
    return serve([&] { require_unpaid(of_document(document_code, folio)); });
}

bool Receivables::CancelDocumentAdvances(const Text& document_code, const Text& folio) {
    return serve([&] {
        const auto advances = db.Anticipo_Cxc.where(
            [&](const auto& r) {
                return same(r.An_Documento, folio) && same(r.An_Tabla, document_code) && differs(r.Es_Cve_Estado, "CA");
            },
            &rows::Anticipo_Cxc::An_Folio);
        for (const auto& advance : advances) {
            for (const Text& own : of_document(advance_code, advance.An_Folio)) {
                refuse_if(has_live_payments(own),
                          {"El anticipo: ", advance.An_Folio, ", ya está aplicado; cancele antes su aplicación"});
            }
            refuse_if(
                suite.is_posted(advance_code, advance.An_Folio),
                {"El anticipo: ", advance.An_Folio, ", está contabilizado; cancele antes su registro en contabilidad"});
        }
        for (const auto& advance : advances) {
            for (const Text& own : of_document(advance_code, advance.An_Folio)) cancel(own);
            db.Anticipo_Cxc.update([&](const auto& r) { return same(r.An_Folio, advance.An_Folio); },
                                   [&](auto& r) { mark_cancelled(r); });
        }
    });
}

bool Receivables::CancelDocumentReceivables(const Text& document_code, const Text& folio) {
    return serve([&] {
        const auto folios = of_document(document_code, folio);
        require_unpaid(folios);
        for (const Text& receivable : folios) cancel(receivable);
    });
}

bool Receivables::CancelPayment(const Text& folio, const Text& id) {
    return serve([&] { cancel_payment(folio, id); });
}

void Receivables::cancel_payment(const Text& folio, const Text& id) {
    const auto payment =
        db.Pago_Cxc.first([&](const auto& r) { return same(r.Cxc_Folio, folio) && same(r.Pc_ID, id); });
    Ledger::cancel_payment(folio, id);
    const auto account = *accounts().first(of(folio));
    const Text& reference = payment->Pc_Referencia;
    if (same_code(account.Cxc_Tabla, advance_code)) {
        if (!reference.empty()) {
            cancel_where([&](const auto& r) {
                return same(r.Pc_Documento, account.Cxc_Documento) && same(r.Pc_Tabla, advance_code) &&
                       same(r.Pc_Referencia, reference);
            });
        }
        reopen_advance(account.Cxc_Documento);
    } else if (same(payment->Pc_Tabla, advance_code)) {
        for (const Text& own : of_document(advance_code, payment->Pc_Documento)) {
            if (reference.empty()) continue;
            cancel_where([&](const auto& r) { return same(r.Cxc_Folio, own) && same(r.Pc_Referencia, reference); });
        }
        reopen_advance(payment->Pc_Documento);
    }
}

template <class Where>
void Receivables::cancel_where(Where&& where) {
    for (const auto& payment : db.Pago_Cxc.where(where)) {
        if (differs(payment.Es_Cve_Estado, "CA")) mark_payment_cancelled(payment.Cxc_Folio, payment.Pc_ID);
    }
}

void Receivables::reopen_advance(const Text& advance) {
    db.Anticipo_Cxc.update([&](const auto& r) { return same(r.An_Folio, advance) && same(r.Es_Cve_Estado, "AP"); },
                           [&](auto& r) {
                               r.Es_Cve_Estado = "AC";
                               r.Oper_Ult_Modif = suite.user;
                               r.Fecha_Ult_Modif = suite.stamp();
                           });
}

bool Receivables::RegisterPayment(const Text& folio, const New_payment& payment) {
    return serve([&] {
        const auto account = require(folio);
        refuse_if(!(payment.amount > 0),
                  {"El importe del pago de la cuenta por cobrar: ", folio, ", debe ser mayor que cero"});
        const double amount = in_currency_of(account, payment.amount, payment.currency, payment.rate);
        const double balance = account.Cxc_Precio_Neto_Saldo;
        refuse_if(whole_units(amount) > whole_units(balance) ||
                      (balance != 0 && (balance < 0) != (account.Cxc_Precio_Neto_Importe < 0)),
                  {"El pago: ", number_text(amount), ", es mayor al saldo: ", number_text(cents(balance)),
                   ", de la cuenta por cobrar: ", folio, "; pague a lo más el saldo"});
        New_payment signed_payment = payment;
        if (account.Cxc_Precio_Neto_Importe < 0) signed_payment.amount = -payment.amount;
        const Text id = pay(account, folio, signed_payment);
        suite.register_document("PAGO_CXC", folio + ":" + id);
    });
}

bool Receivables::DocumentCheck(const Text& document_code, const Text& folio) {
    return serve([&] {
        if (same(document_code, advance_code)) {
            const auto advance = db.Anticipo_Cxc.first([&](const auto& r) { return same(r.An_Folio, folio); });
            refuse_if(!advance, {"El anticipo: ", folio, ", no existe; verifique el folio"});
            refuse_if(advance->Es_Cve_Estado == "CA",
                      {"El anticipo: ", folio, ", está cancelado; sus pagos no pueden cambiar"});
        }
        refuse_if(suite.is_posted(document_code, folio),
                  {document_code, ": ", folio, ", está contabilizado; cancele antes su registro en contabilidad"});
        refuse_if(suite.is_period_closed(suite.now, "CUENTAS_X_COBRAR"),
                  {"El período de CUENTAS_X_COBRAR está cerrado; ábralo para cancelar los pagos de ", document_code,
                   ": ", folio});
    });
}

void Receivables::require_customer(const Text& customer) {
    refuse_if(
        suite.look_up(db.Cliente, &rows::Cliente::Cl_Descripcion, &rows::Cliente::Cl_Cve_Cliente, customer).empty(),
        {"El cliente: ", customer, ", no existe o está dado de baja; elija otro"});
}

}  // namespace cuvexa::model
