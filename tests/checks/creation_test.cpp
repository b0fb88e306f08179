// Creation of checks by purpose.
#include <algorithm>
#include <iterator>

#include "support/company.h"
#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

const std::string insert_tag = "Cuvexa.dll - Inserta_Cheque()\r\n";
const std::string statement_failure = obstructed::statement_failure;

/// One of the seven members, and a check that suits it.
struct Purpose {
    std::string member;
    std::string type, beneficiary;
    bool adds_line;
    int budget;  ///< kind of the budget check, or -1
    std::string mode_parameter;
    bool movement;
};

const std::vector<Purpose> purposes = {
    {"Crear_Cheque_Pago_Proveedor", "0001", "PV01", false, -1, "", true},
    {"Crear_Cheque_Devolucion_Anticipo", "0001", "PV01", false, -1, "", true},
    {"Crear_Cheque_Anticipo_Cxp", "0005", "PV01", true, 0, "TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR", true},
    {"Crear_Cheque_Devolucion_Cliente", "0003", "CL01", false, 4, "TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE", true},
    {"Crear_Cheque_Gasto_x_Comprobar", "0002", "DE01", true, 1, "TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", true},
    {"Crear_Cheque_Deudor", "0004", "DE01", true, 3, "TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR", true},
    {"Crear_Traspaso_Cuenta_Propia", "0000", "", false, -1, "", false},
};

bool create(Tesoreria& treasury, const Purpose& purpose) {
    const std::string folio = treasury.Encabezado().Ch_Folio;
    if (purpose.member == "Crear_Cheque_Pago_Proveedor") return treasury.Crear_Cheque_Pago_Proveedor(folio);
    if (purpose.member == "Crear_Cheque_Devolucion_Anticipo") return treasury.Crear_Cheque_Devolucion_Anticipo(folio);
    if (purpose.member == "Crear_Cheque_Anticipo_Cxp") return treasury.Crear_Cheque_Anticipo_Cxp();
    if (purpose.member == "Crear_Cheque_Devolucion_Cliente") return treasury.Crear_Cheque_Devolucion_Cliente();
    if (purpose.member == "Crear_Cheque_Gasto_x_Comprobar") return treasury.Crear_Cheque_Gasto_x_Comprobar();
    if (purpose.member == "Crear_Cheque_Deudor") return treasury.Crear_Cheque_Deudor();
    return treasury.Crear_Traspaso_Cuenta_Propia();
}

class Check_creation : public ::testing::Test {
protected:
    /// Sets the header and the line; adds the line where the member leaves that to the caller.
    void prepare(const Purpose& purpose) {
        header.Tc_Cve_Tipo_Cheque = purpose.type;
        header.Ch_Solicitar_Valor = purpose.beneficiary;
        company.treasury().Nuevo();
        company.treasury().Encabezado(header);
        company.treasury().Detalle(line);
        if (!purpose.adds_line) {
            ASSERT_TRUE(company.treasury().Add_Cheque_Detalle()) << error();
        }
    }

    std::string error() { return company.treasury().Error(); }
    std::string folio() { return company.treasury().Encabezado().Ch_Folio; }

    /// Rows of what a creation writes, in short: lines, check, expense, movement, account.
    std::vector<std::string> left() { return left(company); }
    static std::vector<std::string> left(Company& company) {
        std::vector<std::string> found;
        const auto add = [&](const std::string& query) {
            for (const std::string& row : company.rows(query)) found.push_back(row);
        };
        add("SELECT 'line ' || Cxa_ID || CASE WHEN Cxp_Folio IN (SELECT Gc_Folio FROM Gasto_x_Comprobar) "
            "THEN ' of the expense' ELSE ' free' END FROM Cheque_x_Aplicar");
        add("SELECT 'check ' || Es_Cve_Estado FROM Cheque");
        add("SELECT 'expense ' || Es_Cve_Estado FROM Gasto_x_Comprobar");
        add("SELECT 'movement ' || Bm_Importe FROM Banco_Movimiento");
        add("SELECT 'account ' || Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN' AND Bc_Saldo <> 0");
        add("SELECT 'bank ' || Bn_Saldo FROM Banco WHERE Bn_Cve_Banco = 'SIERRA' AND Bn_Saldo <> 0");
        add("SELECT 'registered ' || Dr_Codigo FROM Documento_Registrado");
        return found;
    }

