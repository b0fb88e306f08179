// Application of checks, and their closing.
#include "support/company.h"
#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Cuvexa.dll - Aplicar_Cheque()\r\n";
const std::string statement_failure = obstructed::statement_failure;

class Check_application : public ::testing::Test {
protected:
    Check_application() { line.Mn_Cve_Moneda = "MXN"; }

    /// A check of that type with its movement, created but not applied.
    std::string issue(const std::string& type, const std::string& beneficiary, const std::vector<tTsDetalle>& lines) {
        return issue(company, header, type, beneficiary, lines);
    }

    static std::string issue(Company& company, tTsEncabezado header, const std::string& type,
                             const std::string& beneficiary, const std::vector<tTsDetalle>& lines) {
        header.Tc_Cve_Tipo_Cheque = type;
        header.Ch_Solicitar_Valor = beneficiary;
        const std::string folio = company.capture_check(lines, header);
        if (!company.treasury().Crear_Cheque_Pago_Proveedor(folio)) {
            throw std::runtime_error(company.treasury().Error());
        }
        company.mark();
        return folio;
    }

    bool apply(const std::string& folio, bool firm = false) {
        company.mark();
        return company.treasury().Aplicar_Cheque(folio, date, firm);
    }

    std::string error() { return company.treasury().Error(); }

    void expect_refused(const std::string& folio, const std::string& message) {
        EXPECT_FALSE(apply(folio));
        EXPECT_EQ(error(), tag + message);
        EXPECT_THAT(company.changes_with_audit(), IsEmpty());
    }

    std::string sql_date(Date date) { return company.module().data().SqlDate(date); }

    Company company;
    tTsEncabezado header = Company::check_header();
    tTsDetalle line = Company::check_line(400);
    Date date = make_date(2024, 3, 20, 15, 45, 0);
};

// ---- Refusals, in step order ----------------------------------------------------------------------------------------

TEST_F(Check_application, refuses_a_check_that_does_not_exist) {
    expect_refused("NADA", "No se encontró el cheque o transferencia especificados");
    EXPECT_EQ(company.statements().size(), 1u);
}

TEST_F(Check_application, refuses_every_state_but_active_before_it_looks_for_lines) {
    const std::string folio = issue("0000", "", {line});
    company.sql("DELETE FROM Cheque_x_Aplicar");
    for (const std::string state : {"PXA", "AP", "CA", "BA", ""}) {
        company.sql("UPDATE Cheque SET Es_Cve_Estado = '" + state + "'");
        expect_refused(folio, "Imposible aplicar un cheque con estado: " + state);
    }
}

TEST_F(Check_application, refuses_a_check_without_open_line) {
    const std::string folio = issue("0000", "", {line, line});
    company.sql("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'AP' WHERE Cxa_ID = '0001'");
    company.sql("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'CA' WHERE Cxa_ID = '0002'");
    expect_refused(folio, "No se encontró el detalle del cheque:" + folio);
    EXPECT_EQ(company.statements().size(), 2u);
}

TEST_F(Check_application, finds_no_line_when_the_account_or_its_bank_is_gone) {
    const std::string folio = issue("0000", "", {line});
    company.sql("DELETE FROM Banco WHERE Bn_Cve_Banco = 'SIERRA'");
    expect_refused(folio, "No se encontró el detalle del cheque:" + folio);
}

// ---- Columns --------------------------------------------------------------------------------------------------------

TEST_F(Check_application, without_firm_the_movement_stays_in_transit_with_the_new_date) {
    const std::string folio = issue("0000", "", {line});
    company.mark();
    ASSERT_TRUE(company.treasury().Aplicar_Cheque(folio, date)) << error();  // the argument is optional
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Ch_Aplicar, Ch_Firme, Ch_Fecha_Firme FROM Cheque"),
                ElementsAre("AP|SI|NO|2024-03-15"));
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Bm_Fecha_Firme FROM Banco_Movimiento"),
                ElementsAre("TR|2024-03-20"));
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Cxa_Fecha_Aplicacion FROM Cheque_x_Aplicar"),
                ElementsAre("AP|2024-03-20"));
}

