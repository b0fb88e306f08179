// Cancellation of a cash receipt.
#include "support/company_test.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Cuvexa.dll - Cancelar_Recibo_Caja()\r\n";
const std::string deposit_tag = "Cuvexa.dll - Cancelar_Deposito()\r\n";

void line(Company& company, const std::string& folio, const std::string& id, const std::string& method,
          const std::string& bank, const std::string& check, const std::string& state) {
    company.sql(
        "INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Fecha, Fp_Cve_Forma_Pago, Rp_Banco, Rp_Cheque, Es_Cve_Estado) "
        "VALUES ('" +
        folio + "', '" + id + "', '2024-03-15', '" + method + "', '" + bank + "', '" + check + "', '" + state + "')");
}

/// The receipt R-1 of two lines, closed, and another one.
void closed_receipt(Company& company) {
    among_agreeing_services(company);
    company.on.parameters["GEN_FORZAR_TIEMPO_REAL"] = true;
    line(company, "R-1", "0002", "02", "BANORTE", "778", "AP");  // not the first row, although it comes first
    line(company, "R-1", "0001", "01", "", "", "AP");
    line(company, "R-2", "0001", "01", "", "", "AC");
    company.restart();
}

// What came of R-1, unless its state says that it was cancelled since.

void applied_payment(Company& company, const std::string& receivable = "CXC-7", const std::string& id = "0001",
                     const std::string& state = "AC", const std::string& document = "R-1") {
    company.sql("INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Pc_Tabla, Pc_Documento, Es_Cve_Estado) VALUES ('" +
                receivable + "', '" + id + "', 'RECIBO_PAGO', '" + document + "', '" + state + "')");
}

void advance(Company& company, const std::string& state = "AC") {
    company.sql(
        "INSERT INTO Anticipo_Cxc (An_Folio, An_Tabla, An_Documento, Es_Cve_Estado) VALUES ('AN-1', 'RECIBO_PAGO', "
        "'R-1', '" +
        state + "')");
}

void payable(Company& company, const std::string& state = "AC") {
    company.sql(
        "INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Es_Cve_Estado) VALUES ('CXP-1', "
        "'RECIBO_PAGO', 'R-1', '" +
        state + "')");
}

void receivable(Company& company, const std::string& state = "AC") {
    company.sql(
        "INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Es_Cve_Estado) VALUES ('CXC-1', "
        "'RECIBO_PAGO', 'R-1', '" +
        state + "')");
}

/// Puts the lines of a receipt into the deposit D-1.
void deposit(Company& company, const std::string& condition = "Rp_Folio = 'R-1'") {
    company.sql(
        "UPDATE Recibo_Pago SET Rp_Folio_Deposito = 'D-1', Rp_Deposito_ID = '0001', Es_Cve_Estado = 'AD' WHERE " +
        condition);
    company.sql("INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id, Dp_Fecha) VALUES ('D-1', '0001', '2024-03-15')");
    company.sql(
        "INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Importe) VALUES "
        "('M-1', 'PTO-MXN', 'DEPOSITO_PAGO', 'D-1', 100)");
}

class Closed_receipt : public Company_test {
protected:
    Closed_receipt() { closed_receipt(company); }

    bool cancel(bool with_deposit = false, bool with_payments = false) {
        return treasury().Cancelar_Recibo_Caja("R-1", with_deposit, with_payments);
    }
};

TEST_F(Closed_receipt, is_cancelled_with_all_its_lines) {
    EXPECT_THAT(changes([this] { return cancel(); }), ElementsAre("~ Recibo_Pago R-1/0001: " + cancelled + "AP -> CA",
                                                                  "~ Recibo_Pago R-1/0002: " + cancelled + "AP -> CA"));
    EXPECT_THAT(rows("Recibo_Pago", "Oper_Ult_Modif, Fecha_Ult_Modif", "Rp_Folio = 'R-1'"),
                ElementsAre("CAJA1|2024-03-15 10:20:30", "CAJA1|2024-03-15 10:20:30"));
    EXPECT_THAT(rows("Recibo_Pago", "Es_Cve_Estado", "Rp_Folio = 'R-2'"), ElementsAre("AC"));
}