    Company company;
    tTsEncabezado header = Company::check_header();
    tTsDetalle line = Company::check_line(400, "");
};

// ---- The row of the check -------------------------------------------------------------------------------------------

TEST_F(Check_creation, writes_the_check_with_every_column) {
    header.Ch_Fecha = make_date(2024, 3, 14, 9, 30, 0);
    header.Ch_Transferencia = "SI";
    header.Ch_Tabla = "SOLICITUD_CHEQUE";
    header.Ch_Documento = "SOL-1";
    header.Bc_Cve_Banco_Cuenta2 = "PTO-MXN";
    header.Mn_Cve_Moneda = "USD";
    header.Ch_Tipo_Cambio = 20;
    company.treasury().Ch_Banco_Destino("PUERTO");
    tTsDetalle other = line;
    line.Ch_Tipo_Cambio = 20;
    line.Mn_Cve_Moneda = "USD";
    other.Ch_Importe = -100;
    const std::string check = company.capture_check({line, other}, header);
    company.mark();
    ASSERT_TRUE(company.treasury().Crear_Traspaso_Cuenta_Propia()) << error();
    EXPECT_EQ(error(), "");
    // 400 dollars at 20 less 100 pesos, in dollars at 20.
    EXPECT_THAT(
        company.rows("SELECT Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, "
                     "Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Tabla, "
                     "Ch_Documento, Ch_Referencia, Ch_Cuenta_Destino, Ch_Banco_Destino, Es_Cve_Estado, Ch_Aplicar, "
                     "Ch_Firme, Oper_Alta, Oper_Ult_Modif FROM Cheque"),
        ElementsAre(check + "|0001|SI|SRR-MXN|MTY|PV01|Aceros del Bajío|395.0|20.0|Pago de facturas|SOLICITUD_CHEQUE|"
                            "SOL-1|1001|PTO-MXN|PUERTO|AC|NO|NO|CAJA1|CAJA1"));
}

TEST_F(Check_creation, adds_up_the_lines_of_every_state) {
    company.capture_check({line, line}, header);
    company.sql("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'CA' WHERE Cxa_ID = '0001'");
    ASSERT_TRUE(company.treasury().Crear_Traspaso_Cuenta_Propia()) << error();
    EXPECT_EQ(company.scalar("SELECT Ch_Importe FROM Cheque"), "800.0");
}

TEST_F(Check_creation, the_amount_is_stored_as_computed_even_while_the_rounding_parameter_is_on) {
    company.set_parameter("TES_REDONDEA_IMPORTE_CHEQUE", "1");
    header.Ch_Tipo_Cambio = 3;
    line.Ch_Importe = 100;
    company.capture_check({line}, header);
    ASSERT_TRUE(company.treasury().Crear_Traspaso_Cuenta_Propia()) << error();
    EXPECT_EQ(company.scalar("SELECT ABS(Ch_Importe - 100.0 / 3) < 0.000000001 FROM Cheque"), "1");
}

TEST_F(Check_creation, the_folio_handed_over_says_which_lines_are_added_up_and_the_header_the_rest) {
    line.Ch_Importe = 7;
    const std::string other = company.capture_check({line}, header);
    header.Ch_Referencia = "1002";
    line.Ch_Importe = 5;
    const std::string own = company.capture_check({line}, header);
    ASSERT_TRUE(company.treasury().Crear_Cheque_Pago_Proveedor(other)) << error();
    EXPECT_THAT(company.rows("SELECT Ch_Folio, Ch_Importe FROM Cheque"), ElementsAre(own + "|7.0"));
    EXPECT_THAT(company.rows("SELECT Bm_Documento FROM Banco_Movimiento"), ElementsAre(own));
}

TEST_F(Check_creation, a_header_without_rate_is_a_failure_of_the_sum) {
    company.mark();
    EXPECT_FALSE(company.treasury().Crear_Cheque_Pago_Proveedor("NADA"));
    EXPECT_EQ(error().substr(0, insert_tag.size()), insert_tag);
    EXPECT_THAT(company.changes(), IsEmpty());
}

// ---- What each member does ------------------------------------------------------------------------------------------

