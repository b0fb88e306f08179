// Cancellation of a deposit.
#include <algorithm>

#include "support/company_test.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Cuvexa.dll - Cancelar_Deposito()\r\n";

void receipt(Company& company, const std::string& folio, const std::string& id, const std::string& state,
             const std::string& deposit, const std::string& line) {
    company.sql(
        "INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Es_Cve_Estado, Rp_Folio_Deposito, Rp_Deposito_ID, Rp_Fecha_Deposito) "
        "VALUES ('" +
        folio + "', '" + id + "', '" + state + "', '" + deposit + "', '" + line + "', '2024-03-15')");
}

void line(Company& company, const std::string& folio, const std::string& id) {
    company.sql("INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id, Dp_Fecha) VALUES ('" + folio + "', '" + id +
                "', '2024-03-15')");
}

void movement(Company& company, const std::string& folio, const std::string& deposit, const std::string& line,
              double amount) {
    company.sql(
        "INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Documento_ID, "
        "Bm_Importe, Es_Cve_Estado) VALUES ('" +
        folio + "', 'PTO-MXN', 'DEPOSITO_PAGO', '" + deposit + "', '" + line + "', " + number_text(amount) + ", 'TR')");
}

/// Two receipts in the deposit D-1, one of them with a line that was not deposited, and another deposit beside it.
void made_deposit(Company& company) {
    among_agreeing_services(company);
    company.on.parameters["GEN_FORZAR_TIEMPO_REAL"] = true;
    receipt(company, "R-1", "0001", "DP", "D-1", "0001");
    receipt(company, "R-1", "0002", "AC", "", "");
    receipt(company, "R-2", "0001", "AD", "D-1", "0002");
    receipt(company, "R-2", "0002", "AD", "D-1", "0002");
    receipt(company, "R-3", "0001", "DP", "D-2", "0001");
    line(company, "D-1", "0001");
    line(company, "D-1", "0002");
    line(company, "D-2", "0001");
    movement(company, "M-1", "D-1", "0001", 100);
    movement(company, "M-2", "D-1", "0002", 50);
    movement(company, "M-3", "D-2", "0001", 8);
    company.restart();
}

class Made_deposit : public Company_test {
protected:
    Made_deposit() { made_deposit(company); }

    bool cancel(const std::string& folio = "D-1") { return treasury().Cancelar_Deposito(folio); }

    const std::vector<std::string> receipts_restored = {
        "~ Recibo_Pago R-1/0001: Rp_Folio_Deposito D-1 -> , Rp_Deposito_ID 0001 -> , Es_Cve_Estado DP -> AC",
        "~ Recibo_Pago R-2/0001: Rp_Folio_Deposito D-1 -> , Rp_Deposito_ID 0002 -> , Es_Cve_Estado AD -> AP",
        "~ Recibo_Pago R-2/0002: Rp_Folio_Deposito D-1 -> , Rp_Deposito_ID 0002 -> , Es_Cve_Estado AD -> AP"};
    const std::vector<std::string> documents_undone = {
        "~ Deposito_Pago D-1/0001: " + cancelled + "AC -> CA", "~ Deposito_Pago D-1/0002: " + cancelled + "AC -> CA",
        receipts_restored[0], receipts_restored[1], receipts_restored[2]};
};

TEST_F(Made_deposit, that_is_cancelled_gives_receipts_lines_and_money_back) {
    EXPECT_THAT(
        changes([this] { return cancel(); }),
        ElementsAre("~ Banco PUERTO: Bn_Saldo 1500.0 -> 1350.0", "~ Banco_Cuenta PTO-MXN: Bc_Saldo 1000.0 -> 850.0",
                    "~ Banco_Movimiento M-1: " + cancelled + "TR -> CA",
                    "~ Banco_Movimiento M-2: " + cancelled + "TR -> CA", documents_undone[0], documents_undone[1],
                    documents_undone[2], documents_undone[3], documents_undone[4]));
    EXPECT_THAT(rows("Deposito_Pago", "Oper_Ult_Modif, Fecha_Ult_Modif", "Dp_Folio = 'D-1'"),
                ElementsAre("CAJA1|2024-03-15 10:20:30", "CAJA1|2024-03-15 10:20:30"));
}

