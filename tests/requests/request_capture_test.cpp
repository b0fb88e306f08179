// Capture of a check request.
#include <limits>
#include <utility>

#include "support/company_test.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string add_tag = "Cuvexa.dll - Add_Solicitud_Cheque()\r\n";
const std::string line_tag = "Cuvexa.dll - Add_Solicitud_Cheque_Detalle()\r\n";

/// A header and a line that say what only the component may say.
tSchEncabezado callers_header() {
    tSchEncabezado header = Company::request_header();
    header.Sch_Folio = "the caller's";
    header.Sch_Fecha = Company::now();
    header.Sucursal.Sc_Descripcion = "not kept";
    return header;
}

tSchDetalle callers_line() {
    tSchDetalle line = Company::request_line("SOL-0001");
    line.Scd_Id = "the caller's";
    return line;
}

/// Every check that a parameter may switch on is on; the branch MTY belongs to the server S1, as this one is.
void with_every_check(Company& company) {
    company.sql("UPDATE Sucursal SET Sc_Servidor_Id = 'S1' WHERE Sc_Cve_Sucursal = 'MTY'");
    company.on.server_id = "S1";
    company.on.parameters["GEN_FORZAR_TIEMPO_REAL"] = true;
    company.on.parameters["GEN_VALIDAR_PERIODO_OPERATIVO"] = true;
    company.on.next_folio = "SOL-0001";
}

class Check_request : public Company_test {
protected:
    Check_request() { with_every_check(company); }

    bool add_header() {
        treasury().SchEncabezado(header);
        return treasury().Add_Solicitud_Cheque();
    }

    bool add_line() {
        treasury().SchDetalle(line);
        return treasury().Add_Solicitud_Cheque_Detalle();
    }

    std::vector<std::string> headers() { return rows("Solicitud_Cheque", "Sch_Folio, Es_Cve_Estado"); }
    std::vector<std::string> lines() { return rows("Solicitud_Cheque_Detalle", "Sch_Folio, Scd_Id, Es_Cve_Estado"); }

    tSchEncabezado header = callers_header();
    tSchDetalle line = callers_line();
};

TEST_F(Check_request, a_let_takes_all_but_the_folio_and_of_the_branch_the_key) {
    treasury().SchEncabezado(header);
    tSchEncabezado expected = header;
    expected.Sch_Folio = "";
    expected.Sucursal.Sc_Descripcion = "";
    EXPECT_EQ(treasury().SchEncabezado(), expected);
}

TEST_F(Check_request, a_get_gives_a_copy) {
    treasury().SchEncabezado(header);
    treasury().SchEncabezado().Sch_Concepto = "changed";
    EXPECT_EQ(treasury().SchEncabezado().Sch_Concepto, "Pago de renta");
    treasury().SchDetalle(line);
    treasury().SchDetalle().Scd_Tabla = "changed";
    EXPECT_EQ(treasury().SchDetalle(), line);
}

TEST_F(Check_request, a_header_let_is_ignored_once_the_request_has_its_folio) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    const tSchEncabezado captured = treasury().SchEncabezado();
    tSchEncabezado other = header;
    other.Sch_Concepto = "otro";
    treasury().SchEncabezado(other);
    EXPECT_EQ(treasury().SchEncabezado(), captured);
    EXPECT_THAT(on.reports, IsEmpty());
}

TEST_F(Check_request, writes_every_column_of_the_header) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    EXPECT_EQ(treasury().Error(), "");
    EXPECT_EQ(treasury().SchEncabezado().Sch_Folio, "SOL-0001");
    EXPECT_THAT(
        rows("Solicitud_Cheque",
             "Sch_Folio, Tc_Cve_Tipo_Cheque, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Sch_Concepto, Sch_Beneficiario, "
             "Sch_Tabla, Sch_Documento, Sch_Referencia, Sch_Importe, Sch_Tipo_Cambio, Sch_Transferencia, "
             "Sch_Aplicar, Sch_Firme, Sch_Solicitar_Valor, Oper_Alta, Oper_Ult_Modif, Es_Cve_Estado"),
        ElementsAre("SOL-0001|0001|SRR-MXN|MTY|Pago de renta|Inmobiliaria del Norte|ORDEN_COMPRA|OC-7|REF-7|1250.5|"
                    "19.25|NO|SI|NO|PV01|CAJA1|CAJA1|AC"));
    EXPECT_THAT(rows("Solicitud_Cheque", "Sch_Fecha, Fecha_Alta, Fecha_Ult_Modif"),
                ElementsAre("2024-03-15|2024-03-15 10:20:30|2024-03-15 10:20:30"));
}

