// The accounting guard, and the balance of an account.
#include "support/obstructed_treasury.h"

namespace cuvexa::testing {

bool guard(Tesoreria& treasury, const std::string& table, const std::string& document);

// The guard is no member of the interface; an explicit instantiation may name it all the same.
template <auto Member>
struct Door {
    friend bool guard(Tesoreria& treasury, const std::string& table, const std::string& document) {
        return (treasury.*Member)(table, document);
    }
};
template struct Door<&Tesoreria::Valida_Poliza_Contable>;

namespace {

const std::string guard_tag = "Cuvexa.dll - Valida_Poliza_Contable()\r\n";

class Accounting_guard : public Obstructed_treasury {
protected:
    bool ask(const std::string& table = "CHEQUE", const std::string& document = "C-1") {
        return guard(treasury(), table, document);
    }
};

TEST_F(Accounting_guard, lets_a_document_go_that_is_not_posted) {
    EXPECT_TRUE(ask());
    EXPECT_EQ(treasury().Error(), "");
    EXPECT_THAT(on.calls, ElementsAre("IsPostingEnabled(CHEQUE)", "IsDocumentPosted(CHEQUE, C-1)"));
    EXPECT_THAT(on.statements, IsEmpty());
}

TEST_F(Accounting_guard, asks_for_a_table_then_for_a_document) {
    expect_refusal(guard_tag + "No se especificó la tabla", [this] { return ask("  ", " "); });
    expect_refusal(guard_tag + "No se especificó la tabla", [this] { return ask("", "C-1"); });
    expect_refusal(guard_tag + "No se especificó el documento", [this] { return ask("CHEQUE", " "); });
    expect_refusal(guard_tag + "No se especificó el documento", [this] { return ask("CHEQUE", ""); });
    EXPECT_THAT(on.calls, IsEmpty());
}

TEST_F(Accounting_guard, leaves_a_code_that_is_posted_automatically_to_accounting) {
    on.accept("IsPostingEnabled");
    on.accept("IsDocumentPosted");  // not asked
    EXPECT_TRUE(ask());
    EXPECT_THAT(on.calls, ElementsAre("IsPostingEnabled(CHEQUE)", "ValidateVoucherCancellation(CHEQUE, C-1)"));
}

TEST_F(Accounting_guard, relays_what_accounting_refuses) {
    on.accept("IsPostingEnabled");
    on.refuse("ValidateVoucherCancellation", "La póliza P-1 está cerrada");
    expect_refusal(guard_tag + "La póliza P-1 está cerrada", [this] { return ask(); });
}

TEST_F(Accounting_guard, names_the_document_posted_by_hand_when_the_service_gives_no_text) {
    on.accept("IsDocumentPosted");
    expect_refusal(guard_tag + "Imposible cancelar el documento, ya está contabilizado! \r\nCHEQUE: C-1",
                   [this] { return ask(); });
}

TEST_F(Accounting_guard, gives_the_services_own_text_when_there_is_one) {
    on.accept("IsDocumentPosted", "Póliza de diario 12");
    expect_refusal(guard_tag + "Imposible cancelar el documento, ya está contabilizado! \r\nPóliza de diario 12",
                   [this] { return ask(); });
}

TEST_F(Accounting_guard, reports_a_service_that_does_not_answer) {
    on.fail("IsPostingEnabled", obstructed::call_failure);
    expect_refusal(guard_tag + obstructed::call_failure, [this] { return ask(); });
}

// ---- The balance
// --------------------------------------------------------------------------------------------------------

class Account_balance : public Obstructed_treasury {
protected:
    void movement(const std::string& folio, double amount, const std::string& state,
                  const std::string& account = "CTA-1") {
        run("INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Importe, Es_Cve_Estado) VALUES ('" +
            folio + "', '" + account + "', " + number_text(amount) + ", '" + state + "')");
    }
};

TEST_F(Account_balance, is_the_sum_of_the_live_movements_and_not_the_running_one) {
    movement("M-1", 500, "FI");
    movement("M-2", -200, "TR");
    movement("M-3", 100, "CA");
    movement("M-4", 7, "FI", "CTA-2");
    EXPECT_EQ(treasury().GetSaldo("CTA-1"), 300);
    EXPECT_EQ(treasury().Error(), "");
    EXPECT_THAT(
        on.statements,
        ElementsAre("SELECT SUM(Bm_Importe) as Saldo FROM Banco_Movimiento WHERE Bc_Cve_Banco_Cuenta = 'CTA-1' AND    "
                    "Es_Cve_Estado <> 'CA' "));
}

TEST_F(Account_balance, is_zero_without_a_text_for_an_account_without_live_movements) {
    movement("M-3", 100, "CA");
    EXPECT_EQ(treasury().GetSaldo("CTA-1"), 0);
    EXPECT_EQ(treasury().Error(), "");
}

TEST_F(Account_balance, of_an_unknown_or_inactive_account_is_zero_with_a_plain_text) {
    movement("M-1", 500, "FI");
    EXPECT_EQ(treasury().GetSaldo("CTA-9"), 0);
    EXPECT_EQ(treasury().Error(), "No existe el número de cuenta");
    run("UPDATE Banco_Cuenta SET Es_Cve_Estado = 'BA' WHERE Bc_Cve_Banco_Cuenta = 'CTA-1'");
    EXPECT_EQ(treasury().GetSaldo("CTA-1"), 0);
    EXPECT_EQ(treasury().Error(), "No existe el número de cuenta");
    EXPECT_THAT(on.statements, IsEmpty());
}

TEST_F(Account_balance, of_firm_movements_alone_fails_in_the_database) {
    movement("M-1", 500, "FI");
    EXPECT_EQ(treasury().GetSaldo("CTA-1", true), 0);
    EXPECT_THAT(treasury().Error(), ::testing::StartsWith("Cuvexa.dll - GetSaldo()\r\n"));
    EXPECT_GT(treasury().Error().size(), std::string("Cuvexa.dll - GetSaldo()\r\n").size());
    EXPECT_THAT(
        on.statements,
        ElementsAre("SELECT SUM(Bm_Importe) as Saldo FROM Banco_Movimiento WHERE Bc_Cve_Banco_Cuenta = 'CTA-1' AND    "
                    "Es_Cve_Estado <> 'CA' Es_Cve_Estado = 'FI'"));
}

TEST_F(Account_balance, that_the_database_does_not_give_is_zero_with_the_tag) {
    treasury();
    on.failing_statement = 1;
    EXPECT_EQ(treasury().GetSaldo("CTA-1"), 0);
    EXPECT_EQ(treasury().Error(), std::string("Cuvexa.dll - GetSaldo()\r\n") + obstructed::statement_failure);
}

}  // namespace
}  // namespace cuvexa::testing
