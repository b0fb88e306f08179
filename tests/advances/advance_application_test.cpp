// Customer advances set against the expense of a check, and taken back. Both routines are reached by the operations
// that call them: the application of the check, and its cancellation.
#include "suite/expenses.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

const std::string apply_tag = "Cuvexa.dll - Aplicar_Cheque()\r\n";
const std::string advance_tag = apply_tag + "Aplicar_Anticipo_Cxc()\r\n";
const std::string undo_tag = "Cuvexa.dll - Cancelar_Aplicacion_Cheque()\r\n";
const std::string undo_advance_tag = undo_tag + "Cancelar_Aplicacion_Cheque_Anticipo()\r\n";

const std::string big = "AN-MTY-00000001";    // 1000, its receivable CXC-MTY-00000003
const std::string small = "AN-MTY-00000002";  // 250, its receivable CXC-MTY-00000004

/// A company with the check of an expense of the debtor DE01.
class Expense_company : public Company {
public:
    explicit Expense_company(double amount = 1300, double rate = 1) {
        set_parameter("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", "0");
        tTsEncabezado header = check_header();
        header.Tc_Cve_Tipo_Cheque = "0002";
        header.Ch_Solicitar_Valor = "DE01";
        header.Ch_Tipo_Cambio = rate;
        tTsDetalle line = check_line(amount, "");
        line.Ch_Tipo_Cambio = rate;
        treasury().Nuevo();
        treasury().Encabezado(header);
        treasury().Detalle(line);
        if (!treasury().Crear_Cheque_Gasto_x_Comprobar()) throw std::runtime_error(treasury().Error());
        check = treasury().Encabezado().Ch_Folio;
        expense = scalar("SELECT Gc_Folio FROM Gasto_x_Comprobar");
        mark();
    }

    void link(const std::string& advance, double amount, double rate = 1) {
        reference::link_advance_to_check(*suite(), check, advance, amount, rate);
        mark();
    }

    bool apply() {
        mark();
        return treasury().Aplicar_Cheque(check, make_date(2024, 3, 20));
    }

    bool undo() {
        mark();
        return treasury().Cancelar_Aplicacion_Cheque(check);
    }

    std::string error() { return treasury().Error(); }

    std::string expense_receivable() {
        return scalar(
            "SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Tabla = 'GASTO_X_COMPROBAR' AND Cxc_Documento = '" +
            expense + "'");
    }

    /// Live payments, used advances, applied lines of the expense and of the check.
    std::string left() {
        return scalar(
            "SELECT (SELECT COUNT(*) FROM Pago_Cxc WHERE Es_Cve_Estado <> 'CA') || ' payments, ' || "
            "(SELECT COUNT(*) FROM Anticipo_Cxc WHERE Es_Cve_Estado = 'AP') || ' used, ' || "
            "(SELECT COUNT(*) FROM Gasto_x_Comprobar_Documento WHERE Es_Cve_Estado = 'AP') || ' applied, check ' || "
            "(SELECT Es_Cve_Estado FROM Cheque)");
    }

    std::string check, expense;
};

// ---- Application ----------------------------------------------------------------------------------------------------

