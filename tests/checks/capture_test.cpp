// Capture of a check or transfer, line by line.
#include <cmath>
#include <limits>

#include "support/in_turn.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string line_tag = "Cuvexa.dll - Inserta_Detalle_Cheque()\r\n";

/// A check of the number 1001 that is there already.
void issue_before(Company& company, const std::string& transfer = "NO", const std::string& state = "AC") {
    company.sql(
        "INSERT INTO Cheque (Ch_Folio, Ch_Referencia, Bc_Cve_Banco_Cuenta, Ch_Transferencia, Es_Cve_Estado) "
        "VALUES ('BEFORE', '1001', 'SRR-MXN', '" +
        transfer + "', '" + state + "')");
}

class Check_capture : public ::testing::Test {
protected:
    /// Adds a line with the header and the line as they stand.
    bool add() {
        company.treasury().Encabezado(header);
        company.treasury().Detalle(line);
        return company.treasury().Add_Cheque_Detalle();
    }

    std::string error() { return company.treasury().Error(); }
    std::string folio() { return company.treasury().Encabezado().Ch_Folio; }

    /// Refused with that text, nothing written, and the header still without folio.
    void expect_refused(const std::string& message) {
        company.mark();
        EXPECT_FALSE(add());
        EXPECT_EQ(error(), message);
        EXPECT_THAT(company.changes(), IsEmpty());
        EXPECT_EQ(folio(), "");
    }

    void issue_before(const std::string& transfer = "NO", const std::string& state = "AC") {
        tests::issue_before(company, transfer, state);
    }

    Company company;
    tTsEncabezado header = Company::check_header();
    tTsDetalle line = Company::check_line(250.5);
};

TEST_F(Check_capture, the_first_line_takes_the_folio_and_is_written_with_every_column) {
    line.Mn_Cve_Moneda = "USD";
    line.Ch_Tipo_Cambio = 19.25;
    ASSERT_TRUE(add()) << error();
    EXPECT_EQ(error(), "");
    EXPECT_NE(folio(), "");
    EXPECT_EQ(company.treasury().Detalle().Ch_ID, "0001");
    EXPECT_THAT(
        company.rows("SELECT Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, "
                     "Es_Cve_Estado, Cxa_Fecha_Aplicacion, Oper_Alta, Oper_Ult_Modif, Oper_Baja FROM Cheque_x_Aplicar"),
        ElementsAre(folio() + "|0001|1001|CXP-MTY-00000001|USD|19.25|250.5|AC|NULL|CAJA1|CAJA1|"));
}

TEST_F(Check_capture, further_lines_are_numbered_and_skip_every_check_of_the_header) {
    ASSERT_TRUE(add()) << error();
    const std::string first = folio();
    company.sql("UPDATE Sucursal SET Es_Cve_Estado = 'BA'");
    company.sql("UPDATE Moneda SET Es_Cve_Estado = 'BA'");
    company.sql("UPDATE Tipo_Cheque SET Es_Cve_Estado = 'BA'");
    company.sql("UPDATE Proveedor SET Es_Cve_Estado = 'BA'");
    company.sql("UPDATE Periodo_Operativo SET Po_Estado = 'CE'");
    issue_before();
    company.mark();
    line.Ch_Importe = -100;
    line.Cxp_Folio = "CXP-MTY-00000002";
    ASSERT_TRUE(add()) << error();
    EXPECT_EQ(folio(), first);
    EXPECT_EQ(company.statements().size(), 1u);
    EXPECT_THAT(company.rows("SELECT Cxa_ID, Cxp_Folio, Cxa_Importe FROM Cheque_x_Aplicar ORDER BY Cxa_ID"),
                ElementsAre("0001|CXP-MTY-00000001|250.5", "0002|CXP-MTY-00000002|-100.0"));
}

TEST_F(Check_capture, every_line_carries_the_stamp_of_the_first) {
    ASSERT_TRUE(add()) << error();
    company.on.server_date = add_days(Company::now(), 1);
    ASSERT_TRUE(add()) << error();
    EXPECT_EQ(
        company.scalar("SELECT COUNT(DISTINCT Fecha_Alta) FROM Cheque_x_Aplicar WHERE Fecha_Alta = Fecha_Ult_Modif"),
        "1");
}

