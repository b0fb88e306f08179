// Cancellation of bank movements, by their folio and by their document.
#include "support/company_test.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string folio_tag = "Cuvexa.dll - Cancelar_Movimiento_Bancos()\r\n";

void movement(Company& company, const std::string& folio, const std::string& account, const std::string& document,
              double amount, const std::string& state, const std::string& table = "DEPOSITO_PAGO") {
    company.sql(
        "INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Fecha, Bm_Importe, "
        "Es_Cve_Estado) VALUES ('" +
        folio + "', '" + account + "', '" + table + "', '" + document + "', '2024-03-15', " + number_text(amount) +
        ", '" + state + "')");
}

/// Two movements of the document D-1 and one of another document.
void registered_movements(Company& company) {
    among_agreeing_services(company);
    company.on.parameters["GEN_FORZAR_TIEMPO_REAL"] = true;
    company.on.parameters["GEN_VALIDAR_PERIODO_OPERATIVO"] = true;
    movement(company, "M-1", "PTO-MXN", "D-1", -100, "TR");
    movement(company, "M-2", "SRR-USD", "D-1", 25.5, "FI");
    movement(company, "M-3", "PTO-GRAL", "D-2", 60, "TR");
    company.restart();
}

class Registered_movements : public Company_test {
protected:
    Registered_movements() { registered_movements(company); }

    bool cancel(const std::string& folio = "M-1") { return treasury().Cancelar_Movimiento_Bancos(folio); }
    bool cancel_document(const std::string& document = "D-1", const std::string& table = "DEPOSITO_PAGO") {
        return treasury().Cancelar_Documento_Bancos(table, document);
    }
};

// ---- By folio -------------------------------------------------------------------------------------------------------

TEST_F(Registered_movements, an_outflow_that_is_cancelled_comes_back_into_both_balances) {
    EXPECT_THAT(
        changes([this] { return cancel("M-1"); }),
        ElementsAre("~ Banco PUERTO: Bn_Saldo 1500.0 -> 1600.0", "~ Banco_Cuenta PTO-MXN: Bc_Saldo 1000.0 -> 1100.0",
                    "~ Banco_Movimiento M-1: " + cancelled + "TR -> CA"));
    EXPECT_THAT(rows("Banco_Cuenta", "Oper_Ult_Modif, Fecha_Ult_Modif", "Bc_Cve_Banco_Cuenta = 'PTO-MXN'"),
                ElementsAre("CAJA1|2024-03-15 10:20:30"));
    EXPECT_THAT(rows("Banco", "Oper_Ult_Modif, Fecha_Ult_Modif", "Bn_Cve_Banco = 'PUERTO'"),
                ElementsAre("CAJA1|2024-03-15 10:20:30"));
    EXPECT_THAT(rows("Banco_Movimiento", "Oper_Ult_Modif, Fecha_Ult_Modif", "Bm_Folio = 'M-1'"),
                ElementsAre("CAJA1|2024-03-15 10:20:30"));
}

TEST_F(Registered_movements, an_inflow_that_is_cancelled_leaves_both_balances) {
    EXPECT_THAT(changes([this] { return cancel("M-2"); }),
                ElementsAre("~ Banco SIERRA: Bn_Saldo 70.0 -> 44.5", "~ Banco_Cuenta SRR-USD: Bc_Saldo 70.0 -> 44.5",
                            "~ Banco_Movimiento M-2: " + cancelled + "FI -> CA"));
}

TEST_F(Registered_movements, one_is_cancelled_by_these_calls) {
    changes([this] { return cancel("M-1"); });
    EXPECT_THAT(on.calls,
                ElementsAre("IsOperatingPeriodOpen(2024-03-15, FINANZAS)", "IsPostingEnabled(BANCO_MOVIMIENTO)",
                            "IsDocumentPosted(BANCO_MOVIMIENTO, M-1)", "RegisterDocument(BANCO_MOVIMIENTO, M-1)"));
}

TEST(Movement_refusals, come_in_the_order_of_the_steps) {
    expect_refusals_in_order(
        {{"unknown", sql("DELETE FROM Banco_Movimiento"), folio_tag + "No se encontró el movimiento de banco: M-1"},
         {"cancelled", sql("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA'"),
          folio_tag + "El movimiento:M-1, está cancelado!"},
         {"same day", sql("UPDATE Banco_Movimiento SET Bm_Fecha = '2024-03-14'"), folio_tag + not_today},
         {"period", refusing("IsOperatingPeriodOpen", ""), folio_tag + period_closed},
         {"posted", accepting("IsDocumentPosted", "Póliza 77"), folio_tag + guard_tag + posted + "Póliza 77"}},
        registered_movements, [](Company& company) { return company.treasury().Cancelar_Movimiento_Bancos("M-1"); });
}