TEST_F(Closed_receipt, without_documents_asks_only_the_guard_the_methods_and_the_payments) {
    changes([this] { return cancel(); });
    EXPECT_THAT(on.calls, ElementsAre("IsPostingEnabled(RECIBO_PAGO)", "IsDocumentPosted(RECIBO_PAGO, R-1)",
                                      "ReleasePaymentLine(01, , )", "ReleasePaymentLine(02, 778, BANORTE)",
                                      "CancelDocumentPayments(RECIBO_PAGO, R-1)"));
}

TEST_F(Closed_receipt, undoes_what_its_closing_produced_in_this_order) {
    applied_payment(company, "CXC-8", "0002");
    applied_payment(company, "CXC-7", "0001");
    applied_payment(company, "CXC-8", "0001");
    applied_payment(company, "CXC-8", "0003", "CA");
    applied_payment(company, "CXC-8", "0004", "AC", "R-2");
    advance(company);
    payable(company);
    receivable(company);
    deposit(company);
    changes([this] { return cancel(true, true); });
    EXPECT_THAT(on.calls,
                ElementsAre("IsPostingEnabled(RECIBO_PAGO)", "IsDocumentPosted(RECIBO_PAGO, R-1)",
                            "ReleasePaymentLine(01, , )", "ReleasePaymentLine(02, 778, BANORTE)",
                            "CancelDocumentPayments(RECIBO_PAGO, R-1)", "CancelReceivablePayment(CXC-7, 0001)",
                            "CancelReceivablePayment(CXC-8, 0001)", "CancelReceivablePayment(CXC-8, 0002)",
                            "CancelDocumentAdvances(RECIBO_PAGO, R-1)", "CancelDocumentPayables(RECIBO_PAGO, R-1)",
                            "CancelDocumentReceivables(RECIBO_PAGO, R-1)", "IsPostingEnabled(DEPOSITO_PAGO)",
                            "IsDocumentPosted(DEPOSITO_PAGO, D-1)", "IsPostingEnabled(BANCO_MOVIMIENTO)",
                            "IsDocumentPosted(BANCO_MOVIMIENTO, M-1)", "RegisterDocument(BANCO_MOVIMIENTO, M-1)"));
}

TEST_F(Closed_receipt, leaves_cancelled_documents_alone) {
    applied_payment(company, "CXC-7", "0001", "CA");
    advance(company, "CA");
    payable(company, "CA");
    receivable(company, "CA");
    changes([this] { return cancel(); });
    EXPECT_EQ(on.calls.back(), "CancelDocumentPayments(RECIBO_PAGO, R-1)");
}

TEST_F(Closed_receipt, releases_its_cancelled_lines_too) {
    line(company, "R-1", "0003", "04", "VISA", "9", "CA");
    changes([this] { return cancel(); });
    EXPECT_THAT(on.calls, ::testing::Contains("ReleasePaymentLine(04, 9, VISA)"));
}

/// The document stands in its table and its service does not cancel it.
Preparation held_back(void (*document)(Company&, const std::string&), const std::string& operation,
                      const std::string& text) {
    return [=](Company& company) {
        document(company, "AC");
        company.on.refuse(operation, text);
    };
}

const std::vector<Step> refusals = {
    {"unknown", sql("DELETE FROM Recibo_Pago WHERE Rp_Folio = 'R-1'"),
     tag + "No se encontró el recibo de caja:R-1, especificado"},
    {"cancelled", sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Folio = 'R-1' AND Rp_Id = '0001'"),
     tag + "Imposible cancelar el recibo de caja:R-1, esta cancelado"},
    {"same day", sql("UPDATE Recibo_Pago SET Rp_Fecha = '2024-03-14' WHERE Rp_Folio = 'R-1'"), tag + not_today},
    {"posted", accepting("IsDocumentPosted"), tag + guard_tag + posted + "RECIBO_PAGO: R-1"},
    {"method", refusing("ReleasePaymentLine", "El vale ya se usó"), tag + "El vale ya se usó"},
    {"payments", refusing("CancelDocumentPayments", "Hay pagos conciliados"), tag + "Hay pagos conciliados"},
    {"advances", held_back(advance, "CancelDocumentAdvances", "Anticipo aplicado"), tag + "Anticipo aplicado"},
    {"payables", held_back(payable, "CancelDocumentPayables", "Ya está pagada"), tag + "Ya está pagada"},
    {"receivables", held_back(receivable, "CancelDocumentReceivables", "Ya está cobrada"), tag + "Ya está cobrada"},
    {"deposited", [](Company& company) { deposit(company); },
     tag + "Imposible cancelar recibo: R-1Este se encuentra depositado"},
};

