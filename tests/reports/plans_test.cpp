// How the engine would run what the reports send: through an index, on the schema as it is delivered.
#include <algorithm>
#include <set>

#include "cuvexa/database/script.h"
#include "cuvexa/suite/schema.h"
#include "database/fixture.h"
#include "reports/account_statement.h"
#include "reports/budgets.h"
#include "reports/document.h"
#include "reports/lists.h"
#include "reports/whole_statement.h"
#include "support/recording_connection.h"

namespace cuvexa::tests {
namespace {

using reports::Order;
using reports::Question;

/// Tables that are short.
const std::set<std::string> short_tables = {
    "Banco",
    "Banco_Cuenta",
    "Tipo_Cheque",
    "Sucursal",
    "Empresa",
    "Anticipo_Proveedor_Presupuesto",
    "Gasto_x_Comprobar_Presupuesto",
    "Prestamo_Deudor_Presupuesto",
    "Devolucion_Cliente_Presupuesto",
};

constexpr const char* all_documents[] = {"receipts", "deposits",    "movements", "checks",  "requests",
                                         "advances", "receivables", "payables",  "vouchers"};

class Reports_plans : public testing::Test {
protected:
    Reports_plans() { run_script(db, schema_sql()); }

    /// A walk along an index in the order that is asked for ends with the page; any other walk goes through a whole table.
    static bool is_bounded(const std::string& step, const std::string& statement) {
        if (!step.starts_with("SCAN ")) return step != "USE TEMP B-TREE FOR ORDER BY" || may_sort(statement);
        const std::string table = step.substr(5, step.find(' ', 5) - 5);
        const bool sub_select = table == "Tramo" || table == "(subquery" || table.starts_with("(");
        if (sub_select || short_tables.contains(table)) return true;
        return step.find(" USING ") != std::string::npos && statement.find(" TOP ") != std::string::npos;
    }

    /// What a condition has selected through its index may be sorted, and so may the last of a search's documents.
    static bool may_sort(const std::string& statement) {
        return statement.find(" IN (SELECT ") != std::string::npos || statement.find(" = ") != std::string::npos ||
               statement.find("AS Tramo") != std::string::npos ||
               statement.find("AS Presupuestos") != std::string::npos;
    }

    void expect_indexes() {
        EXPECT_FALSE(wire.texts().empty());
        for (const std::string& statement : wire.texts()) {
            for (const std::string& step : plan(db, statement)) {
                EXPECT_TRUE(is_bounded(step, statement)) << step << "\n" << statement;
            }
        }
    }

    /// Of the view's own table only so many rows are looked at as the statement says, and they come in their order.
    void expect_bounded_search(const reports::View& view, const std::string& statement) {
        const auto steps = plan(db, statement);
        const std::string table(view.table);
        int entries = 0;
        for (const std::string& step : steps) {
            const bool own = step.starts_with("SCAN " + table + " ") || step.starts_with("SEARCH " + table + " ");
            if (!own) continue;
            ++entries;
            EXPECT_NE(step.find("USING"), std::string::npos) << step << "\n" << statement;
        }
        EXPECT_GE(entries, 1) << statement;
        EXPECT_NE(statement.find("SELECT TOP 10000 "), std::string::npos) << statement;
        // The rows that were found may be sorted, but not those among which they were looked for.
        EXPECT_LE(std::count(steps.begin(), steps.end(), "USE TEMP B-TREE FOR ORDER BY"), 1) << statement;
    }