TEST_F(Check_application, firm_marks_the_check_and_its_movement) {
    const std::string folio = issue("0000", "", {line});
    ASSERT_TRUE(apply(folio, true)) << error();
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Ch_Aplicar, Ch_Firme, Ch_Fecha_Firme FROM Cheque"),
                ElementsAre("AP|SI|SI|2024-03-20"));
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Bm_Fecha_Firme FROM Banco_Movimiento"),
                ElementsAre("FI|2024-03-20"));
}

TEST_F(Check_application, a_cancelled_movement_and_a_cancelled_line_stay_cancelled) {
    const std::string folio = issue("0000", "", {line, line});
    company.sql("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA'");
    company.sql("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'CA' WHERE Cxa_ID = '0002'");
    ASSERT_TRUE(apply(folio, true)) << error();
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado FROM Banco_Movimiento"), ElementsAre("CA"));
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado FROM Cheque_x_Aplicar ORDER BY Cxa_ID"), ElementsAre("AP", "CA"));
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "AP");
}

TEST_F(Check_application, lines_are_handled_in_number_order_whatever_order_they_were_written_in) {
    const std::string folio = issue("0001", "PV01", {line, line, line});
    company.sql("UPDATE Cheque_x_Aplicar SET Cxa_ID = '0009' WHERE Cxa_ID = '0001'");
    ASSERT_TRUE(apply(folio)) << error();
    std::vector<std::string> handled;
    for (const std::string& statement : company.statements()) {
        const auto at = statement.find("Cxa_ID = '");
        if (at != std::string::npos) handled.push_back(statement.substr(at + 10, 4));
    }
    EXPECT_THAT(handled, ElementsAre("0002", "0003", "0009"));
}

TEST_F(Check_application, the_movement_is_handed_to_accounting) {
    const std::string folio = issue("0000", "", {line});
    company.post_automatically("BANCO_MOVIMIENTO");
    ASSERT_TRUE(apply(folio)) << error();
    EXPECT_EQ(company.statements().size(), 6u);
    EXPECT_EQ(in_short(company.statements().back()), "SELECT Banco_Movimiento");
    EXPECT_EQ(company.scalar("SELECT Pz_Documento FROM Poliza"),
              company.scalar("SELECT Bm_Folio FROM Banco_Movimiento"));
}

TEST_F(Check_application, what_accounting_refuses_stands_behind_both_tags_and_the_check_stays_applied) {
    const std::string folio = issue("0000", "", {line});
    company.on.accept("IsPostingEnabled");
    company.on.refuse("PostDocument", "Falta la cuenta contable");
    EXPECT_FALSE(apply(folio));
    EXPECT_EQ(error(), tag + "Cuvexa.dll - Contabiliza_Banco_Movimiento()\r\nFalta la cuenta contable");
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "AP");
    company.on.clear();
    expect_refused(folio, "Imposible aplicar un cheque con estado: AP");
}

// ---- "01": payments of payables -------------------------------------------------------------------------------------

