// Taking a check back: its application, or the check for good.
#include "support/company_test.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string application_tag = "Cuvexa.dll - Cancelar_Aplicacion_Cheque()\r\n";
const std::string check_tag = "Cuvexa.dll - Cancelar_Cheque()\r\n";
const std::string deposit_tag = "Cuvexa.dll - Cancelar_Deposito()\r\n";

// Checks with their lines and movements, of any type and state, and what came of them.

void check(Company& company, const std::string& folio, const std::string& type, const std::string& state) {
    company.sql(
        "INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Fecha, Ch_Aplicar, Ch_Firme, Ch_Fecha_Firme, "
        "Es_Cve_Estado) VALUES ('" +
        folio + "', '" + type + "', '2024-03-15', 'SI', 'SI', '2024-03-18', '" + state + "')");
}

void line(Company& company, const std::string& folio, const std::string& id, const std::string& document,
          const std::string& state) {
    company.sql(
        "INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Cxp_Folio, Cxa_Fecha_Aplicacion, Es_Cve_Estado) VALUES "
        "('" +
        folio + "', '" + id + "', '" + document + "', '2024-03-18', '" + state + "')");
}

void movement(Company& company, const std::string& folio, const std::string& check, const std::string& state) {
    company.sql(
        "INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Fecha, "
        "Bm_Fecha_Firme, Bm_Importe, Es_Cve_Estado) VALUES ('" +
        folio + "', 'PTO-MXN', 'Cheque', '" + check + "', '2024-03-15', '2024-03-18', -100, '" + state + "')");
}

/// C-1, of that type, applied and firm, with two lines and its movement.
void applied_check(Company& company, const std::string& type, const std::string& first_document = "DOC-1",
                   const std::string& second_document = "DOC-2") {
    check(company, "C-1", type, "AP");
    line(company, "C-1", "0002", second_document, "AP");
    line(company, "C-1", "0001", first_document, "AP");
    movement(company, "M-1", "C-1", "FI");
}

void supplier_payment(Company& company, const std::string& payable, const std::string& id, const std::string& check,
                      const std::string& state = "AC", const std::string& table = "CHEQUE") {
    company.sql("INSERT INTO Pago_Cxp (Cxp_Folio, Pc_ID, Pc_Tabla, Pc_Documento, Es_Cve_Estado) VALUES ('" + payable +
                "', '" + id + "', '" + table + "', '" + check + "', '" + state + "')");
}

void receivable(Company& company, const std::string& folio, const std::string& table, const std::string& document) {
    company.sql("INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento) VALUES ('" + folio + "', '" + table +
                "', '" + document + "')");
}

void payable(Company& company, const std::string& folio, const std::string& table, const std::string& document) {
    company.sql("INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento) VALUES ('" + folio + "', '" + table +
                "', '" + document + "')");
}

void expense(Company& company, const std::string& folio, const std::string& table, const std::string& document) {
    company.sql("INSERT INTO Gasto_x_Comprobar (Gc_Folio, Gc_Tabla, Gc_Documento, Es_Cve_Estado) VALUES ('" + folio +
                "', '" + table + "', '" + document + "', 'PA')");
}

void expense_document(Company& company, const std::string& check, const std::string& id,
                      const std::string& table = "CHEQUE") {
    company.sql("INSERT INTO Gasto_x_Comprobar_Documento (Gc_Documento, Gc_Tabla, Gcd_ID, Es_Cve_Estado) VALUES ('" +
                check + "', '" + table + "', '" + id + "', 'AC')");
}

class Issued_check : public Company_test {
protected:
    Issued_check() { on.parameters["GEN_FORZAR_TIEMPO_REAL"] = true; }

    bool undo(const std::string& folio = "C-1") { return treasury().Cancelar_Aplicacion_Cheque(folio); }
    bool cancel(const std::string& folio = "C-1") { return treasury().Cancelar_Cheque(folio); }