TEST(Advance_application, pays_the_expense_and_uses_up_the_advance) {
    Expense_company company;
    company.link(small, 250, 1.5);
    ASSERT_TRUE(company.apply()) << company.error();
    EXPECT_EQ(company.error(), "");
    ASSERT_EQ(company.on.receivable_payments.size(), 2u);

    const Receivable_payment& of_expense = company.on.receivable_payments[0];
    EXPECT_EQ(of_expense.receivable_folio, company.expense_receivable());
    EXPECT_EQ(of_expense.amount, 250);
    EXPECT_EQ(of_expense.date, make_date(2024, 3, 20));
    EXPECT_EQ(of_expense.concept_text, "Aplicación de anticipo");
    EXPECT_EQ(of_expense.source_table, "ANTICIPO_CXC");
    EXPECT_EQ(of_expense.source_document, small);
    EXPECT_EQ(of_expense.reference, "CXC-MTY-00000004:0001");
    EXPECT_EQ(of_expense.currency, "MXN");
    EXPECT_EQ(of_expense.exchange_rate, 1);
    EXPECT_EQ(of_expense.payment_method, "07");

    const Receivable_payment& of_advance = company.on.receivable_payments[1];
    EXPECT_EQ(of_advance.receivable_folio, "CXC-MTY-00000004");
    EXPECT_EQ(of_advance.amount, 250);
    EXPECT_EQ(of_advance.date, make_date(2024, 3, 20));
    EXPECT_EQ(of_advance.concept_text, "Aplicación de anticipo");
    EXPECT_EQ(of_advance.source_table, "");
    EXPECT_EQ(of_advance.source_document, "");
    EXPECT_EQ(of_advance.reference, "CXC-MTY-00000004:0001");
    EXPECT_EQ(of_advance.currency, "MXN");
    EXPECT_EQ(of_advance.exchange_rate, 1.5) << "the line's";
    EXPECT_EQ(of_advance.payment_method, "07");

    for (const Receivable_payment& payment : company.on.receivable_payments) {
        EXPECT_TRUE(payment.update_balance && payment.validate_balance && payment.register_document);
    }
    EXPECT_EQ(company.left(), "2 payments, 1 used, 1 applied, check AP");
    EXPECT_THAT(company.rows("SELECT Cxc_Folio, Cxc_Precio_Neto_Saldo FROM Cuenta_x_Cobrar WHERE Cxc_Folio IN "
                             "('CXC-MTY-00000004', '" +
                             company.expense_receivable() + "') ORDER BY 1"),
                ElementsAre("CXC-MTY-00000004|0.0", company.expense_receivable() + "|1050.0"));
}

TEST(Advance_application, takes_the_currency_of_the_expense_s_receivable_and_of_the_advance) {
    Expense_company company;
    company.link(small, 10, 1);
    company.sql("UPDATE Anticipo_Cxc SET Mn_Cve_Moneda = 'USD' WHERE An_Folio = '" + small + "'");
    company.sql("UPDATE Gasto_x_Comprobar SET Gc_Tipo_Cambio = 1, Mn_Cve_Moneda = 'MXN'");
    ASSERT_TRUE(company.apply()) << company.error();
    EXPECT_EQ(company.on.receivable_payments[0].currency, "MXN");
    EXPECT_EQ(company.on.receivable_payments[1].currency, "USD");
}

TEST(Advance_application, handles_advances_by_folio_whatever_the_order_of_their_lines) {
    Expense_company company;
    company.link(small, 250);
    company.link(big, 1000);
    ASSERT_TRUE(company.apply()) << company.error();
    ASSERT_EQ(company.on.receivable_payments.size(), 4u);
    EXPECT_EQ(company.on.receivable_payments[0].source_document, big);
    EXPECT_EQ(company.on.receivable_payments[2].source_document, small);
    EXPECT_EQ(company.left(), "4 payments, 2 used, 2 applied, check AP");
}

TEST(Advance_application, an_advance_used_in_part_stays_usable) {
    Expense_company company;
    company.link(big, 999.99);
    ASSERT_TRUE(company.apply()) << company.error();
    EXPECT_EQ(company.left(), "2 payments, 0 used, 1 applied, check AP");
}

TEST(Advance_application, what_was_paid_is_compared_with_the_advance_as_the_numbers_they_are) {
    Expense_company company;
    company.sql("UPDATE Anticipo_Cxc SET An_Importe = 0.8 WHERE An_Folio = '" + small + "'");
    company.sql(
        "UPDATE Cuenta_x_Cobrar SET Cxc_Precio_Neto_Importe = -0.8, Cxc_Precio_Neto_Saldo = -0.8 "
        "WHERE Cxc_Folio = 'CXC-MTY-00000004'");
    for (int i = 0; i < 8; ++i) company.link(small, 0.1);  // in binary, eight tenths are a little less than 0.8
    ASSERT_TRUE(company.apply()) << company.error();
    EXPECT_EQ(company.left(), "16 payments, 0 used, 8 applied, check AP");
}

TEST(Advance_application, the_second_payment_is_in_the_currency_of_the_advance_at_the_line_s_rate) {
    Expense_company company;
    company.sql("UPDATE Anticipo_Cxc SET Mn_Cve_Moneda = 'USD' WHERE An_Folio = '" + small + "'");
    company.link(small, 250, 1.5);
    company.apply();  // the advance's receivable is in pesos, and what its ledger says of the payment does not matter
    ASSERT_EQ(company.on.receivable_payments.size(), 2u);
    EXPECT_EQ(company.on.receivable_payments[1].currency, "USD");
    EXPECT_EQ(company.on.receivable_payments[1].exchange_rate, 1.5);
}