TEST_F(Check_application, pays_the_payable_of_each_line) {
    header.Ch_Tipo_Cambio = 2;
    line.Ch_Tipo_Cambio = 1;
    tTsDetalle other = Company::check_line(100, "CXP-MTY-00000002");
    const std::string folio = issue("0001", "PV01", {line, other});
    ASSERT_TRUE(apply(folio)) << error();
    EXPECT_THAT(company.on.calls, ::testing::IsSupersetOf({"AddPaymentLine(CXP-MTY-00000001, " + folio + ")",
                                                           "AddPaymentLine(CXP-MTY-00000002, " + folio + ")"}));
    ASSERT_EQ(company.on.payment_lines.size(), 2u);
    const Payment_line& paid = company.on.payment_lines.front();
    EXPECT_EQ(paid.date, make_date(2024, 3, 20)) << "without its time of day";
    EXPECT_EQ(paid.payable_folio, "CXP-MTY-00000001");
    EXPECT_EQ(paid.check_folio, folio);
    EXPECT_EQ(paid.check_number, "1001");
    EXPECT_EQ(paid.payment_method, "02");
    EXPECT_EQ(paid.amount, 400);
    EXPECT_EQ(paid.exchange_rate, 1);
    EXPECT_EQ(paid.currency, "MXN");
    EXPECT_EQ(paid.bank_name, "Banco de la Sierra");
    EXPECT_EQ(paid.bank_account_number, "0901000001");
    EXPECT_EQ(paid.bank, "SIERRA");
    EXPECT_THAT(company.rows("SELECT Cxp_Folio, Pc_Tabla, Pc_Documento, Pc_Importe, Pc_Fecha FROM Pago_Cxp ORDER BY 1"),
                ElementsAre("CXP-MTY-00000001|CHEQUE|" + folio + "|400.0|2024-03-20",
                            "CXP-MTY-00000002|CHEQUE|" + folio + "|100.0|2024-03-20"));
    EXPECT_EQ(company.scalar("SELECT Cxp_Precio_Neto_Saldo FROM Cuenta_x_Pagar WHERE Cxp_Folio = 'CXP-MTY-00000001'"),
              "11200.0");
    EXPECT_THAT(company.rows("SELECT Cxp_Folio, Es_Cve_Estado FROM Cheque_x_Aplicar ORDER BY Cxa_ID"),
                ElementsAre("CXP-MTY-00000001|AP", "CXP-MTY-00000002|AP"))
        << "only a supplier advance rewrites the folio";
}

TEST_F(Check_application, the_currency_and_rate_of_a_payment_are_the_lines) {
    line = Company::check_line(10, "CXP-MTY-00000003");
    line.Mn_Cve_Moneda = "USD";
    line.Ch_Tipo_Cambio = 19.5;
    const std::string folio = issue("0001", "PV02", {line});
    ASSERT_TRUE(apply(folio)) << error();
    EXPECT_EQ(company.on.payment_lines.front().currency, "USD");
    EXPECT_EQ(company.on.payment_lines.front().exchange_rate, 19.5);
}

TEST_F(Check_application, a_transfer_pays_with_the_method_of_transfers_and_so_does_any_marker_but_no) {
    for (const char* marker : {"SI", "no", "X"}) {
        header.Ch_Transferencia = marker;
        header.Ch_Referencia = std::string("T-") + marker;
        const std::string folio = issue("0001", "PV01", {line});
        ASSERT_TRUE(apply(folio)) << error();
        EXPECT_EQ(company.on.payment_lines.front().payment_method, "03");
    }
}

TEST_F(Check_application, the_method_of_the_checks_kind_must_be_configured_even_when_nothing_is_paid) {
    for (const std::string type : {"0001", "0006"}) {
        for (const std::string transfer : {"NO", "SI"}) {
            SCOPED_TRACE(type + " " + transfer);
            Company fresh;
            header.Ch_Transferencia = transfer;
            fresh.set_parameter(transfer == "NO" ? "TES_FORMA_PAGO_CHEQUE" : "TES_FORMA_PAGO_TRANSFERENCIA", "");
            const std::string folio = issue(fresh, header, type, "PV01", {line});
            EXPECT_FALSE(fresh.treasury().Aplicar_Cheque(folio, date));
            EXPECT_EQ(fresh.treasury().Error(), tag + "No se encontró la forma de pago del documento");
            EXPECT_THAT(fresh.changes_with_audit(), IsEmpty());
        }
    }
}

TEST_F(Check_application, the_method_of_the_other_kind_and_another_marker_do_not_matter) {
    company.set_parameter("TES_FORMA_PAGO_TRANSFERENCIA", "");
    EXPECT_TRUE(apply(issue("0001", "PV01", {line}))) << error();
    header.Ch_Transferencia = "X";
    EXPECT_TRUE(apply(issue("0001", "PV01", {line}))) << error();
    EXPECT_EQ(company.on.payment_lines.front().payment_method, "");
}