    const std::vector<std::string> returned = {
        "~ Banco_Movimiento M-1: Bm_Fecha_Firme 2024-03-18 -> 2024-03-15, Es_Cve_Estado FI -> TR",
        "~ Cheque C-1: Es_Cve_Estado AP -> AC", "~ Cheque_x_Aplicar C-1/0001: Es_Cve_Estado AP -> AC",
        "~ Cheque_x_Aplicar C-1/0002: Es_Cve_Estado AP -> AC"};
};

// ---- Undoing an application -----------------------------------------------------------------------------------------

TEST_F(Issued_check, whose_application_is_undone_can_be_applied_again) {
    applied_check(company, "0000");
    check(company, "C-2", "0000", "AP");
    line(company, "C-2", "0001", "DOC-1", "AP");
    movement(company, "M-2", "C-2", "FI");
    // what the application wrote beside the states is kept
    EXPECT_THAT(changes([this] { return undo(); }), ::testing::ElementsAreArray(returned));
    for (const auto& [table, key] :
         {std::pair{"Cheque", "Ch_Folio = 'C-1'"}, std::pair{"Banco_Movimiento", "Bm_Folio = 'M-1'"}}) {
        EXPECT_THAT(rows(table, "Oper_Ult_Modif, Fecha_Ult_Modif", key), ElementsAre("CAJA1|2024-03-15 10:20:30"));
    }
    EXPECT_THAT(on.calls, IsEmpty());
}

TEST_F(Issued_check, without_lines_or_type_has_no_application_to_undo) {
    expect_refusal(application_tag + "No se encontró el detalle del cheque", [this] { return undo("C-9"); });
    check(company, "C-1", "0000", "AP");
    expect_refusal(application_tag + "No se encontró el detalle del cheque", [this] { return undo(); });
    line(company, "C-1", "0001", "DOC-1", "AP");
    run("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = 'T99'");
    expect_refusal(application_tag + "No se encontró el detalle del cheque", [this] { return undo(); });
}

TEST_F(Issued_check, its_cancelled_lines_come_back_and_its_cancelled_movement_does_not) {
    applied_check(company, "0000");
    run("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'CA' WHERE Cxa_ID = '0002'");
    run("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA'");
    EXPECT_TRUE(undo()) << treasury().Error();
    EXPECT_THAT(rows("Cheque_x_Aplicar", "Es_Cve_Estado"), ElementsAre("AC", "AC"));
    EXPECT_THAT(rows("Banco_Movimiento", "Es_Cve_Estado"), ElementsAre("CA"));
}

TEST_F(Issued_check, in_any_state_has_its_application_undone) {
    applied_check(company, "0000");
    run("UPDATE Cheque SET Es_Cve_Estado = 'CA'");
    EXPECT_TRUE(undo()) << treasury().Error();
    EXPECT_THAT(rows("Cheque", "Es_Cve_Estado, Ch_Aplicar, Ch_Firme"), ElementsAre("AC|SI|SI"));
}

TEST_F(Issued_check, to_a_supplier_takes_its_own_live_payments_back) {
    applied_check(company, "0001", "CXP-1", "CXP-2");
    supplier_payment(company, "CXP-2", "0001", "C-1");
    supplier_payment(company, "CXP-1", "0003", "C-1");
    supplier_payment(company, "CXP-1", "0001", "C-1");
    supplier_payment(company, "CXP-1", "0002", "C-1", "CA");
    supplier_payment(company, "CXP-1", "0004", "C-2");
    supplier_payment(company, "CXP-1", "0005", "C-1", "AC", "RECIBO_PAGO");
    supplier_payment(company, "CXP-3", "0001", "C-1");
    EXPECT_THAT(changes([this] { return undo(); }), ::testing::ElementsAreArray(returned));
    EXPECT_THAT(on.calls, ElementsAre("CancelPayablePayment(CXP-1, 0001)", "CancelPayablePayment(CXP-1, 0003)",
                                      "CancelPayablePayment(CXP-2, 0001)"));
}

