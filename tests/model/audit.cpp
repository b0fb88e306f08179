// What the rules share; numbers, balances and bank movements.
#include "model/audit.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <map>

namespace cuvexa::model {

std::vector<Finding> Audit::findings() {
    findings_.clear();
    numbers();
    balances();
    deposits();
    checks();
    expenses();
    receipts();
    requests();
    movements();
    receivables();
    payables();
    customer_advances();
    vouchers();
    return findings_;
}

// ---- What they say --------------------------------------------------------------------------------------------------

Audit::Sum::Sum(double amount) : total(amount), blur(std::abs(amount) * 1e-13) {}

Audit::Sum& Audit::Sum::operator+=(const Sum& other) {
    total += other.total;
    blur += other.blur;
    return *this;
}

namespace {

Text money(double amount) {
    char text[400];
    std::snprintf(text, sizeof text, "%.2f", amount);
    return text;
}

}  // namespace

void Audit::found(const Text& check, const Text& document, const Text& figures, bool certain) {
    findings_.push_back({check, document, figures, certain});
}

void Audit::found(const Text& check, const Text& document, const Text& label, double amount) {
    found(check, document, label + " " + money(amount));
}

void Audit::found_if_different(const Text& check, const Text& document, const Text& label, const Sum& amount,
                               const Text& other_label, const Sum& other) {
    const double apart = std::abs(amount.total - other.total), blur = amount.blur + other.blur;
    if (std::isnan(apart) || apart + blur < half_a_cent) return;
    found(check, document, label + " " + money(amount.total) + ", " + other_label + " " + money(other.total),
          apart - blur >= half_a_cent);
}

// ---- What they ask --------------------------------------------------------------------------------------------------

bool Audit::is_registered(const Text& code, const Text& folio) const {
    using Registered = rows::Documento_Registrado;
    return row_of(db.Documento_Registrado, &Registered::Dr_Documento, folio, &Registered::Dr_Codigo, code) != nullptr;
}

std::vector<const rows::Banco_Movimiento*> Audit::movements_of(const Text& table, const Text& document) const {
    std::vector<const rows::Banco_Movimiento*> found;
    for (const auto* movement : movements_by_document.of(document)) {
        if (live(*movement) && same(movement->Bm_Tabla, table)) found.push_back(movement);
    }
    return found;
}

Audit::Sum Audit::live_receivables(const Text& table, const Text& document) const {
    Sum sum;
    for (const auto* receivable : receivables_by_document.of(document)) {
        if (live(*receivable) && same(receivable->Cxc_Tabla, table)) sum += receivable->Cxc_Precio_Neto_Importe;
    }
    return sum;
}

/// Withdrawn ones carry the mark behind the table's name.
bool Audit::ever_charged(const Text& table, const Text& document) const {
    for (const auto* receivable : receivables_by_document.of(document)) {
        if (same(receivable->Cxc_Tabla, table)) return true;
        if (in_one_case(receivable->Cxc_Tabla).starts_with(in_one_case(table + "-CA:"))) return true;
    }
    return false;
}

// ---- Numbers --------------------------------------------------------------------------------------------------------

void Audit::numbers() {
    const Text rule = "importe-que-no-es-un-numero";
    const auto look = [&](const auto& table, auto column, const Text& name, auto&& document) {
        for (const auto& row : table.rows()) {
            if (!std::isfinite(row.*column)) found(rule, document(row), name + " no es un número finito");
        }
    };
    look(db.Banco_Cuenta, &rows::Banco_Cuenta::Bc_Saldo, "Bc_Saldo",
         [](const auto& r) { return "Cuenta bancaria " + r.Bc_Cve_Banco_Cuenta; });
    look(db.Banco, &rows::Banco::Bn_Saldo, "Bn_Saldo", [](const auto& r) { return "Banco " + r.Bn_Cve_Banco; });
    look(db.Banco_Movimiento, &rows::Banco_Movimiento::Bm_Importe, "Bm_Importe",
         [](const auto& r) { return "Movimiento bancario " + r.Bm_Folio; });
    look(db.Recibo_Pago, &rows::Recibo_Pago::Rp_Importe, "Rp_Importe",
         [](const auto& r) { return "Renglón de recibo " + r.Rp_Folio + "/" + r.Rp_Id; });
    look(db.Deposito_Pago, &rows::Deposito_Pago::Dp_Importe, "Dp_Importe",
         [](const auto& r) { return "Renglón de depósito " + r.Dp_Folio + "/" + r.Dp_Id; });
    look(db.Cheque, &rows::Cheque::Ch_Importe, "Ch_Importe", [](const auto& r) { return "Cheque " + r.Ch_Folio; });
    look(db.Cheque_x_Aplicar, &rows::Cheque_x_Aplicar::Cxa_Importe, "Cxa_Importe",
         [](const auto& r) { return "Renglón de cheque " + r.Ch_Folio + "/" + r.Cxa_ID; });
    look(db.Gasto_x_Comprobar, &rows::Gasto_x_Comprobar::Gc_Importe, "Gc_Importe",
         [](const auto& r) { return "Gasto por comprobar " + r.Gc_Folio; });
    look(db.Cuenta_x_Cobrar, &rows::Cuenta_x_Cobrar::Cxc_Precio_Neto_Saldo, "Cxc_Precio_Neto_Saldo",
         [](const auto& r) { return "Cuenta por cobrar " + r.Cxc_Folio; });
    look(db.Cuenta_x_Pagar, &rows::Cuenta_x_Pagar::Cxp_Precio_Neto_Saldo, "Cxp_Precio_Neto_Saldo",
         [](const auto& r) { return "Cuenta por pagar " + r.Cxp_Folio; });
    look(db.Pago_Cxc, &rows::Pago_Cxc::Pc_Importe, "Pc_Importe",
         [](const auto& r) { return "Pago de cuenta por cobrar " + r.Cxc_Folio + ":" + r.Pc_ID; });
    look(db.Pago_Cxp, &rows::Pago_Cxp::Pc_Importe, "Pc_Importe",
         [](const auto& r) { return "Pago de cuenta por pagar " + r.Cxp_Folio + ":" + r.Pc_ID; });
    const auto voucher_line = [](const auto& r) { return "Renglón de póliza " + r.Pz_Folio + "/" + r.Pzd_ID; };
    look(db.Poliza_Detalle, &rows::Poliza_Detalle::Pzd_Cargo, "Pzd_Cargo", voucher_line);
    look(db.Poliza_Detalle, &rows::Poliza_Detalle::Pzd_Abono, "Pzd_Abono", voucher_line);

    std::map<Text, double> sums;  // of a ten-thousand-millionth, which is finite where the sum is not
    for (const auto& movement : db.Banco_Movimiento.rows()) {
        if (live(movement)) sums[in_one_case(movement.Bc_Cve_Banco_Cuenta)] += movement.Bm_Importe / 1e10;
    }
    for (const auto& [account, sum] : sums) {
        if (std::abs(sum) <= 1.7976931348623157e298) continue;
        found(rule, "Cuenta bancaria " + account, "la suma de sus movimientos no es un número finito");
    }
}

// ---- Balances -------------------------------------------------------------------------------------------------------

void Audit::balances() {
    std::map<Text, Sum> of_account, of_bank;
    for (const auto& movement : db.Banco_Movimiento.rows()) {
        if (live(movement)) of_account[in_one_case(movement.Bc_Cve_Banco_Cuenta)] += movement.Bm_Importe;
    }
    for (const auto& account : db.Banco_Cuenta.rows()) {
        of_bank[in_one_case(account.Bn_Cve_Banco)] += account.Bc_Saldo;
        Sum sum = of_account[in_one_case(account.Bc_Cve_Banco_Cuenta)];
        // Movements that were taken away since have left their traces in the balance.
        for (const auto& movement : db.Banco_Movimiento.rows()) sum.blur += std::abs(movement.Bm_Importe) * 1e-13;
        if (!std::isfinite(account.Bc_Saldo) || !std::isfinite(sum.total)) continue;
        found_if_different("saldo-de-cuenta", "Cuenta bancaria " + account.Bc_Cve_Banco_Cuenta, "saldo de la cuenta",
                           account.Bc_Saldo, "suma de sus movimientos vivos", sum);
    }
    for (const auto& bank : db.Banco.rows()) {
        const Sum sum = of_bank[in_one_case(bank.Bn_Cve_Banco)];
        if (!std::isfinite(bank.Bn_Saldo) || !std::isfinite(sum.total)) continue;
        found_if_different("saldo-de-banco", "Banco " + bank.Bn_Cve_Banco, "saldo del banco", bank.Bn_Saldo,
                           "suma de los saldos de sus cuentas", sum);
    }
}

// ---- Movements ------------------------------------------------------------------------------------------------------

void Audit::movements() {
    std::map<std::pair<Text, double>, std::vector<const rows::Banco_Movimiento*>> alike;
    for (const auto& movement : db.Banco_Movimiento.rows()) {
        const Text document = "Movimiento bancario " + movement.Bm_Folio, label = "importe del movimiento";
        if (live(movement)) {
            if (!is_registered("BANCO_MOVIMIENTO", movement.Bm_Folio)) {
                found("movimiento-sin-registrar", document, label, movement.Bm_Importe);
            }
            Text key;
            for (const Text* part :
                 {&movement.Bm_Tabla, &movement.Bm_Documento, &movement.Bm_Documento_ID, &movement.Bc_Cve_Banco_Cuenta,
                  &movement.Bt_Cve_Banco_Tipo_Movimiento, &movement.Bm_Referencia}) {
                key += in_one_case(*part) + '\0';
            }
            if (differs(movement.Bm_Documento, "")) alike[{key, movement.Bm_Importe}].push_back(&movement);
            continue;
        }
        using Registered = rows::Documento_Registrado;
        const auto* last = row_of(db.Documento_Registrado, &Registered::Dr_Documento, movement.Bm_Folio,
                                  &Registered::Dr_Codigo, "BANCO_MOVIMIENTO");
        const bool before_it = last != nullptr && last->Dr_Veces < 2 && last->Fecha_Ult_Modif && movement.Fecha_Baja &&
                               *last->Fecha_Ult_Modif < *movement.Fecha_Baja;
        if (last == nullptr || before_it) {
            found("cancelacion-de-movimiento-sin-registrar", document, label, movement.Bm_Importe);
        }
    }
    for (const auto& [key, group] : alike) {
        if (group.size() < 2) continue;
        const auto* last = group.front();
        for (const auto* movement : group) {
            if (before(last->Bm_Folio, movement->Bm_Folio)) last = movement;
        }
        found("movimiento-duplicado", "Movimiento bancario " + last->Bm_Folio, "importe del movimiento",
              last->Bm_Importe);
    }
}

}  // namespace cuvexa::model
