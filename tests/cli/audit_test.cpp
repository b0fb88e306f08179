// cuvexa audit: what it prints, its exit codes, and that it changes nothing.
#include <sqlite3.h>

#include "cli/program.h"
#include "cuvexa/database/sqlite_connection.h"
#include "database/sqlite/engine.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Cli_audit : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }

    /// A balance that neither the movements of the account nor the balance of its bank account for.
    void plant() { sql("UPDATE Banco_Cuenta SET Bc_Saldo = 5.25 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"); }

    void sql(const std::string& text) {
        Sqlite_connection connection((folder / "company.db").string());
        connection.execute(text);
    }
};

TEST_F(Cli_audit, of_a_clean_database_says_that_all_adds_up) {
    const Outcome outcome = run("audit --db company.db");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, testing::MatchesRegex("Todo cuadra: [0-9]+ revisiones sin diferencias\n"));
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Cli_audit, prints_the_findings_and_counts_them_on_standard_error) {
    plant();
    const Outcome outcome = run("audit --db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out,
              "saldo-de-cuenta\n"
              "  Cuenta bancaria SRR-MXN: saldo de la cuenta 5.25, suma de sus movimientos vivos 0.00\n"
              "    Corrija Bc_Saldo a la suma de los movimientos vivos y después el saldo del banco.\n"
              "saldo-de-banco\n"
              "  Banco SIERRA: saldo del banco 0.00, suma de los saldos de sus cuentas 5.25\n"
              "    Corrija Bn_Saldo a la suma de los saldos de sus cuentas.\n");
    EXPECT_EQ(outcome.err, "Diferencias encontradas: 2\n");
}

TEST_F(Cli_audit, names_a_rule_once_above_all_that_it_finds) {
    sql("UPDATE Banco SET Bn_Saldo = 1");
    const Outcome outcome = run("audit --db company.db");
    EXPECT_EQ(outcome.err, "Diferencias encontradas: 3\n");
    EXPECT_EQ(outcome.out.find("saldo-de-banco"), outcome.out.rfind("saldo-de-banco"));
}

TEST_F(Cli_audit, gives_the_findings_to_programs_as_an_array) {
    EXPECT_EQ(output_of("audit --db company.db --json"), "[]\n");
    plant();
    const Outcome outcome = run("audit --json --db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "Diferencias encontradas: 2\n");
    const auto findings = nlohmann::json::parse(outcome.out);
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0],
              (nlohmann::json{
                  {"check", "saldo-de-cuenta"},
                  {"document", "Cuenta bancaria SRR-MXN"},
                  {"figures", "saldo de la cuenta 5.25, suma de sus movimientos vivos 0.00"},
                  {"remedy", "Corrija Bc_Saldo a la suma de los movimientos vivos y después el saldo del banco."}}));
    EXPECT_EQ(findings[1]["check"], "saldo-de-banco");
}

TEST_F(Cli_audit, changes_nothing) {
    plant();
    const std::string before = read_file(folder / "company.db");
    run("audit --db company.db");
    EXPECT_EQ(read_file(folder / "company.db"), before);
    EXPECT_EQ(run("audit --db company.db").code, 1) << "what was found is still there";
}

TEST_F(Cli_audit, wrong_use_is_told_from_findings) {
    for (const char* arguments : {"audit", "audit --db company.db --fix", "audit --db company.db more"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
        EXPECT_NE(outcome.err, "") << arguments;
    }
}

TEST_F(Cli_audit, a_database_of_another_version_is_refused) {
    sql("UPDATE Esquema_Suite SET Eq_Version = 99");
    const Outcome outcome = run("audit --db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("La versión del esquema de la base de datos es 99"));
}

TEST_F(Cli_audit, a_database_that_is_not_there_is_refused_and_not_made) {
    const Outcome outcome = run("audit --db other.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_THAT(outcome.err, HasSubstr("No existe la base de datos: other.db"));
    EXPECT_FALSE(std::filesystem::exists(folder / "other.db"));
}

TEST_F(Cli_audit, tells_the_bytes_of_a_text_that_is_not_utf_8) {
    plant();
    {
        Sqlite_connection connection((folder / "company.db").string());
        sqlite3_exec(sqlite::handle_of(connection),
                     "UPDATE Banco_Cuenta SET Bc_Cve_Banco_Cuenta = CAST(X'61FFC3B162' AS TEXT) WHERE "
                     "Bc_Cve_Banco_Cuenta = 'SRR-MXN'",
                     nullptr, nullptr, nullptr);
    }
    const Outcome outcome = run("audit --json --db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(nlohmann::json::parse(outcome.out)[0]["document"], "Cuenta bancaria a\\xffñb");
}

}  // namespace
}  // namespace cuvexa::tests