TEST_F(Issued_check, to_a_supplier_whose_payment_is_not_cancelled_keeps_its_states) {
    applied_check(company, "0001", "CXP-1", "CXP-2");
    supplier_payment(company, "CXP-1", "0001", "C-1");
    supplier_payment(company, "CXP-2", "0001", "C-1");
    on.refuse_call("CancelPayablePayment(CXP-2, 0001)", "El pago está conciliado");
    expect_refusal(application_tag + "El pago está conciliado", [this] { return undo(); });
    EXPECT_EQ(on.calls.size(), 2u);
}

TEST_F(Issued_check, of_a_supplier_type_without_payments_looks_for_none) {
    applied_check(company, "0006", "CXP-1", "CXP-2");
    supplier_payment(company, "CXP-1", "0001", "C-1");
    EXPECT_THAT(changes([this] { return undo(); }), ::testing::ElementsAreArray(returned));
    EXPECT_THAT(on.calls, IsEmpty());
}

TEST_F(Issued_check, for_an_expense_takes_the_advances_back_and_withdraws_its_receivable) {
    applied_check(company, "0002", "GC-1", "GC-2");
    expense(company, "GC-1", "CHEQUE", "C-1");
    expense_document(company, "C-1", "0001");
    receivable(company, "CXC-1", "GASTO_X_COMPROBAR", "GC-1");
    receivable(company, "CXC-2", "GASTO_X_COMPROBAR", "GC-9");
    EXPECT_THAT(changes([this] { return undo(); }),
                ElementsAre(returned[0], returned[1], returned[2], returned[3],
                            "~ Cuenta_x_Cobrar CXC-1: Cxc_Tabla GASTO_X_COMPROBAR -> GASTO_X_COMPROBAR-CA:CXC-1",
                            "~ Gasto_x_Comprobar_Documento C-1/CHEQUE/0001: Es_Cve_Estado AC -> CA"));
    EXPECT_THAT(on.calls, ElementsAre("ValidateDocumentCancellation(GASTO_X_COMPROBAR, GC-1)",
                                      "ValidateDocumentCancellation(GASTO_X_COMPROBAR, GC-2)"));
}

TEST_F(Issued_check, for_an_expense_whose_advances_are_not_taken_back_keeps_everything) {
    applied_check(company, "0002", "GC-1", "GC-2");
    expense(company, "GC-1", "CHEQUE", "C-1");
    receivable(company, "CXC-1", "GASTO_X_COMPROBAR", "GC-1");
    run("INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Pc_Tabla, Pc_Documento) VALUES ('CXC-1', '0001', 'ANTICIPO_CXC', "
        "'AN-1')");
    on.refuse("DocumentCheck", "El anticipo está bloqueado");
    treasury();
    company.mark();
    EXPECT_FALSE(undo());
    EXPECT_THAT(treasury().Error(), ::testing::AllOf(::testing::StartsWith(application_tag),
                                                     ::testing::EndsWith("El anticipo está bloqueado")));
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_THAT(on.calls, ElementsAre("DocumentCheck(ANTICIPO_CXC, AN-1)"));
}

TEST_F(Issued_check, for_an_expense_whose_receivable_is_held_back_has_lost_its_advances) {
    applied_check(company, "0002", "GC-1", "GC-2");
    expense_document(company, "C-1", "0001");
    receivable(company, "CXC-1", "GASTO_X_COMPROBAR", "GC-1");
    on.refuse("ValidateDocumentCancellation", "La cuenta por cobrar tiene pagos");
    EXPECT_THAT(left_by(application_tag + "La cuenta por cobrar tiene pagos", [this] { return undo(); }),
                ElementsAre("~ Gasto_x_Comprobar_Documento C-1/CHEQUE/0001: Es_Cve_Estado AC -> CA"));
}

class Issued_check_to_a_customer : public Issued_check, public ::testing::WithParamInterface<std::string> {};