TEST_F(Registered_movements, cancelled_twice_is_refused) {
    ASSERT_TRUE(cancel("M-1"));
    expect_refusal(folio_tag + "El movimiento:M-1, está cancelado!", [this] { return cancel("M-1"); });
}

TEST_F(Registered_movements, a_past_one_is_cancelled_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    run("UPDATE Banco_Movimiento SET Bm_Fecha = '2024-02-01' WHERE Bm_Folio = 'M-1'");
    EXPECT_TRUE(cancel("M-1")) << treasury().Error();
}

TEST_F(Registered_movements, the_period_is_asked_for_only_while_the_parameter_is_on) {
    on.parameters["GEN_VALIDAR_PERIODO_OPERATIVO"] = false;
    on.refuse("IsOperatingPeriodOpen", "");
    EXPECT_TRUE(cancel("M-1")) << treasury().Error();
}

TEST_F(Registered_movements, a_failed_registration_is_reported_under_the_tag_of_the_registration) {
    on.refuse("RegisterDocument", "No hay réplica");
    left_by("Cuvexa.dll - Registra_Movimiento_Banco()\r\nNo hay réplica", [this] { return cancel("M-1"); });
    EXPECT_THAT(rows("Banco_Movimiento", "Es_Cve_Estado", "Bm_Folio = 'M-1'"), ElementsAre("CA"));
    EXPECT_THAT(rows("Banco_Cuenta", "Bc_Saldo", "Bc_Cve_Banco_Cuenta = 'PTO-MXN'"), ElementsAre("1100.0"));
}

class Movement_failure : public Registered_movements, public ::testing::WithParamInterface<std::size_t> {
protected:
    std::vector<std::string> expected_left() const {
        const std::vector<std::string> writes = {"~ Banco_Cuenta PTO-MXN: Bc_Saldo 1000.0 -> 1100.0",
                                                 "~ Banco PUERTO: Bn_Saldo 1500.0 -> 1600.0"};
        // statement 1 reads; what fails from the second on leaves the writes before it
        return {writes.begin(), writes.begin() + static_cast<std::ptrdiff_t>(GetParam() < 2 ? 0 : GetParam() - 2)};
    }
};

TEST_P(Movement_failure, leaves_the_balances_already_moved) {
    on.failing_statement = GetParam();
    EXPECT_THAT(left_by(folio_tag + obstructed::statement_failure, [this] { return cancel("M-1"); }),
                ::testing::UnorderedElementsAreArray(expected_left()));
}

TEST_P(Movement_failure, of_a_document_leaves_the_balances_already_moved) {
    on.failing_statement = GetParam();
    EXPECT_THAT(left_by(document_tag + obstructed::statement_failure, [this] { return cancel_document(); }),
                ::testing::UnorderedElementsAreArray(expected_left()));
}

INSTANTIATE_TEST_SUITE_P(At_each_statement, Movement_failure, ::testing::Range<std::size_t>(1, 5));

// ---- By document ----------------------------------------------------------------------------------------------------

TEST_F(Registered_movements, all_those_of_a_document_are_cancelled) {
    EXPECT_THAT(changes([this] { return cancel_document(); }),
                ElementsAre("~ Banco PUERTO: Bn_Saldo 1500.0 -> 1600.0", "~ Banco SIERRA: Bn_Saldo 70.0 -> 44.5",
                            "~ Banco_Cuenta PTO-MXN: Bc_Saldo 1000.0 -> 1100.0",
                            "~ Banco_Cuenta SRR-USD: Bc_Saldo 70.0 -> 44.5",
                            "~ Banco_Movimiento M-1: " + cancelled + "TR -> CA",
                            "~ Banco_Movimiento M-2: " + cancelled + "FI -> CA"));
}