TEST_F(Check_request, writes_every_column_of_a_line) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    on.server_date = add_days(Company::now(), 1);  // the lines carry the header's stamp
    on.forget();
    ASSERT_TRUE(add_line()) << treasury().Error();
    EXPECT_EQ(treasury().SchDetalle().Scd_Id, "0001");
    EXPECT_THAT(
        rows("Solicitud_Cheque_Detalle",
             "Sch_Folio, Scd_Id, Scd_Tabla, Scd_Documento, Scd_Importe, Mn_Cve_Moneda, Scd_Tipo_Cambio, Oper_Alta, "
             "Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado"),
        ElementsAre(
            "SOL-0001|0001|CXP|CXP-MTY-00000001|100.25|USD|18.5|CAJA1|2024-03-15 10:20:30|CAJA1|2024-03-15 10:20:30|AC"));
}

TEST_F(Check_request, waits_for_authorization_header_and_lines_when_the_parameter_says_so) {
    on.parameters["TES_AUTORIZAR_SOLICITUD_CHEQUE"] = true;
    ASSERT_TRUE(add_header()) << treasury().Error();
    ASSERT_TRUE(add_line()) << treasury().Error();
    EXPECT_THAT(headers(), ElementsAre("SOL-0001|PXA"));
    EXPECT_THAT(lines(), ElementsAre("SOL-0001|0001|PXA"));
}

TEST_F(Check_request, a_second_call_succeeds_without_a_check_or_a_write) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    on.forget();
    on.server_date = add_days(Company::now(), 5);
    on.next_folio = "SOL-0002";
    EXPECT_TRUE(treasury().Add_Solicitud_Cheque());
    EXPECT_THAT(on.statements, IsEmpty());
    EXPECT_THAT(on.calls, IsEmpty());
    EXPECT_EQ(treasury().SchEncabezado().Sch_Folio, "SOL-0001");
    EXPECT_THAT(headers(), ElementsAre("SOL-0001|AC"));
}

TEST_F(Check_request, an_amount_below_zero_passes) {
    header.Sch_Importe = -100;
    EXPECT_TRUE(add_header()) << treasury().Error();
    EXPECT_THAT(rows("Solicitud_Cheque", "Sch_Importe"), ElementsAre("-100.0"));
}

// ---- Refusals of the header, in step order --------------------------------------------------------------------------

void header_captured(Company& company) {
    among_agreeing_services(company);
    with_every_check(company);
    company.restart();
    company.treasury().SchEncabezado(callers_header());
}

Preparation header(const std::function<void(tSchEncabezado&)>& change) {
    return letting<tSchEncabezado>(&Tesoreria::SchEncabezado, &Tesoreria::SchEncabezado, change);
}

void on_a_replica(Company& company) {
    company.sql("UPDATE Sucursal SET Sc_Servidor_Id = ''");
    company.on.replica = true;
}

TEST(Check_request_steps, refuse_in_their_order) {
    using Header = tSchEncabezado;
    const std::vector<Step> steps = {
        {"central server", on_a_replica, "Esta operación solo puede realizarse en el servidor central"},
        {"same day", header([](Header& h) { h.Sch_Fecha = Company::yesterday(); }), not_today},
        {"period", refusing("IsOperatingPeriodOpen", ""), period_closed},
        {"branch", sql("UPDATE Sucursal SET Es_Cve_Estado = 'BA'"), "la sucursal: MTY, no existe o está dada de baja"},
        {"currency", header([](Header& h) { h.Mn_Cve_Moneda = "ZZZ"; }),
         "La moneda: ZZZ, no existe o está dada de baja"},
        {"check type", header([](Header& h) { h.Tc_Cve_Tipo_Cheque = "T99"; }),
         "El tipo de cheque: T99, no existe o esta dado de baja"},
        {"transfer", header([](Header& h) { h.Sch_Transferencia = ""; }),
         "No se indicó el tipo de operación (cheque o transferencia)"},
        {"apply", header([](Header& h) { h.Sch_Aplicar = ""; }),
         "No se indicó un valor válido para la opción: aplicar"},
        {"firm", header([](Header& h) { h.Sch_Firme = ""; }), "No se indicó un valor válido para la opción: firme"},
        {"rate", header([](Header& h) { h.Sch_Tipo_Cambio = 0; }), "el tipo de cambio: 0, no es válido"},
        {"beneficiary", header([](Header& h) { h.Sch_Solicitar_Valor = "NADIE"; }),
         "El proveedor: NADIE, no existe o esta dado de baja"},
        {"amount", header([](Header& h) { h.Sch_Importe = 0; }), "Importe del cheque erróneo!"},
        {"folio", without_folio, "Error al intentar obtener el folio de la solicitud de cheque!"},
    };
    expect_refusals_in_order(behind(add_tag, steps), header_captured, [](Company& company) {
        const bool added = company.treasury().Add_Solicitud_Cheque();
        EXPECT_EQ(company.treasury().SchEncabezado().Sch_Folio, "");
        return added;
    });
}

