// cuvexa sample: a company with a life, made by the component.
#include "cli/program.h"
#include "cuvexa/database/sqlite_connection.h"

namespace cuvexa::tests {
namespace {

class Cli_sample : public Program {
protected:
    /// The only number that a query of company.db gives.
    double number(const std::string& query, const char* file = "company.db") {
        return to_number(Sqlite_connection(folder / file).execute(query)->field("n"));
    }
};

TEST_F(Cli_sample, a_company_lives_and_everything_adds_up) {
    output_of("sample --receipts 400 --months 3 --until 2024-06-30 --db company.db");
    EXPECT_EQ(output_of("audit --db company.db").substr(0, 12), "Todo cuadra:");
    EXPECT_EQ(number("SELECT COUNT(DISTINCT Rp_Folio) AS n FROM Recibo_Pago"), 400);
    EXPECT_EQ(number("SELECT COUNT(*) AS n FROM Recibo_Pago WHERE Rp_Fecha < '2024-04-01' OR Rp_Fecha > '2024-06-30'"),
              0);
    for (const char* table :
         {"Recibo_Pago WHERE Es_Cve_Estado = 'CA'", "Deposito_Pago", "Cheque WHERE Es_Cve_Estado = 'AP'",
          "Solicitud_Cheque", "Poliza", "Pago_Cxc", "Banco_Movimiento WHERE Es_Cve_Estado = 'TR'"}) {
        EXPECT_GT(number("SELECT COUNT(*) AS n FROM " + std::string(table)), 0) << table;
    }
}

TEST_F(Cli_sample, the_same_seed_makes_the_same_company_and_another_another) {
    const char* sums = "SELECT SUM(Bm_Importe * LENGTH(Bm_Documento)) AS n FROM Banco_Movimiento";
    output_of("sample --receipts 30 --months 1 --seed 7 --db a.db");
    output_of("sample --receipts 30 --months 1 --seed 7 --db b.db");
    output_of("sample --receipts 30 --months 1 --seed 8 --db c.db");
    EXPECT_EQ(number(sums, "a.db"), number(sums, "b.db"));
    EXPECT_NE(number(sums, "a.db"), number(sums, "c.db"));
}

TEST_F(Cli_sample, what_cannot_be_made_is_refused_before_there_is_a_file) {
    EXPECT_EQ(run("sample --receipts 10 --months 12 --until 2024-03-31 --db company.db").code, 2);
    EXPECT_EQ(run("sample --receipts 10 --until 2023-03-31 --db company.db").code, 2);
    EXPECT_EQ(run("sample --receipts 10 --until 2028-03-31 --db company.db").code, 2);
    EXPECT_THAT(run("sample --receipts 10 --until pronto --db company.db").err,
                testing::HasSubstr("not a date: pronto"));
    EXPECT_FALSE(std::filesystem::exists(folder / "company.db"));
    make_company();
    EXPECT_EQ(run("sample --receipts 10 --db company.db").code, 1) << "what is there is left alone";
}

}  // namespace
}  // namespace cuvexa::tests
