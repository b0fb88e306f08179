// docs/states.md against what the members do: triggers in the database note every change of state.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "suite/expenses.h"
#include "support/company.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

std::string text_of(const std::string& path) {
    std::stringstream text;
    text << std::ifstream(tests::in_source(path), std::ios::binary).rdbuf();
    return text.str();
}

/// The page's arrows, as "Table: from --> to : Member".
using Arrows = std::set<std::string>;

Arrows arrows_of_the_page() {
    static const std::regex heading("^## .*`(\\w+)`"), arrow("^    (\\S+) --> (\\S+) : (.+)$");
    Arrows arrows;
    std::string table, line;
    for (std::istringstream lines(text_of("docs/states.md")); std::getline(lines, line);) {
        std::smatch found;
        if (std::regex_search(line, found, heading)) table = found[1];
        if (!std::regex_search(line, found, arrow)) continue;
        std::string member;
        for (std::istringstream members(found[3]); std::getline(members >> std::ws, member, ',');) {
            arrows.insert(table + ": " + found.str(1) + " --> " + found.str(2) + " : " + member);
        }
    }
    return arrows;
}

/// The tables on the page, with what says the state of a row. A receivable or payable whose document took it back keeps its
/// state and is told by its relabelled table code.
const std::map<std::string, std::string> tables = {
    {"Recibo_Pago", "{}.Es_Cve_Estado"},
    {"Deposito_Pago", "{}.Es_Cve_Estado"},
    {"Banco_Movimiento", "{}.Es_Cve_Estado"},
    {"Cheque", "{}.Es_Cve_Estado"},
    {"Cheque_x_Aplicar", "{}.Es_Cve_Estado"},
    {"Solicitud_Cheque", "{}.Es_Cve_Estado"},
    {"Solicitud_Cheque_Detalle", "{}.Es_Cve_Estado"},
    {"Gasto_x_Comprobar", "{}.Es_Cve_Estado"},
    {"Gasto_x_Comprobar_Documento", "{}.Es_Cve_Estado"},
    {"Anticipo_Cxc", "{}.Es_Cve_Estado"},
    {"Cuenta_x_Cobrar", "CASE WHEN {}.Cxc_Tabla LIKE '%-CA:%' THEN 'withdrawn' ELSE {}.Es_Cve_Estado END"},
    {"Cuenta_x_Pagar", "CASE WHEN {}.Cxp_Tabla LIKE '%-CA:%' THEN 'withdrawn' ELSE {}.Es_Cve_Estado END"},
};

/// What a member calls inside: a change that it makes is on the page under the name of one of these.
const std::map<std::string, std::set<std::string>> inside = {
    {"Genera_Deposito", {"Registra_Movimiento_Banco"}},
    {"Crear_Cheque_…", {"Add_Cheque_Detalle", "Afectar_Cheque_Presupuesto", "Registra_Movimiento_Banco"}},
    {"Registra_Movimiento_Bancario_Cheque", {"Registra_Movimiento_Banco"}},
    {"Cancelar_Deposito", {"Cancelar_Documento_Bancos"}},
    {"Cancelar_Recibo_Caja", {"Cancelar_Deposito", "Cancelar_Documento_Bancos"}},
    {"Cancelar_Cheque", {"Cancelar_Aplicacion_Cheque", "Cancelar_Documento_Bancos"}},
};

/// A company whose database notes changes of state.
class Watched_company : public Company {
public:
    Watched_company() {
        note("CREATE TABLE Cambio_Estado (Tabla, De, A)");
        for (const auto& [table, state] : tables) {
            const auto of = [expression = state](const std::string& row) {
                return std::regex_replace(expression, std::regex("\\{\\}"), row);
            };
            note("CREATE TRIGGER " + table + "_alta AFTER INSERT ON " + table +
                 " BEGIN INSERT INTO Cambio_Estado VALUES ('" + table + "', '[*]', " + of("NEW") + "); END");
            note("CREATE TRIGGER " + table + "_cambio AFTER UPDATE ON " + table + " WHEN " + of("OLD") + " IS NOT " +
                 of("NEW") + " BEGIN INSERT INTO Cambio_Estado VALUES ('" + table + "', IFNULL(" + of("OLD") +
                 ", 'none'), IFNULL(" + of("NEW") + ", 'none')); END");
        }
    }

    /// Runs a step in the name of a member and notes the changes that it makes.
    void during(const std::string& member, const std::function<bool(Tesoreria&)>& step) {
        note("DELETE FROM Cambio_Estado");
        ASSERT_TRUE(step(treasury())) << member << ": " << treasury().Error();
        for (const std::string& change :
             rows("SELECT DISTINCT Tabla || ': ' || De || ' --> ' || A FROM Cambio_Estado")) {
            seen.insert(change + " : " + member);
        }
    }