TEST_P(Issued_check_to_a_customer, withdraws_its_receivables_once) {
    applied_check(company, GetParam());
    receivable(company, "CXC-1", "Cheque", "C-1");
    receivable(company, "CXC-2", "CHEQUE", "C-1");
    receivable(company, "CXC-3", "CHEQUE", "C-2");
    receivable(company, "CXC-4", "CHEQUE-CA:CXC-4", "C-1");
    EXPECT_THAT(changes([this] { return undo(); }),
                ElementsAre(returned[0], returned[1], returned[2], returned[3],
                            "~ Cuenta_x_Cobrar CXC-1: Cxc_Tabla Cheque -> CHEQUE-CA:CXC-1",
                            "~ Cuenta_x_Cobrar CXC-2: Cxc_Tabla CHEQUE -> CHEQUE-CA:CXC-2"));
    EXPECT_THAT(on.calls,
                ElementsAre("ValidateDocumentCancellation(CHEQUE, C-1)", "ValidateDocumentCancellation(CHEQUE, C-1)"));
}

TEST_P(Issued_check_to_a_customer, keeps_everything_when_its_receivables_are_held_back) {
    applied_check(company, GetParam());
    receivable(company, "CXC-1", "CHEQUE", "C-1");
    on.refuse("ValidateDocumentCancellation", "La cuenta por cobrar tiene pagos");
    expect_refusal(application_tag + "La cuenta por cobrar tiene pagos", [this] { return undo(); });
}

INSTANTIATE_TEST_SUITE_P(Or_a_debtor, Issued_check_to_a_customer, ::testing::Values("0003", "0004"));

TEST_F(Issued_check, for_a_supplier_advance_withdraws_its_payable) {
    applied_check(company, "0005", "AN-1", "AN-2");
    payable(company, "CXP-1", "ANTICIPO_CXP", "AN-1");
    payable(company, "CXP-2", "ANTICIPO_CXP", "AN-9");
    supplier_payment(company, "CXP-1", "0001", "C-7", "CA");
    EXPECT_THAT(changes([this] { return undo(); }),
                ElementsAre(returned[0], returned[1], returned[2], returned[3],
                            "~ Cuenta_x_Pagar CXP-1: Cxp_Tabla ANTICIPO_CXP -> ANTICIPO_CXP-CA:CXP-1"));
    EXPECT_THAT(on.calls, ElementsAre("ValidateAdvanceCancellation(AN-1)", "ValidateAdvanceCancellation(AN-2)"));
}

TEST_F(Issued_check, for_a_supplier_advance_already_applied_is_refused_before_payables_is_asked) {
    applied_check(company, "0005", "AN-1", "AN-2");
    payable(company, "CXP-1", "ANTICIPO_CXP", "AN-1");
    supplier_payment(company, "CXP-1", "0001", "C-7");
    on.refuse("ValidateAdvanceCancellation", "otro motivo");
    expect_refusal(
        application_tag + "El cheque contiene o proviene de un anticipo a proveedor y este ya está aplicado!",
        [this] { return undo(); });
    EXPECT_THAT(on.calls, IsEmpty());
}

TEST_F(Issued_check, for_a_supplier_advance_that_payables_holds_back_is_refused) {
    applied_check(company, "0005", "AN-1", "AN-2");
    payable(company, "CXP-1", "ANTICIPO_CXP", "AN-1");
    on.refuse("ValidateAdvanceCancellation", "El anticipo ya se usó");
    expect_refusal(application_tag + "El anticipo ya se usó", [this] { return undo(); });
}

TEST_F(Issued_check, whose_second_line_is_held_back_has_the_first_undone) {
    applied_check(company, "0005", "AN-1", "AN-2");
    payable(company, "CXP-1", "ANTICIPO_CXP", "AN-1");
    on.refuse_call("ValidateAdvanceCancellation(AN-2)", "El anticipo ya se usó");
    EXPECT_THAT(left_by(application_tag + "El anticipo ya se usó", [this] { return undo(); }),
                ElementsAre("~ Cuenta_x_Pagar CXP-1: Cxp_Tabla ANTICIPO_CXP -> ANTICIPO_CXP-CA:CXP-1"));
}