TEST_F(Made_deposit, is_cancelled_by_these_calls) {
    changes([this] { return cancel(); });
    EXPECT_THAT(on.calls,
                ElementsAre("IsPostingEnabled(DEPOSITO_PAGO)", "IsDocumentPosted(DEPOSITO_PAGO, D-1)",
                            "IsPostingEnabled(BANCO_MOVIMIENTO)", "IsDocumentPosted(BANCO_MOVIMIENTO, M-1)",
                            "RegisterDocument(BANCO_MOVIMIENTO, M-1)", "IsPostingEnabled(BANCO_MOVIMIENTO)",
                            "IsDocumentPosted(BANCO_MOVIMIENTO, M-2)", "RegisterDocument(BANCO_MOVIMIENTO, M-2)"));
}

TEST(Made_deposit_refusals, come_in_the_order_of_the_steps) {
    expect_refusals_in_order(
        {{"unknown", sql("DELETE FROM Deposito_Pago WHERE Dp_Folio = 'D-1'"), tag + "El depósito: D-1, no existe!"},
         {"cancelled", sql("UPDATE Deposito_Pago SET Es_Cve_Estado = 'CA'"), tag + "El depósito: D-1, está cancelado!"},
         {"same day", sql("UPDATE Deposito_Pago SET Dp_Fecha = '2024-03-14'"), tag + not_today},
         {"posted", accepting("IsDocumentPosted"), tag + guard_tag + posted + "DEPOSITO_PAGO: D-1"}},
        made_deposit, [](Company& company) { return company.treasury().Cancelar_Deposito("D-1"); });
}

TEST_F(Made_deposit, of_yesterday_is_cancelled_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    run("UPDATE Deposito_Pago SET Dp_Fecha = '2024-03-14' WHERE Dp_Folio = 'D-1'");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

TEST_F(Made_deposit, is_not_cancelled_twice) {
    ASSERT_TRUE(cancel());
    expect_refusal(tag + "El depósito: D-1, está cancelado!", [this] { return cancel(); });
}

TEST_F(Made_deposit, whose_receipt_holds_both_deposited_states_fails_in_the_database) {
    run("UPDATE Recibo_Pago SET Es_Cve_Estado = 'DP' WHERE Rp_Folio = 'R-2' AND Rp_Id = '0002'");
    company.mark();
    EXPECT_FALSE(cancel());
    EXPECT_THAT(treasury().Error(), ::testing::StartsWith(tag));
    EXPECT_GT(treasury().Error().size(), tag.size());
    EXPECT_THAT(company.changes(), IsEmpty());
}

TEST_F(Made_deposit, without_a_live_movement_leaves_the_documents_undone_and_the_bank_as_it_was) {
    run("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA' WHERE Bm_Folio = 'M-1'");
    EXPECT_THAT(left_by(tag + document_tag + "El movimiento:M-1, está cancelado!", [this] { return cancel(); }),
                ::testing::ElementsAreArray(documents_undone));
}

TEST_F(Made_deposit, with_a_posted_movement_leaves_the_documents_undone) {
    on.refuse_call("IsDocumentPosted(BANCO_MOVIMIENTO, M-1)", "");
    on.accept("IsPostingEnabled");
    on.refuse_call("IsPostingEnabled(DEPOSITO_PAGO)", "");
    on.refuse("ValidateVoucherCancellation", "La póliza está cerrada");
    EXPECT_THAT(left_by(tag + document_tag + guard_tag + "La póliza está cerrada", [this] { return cancel(); }),
                ::testing::ElementsAreArray(documents_undone));
}

class Deposit_failure : public Made_deposit, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(Deposit_failure, leaves_what_the_statements_before_it_wrote) {
    const std::size_t n = GetParam();
    on.failing_statement = n;
    const std::string error = n < 4 ? tag : tag + document_tag;
    const std::vector<std::string> left = left_by(error + obstructed::statement_failure, [this] { return cancel(); });
    const auto documents_left = std::count_if(left.begin(), left.end(), [](const std::string& line) {
        return line.starts_with("~ Recibo_Pago") || line.starts_with("~ Deposito_Pago");
    });
    // statement 1 reads, 2 restores three receipt lines, 3 cancels two deposit lines, 4 reads the movements
    EXPECT_EQ(documents_left, n <= 2 ? 0 : n == 3 ? 3 : 5);
    // 5 to 7 reverse the first movement, 8 to 10 the second, in the same account
    const std::size_t bank_left = n <= 5 ? 0 : n == 6 ? 1 : n == 7 ? 2 : 3;
    EXPECT_EQ(left.size() - static_cast<std::size_t>(documents_left), bank_left);
}

INSTANTIATE_TEST_SUITE_P(At_each_statement, Deposit_failure, ::testing::Range<std::size_t>(1, 11));

TEST_F(Made_deposit, without_date_is_cancelled_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    run("UPDATE Deposito_Pago SET Dp_Fecha = NULL");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

}  // namespace
}  // namespace cuvexa::tests