    Arrows seen;

private:
    void note(const std::string& statement) {
        if (sqlite3_exec(embedded(), statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(statement + ": " + sqlite3_errmsg(embedded()));
        }
    }
};

// ---- Everything that changes a state ------------------------------------------------------------------------------------

class Scenario : public Watched_company {
public:
    void run() {
        budget_mode("0");
        receipts();
        checks();
        expenses();
        movements();
        requests();
    }

private:
    // ---- Receipts and deposits

    std::string receipt(const std::string& type, const std::string& party, const std::vector<tRpDetalle>& lines) {
        tRpEncabezado header = receipt_header();
        header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = type;
        header.Rp_Solicitar_Valor = party;
        during("Add_Recibo_Caja_Detalle", [&](Tesoreria&) { return !capture_receipt(lines, header).empty(); });
        return treasury().RpEncabezado().Rp_Folio;
    }
    void close(const std::string& receipt) {
        during("FinReciboCaja", [&](Tesoreria& treasury) { return treasury.FinReciboCaja(receipt); });
    }
    void deposit(const std::string& receipt, bool firm = false) {
        during("Genera_Deposito", [&](Tesoreria& treasury) {
            return treasury.Genera_Deposito("SRR-MXN", receipt, today(), firm, today());
        });
    }
    void cancel_deposit() {
        during("Cancelar_Deposito",
               [](Tesoreria& treasury) { return treasury.Cancelar_Deposito(treasury.Dp_Folio()); });
    }
    void cancel_receipt(const std::string& receipt, bool with_deposit = false) {
        during("Cancelar_Recibo_Caja",
               [&](Tesoreria& treasury) { return treasury.Cancelar_Recibo_Caja(receipt, with_deposit, true); });
    }

    void receipts() {
        const std::vector<tRpDetalle> cash = {receipt_line(100)};
        const std::vector<tRpDetalle> charged = {receipt_line(100, "06", "", "T-1")};
        const std::vector<tRpDetalle> voucher_and_cash = {receipt_line(10, "05", "", "V-1"), receipt_line(100)};

        const std::string open = receipt("01", "", cash);
        deposit(open);
        cancel_deposit();
        cancel_receipt(open);

        const std::string closed = receipt("02", "CL01", cash);
        close(closed);
        deposit(closed, true);
        cancel_deposit();
        cancel_receipt(closed);

        const std::string cancelled_along = receipt("02", "CL01", cash);
        deposit(cancelled_along);
        cancel_receipt(cancelled_along, true);

        const std::string advance = receipt("03", "DE01", cash);
        close(advance);
        cancel_receipt(advance);

        const std::string loan = receipt("04", "PV01", charged);
        close(loan);
        cancel_receipt(loan);

        // The deposit is looked for in the first line alone.
        const std::string deposited_behind = receipt("01", "", voucher_and_cash);
        deposit(deposited_behind);
        cancel_receipt(deposited_behind);
        const std::string closed_behind = receipt("02", "CL01", voucher_and_cash);
        close(closed_behind);
        deposit(closed_behind);
        close(closed_behind);
        cancel_deposit();
        const std::string deposited_and_closed = receipt("02", "CL01", voucher_and_cash);
        deposit(deposited_and_closed);
        close(deposited_and_closed);
        const std::string closed_and_deposited = receipt("02", "CL01", voucher_and_cash);
        close(closed_and_deposited);
        deposit(closed_and_deposited);
        cancel_receipt(closed_and_deposited);
    }

    // ---- Checks

    /// "2" holds back every check of a debtor: there is no budget.
    void budget_mode(const std::string& mode) {
        sql("DELETE FROM Prestamo_Deudor_Presupuesto");
        sql("DELETE FROM Gasto_x_Comprobar_Presupuesto");
        set_parameter("TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR", mode);
        set_parameter("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", mode);
    }

    void begin_check(const std::string& type, const std::string& beneficiary) {
        tTsEncabezado header = check_header();
        header.Tc_Cve_Tipo_Cheque = type;
        header.Ch_Solicitar_Valor = beneficiary;
        header.Ch_Referencia = std::to_string(++number_);
        treasury().Nuevo();
        treasury().Encabezado(header);
        treasury().Detalle(check_line(120));
    }
    void add_line() {
        during("Add_Cheque_Detalle", [](Tesoreria& treasury) { return treasury.Add_Cheque_Detalle(); });
    }
    std::string check() { return treasury().Encabezado().Ch_Folio; }