TEST_F(Registered_movements, those_of_a_document_are_cancelled_by_these_calls) {
    changes([this] { return cancel_document(); });
    EXPECT_THAT(on.calls,
                ElementsAre("IsPostingEnabled(BANCO_MOVIMIENTO)", "IsDocumentPosted(BANCO_MOVIMIENTO, M-1)",
                            "RegisterDocument(BANCO_MOVIMIENTO, M-1)", "IsPostingEnabled(BANCO_MOVIMIENTO)",
                            "IsDocumentPosted(BANCO_MOVIMIENTO, M-2)", "RegisterDocument(BANCO_MOVIMIENTO, M-2)"));
}

TEST_F(Registered_movements, the_table_of_a_document_is_compared_without_regard_to_case) {
    movement(company, "M-4", "PTO-MXN", "CH-1", -10, "TR", "Cheque");
    EXPECT_TRUE(cancel_document("CH-1", "CHEQUE")) << treasury().Error();
    EXPECT_THAT(rows("Banco_Movimiento", "Es_Cve_Estado", "Bm_Folio = 'M-4'"), ElementsAre("CA"));
}

TEST_F(Registered_movements, a_document_without_any_is_refused) {
    expect_refusal(document_tag + "No se encontraron documentos relacionados a la tabla:CHEQUE y documento:D-1",
                   [this] { return cancel_document("D-1", "CHEQUE"); });
}

TEST_F(Registered_movements, a_document_is_cancelled_whatever_its_date_and_period) {
    run("UPDATE Banco_Movimiento SET Bm_Fecha = '2024-01-31' WHERE Bm_Documento = 'D-1'");
    on.refuse("IsOperatingPeriodOpen", "");
    EXPECT_TRUE(cancel_document()) << treasury().Error();
}

TEST_F(Registered_movements, a_refusal_at_the_second_one_leaves_the_first_cancelled_and_a_second_call_stops_at_it) {
    on.refuse_call("RegisterDocument(BANCO_MOVIMIENTO, M-2)", "");
    on.accept("IsPostingEnabled");
    on.refuse_call("ValidateVoucherCancellation(BANCO_MOVIMIENTO, M-2)", "La póliza está cerrada");
    left_by(document_tag + guard_tag + "La póliza está cerrada", [this] { return cancel_document(); });
    EXPECT_THAT(rows("Banco_Movimiento", "Bm_Folio, Es_Cve_Estado", "Bm_Documento = 'D-1'"),
                ElementsAre("M-1|CA", "M-2|FI"));

    on.clear();
    expect_refusal(document_tag + "El movimiento:M-1, está cancelado!", [this] { return cancel_document(); });
}

TEST_F(Registered_movements, a_document_cancelled_twice_stops_at_its_first_movement) {
    ASSERT_TRUE(cancel_document());
    expect_refusal(document_tag + "El movimiento:M-1, está cancelado!", [this] { return cancel_document(); });
}

TEST_F(Registered_movements, a_cancelled_one_is_told_before_the_guard_is_asked) {
    run("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA' WHERE Bm_Folio = 'M-1'");
    on.accept("IsDocumentPosted");
    expect_refusal(document_tag + "El movimiento:M-1, está cancelado!", [this] { return cancel_document(); });
    EXPECT_THAT(on.calls, IsEmpty());
}

TEST_F(Registered_movements, one_of_a_document_that_cannot_be_registered_stays_cancelled_and_stops_the_rest) {
    on.refuse_call("RegisterDocument(BANCO_MOVIMIENTO, M-1)", "No hay réplica");
    left_by(document_tag + "No hay réplica", [this] { return cancel_document(); });
    EXPECT_THAT(rows("Banco_Movimiento", "Bm_Folio, Es_Cve_Estado", "Bm_Documento = 'D-1'"),
                ElementsAre("M-1|CA", "M-2|FI"));
}

TEST_F(Registered_movements, one_without_date_is_cancelled_while_neither_day_nor_period_is_looked_at) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    on.parameters["GEN_VALIDAR_PERIODO_OPERATIVO"] = false;
    run("UPDATE Banco_Movimiento SET Bm_Fecha = NULL WHERE Bm_Folio = 'M-1'");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

TEST_F(Registered_movements, the_period_of_one_without_date_cannot_be_looked_at) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    run("UPDATE Banco_Movimiento SET Bm_Fecha = NULL WHERE Bm_Folio = 'M-1'");
    expect_refusal("Cuvexa.dll - Cancelar_Movimiento_Bancos()\r\nUso no válido de Null", [this] { return cancel(); });
}

}  // namespace
}  // namespace cuvexa::tests
