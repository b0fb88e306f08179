#include "suite/ledger.h"

#include <cmath>

#include "core/case.h"
#include "core/codes.h"
#include "core/number_text.h"
#include "cuvexa/lost_connection.h"

namespace cuvexa::reference {
namespace {

bool is_there(const Rows& rows, std::string_view column) {
    return !is_null(rows.value(column));
}

}  // namespace

Account Ledger::require(std::string_view folio) {
    const Raw prefix{names_.prefix};
    const Rows rows = context_.query(
        "SELECT {}_Tabla AS Tabla, {}_Documento AS Documento, Es_Cve_Estado, Mn_Cve_Moneda, {}_Tipo_Cambio AS "
        "Tipo_Cambio, {}_Precio_Neto_Importe AS Importe, {}_Precio_Neto_Saldo AS Saldo, "
        "(SELECT ISNULL(MAX(CAST(Pc_ID AS INT)), 0) FROM {} WHERE {}_Folio = '{}') AS Ultimo_Pago{} "
        "FROM {} WHERE {}_Folio = '{}'",
        prefix, prefix, prefix, prefix, prefix, Raw{names_.payments}, prefix, folio, Raw{context_.time_column()},
        Raw{names_.accounts}, prefix, folio);
    refuse_if(rows.eof(), "La {}: {}, no existe; verifique el folio", names_.noun, folio);
    Account account{.folio = std::string(folio),
                    .source_table = rows.text("Tabla"),
                    .source_document = rows.text("Documento"),
                    .state = rows.text("Es_Cve_Estado"),
                    .currency = rows.text("Mn_Cve_Moneda"),
                    .exchange_rate = rows.number("Tipo_Cambio"),
                    .amount = rows.number("Importe"),
                    .balance = rows.number("Saldo"),
                    .last_payment = static_cast<std::int64_t>(rows.number("Ultimo_Pago")),
                    .asked = context_.time_of(rows)};
    refuse_if(account.cancelled() || account.withdrawn(), "La {}: {}, está cancelada; elija otra", names_.noun, folio);
    return account;
}

void Ledger::require_party(const std::string& party) {
    refuse_party_if(context_.look_up(names_.party_name, names_.party, party, names_.parties).empty(), party);
}

void Ledger::refuse_party_if(bool unknown, const std::string& party) {
    refuse_if(unknown, "El {}: {}, no existe o está dado de baja; elija otro", names_.party_noun, party);
}

std::string Ledger::open(const New_account& account) {
    const Rows known = context_.query(
        "SELECT (SELECT {} FROM {} WHERE {} = '{}' AND Es_Cve_Estado <> 'BA') AS Nombre, "
        "(SELECT Mn_Descripcion FROM Moneda WHERE Mn_Cve_Moneda = '{}' AND Es_Cve_Estado <> 'BA') AS Moneda{}",
        Raw{names_.party_name}, Raw{names_.parties}, Raw{names_.party}, account.party, account.currency,
        Raw{context_.time_column()});
    refuse_party_if(known.text("Nombre").empty(), account.party);
    refuse_if(std::abs(account.amount) < tolerance, "El importe de la {} no puede ser cero; indique un importe",
              names_.noun);
    refuse_if(!(account.exchange_rate > 0), "El tipo de cambio: {}, de la {} no es válido; indique uno mayor que cero",
              shown_number(account.exchange_rate), names_.noun);
    refuse_if(known.text("Moneda").empty(), "La moneda: {}, no existe o está dada de baja; elija otra",
              account.currency);

    std::string folio = context_.take_folio(account.branch, std::string(names_.code));
    const std::string& document = account.source_document.empty() ? folio : account.source_document;
    const Raw prefix{names_.prefix};
    const std::string now = context_.time_text(context_.time_of(known));
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
    const std::string now = context_.time_text(account.asked);
    std::int64_t number = account.last_payment + 1;
    // Somebody may have taken the number since the account was looked at; then there is a higher one.
    while (!insert_payment(account, payment, number, now)) number = last_payment(account.folio) + 1;
    if (payment.affects_balance) update_balance(account.folio, now);
    return four_digits(number);
}

std::int64_t Ledger::last_payment(std::string_view folio) {
    const Rows highest =
        context_.query("SELECT ISNULL(MAX(CAST(Pc_ID AS INT)), 0) AS Pc_ID FROM {} WHERE {}_Folio = '{}'",
                       Raw{names_.payments}, Raw{names_.prefix}, folio);
    return static_cast<std::int64_t>(highest.number("Pc_ID"));
}

bool Ledger::insert_payment(const Account& account, const New_payment& payment, std::int64_t number,
                            const std::string& now) {
    try {
        return insert_if_new(account, payment, four_digits(number), now);
    } catch (const Conflict_error&) {
        throw;
    } catch (const Lost_connection_error&) {
        throw;
    } catch (const Database_error&) {
        // A server may look in two sessions at once and find the number free in both.
        if (last_payment(account.folio) < number) throw;
        return false;
    }
}

bool Ledger::insert_if_new(const Account& account, const New_payment& payment, const std::string& id,
                           const std::string& now) {
    const double amount = in_currency_of(account, payment.amount, payment.currency, payment.exchange_rate);
    const double rate = same_text(account.currency, payment.currency) ? payment.exchange_rate : account.exchange_rate;
    const Rows inserted = context_.query(
        "INSERT INTO {} ({}_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago, "
        "Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, "
        "Fp_Cve_Forma_Pago, Pc_Afecta_Saldo, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado) "
        "OUTPUT inserted.Pc_ID "
        "SELECT '{}', '{}', '{}', {}, '{}', {}, {}, '{}', {}, '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', "
        "'{}', 'AC' WHERE NOT EXISTS (SELECT Pc_ID FROM {} WHERE {}_Folio = '{}' AND Pc_ID = '{}')",
        Raw{names_.payments}, Raw{names_.prefix}, account.folio, id, context_.day_text(payment.date), amount,
        account.currency, rate, payment.amount, payment.currency, payment.exchange_rate, payment.source_table,
        payment.source_document, payment.reference, payment.concept_text, payment.payment_method,
        payment.affects_balance ? "SI" : "NO", context_.user(), now, context_.user(), now, Raw{names_.payments},
        Raw{names_.prefix}, account.folio, id);
    return !inserted.eof();
}

// All that the cancellation depends on is asked at once.
Rows Ledger::cancel_payment(const std::string& folio, const std::string& payment_id) {
    const Raw prefix{names_.prefix}, accounts{names_.accounts}, payments{names_.payments};
    const std::string year = context_.year_in_sql(), month = context_.month_in_sql();
    Rows rows = context_.query(
        "SELECT {}.{}_Tabla AS Tabla, {}.{}_Documento AS Documento, {}.Es_Cve_Estado AS Estado, "
        "{}.Es_Cve_Estado AS Estado_Pago, {}.Pc_ID, {}.Pc_Tabla, {}.Pc_Documento, {}.Pc_Referencia, "
        "Documento_Contabilizado.Dt_Documento, Periodo_Operativo.Po_Estado{} FROM {} "
        "LEFT JOIN {} ON {}.{}_Folio = {}.{}_Folio AND {}.Pc_ID = '{}' "
        "LEFT JOIN Documento_Contabilizado ON Documento_Contabilizado.Dt_Documento = '{}:{}' AND "
        "Documento_Contabilizado.Dt_Tabla = '{}' "
        "LEFT JOIN Periodo_Operativo ON Periodo_Operativo.Po_Modulo = '{}' AND Periodo_Operativo.Po_Ejercicio = {} AND "
        "Periodo_Operativo.Po_Mes = {} WHERE {}.{}_Folio = '{}'",
        accounts, prefix, accounts, prefix, accounts, payments, payments, payments, payments, payments,
        Raw{context_.time_column()}, accounts, payments, payments, prefix, accounts, prefix, payments, payment_id,
        folio, payment_id, names_.payments, names_.module, Raw{year}, Raw{month}, accounts, prefix, folio);
    refuse_if(rows.eof(), "La {}: {}, no existe; verifique el folio", names_.noun, folio);
    refuse_if(rows.text("Estado") == state::cancelled, "La {}: {}, está cancelada; sus pagos ya no pueden cancelarse",
              names_.noun, folio);
    refuse_if(!is_there(rows, "Pc_ID"), "El pago: {}, de la {}: {}, no existe; verifique el número", payment_id,
              names_.noun, folio);
    refuse_if(rows.text("Estado_Pago") == state::cancelled, "El pago: {}, de la {}: {}, ya está cancelado", payment_id,
              names_.noun, folio);
    refuse_if(is_there(rows, "Dt_Documento"),
              "El pago: {}, de la {}: {}, está contabilizado; cancele antes su registro en contabilidad", payment_id,
              names_.noun, folio);
    refuse_if(is_there(rows, "Po_Estado") && rows.text("Po_Estado") == period::closed,
              "El período de {} está cerrado; ábralo para cancelar el pago: {}, de la {}: {}", names_.module,
              payment_id, names_.noun, folio);
    mark_payment_cancelled(folio, payment_id, context_.time_text(context_.time_of(rows)));
    return rows;
}

std::vector<Live_account> Ledger::of_document(std::string_view source_table, std::string_view source_document,
                                              std::string_view posted_as) {
    const Raw prefix{names_.prefix}, accounts{names_.accounts}, payments{names_.payments};
    Rows rows = context_.query(
        "SELECT {}.{}_Folio AS Folio, Documento_Contabilizado.Dt_Documento, "
        "(SELECT COUNT(*) FROM {} WHERE {}.{}_Folio = {}.{}_Folio AND {}.Es_Cve_Estado <> 'CA') AS Pagos{} FROM {} "
        "LEFT JOIN Documento_Contabilizado ON Documento_Contabilizado.Dt_Documento = {}.{}_Folio AND "
        "Documento_Contabilizado.Dt_Tabla = '{}' "
        "WHERE {}.{}_Documento = '{}' AND {}.{}_Tabla = '{}' AND {}.Es_Cve_Estado <> 'CA' ORDER BY {}.{}_Folio",
        accounts, prefix, payments, payments, prefix, accounts, prefix, payments, Raw{context_.time_column()}, accounts,
        accounts, prefix, posted_as, accounts, prefix, source_document, accounts, prefix, source_table, accounts,
        accounts, prefix);
    std::vector<Live_account> live;
    for (; !rows.eof(); rows.next()) {
        live.push_back(
            {rows.text("Folio"), rows.number("Pagos") != 0, is_there(rows, "Dt_Documento"), context_.time_of(rows)});
    }
    return live;
}

void Ledger::require_unpaid(const std::vector<Live_account>& accounts) {
    for (const Live_account& account : accounts) {
        refuse_if(account.paid, "La {}: {}, tiene pagos aplicados; cancele antes sus pagos", names_.noun,
                  account.folio);
        refuse_if(account.posted, "La {}: {}, está contabilizada; cancele antes su registro en contabilidad",
                  names_.noun, account.folio);
    }
}

void Ledger::cancel(const Live_account& account) {
    const std::string now = context_.time_text(account.asked);
    context_.execute(
        "UPDATE {} SET Es_Cve_Estado = 'CA', Oper_Baja = '{}', Fecha_Baja = '{}', Oper_Ult_Modif = '{}', "
        "Fecha_Ult_Modif = '{}' WHERE {}_Folio = '{}'",
        Raw{names_.accounts}, context_.user(), now, context_.user(), now, Raw{names_.prefix}, account.folio);
}

void Ledger::update_balance(std::string_view folio, const std::string& now) {
    const Raw prefix{names_.prefix};
    const std::string paid =
        sql("(SELECT ISNULL(SUM(Pc_Importe), 0) FROM {} WHERE {}_Folio = '{}' AND Es_Cve_Estado <> 'CA' AND "
            "Pc_Afecta_Saldo = 'SI')",
            Raw{names_.payments}, prefix, folio);
    context_.execute(
        "UPDATE {} SET {}_Precio_Neto_Pago = {}, {}_Precio_Neto_Saldo = {}_Precio_Neto_Importe - {}, "
        "Oper_Ult_Modif = '{}', Fecha_Ult_Modif = '{}' WHERE {}_Folio = '{}'",
        Raw{names_.accounts}, prefix, Raw{paid}, prefix, prefix, Raw{paid}, context_.user(), now, prefix, folio);
}

void Ledger::mark_payment_cancelled(std::string_view folio, std::string_view payment_id, const std::string& now) {
    context_.execute(
        "UPDATE {} SET Es_Cve_Estado = 'CA', Oper_Baja = '{}', Fecha_Baja = '{}', Oper_Ult_Modif = '{}', "
        "Fecha_Ult_Modif = '{}' WHERE {}_Folio = '{}' AND Pc_ID = '{}'",
        Raw{names_.payments}, context_.user(), now, context_.user(), now, Raw{names_.prefix}, folio, payment_id);
    update_balance(folio, now);
}

}  // namespace cuvexa::reference
