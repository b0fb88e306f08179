// Every statement of the product (the files of tests/statements), on the schema as it is delivered: each is translated,
// runs, and finds its rows without walking through a table of documents.
#include <set>

#include "cuvexa/database/script.h"
#include "cuvexa/unit_of_work.h"
#include "fixture.h"
#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

std::string schema_file(const std::string& name) {
    return text_of_file(in_source("schema/" + name));
}

class Operation_statements : public testing::Test {
protected:
    Operation_statements() { run_script(db, schema_file("schema.sql")); }

    /// The description with which it fails; nothing of it is kept.
    std::string failure_of(const std::string& statement) {
        const Unit_of_work not_kept(db);
        return failure(db, statement);
    }

    Sqlite_connection db{":memory:"};
};

TEST_F(Operation_statements, each_runs_on_an_empty_database_and_on_the_sample_company) {
    const std::vector<Told_statement> statements = told_statements();
    EXPECT_GT(statements.size(), 180u);
    for (const auto& [file, statement, refused] : statements) {
        if (refused) continue;
        EXPECT_EQ(failure_of(statement), "") << file << ": " << statement;
    }
    run_script(db, schema_file("sample_company.sql"));
    for (const auto& [file, statement, refused] : statements) {
        if (refused) continue;
        EXPECT_EQ(failure_of(statement), "") << file << ": " << statement;
    }
}

/// Tables that are short and that people look through from end to end: catalogues, and what the administration shows.
const std::set<std::string> short_tables = {"Banco",       "Banco_Cuenta",      "Tipo_Cheque",
                                            "Forma_Pago",  "Parametro_Sistema", "Configuracion_Contable",
                                            "Folio_Serie", "Periodo_Operativo"};

/// The audit looks at everything. What the checks of a month amount to for a group of suppliers, a branch or the company is
/// looked for among all checks: what would narrow them down is the month, which the statement computes.
bool may_walk(const std::string& file, const std::string& table) {
    return short_tables.contains(table) || file == "Audit.sql" ||
           (file == "Afectar_Cheque_Presupuesto.sql" && table == "Cheque");
}

TEST_F(Operation_statements, none_walks_through_a_table_of_documents) {
    for (const auto& [file, statement, refused] : told_statements()) {
        if (refused) continue;
        for (const std::string& step : plan(db, statement)) {
            const bool walks = step.starts_with("SCAN ") && step != "SCAN CONSTANT ROW" && step != "SCAN cuvexa_rows" &&
                               !step.starts_with("SCAN 1 ");
            const std::string table = walks ? step.substr(5, step.find(' ', 5) - 5) : "";
            EXPECT_TRUE(!walks || may_walk(file, table)) << step << "\n" << file << ": " << statement;
        }
    }
}

TEST_F(Operation_statements, the_balance_of_firm_movements_is_refused_by_the_engine) {
    std::vector<std::string> refusals;
    for (const auto& [file, statement, refused] : told_statements()) {
        if (refused) refusals.push_back(file + ": " + failure(db, statement));
    }
    EXPECT_THAT(refusals, testing::ElementsAre("GetSaldo.sql: near \"Es_Cve_Estado\": syntax error"));
}

}  // namespace
}  // namespace cuvexa::tests