TEST(Receipt_refusals, come_in_the_order_of_the_steps) {
    expect_refusals_in_order(refusals, closed_receipt, [](Company& company) {
        return company.treasury().Cancelar_Recibo_Caja("R-1", false, true);
    });
}

TEST(Receipt_refusals, of_applied_payments_come_behind_those_of_the_document_s_own) {
    std::vector<Step> steps = refusals;
    steps.insert(steps.begin() + 6, {"applied", [](Company& company) { applied_payment(company); },
                                     tag + "Imposible cancelar el recibo de caja:R-1, esta aplicado"});
    expect_refusals_in_order(steps, closed_receipt,
                             [](Company& company) { return company.treasury().Cancelar_Recibo_Caja("R-1"); });
}

TEST_F(Closed_receipt, is_not_cancelled_twice) {
    ASSERT_TRUE(cancel());
    expect_refusal(tag + "Imposible cancelar el recibo de caja:R-1, esta cancelado", [this] { return cancel(); });
}

TEST_F(Closed_receipt, of_another_day_is_cancelled_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    run("UPDATE Recibo_Pago SET Rp_Fecha = '2024-03-14' WHERE Rp_Folio = 'R-1'");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

TEST_F(Closed_receipt, stops_at_the_first_line_that_is_not_released) {
    on.refuse_call("ReleasePaymentLine(02, 778, BANORTE)", "El cheque se devolvió");
    expect_refusal(tag + "El cheque se devolvió", [this] { return cancel(); });
    EXPECT_EQ(on.calls.back(), "ReleasePaymentLine(02, 778, BANORTE)");
}

TEST_F(Closed_receipt, stops_at_the_first_payment_that_is_not_cancelled) {
    applied_payment(company, "CXC-7", "0001");
    applied_payment(company, "CXC-8", "0001");
    on.refuse_call("CancelReceivablePayment(CXC-7, 0001)", "El pago está conciliado");
    expect_refusal(tag + "El pago está conciliado", [this] { return cancel(true, true); });
    EXPECT_EQ(on.calls.back(), "CancelReceivablePayment(CXC-7, 0001)");
}

TEST_F(Closed_receipt, keeps_its_applied_payments_unless_told_otherwise_whatever_is_said_of_the_deposit) {
    applied_payment(company, "CXC-7", "0001");
    expect_refusal(tag + "Imposible cancelar el recibo de caja:R-1, esta aplicado",
                   [this] { return cancel(true, false); });
    EXPECT_TRUE(cancel(false, true)) << treasury().Error();
}

// ---- Its deposit ----------------------------------------------------------------------------------------------------

TEST_F(Closed_receipt, takes_its_deposit_along_when_it_is_alone_in_it) {
    deposit(company);
    EXPECT_THAT(
        changes([this] { return cancel(true); }),
        ElementsAre(
            "~ Banco PUERTO: Bn_Saldo 1500.0 -> 1400.0", "~ Banco_Cuenta PTO-MXN: Bc_Saldo 1000.0 -> 900.0",
            "~ Banco_Movimiento M-1: " + cancelled + "TR -> CA", "~ Deposito_Pago D-1/0001: " + cancelled + "AC -> CA",
            "~ Recibo_Pago R-1/0001: Rp_Folio_Deposito D-1 -> , Rp_Deposito_ID 0001 -> , " + cancelled + "AD -> CA",
            "~ Recibo_Pago R-1/0002: Rp_Folio_Deposito D-1 -> , Rp_Deposito_ID 0001 -> , " + cancelled + "AD -> CA"));
}

TEST_F(Closed_receipt, deposited_with_other_receipts_cannot_take_the_deposit_along) {
    deposit(company, "1 = 1");
    expect_refusal(tag + "Imposible cancelar recibo: R-1Este se encuentra depositado\r\nEn conjunto con otros recibos",
                   [this] { return cancel(true); });
    expect_refusal(tag + "Imposible cancelar recibo: R-1Este se encuentra depositado",
                   [this] { return cancel(false); });
}

TEST_F(Closed_receipt, a_cancelled_receipt_in_the_deposit_is_not_in_its_way) {
    deposit(company, "1 = 1");
    run("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Folio = 'R-2'");
    EXPECT_TRUE(cancel(true)) << treasury().Error();
}

TEST_F(Closed_receipt, only_the_deposit_of_its_first_line_counts) {
    deposit(company, "Rp_Folio = 'R-1' AND Rp_Id = '0002'");
    EXPECT_TRUE(cancel(false)) << treasury().Error();
    EXPECT_THAT(rows("Banco_Movimiento", "Es_Cve_Estado"), ElementsAre("TR"));
}

TEST_F(Closed_receipt, relays_a_deposit_that_is_not_cancelled) {
    deposit(company);
    run("UPDATE Deposito_Pago SET Es_Cve_Estado = 'CA'");
    expect_refusal(tag + deposit_tag + "El depósito: D-1, está cancelado!", [this] { return cancel(true); });
}

TEST_F(Closed_receipt, tags_nest_from_the_outside_in) {
    deposit(company);
    run("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA'");
    left_by(tag + deposit_tag + document_tag + "El movimiento:M-1, está cancelado!", [this] { return cancel(true); });
    EXPECT_THAT(rows("Recibo_Pago", "Es_Cve_Estado", "Rp_Folio = 'R-1'"), ElementsAre("AP", "AP"));
    EXPECT_THAT(rows("Deposito_Pago", "Es_Cve_Estado"), ElementsAre("CA"));
}

class Receipt_failure : public Closed_receipt, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(Receipt_failure, leaves_a_receipt_without_deposit_as_it_was) {
    on.failing_statement = GetParam();
    expect_refusal(tag + obstructed::statement_failure, [this] { return cancel(); });
}

INSTANTIATE_TEST_SUITE_P(At_each_statement, Receipt_failure, ::testing::Range<std::size_t>(1, 7));

TEST_F(Closed_receipt, whose_last_statement_fails_stays_live_with_its_deposit_undone) {
    deposit(company);
    treasury();
    on.failing_statement = 14;
    left_by(tag + obstructed::statement_failure, [this] { return cancel(true); });
    EXPECT_THAT(rows("Recibo_Pago", "Rp_Folio_Deposito, Es_Cve_Estado", "Rp_Folio = 'R-1'"), ElementsAre("|AP", "|AP"));
    EXPECT_THAT(rows("Deposito_Pago", "Es_Cve_Estado"), ElementsAre("CA"));
    EXPECT_THAT(rows("Banco_Cuenta", "Bc_Saldo", "Bc_Cve_Banco_Cuenta = 'PTO-MXN'"), ElementsAre("900.0"));
}

TEST_F(Closed_receipt, the_statements_of_the_deposits_cancellation_fail_under_both_tags) {
    deposit(company);
    treasury();
    on.failing_statement = 8;
    left_by(tag + deposit_tag + obstructed::statement_failure, [this] { return cancel(true); });
}

TEST_F(Closed_receipt, a_service_that_does_not_answer_is_reported_behind_the_tag) {
    on.fail("CancelDocumentPayments", obstructed::call_failure);
    expect_refusal(tag + obstructed::call_failure, [this] { return cancel(); });
}

TEST_F(Closed_receipt, without_date_is_cancelled_unless_its_day_is_looked_at) {
    run("UPDATE Recibo_Pago SET Rp_Fecha = NULL");
    expect_refusal(tag + "Uso no válido de Null", [this] { return cancel(); });
}

TEST_F(Closed_receipt, without_date_is_cancelled_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    run("UPDATE Recibo_Pago SET Rp_Fecha = NULL");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

}  // namespace
}  // namespace cuvexa::tests