class Check_request_refusals : public Check_request {
protected:
    void expect_refused(const std::string& message) {
        expect_refusal(add_tag + message, [this] { return add_header(); });
        EXPECT_EQ(treasury().SchEncabezado().Sch_Folio, "");
    }
};

TEST_F(Check_request_refusals, the_header_can_be_corrected_and_tried_again) {
    header.Sch_Importe = 0;
    ASSERT_FALSE(add_header());
    header.Sch_Importe = 10;
    EXPECT_TRUE(add_header()) << treasury().Error();
    EXPECT_EQ(treasury().Error(), "");
}

TEST_F(Check_request_refusals, a_branch_of_another_server_is_captured_there) {
    on.server_id = "S2";
    expect_refused(
        "Esta operación solo puede realizarse en el servidor con id: S1\r\nel id del servidor actual es: S2");
}

TEST_F(Check_request_refusals, a_branch_without_a_server_belongs_to_the_central_one) {
    header.Sucursal.Sc_Cve_Sucursal = "GDL";
    on.replica = true;
    expect_refused("Esta operación solo puede realizarse en el servidor central");
    on.replica = false;
    EXPECT_TRUE(add_header()) << treasury().Error();
}

TEST_F(Check_request_refusals, the_server_asked_for_is_that_of_the_requests_own_branch_not_of_a_receipts) {
    tRpEncabezado receipt;
    receipt.Sucursal.Sc_Cve_Sucursal = "TIJ";  // belongs to the server NORTE
    treasury().RpEncabezado(receipt);
    EXPECT_TRUE(add_header()) << treasury().Error();
}

TEST_F(Check_request_refusals, a_catalog_row_that_is_inactive_does_not_count) {
    run("UPDATE Moneda SET Es_Cve_Estado = 'BA' WHERE Mn_Cve_Moneda = 'MXN'");
    expect_refused("La moneda: MXN, no existe o está dada de baja");
}

TEST_F(Check_request_refusals, a_rate_that_is_negative_or_no_number_is_shown_as_it_is) {
    header.Sch_Tipo_Cambio = -19.5;
    expect_refused("el tipo de cambio: -19.5, no es válido");
    header.Sch_Tipo_Cambio = std::numeric_limits<double>::quiet_NaN();
    expect_refused("el tipo de cambio: NaN, no es válido");
}

TEST_F(Check_request_refusals, a_document_of_another_day_passes_while_real_time_is_not_forced) {
    on.parameters["GEN_FORZAR_TIEMPO_REAL"] = false;
    header.Sch_Fecha = add_days(Company::now(), -1);
    EXPECT_TRUE(add_header()) << treasury().Error();
}

TEST_F(Check_request_refusals, the_time_of_day_does_not_count) {
    header.Sch_Fecha = make_date(2024, 3, 15, 23, 59, 59);
    EXPECT_TRUE(add_header()) << treasury().Error();
}

TEST_F(Check_request_refusals, the_period_is_asked_for_only_while_the_parameter_is_on) {
    on.refuse("IsOperatingPeriodOpen", "");
    on.parameters["GEN_VALIDAR_PERIODO_OPERATIVO"] = false;
    EXPECT_TRUE(add_header()) << treasury().Error();
}

TEST_F(Check_request_refusals, the_period_is_that_of_the_finance_module) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    EXPECT_THAT(on.calls, ElementsAre("IsOperatingPeriodOpen(2024-03-15T10:20:30, FINANZAS)"));
}