TEST_F(Issued_check, whose_application_is_undone_twice_relabels_nothing_the_second_time) {
    applied_check(company, "0003");
    receivable(company, "CXC-1", "CHEQUE", "C-1");
    ASSERT_TRUE(undo());
    run("UPDATE Cheque SET Es_Cve_Estado = 'AP'");
    EXPECT_THAT(changes([this] { return undo(); }), ElementsAre("~ Cheque C-1: Es_Cve_Estado AP -> AC"));
    EXPECT_THAT(rows("Cuenta_x_Cobrar", "Cxc_Tabla", "Cxc_Folio = 'CXC-1'"), ElementsAre("CHEQUE-CA:CXC-1"));
}

class Application_failure : public Issued_check, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(Application_failure, leaves_what_the_statements_before_it_wrote) {
    applied_check(company, "0003");
    receivable(company, "CXC-1", "CHEQUE", "C-1");
    // 1 reads the lines, 2 and 3 relabel (the second finds nothing), 4 returns the lines, 5 the check, 6 the movement
    const std::vector<std::vector<std::string>> written = {
        {},
        {"~ Cuenta_x_Cobrar CXC-1: Cxc_Tabla CHEQUE -> CHEQUE-CA:CXC-1"},
        {},
        {returned[2], returned[3]},
        {returned[1]}};
    std::vector<std::string> expected;
    for (std::size_t i = 0; i + 1 < GetParam(); ++i) {
        expected.insert(expected.end(), written[i].begin(), written[i].end());
    }
    on.failing_statement = GetParam();
    EXPECT_THAT(left_by(application_tag + obstructed::statement_failure, [this] { return undo(); }),
                ::testing::UnorderedElementsAreArray(expected));
}

INSTANTIATE_TEST_SUITE_P(At_each_statement, Application_failure, ::testing::Range<std::size_t>(1, 7));

// ---- Cancelling a check ---------------------------------------------------------------------------------------------

/// C-1, not applied, with one line and its movement.
void check_to_cancel(Company& company) {
    check(company, "C-1", "0001", "AC");
    line(company, "C-1", "0001", "CXP-1", "AC");
    movement(company, "M-1", "C-1", "TR");
}

class Check_to_cancel : public Issued_check {
protected:
    Check_to_cancel() { check_to_cancel(company); }

    const std::vector<std::string> marked = {"~ Cheque C-1: " + cancelled + "AC -> CA",
                                             "~ Cheque_x_Aplicar C-1/0001: " + cancelled + "AC -> CA"};
};

TEST_F(Check_to_cancel, is_marked_with_its_lines_and_its_movement_leaves_the_balances) {
    EXPECT_THAT(
        changes([this] { return cancel(); }),
        ElementsAre("~ Banco PUERTO: Bn_Saldo 1500.0 -> 1600.0", "~ Banco_Cuenta PTO-MXN: Bc_Saldo 1000.0 -> 1100.0",
                    "~ Banco_Movimiento M-1: " + cancelled + "TR -> CA", marked[0], marked[1]));
    EXPECT_THAT(on.calls, ElementsAre("IsPostingEnabled(CHEQUE)", "IsDocumentPosted(CHEQUE, C-1)",
                                      "IsPostingEnabled(BANCO_MOVIMIENTO)", "IsDocumentPosted(BANCO_MOVIMIENTO, M-1)",
                                      "RegisterDocument(BANCO_MOVIMIENTO, M-1)"));
}

TEST_F(Check_to_cancel, that_is_applied_has_its_application_undone_first) {
    run("UPDATE Cheque SET Es_Cve_Estado = 'AP'");
    run("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'AP'");
    run("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'FI'");
    supplier_payment(company, "CXP-1", "0001", "C-1");
    changes([this] { return cancel(); });
    EXPECT_EQ(on.calls[2], "CancelPayablePayment(CXP-1, 0001)");
    EXPECT_THAT(rows("Cheque", "Es_Cve_Estado"), ElementsAre("CA"));
    EXPECT_THAT(rows("Banco_Movimiento", "Es_Cve_Estado, Bm_Fecha_Firme"), ElementsAre("CA|2024-03-15"));
}