    std::string supplier_check() {
        begin_check("0001", "PV01");
        add_line();
        during("Crear_Cheque_…", [&](Tesoreria& treasury) { return treasury.Crear_Cheque_Pago_Proveedor(check()); });
        return check();
    }
    std::string created_check(const std::string& type, const std::string& beneficiary, bool (Tesoreria::*create)()) {
        begin_check(type, beneficiary);
        during("Crear_Cheque_…", [&](Tesoreria& treasury) { return (treasury.*create)(); });
        return check();
    }
    std::string expense_check() { return created_check("0002", "DE01", &Tesoreria::Crear_Cheque_Gasto_x_Comprobar); }
    void apply(const std::string& check, bool firm = false) {
        during("Aplicar_Cheque", [&](Tesoreria& treasury) { return treasury.Aplicar_Cheque(check, today(), firm); });
    }
    void take_back(const std::string& check) {
        during("Cancelar_Aplicacion_Cheque",
               [&](Tesoreria& treasury) { return treasury.Cancelar_Aplicacion_Cheque(check); });
    }
    void cancel_check(const std::string& check) {
        during("Cancelar_Cheque", [&](Tesoreria& treasury) { return treasury.Cancelar_Cheque(check); });
    }

    void checks() {
        const std::string paid = supplier_check();
        apply(paid, true);
        take_back(paid);
        apply(paid);
        cancel_check(paid);
        take_back(paid);  // it looks at no state

        const std::string loan = created_check("0004", "DE01", &Tesoreria::Crear_Cheque_Deudor);
        apply(loan);
        take_back(loan);
        const std::string advance = created_check("0005", "PV01", &Tesoreria::Crear_Cheque_Anticipo_Cxp);
        apply(advance);
        take_back(advance);

        begin_check("0001", "PV01");
        add_line();
        during("Crear_Traspaso_Cuenta_Propia",
               [](Tesoreria& treasury) { return treasury.Crear_Traspaso_Cuenta_Propia(); });
        during("Registra_Movimiento_Bancario_Cheque",
               [&](Tesoreria& treasury) { return treasury.Registra_Movimiento_Bancario_Cheque(check()); });

        const std::string held_back = created_check("0004", "DE01", &Tesoreria::Crear_Cheque_Deudor);
        budget_mode("2");
        during("Afectar_Cheque_Presupuesto",
               [&](Tesoreria& treasury) { return treasury.Afectar_Cheque_Presupuesto(held_back, 3); });
        take_back(held_back);
        cancel_check(created_check("0004", "DE01", &Tesoreria::Crear_Cheque_Deudor));
        cancel_check(expense_check());
        budget_mode("0");
    }

    void expenses() {
        const auto advance_for = [&](const std::string& check) {
            during("other modules", [&](Tesoreria&) {
                const std::string advance = reference::register_expense_advance(*suite(), {.debtor = "DE01",
                                                                                           .branch = "MTY",
                                                                                           .expense = "GR-1",
                                                                                           .date = today(),
                                                                                           .amount = 50,
                                                                                           .currency = "MXN"});
                reference::link_advance_to_check(*suite(), check, advance, 50);
                return true;
            });
        };
        const std::string applied = expense_check();
        advance_for(applied);
        apply(applied);
        take_back(applied);
        cancel_check(applied);

        const std::string never_applied = expense_check();
        advance_for(never_applied);
        take_back(never_applied);
        const std::string cancelled = expense_check();
        advance_for(cancelled);
        cancel_check(cancelled);
    }

    // ---- Bank movements and check requests

    void movements() {
        for (const bool firm : {false, true}) {
            for (const bool by_document : {false, true}) {
                tBnMovimiento movement = Company::movement();
                movement.EnFirme = firm;
                movement.Bm_Documento = "EC-" + std::to_string(++number_);
                during("Registra_Movimiento_Banco",
                       [&](Tesoreria& treasury) { return treasury.Registra_Movimiento_Banco(movement); });
                during(by_document ? "Cancelar_Documento_Bancos" : "Cancelar_Movimiento_Bancos",
                       [&](Tesoreria& treasury) {
                           return by_document
                                      ? treasury.Cancelar_Documento_Bancos(movement.Bm_Tabla, movement.Bm_Documento)
                                      : treasury.Cancelar_Movimiento_Bancos(treasury.FolioMovimiento);
                       });
            }
        }
    }