TEST_F(Check_request_refusals, each_check_type_asks_for_its_own_kind_of_beneficiary) {
    struct Case {
        std::string type, key, message;
    };
    const std::vector<Case> refused = {
        {"0001", "DE01", "El proveedor: DE01, no existe o esta dado de baja"},
        {"0002", "CL01", "El deudor: CL01, no existe o esta dado de baja"},
        {"0003", "DE01", "El cliente: DE01, no existe o esta dado de baja"},
        {"0004", "CL01", "El deudor: CL01, no existe o esta dado de baja"},
    };
    for (const Case& one : refused) {
        header.Tc_Cve_Tipo_Cheque = one.type;
        header.Sch_Solicitar_Valor = one.key;
        expect_refused(one.message);
    }
}

class Check_request_beneficiary : public Check_request,
                                  public ::testing::WithParamInterface<std::pair<std::string, std::string>> {};

TEST_P(Check_request_beneficiary, is_accepted) {
    run("UPDATE Tipo_Cheque SET Tc_Solicitar = '06' WHERE Tc_Cve_Tipo_Cheque = '0006'");
    header.Tc_Cve_Tipo_Cheque = GetParam().first;
    header.Sch_Solicitar_Valor = GetParam().second;
    EXPECT_TRUE(add_header()) << treasury().Error();
}

INSTANTIATE_TEST_SUITE_P(Of_each_type, Check_request_beneficiary,
                         ::testing::Values(std::pair("0001", "PV01"), std::pair("0002", "DE01"),
                                           std::pair("0003", "CL01"), std::pair("0004", "DE01"),
                                           std::pair("0005", "NADIE"), std::pair("0006", "NADIE"),
                                           std::pair("0000", "NADIE"), std::pair("0000", "")));

// ---- A header that cannot be written --------------------------------------------------------------------------------

TEST_F(Check_request, a_header_that_cannot_be_written_leaves_its_folio_so_a_retry_writes_nothing) {
    treasury().SchEncabezado(header);
    on.forget();
    on.failing_statement = 1;
    EXPECT_FALSE(treasury().Add_Solicitud_Cheque());
    EXPECT_EQ(treasury().Error(), add_tag + "Inserta_Solicitud_Cheque()\r\nse perdió la conexión");
    EXPECT_EQ(treasury().SchEncabezado().Sch_Folio, "SOL-0001");

    on.clear();
    EXPECT_TRUE(treasury().Add_Solicitud_Cheque());
    EXPECT_EQ(treasury().Error(), "");
    EXPECT_THAT(headers(), IsEmpty());
}

TEST_F(Check_request, a_quote_in_a_text_fails_in_the_database) {
    header.Sch_Concepto = "Renta d'Avila";
    EXPECT_FALSE(add_header());
    EXPECT_THAT(treasury().Error(), ::testing::StartsWith(add_tag + "Inserta_Solicitud_Cheque()\r\n"));
    EXPECT_THAT(headers(), IsEmpty());
}

TEST_F(Check_request, an_amount_that_no_statement_may_carry_fails_like_a_database) {
    header.Sch_Importe = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(add_header());
    EXPECT_EQ(treasury().Error(), add_tag + "Inserta_Solicitud_Cheque()\r\nDesbordamiento");
}

// ---- Lines ----------------------------------------------------------------------------------------------------------

TEST_F(Check_request, lines_are_numbered_from_the_first) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(add_line()) << treasury().Error();
    EXPECT_THAT(lines(), ElementsAre("SOL-0001|0001|AC", "SOL-0001|0002|AC", "SOL-0001|0003|AC"));
}

TEST_F(Check_request, a_line_takes_the_folio_of_the_request_and_none_before_there_is_one) {
    treasury().SchEncabezado(header);
    EXPECT_FALSE(add_line());
    EXPECT_EQ(treasury().Error(),
              line_tag + "El folio especificado no coincide con el de la solicitud de cheque en proceso");
}

TEST_F(Check_request, a_folio_in_other_letter_case_is_another_folio) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    line.Sch_Folio = "sol-0001";
    EXPECT_FALSE(add_line());
    EXPECT_EQ(treasury().Error(),
              line_tag + "El folio especificado no coincide con el de la solicitud de cheque en proceso");
}

