#include "suite/ledger.h"

#include <cmath>

#include "core/case.h"
#include "core/codes.h"
#include "core/number_text.h"
#include "cuvexa/lost_connection.h"

namespace cuvexa::reference {

std::optional<Account> Ledger::find(std::string_view folio) {
    const Raw prefix{names_.prefix};
    const Rows rows = context_.query(
        "SELECT {}_Tabla AS Tabla, {}_Documento AS Documento, Es_Cve_Estado, Mn_Cve_Moneda, {}_Tipo_Cambio AS "
        "Tipo_Cambio, "
        "{}_Precio_Neto_Importe AS Importe, {}_Precio_Neto_Saldo AS Saldo FROM {} WHERE {}_Folio = '{}'",
        prefix, prefix, prefix, prefix, prefix, Raw{names_.accounts}, prefix, folio);
    if (rows.eof()) return std::nullopt;
    return Account{.folio = std::string(folio),
                   .source_table = rows.text("Tabla"),
                   .source_document = rows.text("Documento"),
                   .state = rows.text("Es_Cve_Estado"),
                   .currency = rows.text("Mn_Cve_Moneda"),
                   .exchange_rate = rows.number("Tipo_Cambio"),
                   .amount = rows.number("Importe"),
                   .balance = rows.number("Saldo")};
}

Account Ledger::require(std::string_view folio) {
    std::optional<Account> account = find(folio);
    refuse_if(!account, "La {}: {}, no existe; verifique el folio", names_.noun, folio);
    refuse_if(account->cancelled() || account->withdrawn(), "La {}: {}, está cancelada; elija otra", names_.noun,
              folio);
    return *std::move(account);
}

std::string Ledger::open(const New_account& account) {
    refuse_if(std::abs(account.amount) < tolerance, "El importe de la {} no puede ser cero; indique un importe",
              names_.noun);
    refuse_if(!(account.exchange_rate > 0), "El tipo de cambio: {}, de la {} no es válido; indique uno mayor que cero",
              shown_number(account.exchange_rate), names_.noun);
    refuse_if(context_.look_up("Mn_Descripcion", "Mn_Cve_Moneda", account.currency, "Moneda").empty(),
              "La moneda: {}, no existe o está dada de baja; elija otra", account.currency);

    std::string folio = context_.take_folio(account.branch, std::string(names_.code));
    const std::string& document = account.source_document.empty() ? folio : account.source_document;
    const Raw prefix{names_.prefix};
    const std::string now = context_.stamp();
    context_.execute(
        "INSERT INTO {} ({}_Folio, {}_Tabla, {}_Documento, {}_Fecha, {}_Fecha_Vencimiento, Sc_Cve_Sucursal, {}, "
        "Mn_Cve_Moneda, {}_Tipo_Cambio, {}_Importe, {}_Neto, {}_Precio_Neto_Importe, {}_Precio_Neto_Pago, "
        "{}_Precio_Neto_Saldo, {}_Referencia, {}_Comentario, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif) "
        "VALUES ('{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', {}, {}, {}, {}, 0, {}, '{}', '{}', '{}', '{}', '{}', "
        "'{}')",
        Raw{names_.accounts}, prefix, prefix, prefix, prefix, prefix, Raw{names_.party}, prefix, prefix, prefix, prefix,
        prefix, prefix, prefix, prefix, folio, account.source_table, document, context_.day_text(account.date),
        context_.day_text(account.due_date), account.branch, account.party, account.currency, account.exchange_rate,
        account.total, account.net, account.amount, account.amount, account.reference, account.comment, context_.user(),
        now, context_.user(), now);
    return folio;
}

double Ledger::in_currency_of(const Account& account, double amount, std::string_view currency, double exchange_rate) {
    if (same_text(account.currency, currency) || account.exchange_rate == 0) return amount;
    return cents(amount * exchange_rate / account.exchange_rate);
}

std::string Ledger::pay(const Account& account, const New_payment& payment) {
    std::string id = next_payment_id(account.folio);
    // Another session may take the number between the look and the insertion; then there is a higher one.
    for (bool paid = false; !paid;) {
        try {
            insert_payment(account, payment, id);
            paid = true;
        } catch (const Conflict_error&) {
            throw;
        } catch (const Lost_connection_error&) {
            throw;
        } catch (const Database_error&) {
            if (payment_state(account.folio, id).eof()) throw;
            id = next_payment_id(account.folio);
        }
    }
    if (payment.affects_balance) update_balance(account.folio);
    return id;
}

std::string Ledger::next_payment_id(std::string_view folio) {
    const Rows highest =
        context_.query("SELECT ISNULL(MAX(CAST(Pc_ID AS INT)), 0) AS Pc_ID FROM {} WHERE {}_Folio = '{}'",
                       Raw{names_.payments}, Raw{names_.prefix}, folio);
    return four_digits(static_cast<std::int64_t>(highest.number("Pc_ID")) + 1);
}

Rows Ledger::payment_state(std::string_view folio, std::string_view payment_id) {
    return context_.query("SELECT Es_Cve_Estado FROM {} WHERE {}_Folio = '{}' AND Pc_ID = '{}'", Raw{names_.payments},
                          Raw{names_.prefix}, folio, payment_id);
}

void Ledger::insert_payment(const Account& account, const New_payment& payment, const std::string& id) {
    const double amount = in_currency_of(account, payment.amount, payment.currency, payment.exchange_rate);
    const double rate = same_text(account.currency, payment.currency) ? payment.exchange_rate : account.exchange_rate;
    const std::string now = context_.stamp();
    context_.execute(
        "INSERT INTO {} ({}_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago, "
        "Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, "
        "Fp_Cve_Forma_Pago, "
        "Pc_Afecta_Saldo, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado) "
        "VALUES ('{}', '{}', '{}', {}, '{}', {}, {}, '{}', {}, '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', "
        "'{}', 'AC')",
        Raw{names_.payments}, Raw{names_.prefix}, account.folio, id, context_.day_text(payment.date), amount,
        account.currency, rate, payment.amount, payment.currency, payment.exchange_rate, payment.source_table,
        payment.source_document, payment.reference, payment.concept_text, payment.payment_method,
        payment.affects_balance ? "SI" : "NO", context_.user(), now, context_.user(), now);
}

void Ledger::cancel_payment(const std::string& folio, const std::string& payment_id) {
    const std::optional<Account> account = find(folio);
    refuse_if(!account, "La {}: {}, no existe; verifique el folio", names_.noun, folio);
    refuse_if(account->cancelled(), "La {}: {}, está cancelada; sus pagos ya no pueden cancelarse", names_.noun, folio);
    const Rows payment = payment_state(folio, payment_id);
    refuse_if(payment.eof(), "El pago: {}, de la {}: {}, no existe; verifique el número", payment_id, names_.noun,
              folio);
    refuse_if(payment.text("Es_Cve_Estado") == state::cancelled, "El pago: {}, de la {}: {}, ya está cancelado",
              payment_id, names_.noun, folio);
    refuse_if(context_.is_posted(names_.payments, folio + ":" + payment_id),
              "El pago: {}, de la {}: {}, está contabilizado; cancele antes su registro en contabilidad", payment_id,
              names_.noun, folio);
    refuse_if(context_.is_period_closed(context_.now(), names_.module),
              "El período de {} está cerrado; ábralo para cancelar el pago: {}, de la {}: {}", names_.module,
              payment_id, names_.noun, folio);
    mark_payment_cancelled(folio, payment_id);
}

bool Ledger::has_live_payments(std::string_view folio) {
    return !context_
                .query("SELECT Pc_ID FROM {} WHERE {}_Folio = '{}' AND Es_Cve_Estado <> 'CA'", Raw{names_.payments},
                       Raw{names_.prefix}, folio)
                .eof();
}

std::vector<std::string> Ledger::of_document(std::string_view source_table, std::string_view source_document) {
    const Raw prefix{names_.prefix};
    Rows rows = context_.query(
        "SELECT {}_Folio AS Folio FROM {} WHERE {}_Documento = '{}' AND {}_Tabla = '{}' AND Es_Cve_Estado <> 'CA' "
        "ORDER BY {}_Folio",
        prefix, Raw{names_.accounts}, prefix, source_document, prefix, source_table, prefix);
    std::vector<std::string> folios;
    for (; !rows.eof(); rows.next()) folios.push_back(rows.text("Folio"));
    return folios;
}

void Ledger::require_unpaid(const std::vector<std::string>& folios) {
    for (const std::string& folio : folios) {
        refuse_if(has_live_payments(folio), "La {}: {}, tiene pagos aplicados; cancele antes sus pagos", names_.noun,
                  folio);
        refuse_if(context_.is_posted(names_.code, folio),
                  "La {}: {}, está contabilizada; cancele antes su registro en contabilidad", names_.noun, folio);
    }
}

void Ledger::cancel(std::string_view folio) {
    const std::string now = context_.stamp();
    context_.execute(
        "UPDATE {} SET Es_Cve_Estado = 'CA', Oper_Baja = '{}', Fecha_Baja = '{}', Oper_Ult_Modif = '{}', "
        "Fecha_Ult_Modif = '{}' WHERE {}_Folio = '{}'",
        Raw{names_.accounts}, context_.user(), now, context_.user(), now, Raw{names_.prefix}, folio);
}

// From the payments, not from the old balance: cancelling a payment gives back exactly the figure there was before it.
void Ledger::update_balance(std::string_view folio) {
    const Raw prefix{names_.prefix};
    const std::string paid =
        sql("(SELECT ISNULL(SUM(Pc_Importe), 0) FROM {} WHERE {}_Folio = '{}' AND Es_Cve_Estado <> 'CA' AND "
            "Pc_Afecta_Saldo = 'SI')",
            Raw{names_.payments}, prefix, folio);
    context_.execute(
        "UPDATE {} SET {}_Precio_Neto_Pago = {}, {}_Precio_Neto_Saldo = {}_Precio_Neto_Importe - {}, "
        "Oper_Ult_Modif = '{}', Fecha_Ult_Modif = '{}' WHERE {}_Folio = '{}'",
        Raw{names_.accounts}, prefix, Raw{paid}, prefix, prefix, Raw{paid}, context_.user(), context_.stamp(), prefix,
        folio);
}

void Ledger::mark_payment_cancelled(std::string_view folio, std::string_view payment_id) {
    const std::string now = context_.stamp();
    context_.execute(
        "UPDATE {} SET Es_Cve_Estado = 'CA', Oper_Baja = '{}', Fecha_Baja = '{}', Oper_Ult_Modif = '{}', "
        "Fecha_Ult_Modif = '{}' WHERE {}_Folio = '{}' AND Pc_ID = '{}'",
        Raw{names_.payments}, context_.user(), now, context_.user(), now, Raw{names_.prefix}, folio, payment_id);
    update_balance(folio);
}

}  // namespace cuvexa::reference