TEST_F(Check_application, a_type_that_pays_no_supplier_only_changes_states) {
    const std::string folio = issue("0006", "PV01", {line});
    ASSERT_TRUE(apply(folio)) << error();
    EXPECT_THAT(company.on.payment_lines, IsEmpty());
    EXPECT_THAT(company.rows("SELECT * FROM Pago_Cxp"), IsEmpty());
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "AP");
}

TEST_F(Check_application, what_payables_refuse_stops_at_that_line_and_the_rest_can_be_applied_later) {
    for (const char* operation : {"AddPaymentLine", "ApplyPayments"}) {
        SCOPED_TRACE(operation);
        header.Ch_Referencia = operation;
        const std::string folio = issue("0001", "PV01", {line, Company::check_line(100, "CXP-MTY-00000002")});
        company.mark();
        if (std::string(operation) == "AddPaymentLine") {
            company.on.refuse_call("AddPaymentLine(CXP-MTY-00000002, " + folio + ")", "No se puede pagar");
        } else {
            company.sql("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'AP' WHERE Cxa_ID = '0001' AND Ch_Folio = '" +
                        folio + "'");
            company.on.refuse("ApplyPayments", "No se puede pagar");
        }
        EXPECT_FALSE(apply(folio));
        EXPECT_EQ(error(), tag + "No se puede pagar");
        const std::string of_check = " WHERE Ch_Folio = '" + folio + "'";
        EXPECT_THAT(company.rows("SELECT Es_Cve_Estado FROM Cheque_x_Aplicar" + of_check + " ORDER BY Cxa_ID"),
                    ElementsAre("AP", "AC"));
        EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque" + of_check), "AC");
        EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Banco_Movimiento WHERE Bm_Documento = '" + folio + "'"),
                  "TR");

        company.on.clear();
        ASSERT_TRUE(apply(folio)) << error();
        ASSERT_EQ(company.on.payment_lines.size(), 1u) << "the applied line is not paid twice";
        EXPECT_EQ(company.on.payment_lines.front().payable_folio, "CXP-MTY-00000002");
        EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque" + of_check), "AP");
    }
}

// ---- "03" and "04": receivables -------------------------------------------------------------------------------------

TEST_F(Check_application, charges_the_whole_check_to_the_customer_once_per_line) {
    header.Ch_Tipo_Cambio = 2;
    header.Bc_Cve_Banco_Cuenta = "SRR-USD";
    header.Ch_Fecha = make_date(2024, 3, 14);
    line.Ch_Importe = 40;
    const std::string folio = issue("0003", "CL01", {line, line});
    ASSERT_TRUE(apply(folio)) << error();
    ASSERT_EQ(company.on.receivables.size(), 2u);
    for (const Receivable& charged : company.on.receivables) {
        EXPECT_EQ(charged.branch, "MTY");
        EXPECT_EQ(charged.customer, "CL01");
        EXPECT_EQ(charged.exchange_rate, 2);
        EXPECT_EQ(charged.currency, "USD") << "the account's";
        EXPECT_EQ(charged.source_table, "Cheque");
        EXPECT_EQ(charged.source_document, folio);
        EXPECT_EQ(charged.comment, "Pago de facturas");
        EXPECT_EQ(charged.reference, "1001");
        EXPECT_EQ(charged.date, make_date(2024, 3, 14));
        EXPECT_EQ(charged.due_date, make_date(2024, 4, 13)) << "30 days later";
        EXPECT_EQ(charged.amount, 40) << "the two lines of 40 pesos, in dollars at 2";
        EXPECT_EQ(charged.net_amount, 40);
        EXPECT_EQ(charged.net_price_amount, 40);
        EXPECT_EQ(charged.balance, 40);
    }
    EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Cuenta_x_Cobrar WHERE Cxc_Documento = '" + folio + "'"), "2");
}

TEST_F(Check_application, charges_a_debtor_with_the_debtors_days) {
    const std::string folio = issue("0004", "DE01", {line});
    ASSERT_TRUE(apply(folio)) << error();
    EXPECT_EQ(company.on.receivables.front().due_date, add_days(Company::today(), 15));
}

