// Receivables, payables, customer advances and vouchers.
#include <cmath>
#include <map>
#include <set>

#include "model/audit.h"

namespace cuvexa::model {

void Audit::receivables() {
    for (const auto& receivable : db.Cuenta_x_Cobrar.rows()) {
        if (!live(receivable)) continue;
        const Text document = "Cuenta por cobrar " + receivable.Cxc_Folio;
        Sum rest = receivable.Cxc_Precio_Neto_Importe;
        for (const auto* payment : payments_by_receivable.of(receivable.Cxc_Folio)) {
            if (live(*payment) && same(payment->Pc_Afecta_Saldo, "SI")) rest += -payment->Pc_Importe;
        }
        found_if_different("saldo-de-cuenta-por-cobrar", document, "saldo", receivable.Cxc_Precio_Neto_Saldo,
                           "importe menos pagos vivos", rest);
        if (same(receivable.Cxc_Tabla, "ANTICIPO_CXC") &&
            row_of(db.Anticipo_Cxc, &rows::Anticipo_Cxc::An_Folio, receivable.Cxc_Documento) == nullptr) {
            found("cuenta-de-anticipo-sin-anticipo", document, "importe", receivable.Cxc_Importe);
        }
    }
}

void Audit::payables() {
    for (const auto& payable : db.Cuenta_x_Pagar.rows()) {
        if (!live(payable)) continue;
        Sum rest = payable.Cxp_Precio_Neto_Importe;
        for (const auto* payment : payments_by_payable.of(payable.Cxp_Folio)) {
            if (live(*payment)) rest += -payment->Pc_Importe;
        }
        found_if_different("saldo-de-cuenta-por-pagar", "Cuenta por pagar " + payable.Cxp_Folio, "saldo",
                           payable.Cxp_Precio_Neto_Saldo, "importe menos pagos vivos", rest);
    }
}

void Audit::customer_advances() {
    for (const auto& advance : db.Anticipo_Cxc.rows()) {
        if (!live(advance)) continue;
        const Text document = "Anticipo de cliente " + advance.An_Folio, label = "importe del anticipo";
        for (const auto* receivable : receivables_by_document.of(advance.An_Folio)) {
            if (!same(receivable->Cxc_Tabla, "ANTICIPO_CXC")) continue;
            if (cancelled(*receivable)) {
                found("anticipo-sin-su-cuenta", document, label, advance.An_Importe);
                continue;
            }
            if (!same(advance.Es_Cve_Estado, "AP") || std::abs(receivable->Cxc_Precio_Neto_Saldo) < half_a_cent) {
                continue;
            }
            char figures[900];
            std::snprintf(figures, sizeof figures, "importe del anticipo %.2f, saldo de su cuenta por cobrar %.2f",
                          advance.An_Importe, receivable->Cxc_Precio_Neto_Saldo);
            found("anticipo-usado-con-saldo", document, figures);
        }
    }
}

bool Audit::is_document_live(const Text& table, const Text& document) const {
    const auto any_live = [](const auto& lines) {
        return std::any_of(lines.begin(), lines.end(), [](const auto* line) { return live(*line); });
    };
    if (same(table, "RECIBO_PAGO")) return any_live(lines_by_receipt.of(document));
    if (same(table, "DEPOSITO_PAGO")) return any_live(lines_of_deposit.of(document));
    if (same(table, "CHEQUE")) {
        const auto* check = row_of(db.Cheque, &rows::Cheque::Ch_Folio, document);
        return check != nullptr && live(*check);
    }
    const auto* movement = row_of(db.Banco_Movimiento, &rows::Banco_Movimiento::Bm_Folio, document);
    return same(table, "BANCO_MOVIMIENTO") && movement != nullptr && live(*movement);
}

void Audit::vouchers() {
    std::map<std::pair<Text, Text>, std::vector<const rows::Poliza*>> of_document;
    for (const auto& voucher : db.Poliza.rows()) {
        of_document[{in_one_case(voucher.Pz_Tabla), in_one_case(voucher.Pz_Documento)}].push_back(&voucher);
        if (!live(voucher)) continue;
        Sum charges, credits;
        const auto& lines = lines_by_voucher.of(voucher.Pz_Folio);
        for (const auto* line : lines) {
            charges += line->Pzd_Cargo;
            credits += line->Pzd_Abono;
        }
        const Text document = "Póliza " + voucher.Pz_Folio;
        if (lines.empty()) {
            found("poliza-descuadrada", document, "cargos 0.00, abonos 0.00");
        } else {
            found_if_different("poliza-descuadrada", document, "cargos", charges, "abonos", credits);
        }
    }
    std::set<Text> named;
    for (const auto& [key, group] : of_document) {
        std::vector<const rows::Poliza*> standing;
        std::copy_if(group.begin(), group.end(), std::back_inserter(standing), [](const auto* r) { return live(*r); });
        if (standing.size() > 1 && !key.second.empty()) {
            Text last = standing.front()->Pz_Folio;
            for (const auto* voucher : standing) last = before(last, voucher->Pz_Folio) ? voucher->Pz_Folio : last;
            found("poliza-duplicada", "Póliza " + last, "hay más de una viva de su documento");
        }
        const auto* first = group.front();
        if (standing.empty() && is_document_live(first->Pz_Tabla, first->Pz_Documento) &&
            named.insert(key.second).second) {
            found("documento-con-poliza-cancelada", "Documento " + first->Pz_Documento,
                  "su póliza está cancelada y él no");
        }
    }
    std::map<Text, std::pair<double, double>> without_header;
    for (const auto& line : db.Poliza_Detalle.rows()) {
        if (row_of(db.Poliza, &rows::Poliza::Pz_Folio, line.Pz_Folio) != nullptr) continue;
        auto& [charges, credits] = without_header[line.Pz_Folio];
        charges += line.Pzd_Cargo;
        credits += line.Pzd_Abono;
    }
    for (const auto& [folio, sums] : without_header) {
        char figures[900];
        std::snprintf(figures, sizeof figures, "cargos %.2f, abonos %.2f", sums.first, sums.second);
        found("renglones-sin-poliza", "Póliza " + folio, figures);
    }
}

}  // namespace cuvexa::model