TEST_F(Check_to_cancel, is_applied_when_its_first_line_is) {
    line(company, "C-1", "0002", "CXP-2", "AP");
    supplier_payment(company, "CXP-1", "0001", "C-1");
    changes([this] { return cancel(); });
    EXPECT_THAT(on.calls, ::testing::Not(::testing::Contains("CancelPayablePayment(CXP-1, 0001)")));
}

TEST_F(Check_to_cancel, waiting_for_its_budget_has_no_movement_to_cancel) {
    run("UPDATE Cheque SET Es_Cve_Estado = 'PXA'");
    EXPECT_THAT(changes([this] { return cancel(); }),
                ElementsAre("~ Cheque C-1: " + cancelled + "PXA -> CA", marked[1]));
}

void check_to_cancel_today(Company& company) {
    among_agreeing_services(company);
    check_to_cancel(company);
    company.on.parameters["GEN_FORZAR_TIEMPO_REAL"] = true;
    company.restart();
}

void applied_with_a_payment_that_stays(Company& company) {
    company.sql("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'AP'");
    supplier_payment(company, "CXP-1", "0001", "C-1");
    company.on.refuse("CancelPayablePayment", "El pago está conciliado");
}

TEST(Check_refusals, come_in_the_order_of_the_steps) {
    expect_refusals_in_order(
        {{"unknown", sql("DELETE FROM Cheque"), check_tag + "Imposible localizar el cheque! \r\nCheque: C-1"},
         {"same day", sql("UPDATE Cheque SET Ch_Fecha = '2024-03-14'"), check_tag + not_today},
         // the guard speaks under another member's tag
         {"posted", accepting("IsDocumentPosted"), deposit_tag + guard_tag + posted + "CHEQUE: C-1"},
         {"application", applied_with_a_payment_that_stays, application_tag + "El pago está conciliado"}},
        check_to_cancel_today, [](Company& company) { return company.treasury().Cancelar_Cheque("C-1"); });
}

TEST_F(Check_to_cancel, without_lines_or_type_is_not_found) {
    check(company, "C-2", "0001", "AC");
    expect_refusal(check_tag + "Imposible localizar el cheque! \r\nCheque: C-2", [this] { return cancel("C-2"); });
}

TEST_F(Check_to_cancel, with_an_empty_folio_meets_the_guards_own_refusal) {
    check(company, "", "0001", "AC");
    line(company, "", "0001", "CXP-1", "AC");
    expect_refusal(deposit_tag + guard_tag + "No se especificó el documento", [this] { return cancel(""); });
}

