// The balance of an account.
#include "support/company_test.h"

namespace cuvexa::tests {
namespace {

class Account_balance : public Company_test {
protected:
    void movement(const std::string& folio, double amount, const std::string& state,
                  const std::string& account = "PTO-MXN") {
        run("INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Importe, Es_Cve_Estado) VALUES ('" +
            folio + "', '" + account + "', " + number_text(amount) + ", '" + state + "')");
    }
};

TEST_F(Account_balance, is_the_sum_of_the_live_movements_and_not_the_running_one) {
    movement("M-1", 500, "FI");
    movement("M-2", -200, "TR");
    movement("M-3", 100, "CA");
    movement("M-4", 7, "FI", "PTO-GRAL");
    EXPECT_EQ(treasury().GetSaldo("PTO-MXN"), 300);
    EXPECT_EQ(treasury().Error(), "");
}

TEST_F(Account_balance, is_zero_without_a_text_for_an_account_without_live_movements) {
    movement("M-3", 100, "CA");
    EXPECT_EQ(treasury().GetSaldo("PTO-MXN"), 0);
    EXPECT_EQ(treasury().Error(), "");
}

TEST_F(Account_balance, of_an_unknown_or_inactive_account_is_zero_with_a_plain_text) {
    movement("M-1", 500, "FI");
    EXPECT_EQ(treasury().GetSaldo("CTA-9"), 0);
    EXPECT_EQ(treasury().Error(), "No existe el número de cuenta");
    run("UPDATE Banco_Cuenta SET Es_Cve_Estado = 'BA' WHERE Bc_Cve_Banco_Cuenta = 'PTO-MXN'");
    EXPECT_EQ(treasury().GetSaldo("PTO-MXN"), 0);
    EXPECT_EQ(treasury().Error(), "No existe el número de cuenta");
    EXPECT_THAT(on.statements, IsEmpty());
}

TEST_F(Account_balance, of_firm_movements_alone_fails_in_the_database) {
    movement("M-1", 500, "FI");
    EXPECT_EQ(treasury().GetSaldo("PTO-MXN", true), 0);
    EXPECT_THAT(treasury().Error(), ::testing::StartsWith("Cuvexa.dll - GetSaldo()\r\n"));
    EXPECT_GT(treasury().Error().size(), std::string("Cuvexa.dll - GetSaldo()\r\n").size());
}

TEST_F(Account_balance, that_the_database_does_not_give_is_zero_with_the_tag) {
    treasury();
    on.failing_statement = 1;
    EXPECT_EQ(treasury().GetSaldo("PTO-MXN"), 0);
    EXPECT_EQ(treasury().Error(), std::string("Cuvexa.dll - GetSaldo()\r\n") + obstructed::statement_failure);
}

}  // namespace
}  // namespace cuvexa::tests