TEST_F(Check_capture, a_new_folio_starts_at_line_one_again) {
    ASSERT_TRUE(add()) << error();
    ASSERT_TRUE(add()) << error();
    const std::string first = folio();
    company.treasury().Nuevo();
    header.Ch_Referencia = "1002";
    ASSERT_TRUE(add()) << error();
    EXPECT_NE(folio(), first);
    EXPECT_EQ(company.treasury().Detalle().Ch_ID, "0001");
}

TEST_F(Check_capture, a_folio_starts_at_line_one_also_after_the_lines_of_a_receipt) {
    company.capture_receipt({Company::receipt_line(10), Company::receipt_line(20)});
    ASSERT_TRUE(add()) << error();  // without Nuevo, which would start the shared counter itself
    EXPECT_EQ(company.treasury().Detalle().Ch_ID, "0001");
}

// ---- Refusals, in step order ----------------------------------------------------------------------------------------

class Check_capture_steps : public Check_capture {
protected:
    void SetUp() override {
        company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
        company.on.server_date = Company::now();
    }
};

TEST_F(Check_capture_steps, nothing_stands_in_the_way_at_first) {
    EXPECT_TRUE(add()) << error();
}

Preparation header(const std::function<void(tTsEncabezado&)>& change) {
    return letting<tTsEncabezado>(&Tesoreria::Encabezado, &Tesoreria::Encabezado, change);
}

void first_line(Company& company) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    company.treasury().Encabezado(Company::check_header());
    company.treasury().Detalle(Company::check_line(250.5));
}

TEST(Check_capture_order, the_refusals_of_a_first_line_come_in_the_order_of_its_steps) {
    using Header = tTsEncabezado;
    expect_refusals_in_order(
        {{"central server", [](Company& company) { company.on.replica = true; },
          "Esta operación solo puede realizarse en el servidor central"},
         {"same day", header([](Header& h) { h.Ch_Fecha = Company::yesterday(); }), not_today},
         {"period", sql("UPDATE Periodo_Operativo SET Po_Estado = 'CE'"), period_closed},
         {"branch", header([](Header& h) { h.Sucursal.Sc_Cve_Sucursal = "LEN"; }),
          "La sucursal: LEN, no existe o está dada de baja"},
         {"currency", header([](Header& h) { h.Mn_Cve_Moneda = "EUR"; }),
          "La moneda: EUR, no existe o está dada de baja"},
         {"check type", header([](Header& h) { h.Tc_Cve_Tipo_Cheque = "0099"; }),
          "El tipo de cheque: 0099, no existe o esta dado de baja"},
         {"transfer", header([](Header& h) { h.Ch_Transferencia = ""; }),
          "No se indicó el tipo de operación (cheque o transferencia)"},
         {"rate", header([](Header& h) { h.Ch_Tipo_Cambio = -1.5; }), "El tipo de cambio: -1.5, no es válido"},
         {"beneficiary", header([](Header& h) { h.Ch_Solicitar_Valor = "PV99"; }),
          "El proveedor: PV99, no existe o esta dado de baja"},
         {"issued", [](Company& company) { issue_before(company); },
          "El cheque 1001 ya fue impreso con el folio: BEFORE"},
         {"folio", without_folio, "Error al intentar obtener el folio del cheque!"}},
        first_line, [](Company& company) {
            const bool added = company.treasury().Add_Cheque_Detalle();
            EXPECT_EQ(company.treasury().Encabezado().Ch_Folio, "");
            return added;
        });
}

TEST_F(Check_capture_steps, a_folio_that_is_missing_is_told_before_a_line_without_amount) {
    company.on.next_folio = "";
    line.Ch_Importe = 0;
    expect_refused("Error al intentar obtener el folio del cheque!");
}