TEST_F(Check_to_cancel, of_another_day_is_cancelled_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    run("UPDATE Cheque SET Ch_Fecha = '2024-03-14'");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

TEST_F(Check_to_cancel, whose_movement_is_held_back_is_cancelled_all_the_same_and_the_banks_text_stands_alone) {
    on.refuse_call("IsPostingEnabled(CHEQUE)", "");
    on.accept("IsPostingEnabled");
    on.refuse("ValidateVoucherCancellation", "La póliza está cerrada");
    EXPECT_THAT(left_by(document_tag + guard_tag + "La póliza está cerrada", [this] { return cancel(); }),
                ::testing::ElementsAreArray(marked));
}

TEST_F(Check_to_cancel, without_a_movement_is_cancelled_all_the_same) {
    run("DELETE FROM Banco_Movimiento");
    EXPECT_THAT(left_by(document_tag + "No se encontraron documentos relacionados a la tabla:CHEQUE y documento:C-1",
                        [this] { return cancel(); }),
                ::testing::ElementsAreArray(marked));
}

TEST_F(Check_to_cancel, cancelled_twice_runs_again_until_the_bank_stops_it) {
    ASSERT_TRUE(cancel());
    left_by(document_tag + "El movimiento:M-1, está cancelado!", [this] { return cancel(); });
    EXPECT_EQ(on.statements.size(), 4u);
}

TEST_F(Check_to_cancel, for_an_expense_cancels_the_one_it_created_and_its_documents) {
    run("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0002'");
    run("UPDATE Cheque_x_Aplicar SET Cxp_Folio = 'GC-1'");
    expense(company, "GC-1", "CHEQUE", "C-1");
    expense(company, "GC-2", "CHEQUE", "C-2");
    expense(company, "GC-3", "", "");
    expense_document(company, "C-1", "0001");
    expense_document(company, "C-2", "0001");
    const std::vector<std::string> changed = changes([this] { return cancel(); });
    EXPECT_THAT(changed, ::testing::IsSupersetOf({"~ Gasto_x_Comprobar GC-1: " + cancelled + "PA -> CA",
                                                  std::string("~ Gasto_x_Comprobar_Documento C-1/CHEQUE/0001: "
                                                              "Es_Cve_Estado AC -> CA")}));
    EXPECT_EQ(changed.size(), 7u);
}

TEST_F(Check_to_cancel, for_an_expense_not_yet_linked_cancels_the_one_its_line_names) {
    run("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0002'");
    run("UPDATE Cheque_x_Aplicar SET Cxp_Folio = 'GC-3'");
    expense(company, "GC-2", "CHEQUE", "C-2");
    expense(company, "GC-3", "", "");
    expense(company, "GC-4", "", "");
    const std::vector<std::string> changed = changes([this] { return cancel(); });
    EXPECT_THAT(changed, ::testing::Contains("~ Gasto_x_Comprobar GC-3: " + cancelled + "PA -> CA"));
    EXPECT_EQ(changed.size(), 6u);
}

TEST_F(Check_to_cancel, for_an_expense_linked_to_another_document_leaves_it) {
    run("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0002'");
    run("UPDATE Cheque_x_Aplicar SET Cxp_Folio = 'GC-2'");
    expense(company, "GC-2", "CHEQUE", "C-2");
    EXPECT_EQ(changes([this] { return cancel(); }).size(), 5u);
}

class Check_failure : public Check_to_cancel, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(Check_failure, leaves_what_the_statements_before_it_wrote) {
    const std::size_t n = GetParam();
    // 1 reads, 2 marks the check, 3 its lines, 4 reads the movement, 5 to 7 reverse it
    const std::vector<std::string> written = {marked[0], marked[1], "",
                                              "~ Banco_Cuenta PTO-MXN: Bc_Saldo 1000.0 -> 1100.0",
                                              "~ Banco PUERTO: Bn_Saldo 1500.0 -> 1600.0"};
    std::vector<std::string> expected;
    for (std::size_t i = 0; i + 2 < n; ++i) {
        if (!written[i].empty()) expected.push_back(written[i]);
    }
    on.failing_statement = n;
    EXPECT_THAT(
        left_by((n < 4 ? check_tag : document_tag) + obstructed::statement_failure, [this] { return cancel(); }),
        ::testing::UnorderedElementsAreArray(expected));
}

INSTANTIATE_TEST_SUITE_P(At_each_statement, Check_failure, ::testing::Range<std::size_t>(1, 8));

TEST_F(Check_to_cancel, for_an_expense_that_fails_on_the_way_is_not_marked) {
    run("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0002'");
    expense(company, "GC-1", "CHEQUE", "C-1");
    on.failing_statement = 3;
    EXPECT_THAT(left_by(check_tag + obstructed::statement_failure, [this] { return cancel(); }),
                ElementsAre("~ Gasto_x_Comprobar GC-1: " + cancelled + "PA -> CA"));
}

TEST_F(Issued_check, without_date_is_cancelled_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    applied_check(company, "0000");
    run("UPDATE Cheque SET Ch_Fecha = NULL");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

}  // namespace
}  // namespace cuvexa::tests