TEST_F(Check_application, days_are_those_of_a_debtor_only_when_the_type_asks_for_one) {
    // The same key, no longer of the class that the type asks for.
    const std::string of_debtor = issue("0004", "DE01", {line});
    header.Ch_Referencia = "1002";
    const std::string of_customer = issue("0003", "CL01", {line});
    company.sql("UPDATE Cliente SET Tc_Cve_Tipo_Cliente = 'XX' WHERE Cl_Cve_Cliente IN ('DE01', 'CL01')");
    ASSERT_TRUE(apply(of_debtor)) << error();
    EXPECT_EQ(company.on.receivables.front().due_date, Company::today()) << "no such debtor, no days";
    ASSERT_TRUE(apply(of_customer)) << error();
    EXPECT_EQ(company.on.receivables.front().due_date, add_days(Company::today(), 30));
}

TEST_F(Check_application, a_column_that_the_purpose_does_not_use_may_be_null) {
    const std::string folio = issue("0000", "", {line});
    company.sql("UPDATE Cheque SET Ch_Fecha = NULL, Ch_Importe = NULL, Ch_Tipo_Cambio = NULL WHERE Ch_Folio = '" +
                folio + "'");
    company.sql("UPDATE Cheque_x_Aplicar SET Cxa_Importe = NULL, Cxa_Tipo_Cambio = NULL");
    EXPECT_TRUE(apply(folio)) << error();
    header.Ch_Referencia = "1002";
    const std::string of_debtor = issue("0004", "DE01", {line});
    company.sql("UPDATE Cheque SET Ch_Fecha = NULL WHERE Ch_Folio = '" + of_debtor + "'");
    EXPECT_FALSE(apply(of_debtor));
    EXPECT_EQ(error(), tag + "Uso no válido de Null");
}

TEST_F(Check_application, what_receivables_refuse_stops_the_line) {
    for (const auto& [type, beneficiary] : {std::pair{"0003", "CL01"}, std::pair{"0004", "DE01"}}) {
        header.Ch_Referencia = type;
        const std::string folio = issue(type, beneficiary, {line});
        company.on.refuse("CreateReceivable", "No se puede cobrar");
        expect_refused(folio, "No se puede cobrar");
        company.on.clear();
    }
}

// ---- "05": supplier advances ----------------------------------------------------------------------------------------

TEST_F(Check_application, creates_a_supplier_advance_whose_folio_the_line_takes) {
    header.Ch_Tipo_Cambio = 2;
    line.Ch_Tipo_Cambio = 4;
    line.Ch_Importe = 100;
    line.Cxp_Folio = "";
    const std::string folio = issue("0005", "PV01", {line});
    ASSERT_TRUE(apply(folio)) << error();
    ASSERT_EQ(company.on.supplier_advances.size(), 1u);
    const Supplier_advance& advance = company.on.supplier_advances.front();
    EXPECT_EQ(advance.date, Company::today());
    EXPECT_EQ(advance.reference, "1001");
    EXPECT_EQ(advance.check_folio, folio);
    EXPECT_EQ(advance.currency, "MXN");
    EXPECT_EQ(advance.exchange_rate, 4) << "the line's";
    EXPECT_EQ(advance.branch, "MTY");
    EXPECT_EQ(advance.supplier, "PV01");
    EXPECT_EQ(advance.amount, 200) << "the check's";
    EXPECT_EQ(advance.concept_text, "Pago de facturas");
    EXPECT_EQ(advance.bank_account, "SRR-MXN");
    const std::string payable = company.scalar("SELECT Cxp_Folio FROM Cuenta_x_Pagar WHERE Cxp_Tabla = 'ANTICIPO_CXP'");
    EXPECT_THAT(company.rows("SELECT Cxp_Folio, Es_Cve_Estado FROM Cheque_x_Aplicar"), ElementsAre(payable + "|AP"));
}

TEST_F(Check_application, a_refused_supplier_advance_stops_the_line) {
    const std::string folio = issue("0005", "PV01", {line});
    company.on.refuse("CreateSupplierAdvance", "No se puede anticipar");
    expect_refused(folio, "No se puede anticipar");
}