TEST_F(Check_capture_steps, a_line_without_amount_is_told_before_its_rate_and_leaves_the_folio_open) {
    line.Ch_Importe = 0;
    line.Ch_Tipo_Cambio = 0;
    EXPECT_FALSE(add());
    EXPECT_EQ(error(), "Importe del cheque erróneo!");
    EXPECT_NE(folio(), "");
    EXPECT_THAT(company.rows("SELECT * FROM Cheque_x_Aplicar"), IsEmpty());

    line.Ch_Importe = 10;
    EXPECT_FALSE(add());
    EXPECT_EQ(error(), "El tipo de cambio del pago es incorrecto!");
    line.Ch_Tipo_Cambio = -1;
    EXPECT_FALSE(add());
    EXPECT_EQ(error(), "El tipo de cambio del pago es incorrecto!");

    // Refused lines use up no number.
    line.Ch_Tipo_Cambio = 1;
    ASSERT_TRUE(add()) << error();
    EXPECT_EQ(company.treasury().Detalle().Ch_ID, "0001");
}

TEST_F(Check_capture_steps, the_time_of_day_does_not_matter) {
    header.Ch_Fecha = make_date(2024, 3, 15, 23, 59, 59);
    EXPECT_TRUE(add()) << error();
    company.treasury().Nuevo();
    header.Ch_Referencia = "1002";
    header.Ch_Fecha = Company::today();
    EXPECT_TRUE(add()) << error();
}

TEST_F(Check_capture, a_back_dated_check_passes_without_real_time_but_meets_the_period) {
    header.Ch_Fecha = Company::yesterday();
    EXPECT_TRUE(add()) << error();
    company.treasury().Nuevo();
    header.Ch_Fecha = make_date(2023, 12, 31);
    header.Ch_Referencia = "1002";
    expect_refused("El período operativo correspondiente a la fecha: 31-12-2023, está cerrado o no existe!");
    company.set_parameter("GEN_VALIDAR_PERIODO_OPERATIVO", "0");
    EXPECT_TRUE(add()) << error();
}

TEST_F(Check_capture, a_branch_of_another_server_is_refused_with_both_servers) {
    header.Sucursal.Sc_Cve_Sucursal = "TIJ";
    expect_refused(
        "Esta operación solo puede realizarse en el servidor con id: NORTE\r\n"
        "el id del servidor actual es: CENTRAL");
    company.on.server_id = "NORTE";
    company.on.replica = true;
    company.restart();
    EXPECT_TRUE(add()) << error();
}

TEST_F(Check_capture, the_server_is_that_of_the_checks_branch_not_of_a_receipt_in_capture) {
    tRpEncabezado receipt = Company::receipt_header();
    receipt.Sucursal.Sc_Cve_Sucursal = "TIJ";
    company.treasury().RpEncabezado(receipt);
    EXPECT_TRUE(add()) << error();

    company.treasury().Nuevo();
    company.treasury().RpEncabezado(Company::receipt_header());
    header.Sucursal.Sc_Cve_Sucursal = "TIJ";
    expect_refused(
        "Esta operación solo puede realizarse en el servidor con id: NORTE\r\n"
        "el id del servidor actual es: CENTRAL");
}

TEST_F(Check_capture, a_rate_of_zero_and_one_that_is_no_number_are_refused) {
    header.Ch_Tipo_Cambio = 0;
    expect_refused("El tipo de cambio: 0, no es válido");
    header.Ch_Tipo_Cambio = std::nan("");
    expect_refused("El tipo de cambio: NaN, no es válido");
}

struct Beneficiary_case {
    std::string type, key, refusal;
};

class Check_beneficiary : public Check_capture, public ::testing::WithParamInterface<Beneficiary_case> {};

