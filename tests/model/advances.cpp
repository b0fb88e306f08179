// Customer advances that checks set against expenses.
#include <cmath>
#include <cstdlib>

#include "cuvexa/value.h"
#include "model/treasury.h"

namespace cuvexa::model {
namespace {

/// The whole units of an amount, whatever its sign: an excess of less than one passes.
double whole_units(double amount) {
    return std::trunc(std::abs(cents(amount)));
}

auto advance_receivable(const Text& advance) {
    return [advance](const rows::Cuenta_x_Cobrar& r) {
        return same(r.Cxc_Tabla, "ANTICIPO_CXC") && same(r.Cxc_Documento, advance);
    };
}

}  // namespace

/// An advance with the line that says how much of it is to be applied.
struct Treasury::Advance_to_apply {
    rows::Anticipo_Cxc advance;
    rows::Gasto_x_Comprobar_Documento line;
};

bool Treasury::Aplicar_Anticipo_Cxc(const Text& Ch_Folio, Date Fecha) {
    const Text tag = "Aplicar_Anticipo_Cxc()";
    return operation(tag, [&] {
        const Text key = quoted(Ch_Folio);
        const auto expense = db.Cuenta_x_Cobrar.first([&](const auto& account) {
            return same(account.Cxc_Tabla, "GASTO_X_COMPROBAR") && db.Gasto_x_Comprobar.any([&](const auto& r) {
                return same(r.Gc_Folio, account.Cxc_Documento) && same(r.Gc_Tabla, "CHEQUE") &&
                       same(r.Gc_Documento, key);
            });
        });
        fail_if(!expense, tagged(tag, "No se encontró la cuenta x cobrar del cheque!"));
        const Text method = suite_.parameter("CXC_FORMA_PAGO_ANTICIPO_CLIENTE");
        std::vector<Advance_to_apply> advances;
        for (const auto& line : db.Gasto_x_Comprobar_Documento.where(
                 [&](const auto& r) { return same(r.Gc_Tabla, "CHEQUE") && same(r.Gc_Documento, key); },
                 &rows::Gasto_x_Comprobar_Documento::Gcd_ID)) {
            for (const auto& advance : db.Anticipo_Cxc.rows()) {
                if (!same(line.Cxc_Folio, advance.An_Folio) || !same(advance.Es_Cve_Estado, "AC") ||
                    !same(advance.An_Tabla, "GASTO_REGISTRO")) {
                    continue;
                }
                for (const auto& account : db.Cuenta_x_Cobrar.where(advance_receivable(advance.An_Folio))) {
                    if (same(account.Es_Cve_Estado, "AC")) advances.push_back({advance, line});
                }
            }
        }
        std::stable_sort(advances.begin(), advances.end(),
                         [](const auto& a, const auto& b) { return before(a.advance.An_Folio, b.advance.An_Folio); });
        fail_if(advances.empty(), tagged(tag, "No se encontraron anticipos CXC por aplicar"));
        for (const auto& advance : advances) apply_advance(tag, Ch_Folio, *expense, advance, Fecha, method);
    });
}

void Treasury::apply_advance(const Text& tag, const Text& folio, const rows::Cuenta_x_Cobrar& expense,
                             const Advance_to_apply& to_apply, Date date, const Text& method) {
    const Text& advance = to_apply.advance.An_Folio;
    const double amount = to_apply.line.Cxc_Importe;
    const Text key = quoted(advance);
    const auto own = db.Cuenta_x_Cobrar.first(advance_receivable(key));
    fail_if(!own, tagged(tag, "No se encontró la cuenta x cobrar del anticipo & " + advance));
    Text last = "0000";
    for (const auto& payment : db.Pago_Cxc.rows()) {
        if (same(payment.Cxc_Folio, own->Cxc_Folio) && before(last, payment.Pc_ID)) last = payment.Pc_ID;
    }
    const Text reference = own->Cxc_Folio + ":" + four_digits(std::atoi(last.c_str()) + 1);

    const auto check_balance = [&](const Text& account) {
        const auto row = db.Cuenta_x_Cobrar.first([&](const auto& r) { return same(r.Cxc_Folio, quoted(account)); });
        fail_if(!row, tagged(tag, "No se encontró la cuenta x cobrar!"));
        fail_if(whole_units(row->Cxc_Precio_Neto_Saldo) < whole_units(amount),
                tagged(tag, "El importe aplicado es mayor al saldo del documento"));
    };
    Receivables receivables(suite_);
    check_balance(expense.Cxc_Folio);
    if (!receivables.RegisterPayment(
            expense.Cxc_Folio, {date, amount, expense.Mn_Cve_Moneda, expense.Cxc_Tipo_Cambio, "ANTICIPO_CXC", advance,
                                reference, "Aplicación de anticipo", method})) {
        fail(receivables.LastError);
    }

    double paid = 0;
    for (const auto& payment : db.Pago_Cxc.rows()) {
        if (same(payment.Pc_Tabla, "ANTICIPO_CXC") && same(payment.Pc_Documento, key) &&
            same(payment.Pc_Referencia, quoted(reference)) && differs(payment.Fp_Cve_Forma_Pago, "DA")) {
            paid += payment.Pc_Importe * payment.Pc_Tipo_Cambio;
        }
    }
    if (std::trunc(cents(amount)) < std::trunc(cents(paid))) {
        fail(tagged(tag,
                    "Se ha aplicado un importe mayor al saldo del anticipo, probablemente se está duplicando la "
                    "aplicación" +
                        line_break + " importe anticipo: " + number_text(amount) + line_break +
                        " Pagos: " + number_text(paid)));
    }

    check_balance(own->Cxc_Folio);
    if (!receivables.RegisterPayment(
            own->Cxc_Folio, {date, amount, to_apply.advance.Mn_Cve_Moneda, to_apply.line.Cxc_Tipo_Cambio, "", "",
                             reference, "Aplicación de anticipo", method})) {
        fail(receivables.LastError);
    }

    const auto used = db.Cuenta_x_Cobrar.first(advance_receivable(key));
    if (to_apply.advance.An_Importe <= -used->Cxc_Precio_Neto_Pago) {
        db.Anticipo_Cxc.update([&](const auto& r) { return same(r.An_Folio, key); },
                               [](auto& r) { r.Es_Cve_Estado = "AP"; });
    }
    db.Gasto_x_Comprobar_Documento.update(
        [&](const auto& r) {
            return same(r.Gc_Tabla, "CHEQUE") && same(r.Gc_Documento, quoted(folio)) && same(r.Cxc_Folio, key);
        },
        [](auto& r) { r.Es_Cve_Estado = "AP"; });
}

bool Treasury::Cancelar_Aplicacion_Cheque_Anticipo(const Text& Ch_Folio) {
    return operation("Cancelar_Aplicacion_Cheque_Anticipo()", [&] {
        const Text key = quoted(Ch_Folio);
        const auto pays_the_expense = [&](const auto& payment) {
            return same(payment.Pc_Tabla, "ANTICIPO_CXC") && differs(payment.Es_Cve_Estado, "CA") &&
                   db.Cuenta_x_Cobrar.any([&](const auto& account) {
                       return same(account.Cxc_Folio, payment.Cxc_Folio) &&
                              same(account.Cxc_Tabla, "GASTO_X_COMPROBAR") &&
                              db.Gasto_x_Comprobar.any([&](const auto& r) {
                                  return same(r.Gc_Folio, account.Cxc_Documento) && same(r.Gc_Tabla, "CHEQUE") &&
                                         same(r.Gc_Documento, key);
                              });
                   });
        };
        const auto of_check = [&](const auto& r) { return same(r.Gc_Tabla, "CHEQUE") && same(r.Gc_Documento, key); };
        const auto cancel = [](auto& r) { r.Es_Cve_Estado = "CA"; };
        const auto payments = db.Pago_Cxc.where(pays_the_expense);
        if (payments.empty()) return db.Gasto_x_Comprobar_Documento.update(of_check, cancel);

        Receivables receivables(suite_);
        const Text stamp = suite_.stamp();
        for (const auto& paid : payments) {
            const Text advance = quoted(paid.Pc_Documento);
            if (!receivables.DocumentCheck("ANTICIPO_CXC", paid.Pc_Documento)) fail(receivables.LastError);
            for (const auto& payment : db.Pago_Cxc.where([&](const auto& r) {
                     return differs(r.Es_Cve_Estado, "CA") && db.Cuenta_x_Cobrar.any([&](const auto& account) {
                         return advance_receivable(advance)(account) && same(account.Cxc_Folio, r.Cxc_Folio);
                     });
                 })) {
                if (!receivables.CancelPayment(payment.Cxc_Folio, payment.Pc_ID)) fail(receivables.LastError);
            }
            db.Anticipo_Cxc.update([&](const auto& r) { return same(r.An_Folio, advance); },
                                   [&](auto& r) {
                                       r.Es_Cve_Estado = "AC";
                                       r.Oper_Ult_Modif = suite_.user;
                                       r.Fecha_Ult_Modif = stamp;
                                   });
            db.Gasto_x_Comprobar_Documento.update(
                [&](const auto& r) { return of_check(r) && same(r.Cxc_Folio, advance); }, cancel);
        }
    });
}

}  // namespace cuvexa::model
