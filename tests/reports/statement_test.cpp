// The statement of account, the balances by day, and the budgets with what was used.
#include "reports/account_statement.h"

#include "reports/budgets.h"
#include "reports/lists.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

using reports::Period;
using testing::DoubleNear;
using testing::SizeIs;

class Reports_statement : public testing::Test {
protected:
    reports::Source source() { return {company.connection(), Date_style::iso}; }

    /// Moves the account on that day of March 2024.
    std::string move(double amount, int day, bool firm = false) {
        tBnMovimiento movement = Company::movement(amount < 0 ? -amount : amount, amount < 0 ? "COM" : "INT");
        movement.Bm_Fecha = movement.Bm_Fecha_Firme = make_date(2024, 3, day);
        movement.EnFirme = firm;
        movement.Bm_Documento = "EC-" + std::to_string(++moved);
        EXPECT_TRUE(company.treasury().Registra_Movimiento_Banco(movement)) << company.treasury().Error();
        return company.treasury().FolioMovimiento;
    }

    reports::Statement_page statement(const Period& period = {}, std::size_t limit = 100,
                                      const std::vector<std::string>& behind = {}) {
        return read_statement(source(), "SRR-MXN", period, limit, behind);
    }

    /// The balances after each movement.
    static std::vector<double> balances(const reports::Statement_page& page, const char* column = "Saldo") {
        std::vector<double> all;
        for (const auto& row : page.table.rows) all.push_back(to_number(value_in(row, page.table.columns, column)));
        return all;
    }

    static Period march(int from, int to) { return {make_date(2024, 3, from), make_date(2024, 3, to)}; }

    int moved = 0;
    Company company;
};

TEST_F(Reports_statement, balances_run_from_the_opening_to_the_closing) {
    move(100, 1, true);
    move(40, 3);
    move(-30.5, 5, true);
    move(7, 9);
    const auto page = statement(march(2, 5));
    EXPECT_EQ(page.opening.total, 100);
    EXPECT_EQ(page.opening.firm, 100);
    EXPECT_THAT(balances(page), ElementsAre(140, 109.5));
    EXPECT_THAT(balances(page, "Saldo_Firme"), ElementsAre(100, 69.5));
    EXPECT_EQ(page.closing.total, 109.5);
    EXPECT_EQ(page.closing.firm, 69.5);
    EXPECT_THAT(page.next, IsEmpty());
}

