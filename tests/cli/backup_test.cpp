// cuvexa backup and restore.
#include "cli/program.h"
#include "cuvexa/database/sqlite_connection.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;

class Cli_backup : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }
    void sql(const std::string& statement) const {
        Sqlite_connection((folder / "company.db").string()).execute(statement);
    }
};

TEST_F(Cli_backup, copies_a_database_and_makes_one_of_the_copy) {
    output_of("parameter set --db company.db MINE 1");
    EXPECT_EQ(output_of("backup --db company.db copy.db"), "Copia hecha: copy.db\n");
    output_of("parameter set --db company.db MINE 2");
    EXPECT_EQ(output_of("restore copy.db --db again.db"), "Base de datos recuperada: again.db\n");
    EXPECT_EQ(output_of("parameter get --db again.db MINE"), "1\n");
}

TEST_F(Cli_backup, says_nothing_more_where_all_adds_up_and_the_findings_where_it_does_not) {
    EXPECT_EQ(run("backup --db company.db first.db").err, "");
    sql("UPDATE Banco_Cuenta SET Bc_Saldo = 5.25 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    const Outcome outcome = run("backup --db company.db second.db");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "Copia hecha: second.db\n");
    EXPECT_THAT(outcome.err, HasSubstr("Diferencias encontradas: "));
    EXPECT_THAT(outcome.err, HasSubstr("(las dice: cuvexa audit --db second.db)\n"));
}

TEST_F(Cli_backup, copies_an_earlier_version_and_says_how_it_is_upgraded) {
    sql("UPDATE Esquema_Suite SET Eq_Version = 1");
    const Outcome outcome = run("backup --db company.db copy.db");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.err, HasSubstr("(se actualiza con: cuvexa upgrade --db copy.db)"));
    sql("UPDATE Esquema_Suite SET Eq_Version = 99");
    EXPECT_EQ(run("backup --db company.db newer.db").code, 1);
    EXPECT_FALSE(std::filesystem::exists(folder / "newer.db"));
}

TEST_F(Cli_backup, refuses_what_stands_there) {
    const Outcome outcome = run("backup --db company.db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "Ya existe y no se toca: company.db\n");
    EXPECT_EQ(run("restore --db company.db company.db").err, outcome.err);
}

}  // namespace
}  // namespace cuvexa::tests
