// What receivables and payables have in common: accounts, their payments, and balances counted from the payments.
#pragma once

#include <cmath>

#include "cuvexa/value.h"
#include "model/suite.h"

namespace cuvexa::model {

/// How the two ledgers name their columns.
struct Receivable_names {
    using Account = rows::Cuenta_x_Cobrar;
    using Payment = rows::Pago_Cxc;
    static constexpr auto accounts = &Database::Cuenta_x_Cobrar;
    static constexpr auto payments = &Database::Pago_Cxc;
    static constexpr auto folio = &Account::Cxc_Folio;
    static constexpr auto table = &Account::Cxc_Tabla;
    static constexpr auto document = &Account::Cxc_Documento;
    static constexpr auto date = &Account::Cxc_Fecha;
    static constexpr auto due_date = &Account::Cxc_Fecha_Vencimiento;
    static constexpr auto rate = &Account::Cxc_Tipo_Cambio;
    static constexpr auto amount = &Account::Cxc_Precio_Neto_Importe;
    static constexpr auto paid = &Account::Cxc_Precio_Neto_Pago;
    static constexpr auto balance = &Account::Cxc_Precio_Neto_Saldo;
    static constexpr auto payment_folio = &Payment::Cxc_Folio;
    static constexpr const char* code = "CUENTA_X_COBRAR";
    static constexpr const char* payment_code = "Pago_Cxc";
    static constexpr const char* module = "CUENTAS_X_COBRAR";
    static constexpr const char* noun = "cuenta por cobrar";
};

struct Payable_names {
    using Account = rows::Cuenta_x_Pagar;
    using Payment = rows::Pago_Cxp;
    static constexpr auto accounts = &Database::Cuenta_x_Pagar;
    static constexpr auto payments = &Database::Pago_Cxp;
    static constexpr auto folio = &Account::Cxp_Folio;
    static constexpr auto table = &Account::Cxp_Tabla;
    static constexpr auto document = &Account::Cxp_Documento;
    static constexpr auto date = &Account::Cxp_Fecha;
    static constexpr auto due_date = &Account::Cxp_Fecha_Vencimiento;
    static constexpr auto rate = &Account::Cxp_Tipo_Cambio;
    static constexpr auto amount = &Account::Cxp_Precio_Neto_Importe;
    static constexpr auto paid = &Account::Cxp_Precio_Neto_Pago;
    static constexpr auto balance = &Account::Cxp_Precio_Neto_Saldo;
    static constexpr auto payment_folio = &Payment::Cxp_Folio;
    static constexpr const char* code = "CUENTA_X_PAGAR";
    static constexpr const char* payment_code = "Pago_Cxp";
    static constexpr const char* module = "CUENTAS_X_PAGAR";
    static constexpr const char* noun = "cuenta por pagar";
};

/// What a payment is made of, before it has its number.
struct New_payment {
    Date date;
    double amount = 0;  ///< as handed over, in `currency`
    Text currency;
    double rate = 0;
    Text table, document, reference, concept_text, method;
    bool affects_balance = true;
};

template <class Names>
struct Ledger : Service {
    using Service::Service;
    using Account = typename Names::Account;

    Table<Account>& accounts() { return db.*Names::accounts; }
    Table<typename Names::Payment>& payments() { return db.*Names::payments; }
    static auto of(const Text& folio) {
        return [folio](const auto& r) { return same(r.*Names::folio, folio); };
    }
    static auto live_of(const Text& folio) {
        return
            [folio](const auto& r) { return same(r.*Names::payment_folio, folio) && differs(r.Es_Cve_Estado, "CA"); };
    }

    /// An account that may still be paid.
    Account require(const Text& folio) {
        const auto account = accounts().first(of(folio));
        refuse_if(!account, {"La ", Names::noun, ": ", folio, ", no existe; verifique el folio"});
        refuse_if(account->Es_Cve_Estado == "CA" || ((*account).*Names::table).find("-CA:") != Text::npos,
                  {"La ", Names::noun, ": ", folio, ", está cancelada; elija otra"});
        return *account;
    }

    /// An amount in the account's own currency.
    static double in_currency_of(const Account& account, double amount, const Text& currency, double rate) {
        if (same_code(account.Mn_Cve_Moneda, currency) || account.*Names::rate == 0) return amount;
        return cents(amount * rate / account.*Names::rate);
    }