// ---- Failures -------------------------------------------------------------------------------------------------------

TEST_F(Check_application, each_failing_statement_leaves_exactly_what_was_done_before_it) {
    const std::vector<std::vector<std::string>> expected = {
        {"AC AC", "AC", "TR", "0 payments"},  // the check
        {"AC AC", "AC", "TR", "0 payments"},  // its lines
        {"AC AC", "AC", "TR", "1 payments"},  // the first line applied
        {"AP AC", "AC", "TR", "2 payments"},  // the second line applied
        {"AP AP", "AC", "TR", "2 payments"},  // the check applied
        {"AP AP", "AP", "TR", "2 payments"},  // the movement firm
        {"AP AP", "AP", "FI", "2 payments"},  // the movement to post
    };
    for (std::size_t n = 1; n <= expected.size(); ++n) {
        SCOPED_TRACE(n);
        Company fresh;
        const std::string folio = issue(fresh, header, "0001", "PV01", {line, line});
        fresh.post_automatically("BANCO_MOVIMIENTO");
        fresh.on.failing_statement = n;
        EXPECT_FALSE(fresh.treasury().Aplicar_Cheque(folio, date, true));
        EXPECT_EQ(fresh.treasury().Error(),
                  n < 7 ? tag + statement_failure
                        : tag + "Cuvexa.dll - Contabiliza_Banco_Movimiento()\r\n" + statement_failure);
        EXPECT_EQ(
            (std::vector<std::string>{fresh.scalar("SELECT GROUP_CONCAT(Es_Cve_Estado, ' ') FROM Cheque_x_Aplicar"),
                                      fresh.scalar("SELECT Es_Cve_Estado FROM Cheque"),
                                      fresh.scalar("SELECT Es_Cve_Estado FROM Banco_Movimiento"),
                                      fresh.scalar("SELECT COUNT(*) || ' payments' FROM Pago_Cxp")}),
            expected[n - 1]);
        EXPECT_THAT(fresh.rows("SELECT * FROM Poliza"), IsEmpty());
    }
}

TEST_F(Check_application, each_failing_service_call_makes_it_fail_and_leaves_the_check_to_be_applied_again) {
    for (const auto& [type, beneficiary] :
         std::vector<std::pair<std::string, std::string>>{{"0001", "PV01"}, {"0003", "CL01"}, {"0005", "PV01"}}) {
        for (std::size_t n = 1;; ++n) {
            Company fresh;
            const std::string folio = issue(fresh, header, type, beneficiary, {line});
            fresh.on.failing_call = n;
            if (fresh.treasury().Aplicar_Cheque(folio, date)) {
                EXPECT_EQ(n, fresh.on.asked.size() + 1);
                break;
            }
            SCOPED_TRACE(type + " " + fresh.on.asked.back());
            const bool posting = fresh.on.asked.back() == "IsPostingEnabled";
            EXPECT_EQ(
                fresh.treasury().Error(),
                tag + (posting ? "Cuvexa.dll - Contabiliza_Banco_Movimiento()\r\n" : "") + obstructed::call_failure);
            EXPECT_EQ(fresh.scalar("SELECT Es_Cve_Estado FROM Cheque"), posting ? "AP" : "AC");
            fresh.on.clear();
            EXPECT_EQ(fresh.treasury().Aplicar_Cheque(folio, date), !posting) << fresh.treasury().Error();
        }
    }
}

TEST_F(Check_application, a_date_that_no_calendar_has_is_a_failure_before_anything_is_written) {
    const std::string folio = issue("0001", "PV01", {line});
    date = Date{1e9};
    EXPECT_FALSE(apply(folio));
    EXPECT_TRUE(error().starts_with(tag)) << error();
    EXPECT_THAT(company.changes_with_audit(), IsEmpty());
}

TEST_F(Check_application, a_quote_in_the_folio_is_a_failure_in_the_databases_words) {
    EXPECT_FALSE(apply("O'Higgins"));
    EXPECT_TRUE(error().starts_with(tag)) << error();
    EXPECT_THAT(company.changes_with_audit(), IsEmpty());
}

