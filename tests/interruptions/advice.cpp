// What an operator does who follows the advice of a finding: with the component's members where the advice names one, by
// hand where it names a column.
#include "interruptions/advice.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>

#include "core/rows.h"
#include "suite/audit_rules.h"

namespace cuvexa::tests {
namespace {

using Advice = std::function<bool(const Desk&, const std::string& document)>;

std::string before_mark(const std::string& document, char mark) {
    return document.substr(0, document.find(mark));
}
std::string after_mark(const std::string& document, char mark) {
    return document.substr(document.find(mark) + 1);
}

/// A statement in which "?" stands for the document.
Advice by_hand(const std::string& statement) {
    return [statement](const Desk& desk, const std::string& document) {
        std::string text = statement;
        for (auto at = text.find('?'); at != std::string::npos; at = text.find('?', at + document.size())) {
            text.replace(at, 1, document);
        }
        desk.connection.execute(text);
        return true;
    };
}

bool cancel_receipt(const Desk& desk, const std::string& folio) {
    return desk.treasury.Cancelar_Recibo_Caja(before_mark(folio, '/'), true, true);
}
/// A caller may have captured it with the folio of a deposit that nobody made, or that is another's.
bool cancel_whatever_it_names(const Desk& desk, const std::string& folio) {
    desk.connection.execute("UPDATE Recibo_Pago SET Rp_Folio_Deposito = '' WHERE Rp_Folio = '" + folio +
                            "' AND Es_Cve_Estado NOT IN ('DP', 'AD')");
    if (cancel_receipt(desk, folio)) return true;
    const std::string lines = "Recibo_Pago WHERE Rp_Folio = '" + folio + "' AND Es_Cve_Estado = 'CA'";
    if (desk.text("SELECT COUNT(*) AS Valor FROM " + lines) == "0") return false;
    desk.connection.execute("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Folio = '" + folio + "'");
    return true;
}
bool cancel_deposit(const Desk& desk, const std::string& folio) {
    return desk.treasury.Cancelar_Deposito(before_mark(folio, '/'));
}
bool cancel_movement(const Desk& desk, const std::string& folio) {
    return desk.treasury.Cancelar_Movimiento_Bancos(folio);
}
/// A caller may have named a payable with an apostrophe, which then stands in the way of every statement about it.
bool cancel_check(const Desk& desk, const std::string& folio) {
    if (desk.treasury.Cancelar_Cheque(folio)) return true;
    if (desk.treasury.Error().find("lleva un apóstrofo") == std::string::npos) return false;
    desk.connection.execute("UPDATE Cheque_x_Aplicar SET Cxp_Folio = '' WHERE Ch_Folio = '" + folio +
                            "' AND Cxp_Folio LIKE '%''%'");
    return desk.treasury.Cancelar_Cheque(folio);
}
bool cancel_payment(const Desk& desk, const std::string& payment) {
    return desk.suite.new_accounts_receivable()->CancelPayment(before_mark(payment, ':'), after_mark(payment, ':'));
}

/// Does what the refusal says: a receivable that was paid since has its payments cancelled.
bool cancel_named_payments(const Desk& desk, const std::string& refusal) {
    const std::string receivable = "La cuenta por cobrar: ", paid = ", tiene pagos aplicados; cancele antes sus pagos";
    const auto begin = refusal.find(receivable), end = refusal.find(paid);
    if (begin == std::string::npos || end == std::string::npos) return false;
    const std::string folio = refusal.substr(begin + receivable.size(), end - begin - receivable.size());
    const auto payments = desk.texts("SELECT Cxc_Folio + ':' + Pc_ID AS Valor FROM Pago_Cxc WHERE Cxc_Folio = '" +
                                     folio + "' AND Es_Cve_Estado <> 'CA'");
    return std::all_of(payments.begin(), payments.end(),
                       [&](const std::string& payment) { return cancel_payment(desk, payment); });
}

bool take_application_back(const Desk& desk, const std::string& folio) {
    const std::string check = before_mark(folio, '/');
    if (desk.treasury.Cancelar_Aplicacion_Cheque(check)) return true;
    return cancel_named_payments(desk, desk.treasury.Error()) && desk.treasury.Cancelar_Aplicacion_Cheque(check);
}

bool give_movement(const Desk& desk, const std::string& folio) {
    const std::map<std::string, int> budgets = {{"05", 0}, {"02", 1}, {"04", 3}, {"03", 4}};
    const std::string purpose = desk.text(
        "SELECT Tc_Solicitar AS Valor FROM Cheque INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = "
        "Cheque.Tc_Cve_Tipo_Cheque WHERE Ch_Folio = '" +
        folio + "'");
    const auto budget = budgets.find(purpose);
    if (budget != budgets.end() && !desk.treasury.Afectar_Cheque_Presupuesto(folio, budget->second)) return false;
    if (desk.text("SELECT Es_Cve_Estado AS Valor FROM Cheque WHERE Ch_Folio = '" + folio + "'") == "PXA") return true;
    return desk.treasury.Registra_Movimiento_Bancario_Cheque(folio);
}

bool give_movement_or_cancel(const Desk& desk, const std::string& folio) {
    if (give_movement(desk, folio) || cancel_check(desk, folio)) return true;
    const auto lines = desk.texts("SELECT Cxa_ID AS Valor FROM Cheque_x_Aplicar WHERE Ch_Folio = '" + folio + "'");
    if (!lines.empty()) return false;
    desk.connection.execute("UPDATE Cheque SET Es_Cve_Estado = 'CA' WHERE Ch_Folio = '" + folio + "'");
    return true;
}

bool cancel_check_again(const Desk& desk, const std::string& folio) {
    const bool moves = desk.text("SELECT COUNT(*) AS Valor FROM Banco_Movimiento WHERE Bm_Documento = '" + folio +
                                 "' AND Es_Cve_Estado <> 'CA'") != "0";
    if (moves) return cancel_check(desk, folio);
    desk.connection.execute("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'CA' WHERE Ch_Folio = '" + folio + "'");
    return true;
}

bool cancel_with_document(const Desk& desk, const std::string& movement) {
    const auto document_in = [&](const std::string& table) {
        return desk.text("SELECT Bm_Documento AS Valor FROM Banco_Movimiento WHERE Bm_Folio = '" + movement +
                         "' AND Bm_Tabla = '" + table + "'");
    };
    // One that was registered by hand may name what is no document, or another's.
    const std::string deposit = document_in("DEPOSITO_PAGO"), check = document_in("CHEQUE");
    return (deposit.starts_with("DP-") && cancel_deposit(desk, deposit)) ||
           (check.starts_with("CH-") && cancel_check(desk, check)) || cancel_movement(desk, movement);
}

bool cancel_document(const Desk& desk, const std::string& folio) {
    if (folio.starts_with("RP-")) return cancel_receipt(desk, folio);
    if (folio.starts_with("DP-")) return cancel_deposit(desk, folio);
    if (folio.starts_with("CH-")) return cancel_check(desk, folio);
    return cancel_with_document(desk, folio);
}

bool cancel_what_a_closing_left(const Desk& desk, const std::string& receipt) {
    const auto receivables = desk.suite.new_accounts_receivable();
    for (const std::string& payment :
         desk.texts("SELECT Cxc_Folio + ':' + Pc_ID AS Valor FROM Pago_Cxc WHERE Pc_Documento = '" + receipt +
                    "' AND Es_Cve_Estado <> 'CA'")) {
        if (!cancel_payment(desk, payment)) return false;
    }
    return receivables->CancelDocumentAdvances("RECIBO_PAGO", receipt) &&
           receivables->CancelDocumentReceivables("RECIBO_PAGO", receipt) &&
           desk.suite.new_accounts_payable()->CancelDocumentPayables("RECIBO_PAGO", receipt);
}

bool register_cancellation(const Desk& desk, const std::string& movement) {
    return desk.suite.data()->RegisterDocument("BANCO_MOVIMIENTO", movement);
}

const std::map<std::string, Advice>& advices() {
    static const std::map<std::string, Advice> all = {
        {"saldo-de-cuenta",
         by_hand("UPDATE Banco_Cuenta SET Bc_Saldo = (SELECT ISNULL(SUM(Bm_Importe), 0) FROM Banco_Movimiento WHERE "
                 "Bc_Cve_Banco_Cuenta = '?' AND Es_Cve_Estado <> 'CA') WHERE Bc_Cve_Banco_Cuenta = '?'")},
        {"saldo-de-banco",
         by_hand("UPDATE Banco SET Bn_Saldo = (SELECT ISNULL(SUM(Bc_Saldo), 0) FROM Banco_Cuenta WHERE Bn_Cve_Banco = "
                 "'?') WHERE Bn_Cve_Banco = '?'")},
        {"deposito-sin-movimiento", cancel_deposit},
        {"deposito-y-movimiento-difieren", cancel_deposit},
        {"deposito-y-recibos-difieren", cancel_deposit},
        {"deposito-sin-registrar", cancel_deposit},
        {"movimiento-de-deposito-cancelado", cancel_movement},
        {"movimiento-de-cheque-cancelado", cancel_movement},
        {"movimiento-duplicado", cancel_movement},
        {"movimiento-sin-registrar", cancel_with_document},
        {"cancelacion-de-movimiento-sin-registrar", register_cancellation},
        {"cheque-aplicado-con-renglones-abiertos", take_application_back},
        {"cheque-aplicado-a-medias", take_application_back},
        {"cheque-con-efectos-sin-aplicar", take_application_back},
        {"cheque-y-pagos-difieren", take_application_back},
        {"cheque-y-cuentas-por-cobrar-difieren", take_application_back},
        {"cheque-sin-su-anticipo-a-proveedor", take_application_back},
        {"cheque-y-gasto-difieren", take_application_back},
        {"cheque-sin-sus-anticipos", take_application_back},
        {"movimiento-de-cheque-sin-marcar", take_application_back},
        {"aplicacion-de-cheque-cancelada-a-medias", take_application_back},
        {"anticipo-a-proveedor-sin-cheque",
         by_hand("UPDATE Cuenta_x_Pagar SET Cxp_Tabla = 'ANTICIPO_CXP-CA:' + Cxp_Folio WHERE Cxp_Folio = '?'")},
        {"anticipo-aplicado-a-medias", cancel_payment},
        {"cheque-sin-encabezado", by_hand("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'CA' WHERE Ch_Folio = '?'")},
        {"cheque-sin-movimiento", give_movement_or_cancel},
        {"cheque-duplicado", cancel_check},
        {"cheque-de-gasto-sin-gasto", cancel_check},
        {"cheque-de-solicitud-cancelada", cancel_check},
        {"cheque-cancelado-a-medias", cancel_check_again},
        {"cheque-sin-finalizar",
         [](const Desk& desk, const std::string& folio) { return desk.treasury.Finalizar_Cheque(folio); }},
        {"gasto-por-comprobar-sin-pagar",
         by_hand("UPDATE Gasto_x_Comprobar SET Es_Cve_Estado = 'PA' WHERE Gc_Folio = '?'")},
        {"recibo-sin-deposito",
         by_hand("UPDATE Recibo_Pago SET Es_Cve_Estado = CASE Es_Cve_Estado WHEN 'AD' THEN 'AP' ELSE 'AC' END, "
                 "Rp_Folio_Deposito = '', Rp_Deposito_ID = '' WHERE Rp_Folio + '/' + Rp_Id = '?'")},
        {"recibo-cerrado-a-medias", cancel_whatever_it_names},
        {"recibo-y-aplicacion-difieren", cancel_whatever_it_names},
        {"recibo-y-cuentas-por-cobrar-difieren", cancel_whatever_it_names},
        {"aplicacion-de-recibo-cancelado", cancel_what_a_closing_left},
        {"solicitud-cancelada-a-medias",
         [](const Desk& desk, const std::string& folio) { return desk.treasury.Cancelar_Solicitud_Cheque(folio); }},
        {"solicitud-autorizada-a-medias",
         [](const Desk& desk, const std::string& folio) { return desk.treasury.Autorizar_Solicitud_Cheque(folio); }},
        {"saldo-de-cuenta-por-cobrar",
         by_hand("UPDATE Cuenta_x_Cobrar SET Cxc_Precio_Neto_Pago = (SELECT ISNULL(SUM(Pc_Importe), 0) FROM Pago_Cxc "
                 "WHERE Cxc_Folio = '?' AND Es_Cve_Estado <> 'CA'), Cxc_Precio_Neto_Saldo = Cxc_Precio_Neto_Importe - "
                 "(SELECT ISNULL(SUM(Pc_Importe), 0) FROM Pago_Cxc WHERE Cxc_Folio = '?' AND Es_Cve_Estado <> 'CA') "
                 "WHERE Cxc_Folio = '?'")},
        {"saldo-de-cuenta-por-pagar",
         by_hand("UPDATE Cuenta_x_Pagar SET Cxp_Precio_Neto_Pago = (SELECT ISNULL(SUM(Pc_Importe), 0) FROM Pago_Cxp "
                 "WHERE Cxp_Folio = '?' AND Es_Cve_Estado <> 'CA'), Cxp_Precio_Neto_Saldo = Cxp_Precio_Neto_Importe - "
                 "(SELECT ISNULL(SUM(Pc_Importe), 0) FROM Pago_Cxp WHERE Cxp_Folio = '?' AND Es_Cve_Estado <> 'CA') "
                 "WHERE Cxp_Folio = '?'")},
        {"cuenta-de-anticipo-sin-anticipo",
         by_hand("UPDATE Cuenta_x_Cobrar SET Es_Cve_Estado = 'CA' WHERE Cxc_Folio = '?'")},
        {"anticipo-sin-su-cuenta", by_hand("UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'CA' WHERE An_Folio = '?'")},
        {"anticipo-usado-con-saldo", by_hand("UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AC' WHERE An_Folio = '?'")},
        {"renglones-sin-poliza", by_hand("DELETE FROM Poliza_Detalle WHERE Pz_Folio = '?'")},
        {"poliza-duplicada", by_hand("UPDATE Poliza SET Es_Cve_Estado = 'CA' WHERE Pz_Folio = '?'")},
        {"documento-con-poliza-cancelada", cancel_document},
    };
    return all;
}

std::string told(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings) text += finding.check + finding.document + finding.figures + '\n';
    return text;
}

/// What stands behind the kind of the document; a folio may have blanks, as its branch has.
std::string folio_of(const Finding& finding) {
    for (const reference::Audit_rule& rule : reference::all_rules()) {
        if (rule.name != finding.check || rule.document == nullptr) continue;
        return finding.document.substr(std::strlen(rule.document) + 1);
    }
    return finding.document.substr(finding.document.rfind(' ') + 1);
}

/// Gives "" or why it could not be followed.
std::string follow(const Desk& desk, const Finding& finding) {
    const auto advice = advices().find(finding.check);
    if (advice == advices().end()) return "nobody knows how to follow the advice of " + finding.check;
    return advice->second(desk, folio_of(finding)) ? "" : desk.treasury.Error();
}

}  // namespace

std::string Desk::text(const std::string& query) const {
    const auto values = texts(query);
    return values.empty() ? std::string() : values.front();
}

std::vector<std::string> Desk::texts(const std::string& query) const {
    std::vector<std::string> values;
    for (Rows rows(connection.execute(query)); !rows.eof(); rows.next()) values.push_back(rows.text("Valor"));
    return values;
}

Followed follow_to_the_end(const Desk& desk, const std::function<std::vector<Finding>()>& look) {
    Followed followed;
    std::string before;
    followed.left = look();
    for (int steps = 0; !followed.left.empty() && told(followed.left) != before && steps < 30; ++steps) {
        before = told(followed.left);
        bool done = false;
        for (auto finding = followed.left.begin(); finding != followed.left.end() && !done; ++finding) {
            const std::string failed = follow(desk, *finding);
            done = failed.empty();
            followed.told += "\n  " + finding->check + " of " + finding->document + (done ? "" : " failed: " + failed);
        }
        followed.left = look();
    }
    return followed;
}

}  // namespace cuvexa::tests