class Check_purpose : public Check_creation, public ::testing::WithParamInterface<Purpose> {
protected:
    const Purpose& purpose() { return GetParam(); }

    void control_budget(const std::string& mode) {
        if (purpose().budget >= 0) company.set_parameter(purpose().mode_parameter, mode);
    }
};

class Budgeted_check : public Check_purpose {};
class Check_with_its_own_line : public Check_purpose {};
class Check_with_movement : public Check_purpose {};

TEST_P(Check_purpose, writes_the_check_and_its_movement) {
    control_budget("0");
    prepare(purpose());
    company.mark();
    ASSERT_TRUE(create(company.treasury(), purpose())) << error();
    EXPECT_EQ(error(), "");
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "AC");
    EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Banco_Movimiento"), purpose().movement ? "1" : "0");
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"),
              purpose().movement ? "-400.0" : "0.0");
    EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Cheque_x_Aplicar"), "1");
    EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Gasto_x_Comprobar"), purpose().budget == 1 ? "1" : "0");
}

TEST_P(Budgeted_check, a_budget_that_is_exceeded_holds_the_check_back_without_movement) {
    control_budget("1");
    line.Ch_Importe = 1000000;
    prepare(purpose());
    company.mark();
    ASSERT_TRUE(create(company.treasury(), purpose())) << error();
    EXPECT_EQ(error(), "");
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "PXA");
    EXPECT_THAT(company.rows("SELECT * FROM Banco_Movimiento"), IsEmpty());
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado FROM Gasto_x_Comprobar WHERE Es_Cve_Estado <> 'PXA'"), IsEmpty());
}

TEST_P(Check_with_its_own_line, a_line_that_is_refused_ends_it_with_the_lines_own_words) {
    line.Ch_Importe = 0;
    prepare(purpose());
    company.mark();
    EXPECT_FALSE(create(company.treasury(), purpose()));
    EXPECT_EQ(error(), "Importe del cheque erróneo!");
    EXPECT_THAT(left(), IsEmpty());
}

TEST_P(Check_purpose, lines_that_add_up_to_zero_are_refused_and_stay) {
    line.Ch_Importe = 400;
    prepare(purpose());
    if (purpose().adds_line) {
        ASSERT_TRUE(company.treasury().Add_Cheque_Detalle()) << error();
    }
    line.Ch_Importe = -400;
    company.treasury().Detalle(line);
    if (!purpose().adds_line) {
        ASSERT_TRUE(company.treasury().Add_Cheque_Detalle()) << error();
    }
    EXPECT_FALSE(create(company.treasury(), purpose()));
    EXPECT_EQ(error(), "El importe del cheque es incorrecto");
    EXPECT_THAT(left(), ElementsAre("line 0001 free", "line 0002 free"));
}

TEST_F(Check_creation, lines_of_tenths_that_add_up_to_zero_are_refused_although_their_sum_strays) {
    company.treasury().Encabezado(header);
    for (const double amount : {0.1, 0.2, -0.3}) {
        line.Ch_Importe = amount;
        company.treasury().Detalle(line);
        ASSERT_TRUE(company.treasury().Add_Cheque_Detalle()) << error();
    }
    const std::string folio = company.treasury().Encabezado().Ch_Folio;
    EXPECT_FALSE(company.treasury().Crear_Cheque_Pago_Proveedor(folio));
    EXPECT_EQ(error(), "El importe del cheque es incorrecto");
}

TEST_F(Check_creation, a_total_of_a_millionth_is_an_amount) {
    company.treasury().Encabezado(header);
    line.Ch_Importe = 1e-6;
    company.treasury().Detalle(line);
    ASSERT_TRUE(company.treasury().Add_Cheque_Detalle()) << error();
    EXPECT_TRUE(company.treasury().Crear_Cheque_Pago_Proveedor(company.treasury().Encabezado().Ch_Folio)) << error();
}

TEST_P(Check_purpose, a_sum_that_gives_no_row_is_refused) {
    prepare(purpose());
    company.mark();
    company.on.silent_statement = purpose().adds_line ? 3 : 1;
    EXPECT_FALSE(create(company.treasury(), purpose()));
    EXPECT_EQ(error(), "No se ha encontrado el detalle del cheque");
    EXPECT_THAT(left(), ElementsAre("line 0001 free"));
}