TEST_F(Reports_statement, its_closing_is_what_the_component_and_the_account_say) {
    for (int i = 1; i <= 20; ++i) move(i % 3 == 0 ? -0.1 * i : 0.7 * i, i, i % 2 == 0);
    ASSERT_TRUE(company.treasury().Cancelar_Movimiento_Bancos(company.treasury().FolioMovimiento));
    const double balance = company.treasury().GetSaldo("SRR-MXN");
    EXPECT_THAT(statement().closing.total, DoubleNear(balance, 1e-9));
    EXPECT_THAT(balances(statement()), SizeIs(19));
    EXPECT_THAT(balances(statement()).back(), DoubleNear(balance, 1e-9));
    const double account =
        std::stod(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"));
    EXPECT_THAT(statement().closing.total, DoubleNear(account, 1e-9));
    EXPECT_THAT(statement({{}, make_date(2024, 3, 31)}).closing.total, DoubleNear(balance, 1e-9));
    EXPECT_THAT(statement({make_date(2024, 4, 1), {}}).opening.total, DoubleNear(balance, 1e-9));
}

TEST_F(Reports_statement, pages_carry_the_balance_on) {
    for (int i = 1; i <= 7; ++i) move(0.1 * i, (i + 1) / 2, i == 3);
    const auto whole = balances(statement(march(2, 31)));
    const auto firm = balances(statement(march(2, 31)), "Saldo_Firme");
    std::vector<double> walked, walked_firm;
    std::vector<std::string> place;
    do {
        const auto page = statement(march(2, 31), 2, place);
        for (const double balance : balances(page)) walked.push_back(balance);
        for (const double balance : balances(page, "Saldo_Firme")) walked_firm.push_back(balance);
        EXPECT_EQ(page.closing.total, statement(march(2, 31)).closing.total);
        place = page.next;
    } while (!place.empty());
    EXPECT_THAT(walked, SizeIs(5));
    EXPECT_EQ(walked, whole);
    EXPECT_EQ(walked_firm, firm);
    EXPECT_THROW(statement({}, 2, {"2024-03-01", "BM-00000001", "x", "0"}), reports::Bad_question);
    EXPECT_THROW(statement({}, 2, {"2024-03-01"}), reports::Bad_question);
}

TEST_F(Reports_statement, a_movement_without_a_date_is_before_all) {
    move(10, 1);
    company.sql("UPDATE Banco_Movimiento SET Bm_Fecha = NULL WHERE Bm_Documento = 'EC-1'");
    move(5, 2);
    const auto page = statement();
    EXPECT_EQ(page.opening.total, 10);
    EXPECT_THAT(balances(page), ElementsAre(15));
    EXPECT_EQ(page.closing.total, company.treasury().GetSaldo("SRR-MXN"));
}

TEST_F(Reports_statement, days_add_up_what_moved) {
    move(100, 1, true);
    move(40, 3);
    move(-15, 3, true);
    company.sql("UPDATE Banco_Movimiento SET Bm_Fecha = '2024-03-03 09:00:00' WHERE Bm_Documento = 'EC-2'");
    move(2, 4);
    const auto daily = read_daily_balances(source(), "SRR-MXN", march(2, 3));
    EXPECT_EQ(daily.opening.total, 100);
    ASSERT_THAT(daily.days, SizeIs(1));
    EXPECT_EQ(daily.days[0].date, make_date(2024, 3, 3));
    EXPECT_EQ(daily.days[0].in, 40);
    EXPECT_EQ(daily.days[0].out, 15);
    EXPECT_EQ(daily.days[0].balance.total, 125);
    EXPECT_EQ(daily.days[0].balance.firm, 85);
    EXPECT_EQ(daily.closing.total, 125);
}

/// The check that is charged reads the same sum: what the budget still allows passes, a cent more waits.
TEST_F(Reports_statement, what_was_used_of_a_budget_is_what_the_component_counts) {
    company.set_parameter("TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR", "1");
    const auto lend = [&](double amount) {
        company.treasury().Nuevo();
        tTsEncabezado header = Company::check_header("0004", "DE01");
        header.Ch_Referencia = std::to_string(++moved);
        company.treasury().Encabezado(header);
        company.treasury().Detalle(Company::check_line(amount, ""));
        EXPECT_TRUE(company.treasury().Crear_Cheque_Deudor()) << company.treasury().Error();
        return company.scalar("SELECT Es_Cve_Estado FROM Cheque WHERE Ch_Folio = '" +
                              company.treasury().Encabezado().Ch_Folio + "'");
    };
    const auto used = [&](const std::string& level, const std::string& holder) {
        const reports::Table table = reports::read_budgets(source(), 2024);
        for (const auto& row : table.rows) {
            const auto text = [&](const char* name) { return to_text(value_in(row, table.columns, name)); };
            if (text("Presupuesto") == "Préstamo a deudor" && text("Tipo") == level && text("Valor") == holder) {
                EXPECT_EQ(text("Usado_02"), "0");
                EXPECT_EQ(text("Mes_03"), "8000");
                return to_number(value_in(row, table.columns, "Usado_03"));
            }
        }
        return -1.0;
    };
    EXPECT_EQ(used("DE", "DE01"), 0);
    EXPECT_EQ(lend(3000), "AC");
    EXPECT_EQ(used("DE", "DE01"), 3000);
    EXPECT_EQ(lend(8000 - used("DE", "DE01") + 0.01), "PXA") << "more than is left";
    EXPECT_EQ(used("DE", "DE01"), 3000) << "what waits is not used";
    EXPECT_EQ(lend(8000 - used("DE", "DE01")), "AC") << "exactly what is left";
    EXPECT_EQ(used("DE", "DE01"), 8000);
}

TEST_F(Reports_statement, budgets_without_a_year_are_those_of_all_years) {
    const auto all = reports::read_budgets(source(), 0).rows.size();
    EXPECT_EQ(reports::read_budgets(source(), 2024).rows.size() * 4, all);
    EXPECT_THAT(reports::read_budgets(source(), 1999).rows, IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