TEST_P(Check_beneficiary, is_looked_for_in_the_catalog_that_the_type_names) {
    header.Tc_Cve_Tipo_Cheque = GetParam().type;
    header.Ch_Solicitar_Valor = GetParam().key;
    if (GetParam().refusal.empty()) {
        EXPECT_TRUE(add()) << error();
    } else {
        expect_refused(GetParam().refusal);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Types, Check_beneficiary,
    ::testing::Values(Beneficiary_case{"0001", "PV01", ""},
                      Beneficiary_case{"0001", "CL01", "El proveedor: CL01, no existe o esta dado de baja"},
                      Beneficiary_case{"0001", "", "El proveedor: , no existe o esta dado de baja"},
                      Beneficiary_case{"0005", "PV01", ""},
                      Beneficiary_case{"0005", "PV99", "El proveedor: PV99, no existe o esta dado de baja"},
                      Beneficiary_case{"0002", "DE01", ""},
                      Beneficiary_case{"0002", "CL01", "El deudor: CL01, no existe o esta dado de baja"},
                      Beneficiary_case{"0002", "DE99", "El deudor: DE99, no existe o esta dado de baja"},
                      Beneficiary_case{"0004", "DE01", ""},
                      Beneficiary_case{"0004", "CL01", "El deudor: CL01, no existe o esta dado de baja"},
                      Beneficiary_case{"0003", "CL01", ""},
                      Beneficiary_case{"0003", "DE01", "El cliente: DE01, no existe o esta dado de baja"},
                      Beneficiary_case{"0003", "CL99", "El cliente: CL99, no existe o esta dado de baja"},
                      Beneficiary_case{"0000", "", ""}, Beneficiary_case{"0000", "NADIE", ""}));

TEST_F(Check_capture, a_type_that_asks_for_no_known_kind_takes_any_beneficiary) {
    company.sql("UPDATE Tipo_Cheque SET Tc_Solicitar = '06' WHERE Tc_Cve_Tipo_Cheque = '0006'");
    header.Tc_Cve_Tipo_Cheque = "0006";
    header.Ch_Solicitar_Valor = "NADIE";
    EXPECT_TRUE(add()) << error();
}

TEST_F(Check_capture, the_catalog_does_not_ask_a_type_zero_for_its_beneficiary_whatever_it_says) {
    company.sql("UPDATE Tipo_Cheque SET Tc_Solicitar = '01' WHERE Tc_Cve_Tipo_Cheque = '0000'");
    header.Tc_Cve_Tipo_Cheque = "0000";
    header.Ch_Solicitar_Valor = "NADIE";
    EXPECT_TRUE(add()) << error();
}

// ---- Numbers already issued -----------------------------------------------------------------------------------------

TEST_F(Check_capture, a_transfer_issued_before_is_told_in_its_own_words) {
    header.Ch_Transferencia = "SI";
    issue_before("SI");
    expect_refused("La transferencia electrónica 1001 ya fue impresa con el folio: BEFORE");
}

TEST_F(Check_capture, a_check_and_a_transfer_may_share_a_number) {
    issue_before("SI");
    EXPECT_TRUE(add()) << error();
}

TEST_F(Check_capture, two_accounts_may_share_a_number) {
    issue_before();
    header.Bc_Cve_Banco_Cuenta = "PTO-MXN";
    EXPECT_TRUE(add()) << error();
}

TEST_F(Check_capture, a_cancelled_check_frees_its_number) {
    issue_before("NO", "CA");
    EXPECT_TRUE(add()) << error();
}

TEST_F(Check_capture, a_check_that_waits_for_authorization_keeps_its_number) {
    issue_before("NO", "PXA");
    expect_refused("El cheque 1001 ya fue impreso con el folio: BEFORE");
}

// ---- Failures -------------------------------------------------------------------------------------------------------

TEST_F(Check_capture, each_failing_statement_leaves_what_was_written_before_it) {
    company.mark();
    company.on.failing_statement = 1;
    EXPECT_FALSE(add());
    EXPECT_EQ(error(), std::string("Cuvexa.dll - Add_Cheque_Detalle()\r\n") + obstructed::statement_failure);
    EXPECT_EQ(folio(), "");
    EXPECT_THAT(company.changes(), IsEmpty());

    company.mark();
    company.on.failing_statement = 2;
    EXPECT_FALSE(add());
    EXPECT_EQ(error(), line_tag + obstructed::statement_failure);
    EXPECT_NE(folio(), "") << "the folio stays open";
    EXPECT_THAT(company.rows("SELECT * FROM Cheque_x_Aplicar"), IsEmpty());

    company.on.clear();
    ASSERT_TRUE(add()) << error();
    EXPECT_EQ(company.treasury().Detalle().Ch_ID, "0002") << "the line that failed used up its number";
}

TEST_F(Check_capture, each_failing_service_call_leaves_no_line) {
    ASSERT_TRUE(add()) << error();
    for (std::size_t n = 1;; ++n) {
        company.treasury().Nuevo();
        header.Ch_Referencia = "2001";
        company.mark();
        company.on.failing_call = n;
        company.treasury().Encabezado(header);
        company.treasury().Detalle(line);
        if (company.treasury().Add_Cheque_Detalle()) {
            EXPECT_GT(n, 8u);
            break;
        }
        SCOPED_TRACE(company.on.asked.back());
        EXPECT_TRUE(error() == std::string("Cuvexa.dll - Add_Cheque_Detalle()\r\n") + obstructed::call_failure ||
                    error() == line_tag + obstructed::call_failure)
            << error();
        EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Cheque_x_Aplicar"), "1");
        // Only the user name is asked for once the folio is open.
        EXPECT_EQ(folio().empty(), company.on.asked.back() != "GetUserName");
        company.on.clear();
    }
}

TEST_F(Check_capture, a_quote_breaks_the_statement_and_nothing_else) {
    header.Ch_Referencia = "10'01";
    EXPECT_FALSE(add());
    EXPECT_EQ(error().substr(0, error().find('\r')), "Cuvexa.dll - Add_Cheque_Detalle()");
    EXPECT_EQ(folio(), "");

    header.Ch_Referencia = "1001";
    line.Cxp_Folio = "O'Higgins";
    EXPECT_FALSE(add());
    EXPECT_EQ(error().substr(0, error().find('\r')), "Cuvexa.dll - Inserta_Detalle_Cheque()");
    EXPECT_THAT(company.rows("SELECT * FROM Cheque_x_Aplicar"), IsEmpty());
}

TEST_F(Check_capture, an_amount_that_is_no_number_never_reaches_a_statement) {
    for (const double amount : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        line.Ch_Importe = amount;
        EXPECT_FALSE(add());
        EXPECT_EQ(error(), line_tag + "Desbordamiento");
    }
    line.Ch_Importe = 10;
    line.Ch_Tipo_Cambio = std::nan("");
    EXPECT_FALSE(add());
    EXPECT_EQ(error(), "El tipo de cambio del pago es incorrecto!");
    EXPECT_THAT(company.rows("SELECT * FROM Cheque_x_Aplicar"), IsEmpty());
}

TEST_F(Check_capture, line_numbers_pad_to_four_digits_and_end_with_the_sixteen_bit_counter) {
    ASSERT_TRUE(add()) << error();
    // Lines that fail use up their numbers too, and cost nothing.
    line.Ch_Importe = std::nan("");
    company.treasury().Detalle(line);
    const auto skip_to = [&](int number) {
        do {
            company.treasury().Add_Cheque_Detalle();
        } while (std::stoi(company.treasury().Detalle().Ch_ID) < number);
    };
    skip_to(9999);
    line = company.treasury().Detalle();
    line.Ch_Importe = 1;
    ASSERT_TRUE(add()) << error();
    EXPECT_EQ(company.treasury().Detalle().Ch_ID, "10000");

    line.Ch_Importe = std::nan("");
    company.treasury().Detalle(line);
    skip_to(32767);
    line.Ch_Importe = 1;
    EXPECT_FALSE(add());
    EXPECT_EQ(error(), "Cuvexa.dll - Add_Cheque_Detalle()\r\nDesbordamiento");
    EXPECT_THAT(company.rows("SELECT Cxa_ID FROM Cheque_x_Aplicar ORDER BY Cxa_ID"), ElementsAre("0001", "10000"));
}

}  // namespace
}  // namespace cuvexa::tests