// ---- Closing --------------------------------------------------------------------------------------------------------

class Check_closing : public Check_application {
protected:
    const std::string tag = "Cuvexa.dll - Finalizar_Cheque()\r\n";

    bool close(const std::string& folio) {
        company.mark();
        return company.treasury().Finalizar_Cheque(folio);
    }
};

TEST_F(Check_closing, only_registers_the_document_while_checks_are_not_posted_by_themselves) {
    ASSERT_TRUE(close("NADA")) << error();
    EXPECT_EQ(error(), "");
    EXPECT_THAT(company.statements(), IsEmpty());
    EXPECT_THAT(company.on.calls, ElementsAre("IsPostingEnabled(CHEQUE)", "RegisterDocument(CHEQUE, NADA)"));
}

TEST_F(Check_closing, posts_the_check_under_its_branchs_company_and_then_registers_it) {
    const std::string folio = issue("0000", "", {line});
    company.post_automatically("CHEQUE");
    ASSERT_TRUE(close(folio)) << error();
    EXPECT_THAT(company.on.calls, ElementsAre("IsPostingEnabled(CHEQUE)", "PostDocument(CHEQUE, " + folio + ", EM01)",
                                              "RegisterDocument(CHEQUE, " + folio + ")"));
    EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Poliza WHERE Pz_Documento = '" + folio + "'"), "1");
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "AC") << "no state changes";
}

TEST_F(Check_closing, finds_no_company_for_an_unknown_or_cancelled_check_or_a_closed_branch) {
    const std::string folio = issue("0000", "", {line});
    company.post_automatically("CHEQUE");
    const auto expect_no_company = [&](const std::string& check) {
        EXPECT_FALSE(close(check));
        EXPECT_EQ(error(), tag + "No es posible determinar la empresa para la póliza");
        EXPECT_THAT(company.on.calls, ElementsAre("IsPostingEnabled(CHEQUE)"));
    };
    expect_no_company("NADA");
    company.sql("UPDATE Cheque SET Es_Cve_Estado = 'CA'");
    expect_no_company(folio);
    company.sql("UPDATE Cheque SET Es_Cve_Estado = 'PXA'");
    EXPECT_TRUE(close(folio)) << error();
    company.sql("UPDATE Sucursal SET Es_Cve_Estado = 'BA' WHERE Sc_Cve_Sucursal = 'MTY'");
    expect_no_company(folio);
}

TEST_F(Check_closing, what_accounting_refuses_or_reports_after_a_success_ends_it_before_the_registration) {
    const std::string folio = issue("0000", "", {line});
    company.on.accept("IsPostingEnabled");
    for (const bool accepted : {false, true}) {
        if (accepted) {
            company.on.accept("PostDocument", "Póliza descuadrada");
        } else {
            company.on.refuse("PostDocument", "Póliza descuadrada");
        }
        EXPECT_FALSE(close(folio));
        EXPECT_EQ(error(), tag + "Póliza descuadrada");
        EXPECT_EQ(company.on.calls.size(), 2u);
    }
}

TEST_F(Check_closing, what_the_registration_refuses_is_told_behind_the_tag) {
    company.on.refuse("RegisterDocument", "No se puede registrar");
    EXPECT_FALSE(close("NADA"));
    EXPECT_EQ(error(), tag + "No se puede registrar");
}

TEST_F(Check_closing, each_failure_stands_behind_the_tag) {
    const std::string folio = issue("0000", "", {line});
    company.post_automatically("CHEQUE");
    company.mark();
    company.on.failing_statement = 1;
    EXPECT_FALSE(company.treasury().Finalizar_Cheque(folio));
    EXPECT_EQ(error(), tag + statement_failure);
    company.on.clear();
    for (std::size_t n = 1; n <= 3; ++n) {
        company.mark();
        company.on.failing_call = n;
        EXPECT_FALSE(company.treasury().Finalizar_Cheque(folio));
        EXPECT_EQ(error(), tag + obstructed::call_failure);
    }
}

}  // namespace
}  // namespace cuvexa::tests