TEST_F(Check_request, no_catalog_is_asked_for_a_line) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    line.Scd_Tabla = "NADA";
    line.Scd_Documento = "?";
    line.Mn_Cve_Moneda = "ZZZ";
    EXPECT_TRUE(add_line()) << treasury().Error();
}

void line_captured(Company& company) {
    header_captured(company);
    EXPECT_TRUE(company.treasury().Add_Solicitud_Cheque()) << company.treasury().Error();
    company.treasury().SchDetalle(callers_line());
}

Preparation line(const std::function<void(tSchDetalle&)>& change) {
    return letting<tSchDetalle>(&Tesoreria::SchDetalle, &Tesoreria::SchDetalle, change);
}

TEST(Request_line_steps, refuse_in_their_order_and_use_no_number) {
    using Line = tSchDetalle;
    const std::vector<Step> steps = {
        {"no folio", line([](Line& l) { l.Sch_Folio = ""; }), "No se especificó el folio de la solicitud de cheque"},
        {"other folio", line([](Line& l) { l.Sch_Folio = "SOL-9"; }),
         "El folio especificado no coincide con el de la solicitud de cheque en proceso"},
        {"table", line([](Line& l) { l.Scd_Tabla = ""; }), "No se especificó la tabla para el documento del detalle"},
        {"document", line([](Line& l) { l.Scd_Documento = ""; }), "No se especificó el documento del detalle"},
        {"amount", line([](Line& l) { l.Scd_Importe = 0; }),
         "No se especificó el importe para el documento del detalle"},
        {"currency", line([](Line& l) { l.Mn_Cve_Moneda = ""; }),
         "No se especificó la moneda para el documento del detalle"},
        {"rate", line([](Line& l) { l.Scd_Tipo_Cambio = 0; }),
         "No se especificó el tipo de cambio para el documento del detalle"},
    };
    expect_refusals_in_order(behind(line_tag, steps), line_captured, [](Company& company) {
        const bool added = company.treasury().Add_Solicitud_Cheque_Detalle();
        EXPECT_EQ(company.treasury().SchDetalle().Scd_Id, "the caller's");
        return added;
    });
}

class Request_line_refusals : public Check_request {
protected:
    void SetUp() override { ASSERT_TRUE(add_header()) << treasury().Error(); }

    void expect_refused(const std::string& message) {
        expect_refusal(line_tag + message, [this] { return add_line(); });
    }
};

TEST_F(Request_line_refusals, leave_their_number_to_the_next_line) {
    line.Scd_Tabla = "";
    expect_refused("No se especificó la tabla para el documento del detalle");
    line = callers_line();
    ASSERT_TRUE(add_line()) << treasury().Error();
    EXPECT_THAT(lines(), ElementsAre("SOL-0001|0001|AC"));
}

TEST_F(Request_line_refusals, an_amount_and_a_rate_below_zero_are_refused_too) {
    line.Scd_Importe = -1;
    expect_refused("No se especificó el importe para el documento del detalle");
    line.Scd_Importe = 1;
    line.Scd_Tipo_Cambio = -1;
    expect_refused("No se especificó el tipo de cambio para el documento del detalle");
}

TEST_F(Check_request, a_line_that_cannot_be_written_uses_its_number) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    on.forget();
    on.failing_statement = 1;
    EXPECT_FALSE(add_line());
    EXPECT_EQ(treasury().Error(), line_tag + "Inserta_Solicitud_Cheque_Detalle()\r\nse perdió la conexión");
    EXPECT_THAT(headers(), ElementsAre("SOL-0001|AC"));

    on.clear();
    EXPECT_TRUE(add_line()) << treasury().Error();
    EXPECT_THAT(lines(), ElementsAre("SOL-0001|0002|AC"));
}

TEST_F(Check_request, the_line_counter_stops_after_32767) {
    ASSERT_TRUE(add_header()) << treasury().Error();
    treasury().SchDetalle(line);
    on.failing_statement = 1;
    for (int i = 0; i < 32767; ++i) {
        on.statements.clear();
        ASSERT_FALSE(treasury().Add_Solicitud_Cheque_Detalle());
    }
    EXPECT_EQ(treasury().SchDetalle().Scd_Id, "32767");
    on.clear();
    EXPECT_FALSE(treasury().Add_Solicitud_Cheque_Detalle());
    EXPECT_EQ(treasury().Error(), line_tag + "Desbordamiento");
    EXPECT_THAT(lines(), IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