TEST(Advance_application, the_total_of_an_advance_is_read_when_both_payments_are_made) {
    Expense_company company;
    company.sql("UPDATE Anticipo_Cxc SET An_Importe = NULL WHERE An_Folio = '" + small + "'");
    company.link(small, 250);
    EXPECT_FALSE(company.apply());
    EXPECT_EQ(company.error(), advance_tag + "Uso no válido de Null");
    EXPECT_EQ(company.on.receivable_payments.size(), 2u);
}

TEST(Advance_application, the_reference_counts_on_from_the_highest_payment_id) {
    for (const auto& [highest, next] :
         {std::pair{"0003", "0004"}, std::pair{"0009", "0010"}, std::pair{"0099", "0100"}}) {
        Expense_company company;
        company.link(small, 100);
        company.sql(
            std::string("INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Es_Cve_Estado) VALUES ('CXC-MTY-00000004', '") +
            highest + "', 'CA')");
        ASSERT_TRUE(company.apply()) << company.error();
        EXPECT_EQ(company.on.receivable_payments[0].reference, std::string("CXC-MTY-00000004:") + next);
    }
}

TEST(Advance_application, reads_the_payment_method_at_the_moment) {
    Expense_company company;
    company.link(small, 100);
    company.on.parameters["CXC_FORMA_PAGO_ANTICIPO_CLIENTE"] = "01";
    ASSERT_TRUE(company.apply()) << company.error();
    EXPECT_EQ(company.on.receivable_payments[0].payment_method, "01");
}

// ---- Refusals -------------------------------------------------------------------------------------------------------

void expect_refused(Expense_company& company, const std::string& message, const std::string& left) {
    EXPECT_FALSE(company.apply());
    EXPECT_EQ(company.error(), message);
    EXPECT_EQ(company.left(), left);
}

TEST(Advance_application, refuses_a_check_whose_expense_has_no_receivable) {
    Expense_company company;
    company.link(small, 100);
    company.on.accept("ApplyCustomerDocument");  // without making the receivable
    expect_refused(company, advance_tag + "No se encontró la cuenta x cobrar del cheque!",
                   "0 payments, 0 used, 0 applied, check AC");
}

TEST(Advance_application, what_the_customer_document_refuses_comes_first) {
    Expense_company company;
    company.on.refuse("ApplyCustomerDocument", "El gasto no se puede cobrar");
    EXPECT_FALSE(company.apply());
    EXPECT_EQ(company.error(), apply_tag + "El gasto no se puede cobrar");
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_EQ(company.on.calls.front(), "ApplyCustomerDocument(" + company.expense + ")");
}

TEST(Advance_application, finds_only_usable_advances_of_expense_records_that_the_check_names) {
    const std::vector<std::string> changes = {
        "DELETE FROM Gasto_x_Comprobar_Documento",
        "UPDATE Gasto_x_Comprobar_Documento SET Gc_Tabla = 'OTRA'",
        "UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AP'",
        "UPDATE Anticipo_Cxc SET An_Tabla = 'RECIBO_PAGO'",
        "UPDATE Cuenta_x_Cobrar SET Es_Cve_Estado = 'CA' WHERE Cxc_Tabla = 'ANTICIPO_CXC'",
        "UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'OTRA' WHERE Cxc_Tabla = 'ANTICIPO_CXC'",
    };
    for (const std::string& change : changes) {
        SCOPED_TRACE(change);
        Expense_company company;
        company.link(small, 100);
        company.sql(change);
        EXPECT_FALSE(company.apply());
        EXPECT_EQ(company.error(), advance_tag + "No se encontraron anticipos CXC por aplicar");
        EXPECT_THAT(company.rows("SELECT * FROM Pago_Cxc"), IsEmpty());
        EXPECT_NE(company.expense_receivable(), "") << "it stays, and is found when the check is applied again";
    }
}