    /// Writes a new account with its full balance; the caller has filled all but folio, branch, dates, audit and balance.
    /// Gives its folio.
    Text open(Account account, const Text& branch, Date date, Date due_date) {
        const double amount = account.*Names::amount;
        refuse_if(std::abs(amount) < half_a_cent,
                  {"El importe de la ", Names::noun, " no puede ser cero; indique un importe"});
        refuse_if(!(account.*Names::rate > 0), {"El tipo de cambio: ", number_text(account.*Names::rate), ", de la ",
                                                Names::noun, " no es válido; indique uno mayor que cero"});
        refuse_if(
            suite.look_up(db.Moneda, &rows::Moneda::Mn_Descripcion, &rows::Moneda::Mn_Cve_Moneda, account.Mn_Cve_Moneda)
                .empty(),
            {"La moneda: ", account.Mn_Cve_Moneda, ", no existe o está dada de baja; elija otra"});
        account.*Names::folio = suite.take_folio(branch, Names::code);
        if ((account.*Names::document).empty()) account.*Names::document = account.*Names::folio;
        account.*Names::balance = bare(amount);
        each_field(account, [](auto& field) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, double>) field = bare(field);
        });
        account.*Names::date = sql_date(date);
        account.*Names::due_date = sql_date(due_date);
        account.Sc_Cve_Sucursal = branch;
        account.Oper_Alta = account.Oper_Ult_Modif = suite.user;
        account.Fecha_Alta = account.Fecha_Ult_Modif = suite.stamp();
        accounts().insert(account);
        return account.*Names::folio;
    }

    /// Writes a payment under the account's highest number and one, which it gives, and moves the balance.
    Text pay(const Account& account, const Text& account_folio, const New_payment& payment) {
        const auto of_account = [&](const auto& r) { return same(r.*Names::payment_folio, account_folio); };
        const bool own_currency = same_code(account.Mn_Cve_Moneda, payment.currency);
        int highest = 0;
        for (const auto& payment : payments().where(of_account)) highest = std::max(highest, std::stoi(payment.Pc_ID));
        typename Names::Payment row;
        row.*Names::payment_folio = account_folio;
        row.Pc_ID = four_digits(highest + 1);
        row.Pc_Fecha = sql_date(payment.date);
        row.Pc_Importe = bare(in_currency_of(account, payment.amount, payment.currency, payment.rate));
        row.Mn_Cve_Moneda = account.Mn_Cve_Moneda;
        row.Pc_Tipo_Cambio = bare(own_currency ? payment.rate : account.*Names::rate);
        row.Pc_Importe_Pago = bare(payment.amount);
        row.Mn_Cve_Moneda_Pago = payment.currency;
        row.Pc_Tipo_Cambio_Pago = bare(payment.rate);
        row.Pc_Tabla = payment.table;
        row.Pc_Documento = payment.document;
        row.Pc_Referencia = payment.reference;
        row.Pc_Concepto = payment.concept_text;
        row.Fp_Cve_Forma_Pago = payment.method;
        row.Pc_Afecta_Saldo = payment.affects_balance ? "SI" : "NO";
        row.Oper_Alta = row.Oper_Ult_Modif = suite.user;
        row.Fecha_Alta = row.Fecha_Ult_Modif = suite.stamp();
        payments().insert(row);
        if (payment.affects_balance) update_balance(account_folio);
        return row.Pc_ID;
    }

    /// Cancels a payment and gives its amount back to the balance.
    void cancel_payment(const Text& folio, const Text& id) {
        const auto account = accounts().first(of(folio));
        refuse_if(!account, {"La ", Names::noun, ": ", folio, ", no existe; verifique el folio"});
        refuse_if(account->Es_Cve_Estado == "CA",
                  {"La ", Names::noun, ": ", folio, ", está cancelada; sus pagos ya no pueden cancelarse"});
        const auto payment =
            payments().first([&](const auto& r) { return same(r.*Names::payment_folio, folio) && same(r.Pc_ID, id); });
        const Text which = "El pago: " + id + ", de la " + Names::noun + ": " + folio;
        refuse_if(!payment, {which, ", no existe; verifique el número"});
        refuse_if(payment->Es_Cve_Estado == "CA", {which, ", ya está cancelado"});
        refuse_if(suite.is_posted(Names::payment_code, folio + ":" + id),
                  {which, ", está contabilizado; cancele antes su registro en contabilidad"});
        refuse_if(suite.is_period_closed(suite.now, Names::module),
                  {"El período de ", Names::module, " está cerrado; ábralo para cancelar el pago: ", id, ", de la ",
                   Names::noun, ": ", folio});
        mark_payment_cancelled(folio, id);
    }

    bool has_live_payments(const Text& folio) { return payments().any(live_of(folio)); }

    /// Folios of the live accounts of a document, in order.
    std::vector<Text> of_document(const Text& table, const Text& document) {
        std::vector<Text> folios;
        for (const auto& account : accounts().where([&](const auto& r) {
                 return same(r.*Names::document, document) && same(r.*Names::table, table) &&
                        differs(r.Es_Cve_Estado, "CA");
             })) {
            folios.push_back(account.*Names::folio);
        }
        std::sort(folios.begin(), folios.end(), before);
        return folios;
    }

    /// Refuses when one of the accounts has live payments, or is posted by hand.
    void require_unpaid(const std::vector<Text>& folios) {
        for (const Text& folio : folios) {
            refuse_if(has_live_payments(folio),
                      {"La ", Names::noun, ": ", folio, ", tiene pagos aplicados; cancele antes sus pagos"});
            refuse_if(
                suite.is_posted(Names::code, folio),
                {"La ", Names::noun, ": ", folio, ", está contabilizada; cancele antes su registro en contabilidad"});
        }
    }

    void cancel(const Text& folio) {
        accounts().update(of(folio), [&](auto& r) { mark_cancelled(r); });
    }

    void mark_payment_cancelled(const Text& folio, const Text& id) {
        payments().update([&](const auto& r) { return same(r.*Names::payment_folio, folio) && same(r.Pc_ID, id); },
                          [&](auto& r) { mark_cancelled(r); });
        update_balance(folio);
    }

protected:
    template <class Row>
    void mark_cancelled(Row& row) {
        row.Es_Cve_Estado = "CA";
        row.Oper_Baja = row.Oper_Ult_Modif = suite.user;
        row.Fecha_Baja = row.Fecha_Ult_Modif = suite.stamp();
    }

private:
    void update_balance(const Text& folio) {
        double paid = 0;
        for (const auto& payment : payments().where(live_of(folio))) {
            if (same(payment.Pc_Afecta_Saldo, "SI")) paid += payment.Pc_Importe;
        }
        accounts().update(of(folio), [&](auto& r) {
            r.*Names::paid = paid;
            r.*Names::balance = r.*Names::amount - paid;
            r.Oper_Ult_Modif = suite.user;
            r.Fecha_Ult_Modif = suite.stamp();
        });
    }
};

}  // namespace cuvexa::model
