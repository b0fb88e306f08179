// Deposits and receipts.
#include <cmath>
#include <set>

#include "model/audit.h"

namespace cuvexa::model {

// ---- Deposits -------------------------------------------------------------------------------------------------------

void Audit::deposits() {
    std::set<Text> seen;
    for (const auto& line : db.Deposito_Pago.rows()) {
        if (live(line) && seen.insert(in_one_case(line.Dp_Folio)).second) deposit_of(line.Dp_Folio);
    }
    for (const auto& line : db.Recibo_Pago.rows()) {
        if (!same(line.Es_Cve_Estado, "DP") && !same(line.Es_Cve_Estado, "AD")) continue;
        const auto* deposit = row_of(db.Deposito_Pago, &rows::Deposito_Pago::Dp_Folio, line.Rp_Folio_Deposito,
                                     &rows::Deposito_Pago::Dp_Id, line.Rp_Deposito_ID);
        if (deposit != nullptr && live(*deposit)) continue;
        found("recibo-sin-deposito", "Renglón de recibo " + line.Rp_Folio + "/" + line.Rp_Id, "importe del renglón",
              line.Rp_Importe);
    }
    for (const auto& movement : db.Banco_Movimiento.rows()) {
        if (!live(movement) || !same(movement.Bm_Tabla, "DEPOSITO_PAGO")) continue;
        const auto& lines = lines_of_deposit.of(movement.Bm_Documento);
        if (std::any_of(lines.begin(), lines.end(), [](const auto* line) { return cancelled(*line); })) {
            found("movimiento-de-deposito-cancelado", "Movimiento bancario " + movement.Bm_Folio,
                  "importe del movimiento", movement.Bm_Importe);
        }
    }
}

void Audit::deposit_of(const Text& folio) {
    Sum deposited, received;
    for (const auto* line : lines_of_deposit.of(folio)) {
        if (!live(*line)) continue;
        deposited += line->Dp_Importe;
        const Text document = "Renglón de depósito " + line->Dp_Folio + "/" + line->Dp_Id;
        bool moved = false;
        for (const auto* movement : movements_of("DEPOSITO_PAGO", folio)) {
            if (!same(movement->Bm_Documento_ID, line->Dp_Id)) continue;
            moved = true;
            if (std::abs(std::abs(movement->Bm_Importe) - std::abs(line->Dp_Importe)) < half_a_cent) continue;
            found_if_different("deposito-y-movimiento-difieren", document, "importe del renglón", line->Dp_Importe,
                               "importe de su movimiento", movement->Bm_Importe);
        }
        if (!moved) found("deposito-sin-movimiento", document, "importe del renglón", line->Dp_Importe);
    }
    for (const auto* line : lines_by_deposit.of(folio)) {
        if (same(line->Es_Cve_Estado, "DP") || same(line->Es_Cve_Estado, "AD")) received += line->Rp_Importe;
    }
    const Text document = "Depósito " + folio;
    found_if_different("deposito-y-recibos-difieren", document, "importe del depósito", deposited,
                       "importe de los recibos marcados con él", received);
    if (!is_registered("DEPOSITO_PAGO", folio)) {
        found("deposito-sin-registrar", document, "importe del depósito", deposited.total);
    }
}

// ---- Receipts -------------------------------------------------------------------------------------------------------

void Audit::receipts() {
    std::set<Text> seen;
    for (const auto& line : db.Recibo_Pago.rows()) {
        if (seen.insert(in_one_case(line.Rp_Folio)).second) receipt(line.Rp_Folio);
    }
    receivables_of_receipts();
}

/// Payments, advances, payables or receivables of it that are live.
bool Audit::receipt_made_something(const Text& folio) const {
    for (const auto* payment : received_by_document.of(folio)) {
        if (live(*payment) && same(payment->Pc_Tabla, "RECIBO_PAGO")) return true;
    }
    for (const auto* advance : advances_by_document.of(folio)) {
        if (live(*advance) && same(advance->An_Tabla, "RECIBO_PAGO")) return true;
    }
    for (const auto* payable : payables_by_document.of(folio)) {
        if (live(*payable) && same(payable->Cxp_Tabla, "RECIBO_PAGO")) return true;
    }
    for (const auto* receivable : receivables_by_document.of(folio)) {
        if (live(*receivable) && same(receivable->Cxc_Tabla, "RECIBO_PAGO")) return true;
    }
    return false;
}

void Audit::receipt(const Text& folio) {
    Sum in_force, taken_back, applied;
    std::size_t lines_in_force = 0, lines_taken_back = 0, lines_applied = 0;
    for (const auto* line : lines_by_receipt.of(folio)) {
        const auto add = [&](Sum& sum, std::size_t& lines) {
            sum += line->Rp_Importe;
            ++lines;
        };
        if (live(*line)) add(in_force, lines_in_force);
        if (cancelled(*line)) add(taken_back, lines_taken_back);
        const auto* type = row_of(db.Tipo_Recibo_Pago, &rows::Tipo_Recibo_Pago::Trp_Cve_Tipo_Recibo_Pago,
                                  line->Trp_Cve_Tipo_Recibo_Pago);
        const Text party = type != nullptr ? type->Trp_Solicitar : Text();
        const bool has_party = same(party, "02") || same(party, "03") || same(party, "04");
        if (has_party && (same(line->Es_Cve_Estado, "AP") || same(line->Es_Cve_Estado, "AD"))) {
            add(applied, lines_applied);
        }
    }
    const Text document = "Recibo de caja " + folio, label = "importe del recibo";
    const auto& vouchers = vouchers_by_document.of(folio);
    const bool posted = std::any_of(vouchers.begin(), vouchers.end(), [](const auto* voucher) {
        return live(*voucher) && same(voucher->Pz_Tabla, "RECIBO_PAGO");
    });
    const bool made = receipt_made_something(folio);
    if (lines_in_force > 0 && !is_registered("RECIBO_PAGO", folio) && (made || posted)) {
        found("recibo-cerrado-a-medias", document, label, in_force.total);
    }
    if (lines_taken_back > 0 && made) {
        found("aplicacion-de-recibo-cancelado", document, label, taken_back.total);
    }
    if (lines_applied == 0) return;
    Sum came_of_it;
    for (const auto* payment : received_by_document.of(folio)) {
        if (live(*payment) && same(payment->Pc_Tabla, "RECIBO_PAGO")) came_of_it += payment->Pc_Importe_Pago;
    }
    for (const auto* advance : advances_by_document.of(folio)) {
        if (live(*advance) && same(advance->An_Tabla, "RECIBO_PAGO")) came_of_it += advance->An_Importe;
    }
    for (const auto* payable : payables_by_document.of(folio)) {
        if (live(*payable) && same(payable->Cxp_Tabla, "RECIBO_PAGO")) came_of_it += payable->Cxp_Importe;
    }
    found_if_different("recibo-y-aplicacion-difieren", document, label, applied,
                       "pagos, anticipos y cuentas por pagar vivos", came_of_it);
}

/// A closing makes one receivable per payment method of a customer.
void Audit::receivables_of_receipts() {
    std::set<std::pair<Text, Text>> seen;
    for (const auto& first : db.Cuenta_x_Cobrar.rows()) {
        if (!same(first.Cxc_Tabla, "RECIBO_PAGO")) continue;
        if (!seen.insert({in_one_case(first.Cxc_Documento), in_one_case(first.Cl_Cve_Cliente)}).second) continue;
        bool in_force = false;
        std::set<Text> methods;
        for (const auto* line : lines_by_receipt.of(first.Cxc_Documento)) {
            in_force = in_force || live(*line);
            const auto* method = row_of(db.Forma_Pago, &rows::Forma_Pago::Fp_Cve_Forma_Pago, line->Fp_Cve_Forma_Pago);
            if (method != nullptr && same(method->Fp_Cliente, first.Cl_Cve_Cliente)) {
                methods.insert(in_one_case(line->Fp_Cve_Forma_Pago));
            }
        }
        if (!in_force) continue;
        std::size_t standing = 0, withdrawn = 0;
        for (const auto* receivable : receivables_by_document.of(first.Cxc_Documento)) {
            if (!same(receivable->Cxc_Tabla, "RECIBO_PAGO")) continue;
            if (!same(receivable->Cl_Cve_Cliente, first.Cl_Cve_Cliente)) continue;
            ++(cancelled(*receivable) ? withdrawn : standing);
        }
        if ((standing > 1 && standing > methods.size()) || (withdrawn > 0 && standing < methods.size())) {
            found("recibo-y-cuentas-por-cobrar-difieren", "Recibo de caja " + first.Cxc_Documento,
                  "sus cuentas por cobrar vivas no son las de sus formas de pago");
        }
    }
}

}  // namespace cuvexa::model