TEST(Advance_application, what_disappears_meanwhile_is_missed_where_it_is_looked_for) {
    const std::vector<std::tuple<std::size_t, std::string, std::string>> cases = {
        {5, "No se encontró la cuenta x cobrar del anticipo & " + small, "0 payments, 0 used, 0 applied, check AC"},
        {6, "No se encontró la cuenta x cobrar!", "0 payments, 0 used, 0 applied, check AC"},
        {8, "No se encontró la cuenta x cobrar!", "1 payments, 0 used, 0 applied, check AC"},
    };
    for (const auto& [statement, message, left] : cases) {
        SCOPED_TRACE(statement);
        Expense_company company;
        company.link(small, 100);
        company.on.silent_statement = statement;
        expect_refused(company, advance_tag + message, left);
    }
}

TEST(Advance_application, compares_with_the_expense_in_whole_units) {
    Expense_company within(100);
    within.link(big, 100.9);
    EXPECT_TRUE(within.apply()) << within.error();

    Expense_company beyond(100);
    beyond.link(big, 101);
    expect_refused(beyond, advance_tag + "El importe aplicado es mayor al saldo del documento",
                   "0 payments, 0 used, 0 applied, check AC");
    EXPECT_THAT(beyond.on.receivable_payments, IsEmpty());

    Expense_company rounded(100);
    rounded.link(big, 100.996);  // 101.00 to the cent
    expect_refused(rounded, advance_tag + "El importe aplicado es mayor al saldo del documento",
                   "0 payments, 0 used, 0 applied, check AC");
}

TEST(Advance_application, compares_with_the_advance_in_whole_units_once_the_expense_is_paid) {
    Expense_company within;
    within.link(small, 250.9);
    EXPECT_TRUE(within.apply()) << within.error();

    Expense_company beyond;
    beyond.link(small, 251);
    expect_refused(beyond, advance_tag + "El importe aplicado es mayor al saldo del documento",
                   "1 payments, 0 used, 0 applied, check AC");
}

/// A payment that carries the reference of the application to come.
void pay_before(Expense_company& company, double amount, const std::string& method = "07") {
    company.sql(
        "INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Pc_Importe, Pc_Tipo_Cambio, Pc_Tabla, Pc_Documento, Pc_Referencia, "
        "Fp_Cve_Forma_Pago, Es_Cve_Estado) VALUES ('CXC-MTY-00000001', '0001', " +
        number_text(amount) + ", 1, 'ANTICIPO_CXC', '" + small + "', 'CXC-MTY-00000004:0001', '" + method + "', 'CA')");
}

TEST(Advance_application, guards_against_applying_twice_in_whole_units) {
    Expense_company within;
    within.link(small, 250);
    pay_before(within, 0.75);
    EXPECT_TRUE(within.apply()) << within.error();

    Expense_company beyond;
    beyond.link(small, 250);
    pay_before(beyond, 1);
    expect_refused(beyond,
                   advance_tag +
                       "Se ha aplicado un importe mayor al saldo del anticipo, probablemente se está duplicando la "
                       "aplicación\r\n importe anticipo: 250\r\n Pagos: 251",
                   "1 payments, 0 used, 0 applied, check AC");

    Expense_company other_method;
    other_method.link(small, 250);
    pay_before(other_method, 1, "DA");
    EXPECT_TRUE(other_method.apply()) << other_method.error();
}

TEST(Advance_application, the_guard_compares_the_amount_with_payments_in_local_currency) {
    Expense_company company(1300, 2);
    company.link(small, 100.5);
    expect_refused(company,
                   advance_tag +
                       "Se ha aplicado un importe mayor al saldo del anticipo, probablemente se está duplicando la "
                       "aplicación\r\n importe anticipo: 100.5\r\n Pagos: 201",
                   "1 payments, 0 used, 0 applied, check AC");
}

TEST(Advance_application, what_the_receivables_service_refuses_stands_without_the_routines_tag) {
    Expense_company first;
    first.link(small, 100);
    first.on.refuse("RegisterPayment", "No se puede pagar");
    expect_refused(first, apply_tag + "No se puede pagar", "0 payments, 0 used, 0 applied, check AC");

    Expense_company second;
    second.link(small, 100);
    second.on.refuse_call("RegisterPayment(CXC-MTY-00000004)", "No se puede pagar");
    expect_refused(second, apply_tag + "No se puede pagar", "1 payments, 0 used, 0 applied, check AC");
}

