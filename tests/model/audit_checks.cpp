// Checks, the expenses that they pay, and their requests.
#include <cmath>
#include <map>
#include <set>

#include "model/audit.h"

namespace cuvexa::model {

const rows::Tipo_Cheque* Audit::type_of(const rows::Cheque& check) const {
    return row_of(db.Tipo_Cheque, &rows::Tipo_Cheque::Tc_Cve_Tipo_Cheque, check.Tc_Cve_Tipo_Cheque);
}

void Audit::checks() {
    for (const auto& each : db.Cheque.rows()) check(each);
    std::map<Text, std::pair<Text, Sum>> without_header;
    for (const auto& line : db.Cheque_x_Aplicar.rows()) {
        if (!live(line) || row_of(db.Cheque, &rows::Cheque::Ch_Folio, line.Ch_Folio) != nullptr) continue;
        auto& [folio, sum] = without_header[in_one_case(line.Ch_Folio)];
        folio = line.Ch_Folio;
        sum += line.Cxa_Importe;
    }
    for (const auto& [key, lines] : without_header) {
        found("cheque-sin-encabezado", "Cheque " + lines.first, "importe de sus renglones", lines.second.total);
    }
    duplicated_checks();
    supplier_advances();
}

void Audit::check(const rows::Cheque& check) {
    const Text document = "Cheque " + check.Ch_Folio, label = "importe del cheque";
    bool line_in_force = false;
    for (const auto* line : lines_by_check.of(check.Ch_Folio)) {
        const Text line_document = "Renglón de cheque " + line->Ch_Folio + "/" + line->Cxa_ID;
        if (same(check.Es_Cve_Estado, "AP") && same(line->Es_Cve_Estado, "AC")) {
            found("cheque-aplicado-con-renglones-abiertos", line_document, "importe del renglón", line->Cxa_Importe);
        }
        const bool open = same(check.Es_Cve_Estado, "AC") || same(check.Es_Cve_Estado, "PXA");
        if (open && same(line->Es_Cve_Estado, "AP")) {
            found("cheque-aplicado-a-medias", line_document, "importe del renglón", line->Cxa_Importe);
        }
        line_in_force = line_in_force || live(*line);
    }
    if (cancelled(check) && line_in_force) found("cheque-cancelado-a-medias", document, label, check.Ch_Importe);
    if (live(check) && same(check.Ch_Tabla, "SOLICITUD_CHEQUE")) {
        const auto* request = row_of(db.Solicitud_Cheque, &rows::Solicitud_Cheque::Sch_Folio, check.Ch_Documento);
        if (request != nullptr && cancelled(*request)) {
            found("cheque-de-solicitud-cancelada", document, label, check.Ch_Importe);
        }
    }
    const auto& vouchers = vouchers_by_document.of(check.Ch_Folio);
    const bool posted = std::any_of(vouchers.begin(), vouchers.end(), [](const auto* voucher) {
        return live(*voucher) && same(voucher->Pz_Tabla, "CHEQUE");
    });
    if (live(check) && posted && !is_registered("CHEQUE", check.Ch_Folio)) {
        found("cheque-sin-finalizar", document, label, check.Ch_Importe);
    }
    effects_of_check(check);
    payments_of_check(check);
    movement_of_check(check);
    expenses_of_check(check);
}

/// What an application made, while the check is not applied.
void Audit::effects_of_check(const rows::Cheque& check) {
    if (!differs(check.Es_Cve_Estado, "AP")) return;
    const Text& folio = check.Ch_Folio;
    bool made = false;
    for (const auto* payment : paid_by_document.of(folio)) {
        made = made || (live(*payment) && same(payment->Pc_Tabla, "CHEQUE"));
    }
    const auto charged = [&](const Text& table, const Text& document) {
        const auto& all = receivables_by_document.of(document);
        return std::any_of(all.begin(), all.end(),
                           [&](const auto* r) { return live(*r) && same(r->Cxc_Tabla, table); });
    };
    made = made || charged("CHEQUE", folio);
    for (const auto* expense : expenses_by_document.of(folio)) {
        made = made || (same(expense->Gc_Tabla, "CHEQUE") && charged("GASTO_X_COMPROBAR", expense->Gc_Folio));
    }
    for (const auto* advance : advances_by_check.of(folio)) {
        made = made || (same(advance->Gc_Tabla, "CHEQUE") && same(advance->Es_Cve_Estado, "AP"));
    }
    if (made) found("cheque-con-efectos-sin-aplicar", "Cheque " + folio, "importe del cheque", check.Ch_Importe);
}

/// What an application made, beside what the lines say, where it ever made anything.
void Audit::payments_of_check(const rows::Cheque& check) {
    const auto* type = type_of(check);
    if (type == nullptr || !same(check.Es_Cve_Estado, "AP")) return;
    const auto& lines = lines_by_check.of(check.Ch_Folio);
    if (same(type->Tc_Solicitar, "01")) {
        std::map<Text, std::pair<Text, Sum>> by_payable;
        for (const auto* line : lines) {
            auto& [payable, sum] = by_payable[in_one_case(line->Cxp_Folio)];
            payable = line->Cxp_Folio;
            sum += line->Cxa_Importe;
        }
        for (const auto& [key, of_payable] : by_payable) {
            Sum paid;
            bool ever = false;
            for (const auto* payment : paid_by_document.of(check.Ch_Folio)) {
                if (!same(payment->Pc_Tabla, "CHEQUE") || !same(payment->Cxp_Folio, of_payable.first)) continue;
                ever = true;
                if (live(*payment)) paid += payment->Pc_Importe_Pago;
            }
            if (!ever) continue;
            found_if_different("cheque-y-pagos-difieren", "Pago de cheque " + check.Ch_Folio + "/" + of_payable.first,
                               "importe de sus renglones", of_payable.second, "pagos vivos", paid);
        }
    }
    const bool charges = same(type->Tc_Solicitar, "03") || same(type->Tc_Solicitar, "04");
    if (charges && !lines.empty() && ever_charged("CHEQUE", check.Ch_Folio)) {
        found_if_different("cheque-y-cuentas-por-cobrar-difieren", "Cheque " + check.Ch_Folio,
                           "importe del cheque por sus renglones", check.Ch_Importe * static_cast<double>(lines.size()),
                           "cuentas por cobrar vivas", live_receivables("CHEQUE", check.Ch_Folio));
    }
    for (const auto* line : lines) {
        const auto* payable = row_of(db.Cuenta_x_Pagar, &rows::Cuenta_x_Pagar::Cxp_Folio, line->Cxp_Folio);
        if (!same(type->Tc_Solicitar, "05") || payable == nullptr) continue;
        if (!in_one_case(payable->Cxp_Tabla).starts_with(in_one_case("ANTICIPO_CXP-CA:"))) continue;
        found("cheque-sin-su-anticipo-a-proveedor", "Renglón de cheque " + line->Ch_Folio + "/" + line->Cxa_ID,
              "importe del renglón", line->Cxa_Importe);
    }
}

void Audit::movement_of_check(const rows::Cheque& check) {
    const auto movements = movements_of("CHEQUE", check.Ch_Folio);
    const bool in_force = same(check.Es_Cve_Estado, "AC") || same(check.Es_Cve_Estado, "AP");
    if (in_force && same(check.Ch_Cuenta_Destino, "") && movements.empty()) {
        found("cheque-sin-movimiento", "Cheque " + check.Ch_Folio, "importe del cheque", check.Ch_Importe);
    }
    for (const auto* movement : movements) {
        if (cancelled(check)) {
            found("movimiento-de-cheque-cancelado", "Movimiento bancario " + movement->Bm_Folio,
                  "importe del movimiento", movement->Bm_Importe);
        }
        application_in_movement(check, *movement);
    }
}

namespace {

/// Both are there, and they differ.
bool apart(const Nullable& a, const Nullable& b) {
    return a && b && *a != *b;
}

}  // namespace

/// The movement of an applied check carries the application; that of one whose application was cancelled does not.
void Audit::application_in_movement(const rows::Cheque& check, const rows::Banco_Movimiento& movement) {
    const auto report = [&](const Text& rule) {
        const Sum amounts[] = {check.Ch_Importe, movement.Bm_Importe};
        char figures[900];
        std::snprintf(figures, sizeof figures, "importe del cheque %.2f, importe de su movimiento %.2f",
                      amounts[0].total, amounts[1].total);
        const Text document = "Cheque " + check.Ch_Folio;
        const bool said = std::any_of(findings_.begin(), findings_.end(), [&](const Finding& other) {
            return other.check == rule && other.document == document && other.figures == figures;
        });
        // Several movements of one amount are one finding of an applied check.
        if (!said || rule != "movimiento-de-cheque-sin-marcar") found(rule, document, figures);
    };
    if (same(check.Es_Cve_Estado, "AP") && same(movement.Es_Cve_Estado, "TR")) {
        const auto& lines = lines_by_check.of(check.Ch_Folio);
        const bool later = same(check.Ch_Firme, "SI") && movement.Fecha_Ult_Modif && check.Fecha_Ult_Modif &&
                           *movement.Fecha_Ult_Modif < *check.Fecha_Ult_Modif;
        const bool unmarked = std::any_of(lines.begin(), lines.end(), [&](const auto* line) {
            return same(line->Es_Cve_Estado, "AP") &&
                   (later || apart(movement.Bm_Fecha_Firme, line->Cxa_Fecha_Aplicacion));
        });
        if (unmarked) report("movimiento-de-cheque-sin-marcar");
    }
    if (same(check.Es_Cve_Estado, "AC") && same(check.Ch_Aplicar, "SI") &&
        (same(movement.Es_Cve_Estado, "FI") || apart(movement.Bm_Fecha_Firme, movement.Bm_Fecha))) {
        report("aplicacion-de-cheque-cancelada-a-medias");
    }
}

void Audit::duplicated_checks() {
    std::map<Text, std::vector<const rows::Cheque*>> alike;
    for (const auto& check : db.Cheque.rows()) {
        if (!live(check) || !differs(check.Ch_Referencia, "")) continue;
        alike[in_one_case(check.Ch_Referencia) + '\0' + in_one_case(check.Bc_Cve_Banco_Cuenta) + '\0' +
              in_one_case(check.Ch_Transferencia)]
            .push_back(&check);
    }
    for (const auto& [key, group] : alike) {
        if (group.size() < 2) continue;
        Text last = group.front()->Ch_Folio;
        double largest = group.front()->Ch_Importe;
        for (const auto* check : group) {
            if (before(last, check->Ch_Folio)) last = check->Ch_Folio;
            largest = std::max(largest, check->Ch_Importe);
        }
        found("cheque-duplicado", "Cheque " + last, "importe del cheque", largest);
    }
}

void Audit::supplier_advances() {
    for (const auto& payable : db.Cuenta_x_Pagar.rows()) {
        if (!live(payable) || !same(payable.Cxp_Tabla, "ANTICIPO_CXP")) continue;
        const auto& lines = lines_by_check.of(payable.Ch_Folio);
        const bool named = std::any_of(lines.begin(), lines.end(), [&](const auto* line) {
            return live(*line) && same(line->Cxp_Folio, payable.Cxp_Folio);
        });
        if (named) continue;
        found("anticipo-a-proveedor-sin-cheque", "Cuenta por pagar " + payable.Cxp_Folio, "importe del anticipo",
              payable.Cxp_Importe);
    }
}

// ---- Expenses -------------------------------------------------------------------------------------------------------

void Audit::expenses() {
    for (const auto& expense : db.Gasto_x_Comprobar.rows()) {
        if (!same(expense.Gc_Tabla, "CHEQUE") || !same(expense.Es_Cve_Estado, "PXA")) continue;
        for (std::size_t times = movements_of("CHEQUE", expense.Gc_Documento).size(); times > 0; --times) {
            found("gasto-por-comprobar-sin-pagar", "Gasto por comprobar " + expense.Gc_Folio, "importe del gasto",
                  expense.Gc_Importe);
        }
    }
    for (const auto& payment : db.Pago_Cxc.rows()) {
        if (!live(payment) || !same(payment.Pc_Tabla, "ANTICIPO_CXC") || !differs(payment.Pc_Referencia, "")) continue;
        bool has_counterpart = false;
        for (const auto* receivable : receivables_by_document.of(payment.Pc_Documento)) {
            if (!same(receivable->Cxc_Tabla, "ANTICIPO_CXC")) continue;
            for (const auto* own : payments_by_receivable.of(receivable->Cxc_Folio)) {
                has_counterpart = has_counterpart || (live(*own) && same(own->Pc_Referencia, payment.Pc_Referencia));
            }
        }
        if (has_counterpart) continue;
        found("anticipo-aplicado-a-medias", "Pago de cuenta por cobrar " + payment.Cxc_Folio + ":" + payment.Pc_ID,
              "importe del pago", payment.Pc_Importe);
    }
}

void Audit::expenses_of_check(const rows::Cheque& check) {
    const Text document = "Cheque " + check.Ch_Folio;
    if (const auto* type = type_of(check); type != nullptr && live(check) && same(type->Tc_Solicitar, "02")) {
        const auto& lines = lines_by_check.of(check.Ch_Folio);
        const bool lacks_it = std::any_of(lines.begin(), lines.end(), [&](const auto* line) {
            const auto* expense = row_of(db.Gasto_x_Comprobar, &rows::Gasto_x_Comprobar::Gc_Folio, line->Cxp_Folio);
            return expense == nullptr || !live(*expense);
        });
        if (lacks_it) found("cheque-de-gasto-sin-gasto", document, "importe del cheque", check.Ch_Importe);
    }
    if (!same(check.Es_Cve_Estado, "AP")) return;
    bool lacks_advances = false, certain = false;
    for (const auto* expense : expenses_by_document.of(check.Ch_Folio)) {
        if (!same(expense->Gc_Tabla, "CHEQUE")) continue;
        if (ever_charged("GASTO_X_COMPROBAR", expense->Gc_Folio)) {
            found_if_different("cheque-y-gasto-difieren", document, "importe del gasto", expense->Gc_Importe,
                               "cuentas por cobrar vivas del gasto",
                               live_receivables("GASTO_X_COMPROBAR", expense->Gc_Folio));
        }
        for (const auto* link : advances_by_check.of(check.Ch_Folio)) {
            if (!same(link->Gc_Tabla, "CHEQUE")) continue;
            bool certainly = true;
            if (!lacks_its_advance(check, *expense, *link, certainly)) continue;
            lacks_advances = true;
            certain = certain || certainly;
        }
    }
    if (!lacks_advances) return;
    found("cheque-sin-sus-anticipos", document, "importe del cheque", check.Ch_Importe);
    findings_.back().certain = certain;
}

/// The payments of the expense out of the advance are not what the link says; or the check has no applied link at all.
bool Audit::lacks_its_advance(const rows::Cheque& check, const rows::Gasto_x_Comprobar& expense,
                              const rows::Gasto_x_Comprobar_Documento& link, bool& certain) const {
    Sum paid;
    bool taken_back_since = false;
    for (const auto* receivable : receivables_by_document.of(expense.Gc_Folio)) {
        if (!same(receivable->Cxc_Tabla, "GASTO_X_COMPROBAR")) continue;
        for (const auto* payment : payments_by_receivable.of(receivable->Cxc_Folio)) {
            if (!same(payment->Pc_Tabla, "ANTICIPO_CXC") || !same(payment->Pc_Documento, link.Cxc_Folio)) continue;
            if (live(*payment)) paid += payment->Pc_Importe;
            taken_back_since =
                taken_back_since || (cancelled(*payment) && payment->Fecha_Baja && check.Fecha_Ult_Modif &&
                                     *payment->Fecha_Baja > *check.Fecha_Ult_Modif);
        }
    }
    if (same(link.Es_Cve_Estado, "CA") && taken_back_since) return true;
    const auto& links = advances_by_check.of(check.Ch_Folio);
    if (std::none_of(links.begin(), links.end(),
                     [](const auto* r) { return same(r->Gc_Tabla, "CHEQUE") && same(r->Es_Cve_Estado, "AP"); })) {
        return true;
    }
    if (!same(link.Es_Cve_Estado, "AP")) return false;
    const double away = std::abs(paid.total - link.Cxc_Importe);
    certain = away - paid.blur > half_a_cent;
    return away + paid.blur > half_a_cent;
}

// ---- Requests -------------------------------------------------------------------------------------------------------

void Audit::requests() {
    for (const auto& request : db.Solicitud_Cheque.rows()) {
        const auto& lines = lines_by_request.of(request.Sch_Folio);
        const Text document = "Solicitud de cheque " + request.Sch_Folio, label = "importe de la solicitud";
        if (live(request) && !lines.empty() &&
            std::none_of(lines.begin(), lines.end(), [](const auto* line) { return live(*line); })) {
            found("solicitud-cancelada-a-medias", document, label, request.Sch_Importe);
        }
        if (same(request.Es_Cve_Estado, "AC") && std::any_of(lines.begin(), lines.end(), [](const auto* line) {
                return same(line->Es_Cve_Estado, "PXA");
            })) {
            found("solicitud-autorizada-a-medias", document, label, request.Sch_Importe);
        }
    }
}

}  // namespace cuvexa::model