TEST_P(Budgeted_check, the_budget_checks_refusal_ends_it_with_its_own_words_and_the_check_stays) {
    prepare(purpose());
    // A check type of another kind: the beneficiary is found, but the type is not the budget's.
    company.meanwhile("AFTER INSERT ON Cheque", "UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0000'");
    EXPECT_FALSE(create(company.treasury(), purpose()));
    EXPECT_TRUE(error().starts_with("Afectar_Cheque_Presupuesto()\r\nel cheque: " + folio() + " no es un")) << error();
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "AC");
    EXPECT_THAT(company.rows("SELECT * FROM Banco_Movimiento"), IsEmpty());
}

TEST_P(Check_with_movement, the_movements_refusal_ends_it_with_its_own_words_and_the_check_stays) {
    control_budget("0");
    prepare(purpose());
    company.sql("UPDATE Banco_Cuenta SET Es_Cve_Estado = 'BA' WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    EXPECT_FALSE(create(company.treasury(), purpose()));
    EXPECT_EQ(error(), "Cuvexa.dll - Registra_Movimiento_Banco() \r\nLa cuenta bancaria está dada de baja");
    EXPECT_EQ(company.scalar("SELECT Es_Cve_Estado FROM Cheque"), "AC");
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado FROM Gasto_x_Comprobar WHERE Es_Cve_Estado <> 'PXA'"), IsEmpty());
}

TEST_P(Check_purpose, a_second_check_of_the_same_folio_fails_in_the_database) {
    control_budget("0");
    prepare(purpose());
    ASSERT_TRUE(create(company.treasury(), purpose())) << error();
    company.mark();
    EXPECT_FALSE(create(company.treasury(), purpose()));
    EXPECT_EQ(error().substr(0, insert_tag.size()), insert_tag);
    EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Cheque"), "1");
}

TEST_P(Check_purpose, each_failing_statement_stops_it_there) {
    std::vector<std::string> expected;
    {
        control_budget("0");
        prepare(purpose());
        company.mark();
        ASSERT_TRUE(create(company.treasury(), purpose())) << error();
        expected = in_short(company.statements());
    }
    for (std::size_t n = 1; n <= expected.size(); ++n) {
        SCOPED_TRACE(expected[n - 1]);
        header.Ch_Referencia = std::to_string(5000 + n);
        prepare(purpose());
        company.mark();
        company.on.failing_statement = n;
        EXPECT_FALSE(create(company.treasury(), purpose()));
        EXPECT_TRUE(error().ends_with("\r\n" + statement_failure)) << error();
        EXPECT_EQ(in_short(company.statements()), std::vector<std::string>(expected.begin(), expected.begin() + n));
        company.on.clear();
    }
}

TEST_P(Check_purpose, each_failing_service_call_makes_it_fail) {
    control_budget("0");
    for (std::size_t n = 1;; ++n) {
        header.Ch_Referencia = std::to_string(5000 + n);
        prepare(purpose());
        company.mark();
        company.on.failing_call = n;
        const bool created = create(company.treasury(), purpose());
        if (created) {
            EXPECT_GT(n, 2u);
            break;
        }
        SCOPED_TRACE(company.on.asked.back());
        EXPECT_EQ(company.on.asked.size(), n) << "nothing is asked after the failure";
        EXPECT_TRUE(error().ends_with(std::string("\r\n") + obstructed::call_failure)) << error();
        company.on.clear();
    }
}

TEST_P(Budgeted_check, a_failing_look_up_of_the_state_stands_behind_its_own_tag) {
    control_budget("1");
    line.Ch_Importe = 1000000;  // held back, so that the look-up of the state is the last
    std::size_t look_up = 0;
    for (const bool failing : {false, true}) {
        header.Ch_Referencia = failing ? "6002" : "6001";
        prepare(purpose());
        company.mark();
        company.on.failing_call = failing ? look_up : 0;
        EXPECT_EQ(create(company.treasury(), purpose()), !failing);
        for (std::size_t i = 0; i < company.on.asked.size(); ++i) {
            if (company.on.asked[i] == "LookupValue") look_up = i + 1;
        }
    }
    EXPECT_EQ(error(), "Cuvexa.dll - " + purpose().member + "()\r\n" + obstructed::call_failure);
}

template <class Condition>
auto purposes_with(Condition condition) {
    std::vector<Purpose> some;
    std::copy_if(purposes.begin(), purposes.end(), std::back_inserter(some), condition);
    return ::testing::ValuesIn(some);
}

const auto member_of = [](const auto& info) { return info.param.member; };

INSTANTIATE_TEST_SUITE_P(All, Check_purpose, ::testing::ValuesIn(purposes), member_of);
INSTANTIATE_TEST_SUITE_P(Some, Budgeted_check, purposes_with([](const Purpose& each) { return each.budget >= 0; }),
                         member_of);
INSTANTIATE_TEST_SUITE_P(Some, Check_with_its_own_line,
                         purposes_with([](const Purpose& each) { return each.adds_line; }), member_of);
INSTANTIATE_TEST_SUITE_P(Some, Check_with_movement, purposes_with([](const Purpose& each) { return each.movement; }),
                         member_of);

// ---- What is particular to one --------------------------------------------------------------------------------------

TEST_F(Check_creation, a_transfer_between_own_accounts_needs_a_folio) {
    company.treasury().Encabezado(header);
    company.mark();
    EXPECT_FALSE(company.treasury().Crear_Traspaso_Cuenta_Propia());
    EXPECT_EQ(error(), "No se proporcionó el folio del cheque o transferencia");
    EXPECT_THAT(company.statements(), IsEmpty());
}

TEST_F(Check_creation, a_refund_without_lines_is_refused_for_its_amount) {
    header.Tc_Cve_Tipo_Cheque = "0003";
    header.Ch_Solicitar_Valor = "CL01";
    company.treasury().Encabezado(header);
    company.mark();
    EXPECT_FALSE(company.treasury().Crear_Cheque_Devolucion_Cliente());
    EXPECT_EQ(error(), "El importe del cheque es incorrecto");
    EXPECT_THAT(company.changes(), IsEmpty());
}

TEST_F(Check_creation, a_supplier_advance_after_a_line_adds_the_line_again) {
    header.Tc_Cve_Tipo_Cheque = "0005";
    company.capture_check({line}, header);
    ASSERT_TRUE(company.treasury().Crear_Cheque_Anticipo_Cxp()) << error();
    EXPECT_THAT(company.rows("SELECT Cxa_ID, Cxa_Importe FROM Cheque_x_Aplicar ORDER BY Cxa_ID"),
                ElementsAre("0001|400.0", "0002|400.0"));
    EXPECT_EQ(company.scalar("SELECT Ch_Importe FROM Cheque"), "800.0");
}

class Expense_check : public Check_creation {
protected:
    Expense_check() {
        header.Tc_Cve_Tipo_Cheque = "0002";
        header.Ch_Solicitar_Valor = "DE01";
        header.Ch_Tipo_Cambio = 2;
        line.Ch_Tipo_Cambio = 4;
    }

    bool create() {
        company.treasury().Encabezado(header);
        company.treasury().Detalle(line);
        return company.treasury().Crear_Cheque_Gasto_x_Comprobar();
    }
};

TEST_F(Expense_check, writes_the_expense_with_every_column) {
    header.Mn_Cve_Moneda = "USD";
    company.set_parameter("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", "0");
    company.mark();
    ASSERT_TRUE(create()) << error();
    const std::string expense = company.scalar("SELECT Gc_Folio FROM Gasto_x_Comprobar");
    // 400 at 4 is 800 at 2: the amount is the check's, the rate the line's.
    EXPECT_THAT(
        company.rows("SELECT Gc_Tabla, Gc_Documento, Gc_Referencia, Mn_Cve_Moneda, Sc_Cve_Sucursal, Cl_Cve_Cliente, "
                     "Gc_Importe, Gc_Tipo_Cambio, Gc_Comentario, Bc_Cve_Banco_Cuenta, Oper_Alta, Oper_Ult_Modif, "
                     "Es_Cve_Estado FROM Gasto_x_Comprobar"),
        ElementsAre("CHEQUE|" + folio() + "|1001|USD|MTY|DE01|800.0|4.0|Pago de facturas|SRR-MXN|CAJA1|CAJA1|PA"));
    EXPECT_THAT(company.rows("SELECT Cxp_Folio FROM Cheque_x_Aplicar"), ElementsAre(expense));
}

TEST_F(Expense_check, every_line_of_the_check_points_to_the_expense) {
    company.set_parameter("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", "0");
    company.capture_check({line}, header);
    ASSERT_TRUE(create()) << error();
    const std::string expense = company.scalar("SELECT Gc_Folio FROM Gasto_x_Comprobar");
    EXPECT_THAT(company.rows("SELECT Cxa_ID, Cxp_Folio FROM Cheque_x_Aplicar ORDER BY Cxa_ID"),
                ElementsAre("0001|" + expense, "0002|" + expense));
}

TEST_F(Expense_check, without_a_folio_for_the_expense_the_check_stays_inserted) {
    company.capture_check({line}, header);
    company.on.next_folio = "";
    EXPECT_FALSE(create());
    EXPECT_EQ(error(), "No se pudo generar el folio del gasto por comprobar");
    EXPECT_THAT(left(), ElementsAre("line 0001 free", "line 0002 free", "check AC"));
}

TEST_F(Expense_check, takes_its_folio_from_the_series_of_expenses_of_the_branch) {
    company.set_parameter("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", "0");
    ASSERT_TRUE(create()) << error();
    EXPECT_EQ(company.scalar("SELECT Fs_Ultimo FROM Folio_Serie WHERE UPPER(Fs_Codigo) = 'GASTO_X_COMPROBAR' AND "
                             "Fs_Sucursal = 'MTY'"),
              "1");
}

TEST_F(Expense_check, each_failing_statement_leaves_exactly_what_was_written_before_it) {
    const std::vector<std::vector<std::string>> expected = {
        {},                                                                          // is the number issued?
        {},                                                                          // the line
        {"line 0001 free"},                                                          // the sum of the lines
        {"line 0001 free"},                                                          // the check
        {"line 0001 free", "check AC"},                                              // the expense
        {"line 0001 free", "check AC", "expense PXA"},                               // the lines point to it
        {"line 0001 of the expense", "check AC", "expense PXA"},                     // the check for its budget
        {"line 0001 of the expense", "check AC", "expense PXA"},                     // its budget data
        {"line 0001 of the expense", "check AC", "expense PXA"},                     // the check for its movement
        {"line 0001 of the expense", "check AC", "expense PXA"},                     // the account
        {"line 0001 of the expense", "check AC", "expense PXA"},                     // the movement
        {"line 0001 of the expense", "check AC", "expense PXA", "movement -800.0"},  // the account's balance
        {"line 0001 of the expense", "check AC", "expense PXA", "movement -800.0", "account -800.0"},
        {"line 0001 of the expense", "check AC", "expense PXA", "movement -800.0", "account -800.0", "bank -800.0",
         "registered BANCO_MOVIMIENTO"},  // the expense is paid
    };
    for (std::size_t n = 1; n <= expected.size(); ++n) {
        SCOPED_TRACE(n);
        Company fresh;
        fresh.set_parameter("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", "0");
        fresh.on.failing_statement = n;
        fresh.treasury().Encabezado(header);
        fresh.treasury().Detalle(line);
        EXPECT_FALSE(fresh.treasury().Crear_Cheque_Gasto_x_Comprobar());
        EXPECT_TRUE(fresh.treasury().Error().ends_with("\r\n" + statement_failure)) << fresh.treasury().Error();
        EXPECT_EQ(left(fresh), expected[n - 1]);
    }
}

TEST_F(Expense_check, a_failure_of_its_own_statements_stands_behind_its_own_tag) {
    for (const std::size_t n : {5u, 6u, 14u}) {
        Company fresh;
        fresh.set_parameter("TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", "0");
        fresh.on.failing_statement = n;
        fresh.treasury().Encabezado(header);
        fresh.treasury().Detalle(line);
        EXPECT_FALSE(fresh.treasury().Crear_Cheque_Gasto_x_Comprobar());
        EXPECT_EQ(fresh.treasury().Error(), "Cuvexa.dll - Crear_Cheque_Gasto_x_Comprobar()\r\n" + statement_failure);
    }
}

}  // namespace
}  // namespace cuvexa::tests