TEST(Advance_application, a_refusal_leaves_earlier_advances_applied_and_a_second_call_goes_on) {
    Expense_company company(1100);
    company.link(big, 1000);
    company.link(small, 250);
    expect_refused(company, advance_tag + "El importe aplicado es mayor al saldo del documento",
                   "2 payments, 1 used, 1 applied, check AC");
    company.sql("UPDATE Gasto_x_Comprobar_Documento SET Cxc_Importe = 100 WHERE Cxc_Folio = '" + small + "'");
    EXPECT_TRUE(company.apply()) << company.error();
    EXPECT_EQ(company.left(), "4 payments, 1 used, 2 applied, check AP");
}

TEST(Advance_application, a_payment_that_was_cancelled_still_counts_for_the_guard) {
    Expense_company company;
    company.link(small, 250);
    company.on.refuse_call("RegisterPayment(CXC-MTY-00000004)", "No se puede pagar");
    expect_refused(company, apply_tag + "No se puede pagar", "1 payments, 0 used, 0 applied, check AC");
    company.on.clear();
    ASSERT_TRUE(company.suite()->new_accounts_receivable()->CancelPayment(company.expense_receivable(), "0001"));
    expect_refused(company,
                   advance_tag +
                       "Se ha aplicado un importe mayor al saldo del anticipo, probablemente se está duplicando la "
                       "aplicación\r\n importe anticipo: 250\r\n Pagos: 500",
                   "1 payments, 0 used, 0 applied, check AC");
}

TEST(Advance_application, each_failing_statement_leaves_exactly_what_was_done_before_it) {
    const std::vector<std::string> expected = {
        "0 payments, 0 used, 0 applied, check AC",  // the receivable of the expense
        "0 payments, 0 used, 0 applied, check AC",  // the advances
        "0 payments, 0 used, 0 applied, check AC",  // the next payment
        "0 payments, 0 used, 0 applied, check AC",  // the balance of the expense
        "1 payments, 0 used, 0 applied, check AC",  // paid twice?
        "1 payments, 0 used, 0 applied, check AC",  // the balance of the advance
        "2 payments, 0 used, 0 applied, check AC",  // what is paid of the advance
        "2 payments, 0 used, 0 applied, check AC",  // the advance is used
        "2 payments, 1 used, 0 applied, check AC",  // the line of the expense is applied
    };
    for (std::size_t n = 0; n < expected.size(); ++n) {
        SCOPED_TRACE(n);
        Expense_company company;
        company.link(small, 250);
        company.on.failing_statement = n + 3;
        expect_refused(company, advance_tag + obstructed::statement_failure, expected[n]);
    }
}

TEST(Advance_application, each_failing_service_call_stops_it) {
    for (std::size_t n = 1;; ++n) {
        Expense_company company;
        company.link(small, 250);
        company.mark();
        company.on.failing_call = n;
        if (company.treasury().Aplicar_Cheque(company.check, Company::today())) {
            EXPECT_GT(n, 8u);
            break;
        }
        const std::string& call = company.on.asked.back();
        SCOPED_TRACE(call);
        const bool inside = call == "RegisterPayment" || call == "GetParameter";
        EXPECT_TRUE(company.error().ends_with(std::string("\r\n") + obstructed::call_failure));
        EXPECT_EQ(company.error().starts_with(advance_tag), inside) << company.error();
    }
}

// ---- Undoing --------------------------------------------------------------------------------------------------------

class Advance_undoing : public ::testing::Test {
protected:
    void apply() {
        company.link(big, 600);
        company.link(small, 250);
        ASSERT_TRUE(company.apply()) << company.error();
        ASSERT_EQ(company.left(), "4 payments, 1 used, 2 applied, check AP");
    }

    std::string lines() {
        return company.scalar(
            "SELECT GROUP_CONCAT(Cxc_Folio || ' ' || Es_Cve_Estado, ', ') FROM Gasto_x_Comprobar_Documento");
    }

    Expense_company company;
};