    std::string request() {
        tSchEncabezado header;
        header.Sch_Fecha = today();
        header.Tc_Cve_Tipo_Cheque = "0001";
        header.Bc_Cve_Banco_Cuenta = "SRR-MXN";
        header.Sucursal.Sc_Cve_Sucursal = "MTY";
        header.Sch_Importe = 100;
        header.Mn_Cve_Moneda = "MXN";
        header.Sch_Tipo_Cambio = 1;
        header.Sch_Transferencia = header.Sch_Aplicar = header.Sch_Firme = "NO";
        header.Sch_Solicitar_Valor = "PV01";
        restart();  // an instance captures one request
        treasury().SchEncabezado(header);
        during("Add_Solicitud_Cheque", [](Tesoreria& treasury) { return treasury.Add_Solicitud_Cheque(); });
        const std::string folio = treasury().SchEncabezado().Sch_Folio;
        tSchDetalle line;
        line.Sch_Folio = folio;
        line.Scd_Tabla = "ORDEN_COMPRA";
        line.Scd_Documento = "OC-7";
        line.Scd_Importe = 100;
        line.Mn_Cve_Moneda = "MXN";
        line.Scd_Tipo_Cambio = 1;
        treasury().SchDetalle(line);
        during("Add_Solicitud_Cheque_Detalle",
               [](Tesoreria& treasury) { return treasury.Add_Solicitud_Cheque_Detalle(); });
        return folio;
    }
    void cancel_request(const std::string& request) {
        during("Cancelar_Solicitud_Cheque",
               [&](Tesoreria& treasury) { return treasury.Cancelar_Solicitud_Cheque(request); });
    }

    void requests() {
        set_parameter("TES_AUTORIZAR_SOLICITUD_CHEQUE", "0");
        cancel_request(request());
        set_parameter("TES_AUTORIZAR_SOLICITUD_CHEQUE", "1");
        cancel_request(request());
        const std::string authorized = request();
        during("Autorizar_Solicitud_Cheque",
               [&](Tesoreria& treasury) { return treasury.Autorizar_Solicitud_Cheque(authorized); });
    }

    int number_ = 5000;
};

/// The arrow on the page that explains a change: that of the member, or of a member that it calls inside.
std::string explained(const std::string& change, const Arrows& page) {
    if (page.contains(change)) return change;
    const auto colon = change.rfind(" : ");
    const auto called = inside.find(change.substr(colon + 3));
    if (called == inside.end()) return {};
    for (const std::string& member : called->second) {
        const std::string arrow = change.substr(0, colon + 3) + member;
        if (page.contains(arrow)) return arrow;
    }
    return {};
}

TEST(States, the_page_shows_every_change_that_the_members_make_and_no_other) {
    Scenario scenario;
    if (scenario.embedded() == nullptr) GTEST_SKIP() << "the triggers are those of the embedded engine";
    scenario.run();
    const Arrows page = arrows_of_the_page();
    Arrows missing, shown;
    for (const std::string& change : scenario.seen) {
        const std::string arrow = explained(change, page);
        (arrow.empty() ? missing : shown).insert(arrow.empty() ? change : arrow);
    }
    EXPECT_THAT(missing, IsEmpty()) << "changes that the page does not show";
    Arrows unseen;
    std::set_difference(page.begin(), page.end(), shown.begin(), shown.end(), std::inserter(unseen, unseen.end()));
    EXPECT_THAT(unseen, IsEmpty()) << "arrows of the page that no member went";
}

// ---- The codes ----------------------------------------------------------------------------------------------------------

std::set<std::string> all_matches(const std::string& text, const std::string& pattern) {
    const std::regex sought(pattern);
    std::set<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), sought), end; at != end; ++at) found.insert(at->str(1));
    return found;
}

/// The states that the statements of the sources set or ask for.
std::set<std::string> states_in_statements() {
    std::set<std::string> states;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tests::in_source("src"))) {
        if (entry.path().extension() != ".cpp") continue;
        std::stringstream text;
        text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        for (const std::string& list :
             all_matches(text.str(), "Es_Cve_Estado *(?:=|<>|IN|NOT IN) *\\(?((?:'\\w+'[, ]*)+)")) {
            states.merge(all_matches(list, "'(\\w+)'"));
        }
    }
    return states;
}

TEST(States, the_page_the_names_in_the_code_and_the_statements_know_the_same_codes) {
    const std::set<std::string> on_the_page = all_matches(text_of("docs/states.md"), "\\n\\| `(\\w+)` \\|");
    const std::string codes = text_of("src/core/codes.h");
    const auto from = codes.find("namespace state {");
    const std::set<std::string> named =
        all_matches(codes.substr(from, codes.find("}  // namespace state") - from), "= \"(\\w+)\";");
    EXPECT_EQ(on_the_page, named);
    const std::set<std::string> used = states_in_statements();
    EXPECT_GT(used.size(), 5u);
    for (const std::string& state : used) EXPECT_TRUE(named.contains(state)) << state;
}

}  // namespace
}  // namespace cuvexa::tests