    Sqlite_connection db{":memory:"};
    Recording_connection wire{db};
    reports::Source source{wire, Date_style::iso};
};

TEST_F(Reports_plans, every_list_walks_along_an_index_in_its_order) {
    for (const char* name : all_documents) {
        const reports::View& view = *reports::find_view(name);
        const auto day = make_date(2024, 3, 15);
        for (const Question& question : std::vector<Question>{{},
                                                              {.from = day, .to = day},
                                                              {.behind = {"2024-03-15", "X"}},
                                                              {.from = day, .behind = {"2024-03-15", "X"}}}) {
            wire.clear();
            read_list(source, view, question);
            ASSERT_EQ(wire.count(), 1u);
            const std::vector<std::string> steps = plan(db, wire.texts()[0]);
            EXPECT_TRUE(steps[0].find(" USING INDEX Ix_") != std::string::npos) << steps[0] << "\n" << wire.texts()[0];
            for (const std::string& step : steps) EXPECT_FALSE(step.starts_with("USE TEMP")) << step << wire.texts()[0];
            expect_indexes();
        }
        for (const Question& question :
             std::vector<Question>{{.order = Order::by_key}, {.order = Order::by_key, .behind = {"X"}}}) {
            wire.clear();
            read_list(source, view, question);
            for (const std::string& step : plan(db, wire.texts()[0])) {
                EXPECT_FALSE(step.starts_with("USE TEMP")) << step << wire.texts()[0];
            }
            expect_indexes();
        }
    }
}

/// A search looks at a bounded number of documents, which it takes along the same index.
TEST_F(Reports_plans, a_search_takes_its_documents_along_an_index) {
    for (const char* name : all_documents) {
        const reports::View& view = *reports::find_view(name);
        wire.clear();
        read_list(source, view, {.state = "AC", .text = "x", .amount = 1, .behind = {"2024-03-15", "X"}});
        EXPECT_EQ(wire.count(), 2u);
        for (const std::string& statement : wire.texts()) {
            const auto steps = plan(db, statement);
            EXPECT_TRUE(std::any_of(steps.begin(), steps.end(), [&](const std::string& step) {
                return step.starts_with("SEARCH ") && step.find("INDEX Ix_") != std::string::npos;
            })) << statement;
            // The rows that were found may be sorted, but not those among which they were looked for.
            EXPECT_LE(std::count(steps.begin(), steps.end(), "USE TEMP B-TREE FOR ORDER BY"), 1) << statement;
        }
        expect_indexes();
    }
}

/// Whatever is searched for, in whatever order, alone or behind a place.
TEST_F(Reports_plans, each_filter_is_looked_for_among_documents_of_an_index) {
    const auto day = make_date(2024, 3, 15);
    for (const char* name : all_documents) {
        const reports::View& view = *reports::find_view(name);
        std::vector<Question> questions{{.state = "AC"}, {.text = "x"}, {.from = day, .to = day, .state = "AC"}};
        if (!view.branch.empty()) questions.push_back({.branch = "MTY"});
        if (!view.account.empty()) questions.push_back({.account = "SRR-MXN"});
        if (!view.amount.empty()) questions.push_back({.amount = 1234.56});
        for (Question question : questions) {
            for (const Order order : {Order::newest_first, Order::by_key}) {
                question.order = order;
                for (const bool later : {false, true}) {
                    question.behind.clear();
                    if (later) question.behind.emplace_back("2024-03-15");
                    if (later && order == Order::newest_first) question.behind.emplace_back("X");
                    wire.clear();
                    read_list(source, view, question);
                    ASSERT_EQ(wire.count(), 2u);
                    for (const std::string& statement : wire.texts()) expect_bounded_search(view, statement);
                }
            }
        }
    }
}

TEST_F(Reports_plans, a_document_s_page_looks_nothing_up_without_an_index) {
    const std::string rows[] = {
        "INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id) VALUES ('X', '0001')",
        "INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id) VALUES ('X', '0001')",
        "INSERT INTO Banco_Movimiento (Bm_Folio) VALUES ('X')",
        "INSERT INTO Cheque (Ch_Folio) VALUES ('X')",
        "INSERT INTO Solicitud_Cheque (Sch_Folio) VALUES ('X')",
        "INSERT INTO Anticipo_Cxc (An_Folio) VALUES ('X')",
        "INSERT INTO Cuenta_x_Cobrar (Cxc_Folio) VALUES ('X')",
        "INSERT INTO Cuenta_x_Pagar (Cxp_Folio) VALUES ('X')",
        "INSERT INTO Poliza (Pz_Folio) VALUES ('X')",
    };
    for (const std::string& row : rows) db.execute(row);
    for (const char* name : all_documents) {
        wire.clear();
        EXPECT_TRUE(read_document(source, *reports::find_view(name), "X")) << name;
        expect_indexes();
        for (const std::string& statement : wire.texts()) {
            for (const std::string& step : plan(db, statement)) {
                EXPECT_FALSE(step.starts_with("SCAN ")) << step << "\n" << statement;
            }
        }
    }
}

TEST_F(Reports_plans, balances_and_statements_read_one_account_along_its_index) {
    const reports::Period march{make_date(2024, 3, 1), make_date(2024, 3, 31)};
    read_statement(source, "SRR-MXN", march, 100, {"2024-03-15", "X", "1", "1"});
    read_daily_balances(source, "SRR-MXN", march);
    for (const std::string& statement : wire.texts()) {
        EXPECT_NE(
            plan(db, statement)[0].find("Ix_Banco_Movimiento_Bc_Cve_Banco_Cuenta_Bm_Fecha (Bc_Cve_Banco_Cuenta=? AND "
                                        "Bm_Fecha"),
            std::string::npos)
            << plan(db, statement)[0] << "\n"
            << statement;
    }
    wire.clear();
    db.execute("INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta) VALUES ('SRR-MXN')");
    reports::read_whole_statement(source, "SRR-MXN", march);
    expect_indexes();
    for (const std::string& statement : wire.texts()) {
        for (const std::string& step : plan(db, statement)) {
            EXPECT_FALSE(step.starts_with("SCAN Banco_Movimiento")) << step << "\n" << statement;
        }
    }
    wire.clear();
    read_list(source, *reports::find_view("accounts"), {});
    reports::read_budgets(source, 2024);
    expect_indexes();
}

}  // namespace
}  // namespace cuvexa::tests