TEST_F(Advance_undoing, cancels_the_payments_and_opens_the_advances_again) {
    apply();
    company.on.server_date = add_days(Company::now(), 5);
    ASSERT_TRUE(company.undo()) << company.error();
    EXPECT_EQ(company.left(), "0 payments, 0 used, 0 applied, check AC");
    EXPECT_EQ(lines(), big + " CA, " + small + " CA");
    EXPECT_THAT(
        company.rows("SELECT Cxc_Folio, Cxc_Precio_Neto_Saldo FROM Cuenta_x_Cobrar WHERE Cxc_Tabla = 'ANTICIPO_CXC' "
                     "ORDER BY 1"),
        ElementsAre("CXC-MTY-00000003|-1000.0", "CXC-MTY-00000004|-250.0"));
    EXPECT_THAT(
        std::vector<std::string>(company.on.calls.begin(), company.on.calls.begin() + 4),
        ElementsAre("DocumentCheck(ANTICIPO_CXC, " + big + ")", "CancelReceivablePayment(CXC-MTY-00000003, 0001)",
                    "DocumentCheck(ANTICIPO_CXC, " + small + ")", "CancelReceivablePayment(CXC-MTY-00000004, 0001)"));
}

TEST_F(Advance_undoing, without_payments_it_cancels_every_line_of_the_expense_and_nothing_else) {
    company.link(big, 600);
    company.link(small, 250);
    company.sql("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'AP'");
    ASSERT_TRUE(company.undo()) << company.error();
    EXPECT_EQ(lines(), big + " CA, " + small + " CA");
    EXPECT_THAT(company.on.calls, ::testing::Not(::testing::Contains("DocumentCheck(ANTICIPO_CXC, " + big + ")")));
}

TEST_F(Advance_undoing, payments_that_are_cancelled_already_count_as_none) {
    apply();
    company.sql("UPDATE Pago_Cxc SET Es_Cve_Estado = 'CA' WHERE Pc_Tabla = 'ANTICIPO_CXC'");
    company.on.accept("ValidateDocumentCancellation");
    ASSERT_TRUE(company.undo()) << company.error();
    EXPECT_THAT(company.on.calls, ::testing::Not(::testing::Contains(::testing::StartsWith("DocumentCheck"))));
    EXPECT_EQ(lines(), big + " CA, " + small + " CA");
}

TEST_F(Advance_undoing, cancels_the_payments_of_other_applications_of_the_advance_too) {
    apply();
    // Somebody used another part of the advance elsewhere.
    company.sql(
        "INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Pc_Importe, Pc_Tipo_Cambio, Pc_Referencia) "
        "VALUES ('CXC-MTY-00000003', '0002', -100, 1, 'otra')");
    ASSERT_TRUE(company.undo()) << company.error();
    EXPECT_THAT(company.on.calls, ::testing::Contains("CancelReceivablePayment(CXC-MTY-00000003, 0002)"));
    EXPECT_EQ(company.left(), "0 payments, 0 used, 0 applied, check AC");
}

TEST_F(Advance_undoing, what_the_service_refuses_stands_without_the_routines_tag_and_leaves_earlier_advances_undone) {
    apply();
    company.on.refuse_call("DocumentCheck(ANTICIPO_CXC, " + small + ")", "El período está cerrado");
    EXPECT_FALSE(company.undo());
    EXPECT_EQ(company.error(), undo_tag + "El período está cerrado");
    EXPECT_EQ(company.left(), "2 payments, 1 used, 1 applied, check AP");
    EXPECT_EQ(lines(), big + " CA, " + small + " AP");

    company.on.clear();
    company.on.refuse_call("CancelReceivablePayment(CXC-MTY-00000004, 0001)", "El pago está contabilizado");
    EXPECT_FALSE(company.undo());
    EXPECT_EQ(company.error(), undo_tag + "El pago está contabilizado");
    EXPECT_EQ(lines(), big + " CA, " + small + " AP");
}

TEST_F(Advance_undoing, each_failing_statement_stands_behind_both_tags) {
    apply();
    const std::string before = company.left();
    for (std::size_t n = 2; n <= 3; ++n) {
        company.mark();
        company.on.failing_statement = n;
        EXPECT_FALSE(company.treasury().Cancelar_Aplicacion_Cheque(company.check));
        EXPECT_EQ(company.error(), undo_advance_tag + obstructed::statement_failure);
        EXPECT_EQ(company.left(), before);
    }
    company.mark();
    company.on.failing_statement = 4;
    EXPECT_FALSE(company.treasury().Cancelar_Aplicacion_Cheque(company.check));
    EXPECT_EQ(company.error(), undo_advance_tag + obstructed::statement_failure);
    EXPECT_EQ(company.left(), "2 payments, 1 used, 2 applied, check AP")
        << "the payments of the first advance are cancelled";
}

}  // namespace
}  // namespace cuvexa::tests
