#include "cuvexa/errors.h"
#include "suite/context.h"
#include "suite/fixture.h"

namespace cuvexa::tests {
namespace {

using Session = Suite_test;
using Data = Suite_test;

TEST_F(Session, an_empty_parameter_is_a_value_and_an_absent_one_is_the_fallback) {
    set_parameter(connection, "FTO_BANCO", "");
    EXPECT_EQ(to_text(suite.session()->GetParameter("FTO_BANCO", 0, "", "x")), "");
    EXPECT_EQ(to_text(suite.session()->GetParameter("NO_EXISTE", 0, "", "x")), "x");
    EXPECT_EQ(to_text(suite.session()->GetParameter("fin_moneda_local", 0, "", "")), "MXN");
}

TEST_F(Session, a_boolean_parameter_reads_the_words_for_yes) {
    for (const char* yes : {"SI", "si", "1", "-1", "True", "VERDADERO"}) {
        set_parameter(connection, "PRUEBA", yes);
        EXPECT_TRUE(to_boolean(suite.session()->GetParameter("PRUEBA", 0, "B", "0"))) << yes;
    }
    for (const char* no : {"NO", "0", "", "False", "2", "sí"}) {
        set_parameter(connection, "PRUEBA", no);
        EXPECT_FALSE(to_boolean(suite.session()->GetParameter("PRUEBA", 0, "B", "0"))) << no;
    }
    EXPECT_FALSE(to_boolean(suite.session()->GetParameter("NO_EXISTE", 0, "B", "0")));
}

TEST_F(Session, the_server_is_what_the_administrator_said) {
    EXPECT_EQ(suite.session()->GetServerId(), "CENTRAL");
    EXPECT_FALSE(suite.session()->IsReplicaServer());
    set_server_identity(connection, {"NORTE", true});
    EXPECT_EQ(suite.session()->GetServerId(), "NORTE");
    EXPECT_TRUE(suite.session()->IsReplicaServer());
    EXPECT_EQ(server_identity(connection).id, "NORTE");
}

TEST_F(Session, the_connection_and_the_user_are_those_it_was_made_with) {
    EXPECT_EQ(&suite.session()->GetConnection(), &connection);
    EXPECT_EQ(suite.session()->GetUserName(), "CAJA1");
    suite.set_user("CAJA2");
    EXPECT_EQ(suite.session()->GetUserName(), "CAJA2");
}

TEST_F(Session, errors_go_where_the_host_wants_them) {
    std::vector<Reported_error> reported;
    Reference_suite telling(connection,
                            {.report_error = [&](const Reported_error& error) { reported.push_back(error); }});
    telling.session()->ReportError("Falta la cuenta", 16, "Controles_B1Click()", "Error", "Cuvexa", "ERR-ID:7500009");
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].description, "Falta la cuenta");
    EXPECT_EQ(reported[0].code, "ERR-ID:7500009");
}

TEST_F(Session, without_a_listener_an_error_is_one_line_on_standard_error) {
    ::testing::internal::CaptureStderr();
    suite.session()->ReportError("Falta la cuenta", 16, "Controles_B1Click()", "Error", "Cuvexa", "ERR-ID:7500009");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "Error ERR-ID:7500009 en Cuvexa, Controles_B1Click(): Falta la cuenta\n");
}

TEST_F(Session, the_suite_may_run_its_statements_on_a_connection_of_its_own) {
    struct Deaf : Connection {
        std::unique_ptr<Recordset> execute(std::string_view) override { throw Database_error("not for the suite"); }
    } component;
    Reference_suite apart(component, {.own_connection = &connection});
    EXPECT_EQ(apart.data()->LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "MXN", "Moneda"), "Peso mexicano");
    EXPECT_EQ(&apart.session()->GetConnection(), &component);
}

TEST_F(Data, a_look_up_finds_active_rows_whatever_the_case_of_the_names) {
    auto data = suite.data();
    EXPECT_EQ(data->LookupValue("Fp_Descripcion", "Fp_Cve_Forma_Pago", "01", "FORMA_PAGO"), "Efectivo");
    EXPECT_EQ(data->LookupValue("Bc_Descripcion", "Bc_Cve_Banco_Cuenta", "srr-mxn", "BANCO_CUENTA"),
              "Sierra, operación en pesos");
    EXPECT_EQ(data->LookupValue("Fp_Descripcion", "Fp_Cve_Forma_Pago", "99", "Forma_Pago"), "") << "retired";
    EXPECT_EQ(data->LookupValue("Fp_Descripcion", "Fp_Cve_Forma_Pago", "77", "Forma_Pago"), "") << "unknown";
    EXPECT_EQ(data->LookupValue("Ps_Valor", "Ps_Nombre", "FIN_MONEDA_LOCAL", "PARAMETRO_SISTEMA"), "MXN")
        << "no state column";
}

TEST_F(Data, a_look_up_meets_its_condition) {
    auto data = suite.data();
    EXPECT_EQ(data->LookupValue("Cl_Descripcion", "Cl_Cve_Cliente", "DE01", "Cliente", "Tc_Cve_Tipo_Cliente = 'DE'"),
              "Laura Méndez, ventas");
    EXPECT_EQ(
        data->LookupValue("Cl_Descripcion", "Cl_Cve_Cliente", "DE01", "Cliente", "Tc_Cve_Tipo_Cliente = 'CL' OR 1 = 0"),
        "");
}

TEST_F(Data, a_quote_in_a_key_finds_nothing_and_breaks_nothing) {
    EXPECT_EQ(suite.data()->LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "' OR '1'='1", "Moneda"), "");
    EXPECT_EQ(suite.data()->GetNextFolio("O'BRIEN", "CHEQUE"), "CH-O'BRIEN-00000001");
}

TEST_F(Data, dates_are_texts_of_the_chosen_style) {
    EXPECT_EQ(suite.data()->SqlDate(today()), "2024-03-15");
    EXPECT_EQ(suite.data()->SqlDateTime(today()), "2024-03-15 10:20:30");
    Reference_suite neutral(connection, {.date_style = Date_style::neutral});
    EXPECT_EQ(neutral.data()->SqlDate(today()), "20240315");
    EXPECT_EQ(neutral.data()->SqlDateTime(today()), "2024-03-15T10:20:30");
}

TEST_F(Data, the_server_date_stands_still_until_it_is_given_back) {
    EXPECT_EQ(suite.data()->GetServerDate(), today());
    const auto data = suite.data();
    suite.set_server_date(make_date(2025, 1, 2));
    EXPECT_EQ(data->GetServerDate(), make_date(2025, 1, 2));
    suite.set_server_date(std::nullopt);
    EXPECT_GE(data->GetServerDate(), local_today());
}

/// A database server whose clock is another than that of this machine.
class Another_clock : public Connection {
public:
    explicit Another_clock(Connection& rows) : rows_(rows) {}
    std::unique_ptr<Recordset> execute(std::string_view text) override {
        ++asked;
        std::string there(text);
        constexpr std::string_view clock = "GETDATE()";
        if (const auto at = there.find(clock); at != std::string::npos) {
            there.replace(at, clock.size(), "'2031-05-06T07:08:09'");
        }
        return rows_.execute(there);
    }
    int asked = 0;

private:
    Connection& rows_;
};

TEST_F(Data, a_look_up_takes_no_name_that_the_schema_does_not_have) {
    const auto refusal = [&](const std::string& column, const std::string& key, const std::string& table) {
        try {
            return "gave " + suite.data()->LookupValue(column, key, "MXN", table);
        } catch (const Database_error& error) {
            return std::string(error.what());
        }
    };
    EXPECT_EQ(refusal("Mn_Descripcion", "Mn_Cve_Moneda", "MONEDA"), "gave Peso mexicano");
    EXPECT_EQ(refusal("mn_descripcion", "MN_CVE_MONEDA", "Moneda"), "gave Peso mexicano");
    EXPECT_EQ(refusal("Mn_Descripcion", "Mn_Cve_Moneda", "Moneda, Banco"),
              "La tabla: Moneda, Banco, no existe; verifique su nombre");
    EXPECT_EQ(refusal("Bn_Saldo", "Mn_Cve_Moneda", "Moneda"),
              "La columna: Bn_Saldo, no existe en la tabla: Moneda; verifique su nombre");
    for (const char* const name : {"(SELECT MAX(Bn_Saldo) FROM Banco)", "Mn_Descripcion AS x", "*", "", "PRIMARY",
                                   "Mn_Cve_Moneda <> '' OR Mn_Cve_Moneda"}) {
        const std::string text =
            std::string("La columna: ") + name + ", no existe en la tabla: Moneda; verifique su nombre";
        EXPECT_EQ(refusal(name, "Mn_Cve_Moneda", "Moneda"), text);
        EXPECT_EQ(refusal("Mn_Descripcion", name, "Moneda"), text);
    }
}

TEST_F(Data, the_server_date_is_the_database_server_s_asked_when_it_is_needed) {
    Another_clock server(connection);
    Reference_suite on_server(server);
    EXPECT_EQ(on_server.data()->GetServerDate(), make_date(2031, 5, 6, 7, 8, 9));
    EXPECT_EQ(server.asked, 1);
    on_server.set_server_date(today());
    EXPECT_EQ(on_server.data()->GetServerDate(), today());
    EXPECT_EQ(server.asked, 1) << "a fixed date asks nobody";
}

TEST_F(Data, the_server_is_asked_for_the_time_once_in_a_second) {
    Another_clock server(connection);
    Reference_suite on_server(server);
    double seconds = 0;
    on_server.context().clock().read_from([&] { return seconds; });
    const auto time = [&] { return on_server.data()->SqlDateTime(on_server.data()->GetServerDate()); };
    EXPECT_EQ(time(), "2031-05-06 07:08:09");
    seconds = 0.2;
    EXPECT_EQ(time(), "2031-05-06 07:08:09");
    seconds = 0.9;
    EXPECT_EQ(time(), "2031-05-06 07:08:10") << "it goes on from what the server said";
    EXPECT_EQ(server.asked, 1);
    seconds = 1;
    EXPECT_EQ(time(), "2031-05-06 07:08:09");
    EXPECT_EQ(server.asked, 2);
}

TEST(Stopwatch, runs_from_its_beginning_and_has_waited_long_before_it) {
    reference::Stopwatch watch;
    EXPECT_GT(watch.seconds(), 1e6);
    watch.begin();
    EXPECT_LT(watch.seconds(), 1e6);
}

TEST_F(Data, what_an_administrator_posts_is_stamped_by_the_database_server_too) {
    Another_clock server(connection);
    mark_posted(server, "CHEQUE", "CH-1", "AUDITOR");
    EXPECT_EQ(scalar("SELECT Fecha_Alta AS value FROM Documento_Contabilizado"), "2031-05-06T07:08:09");
}

TEST_F(Data, folios_count_per_branch_and_document) {
    auto data = suite.data();
    EXPECT_EQ(data->GetNextFolio("MTY", "RECIBO_PAGO"), "RP-MTY-00000001");
    EXPECT_EQ(data->GetNextFolio("MTY", "RECIBO_PAGO"), "RP-MTY-00000002");
    EXPECT_EQ(data->GetNextFolio("GDL", "RECIBO_PAGO"), "RP-GDL-00000001");
    EXPECT_EQ(data->GetNextFolio("", "BANCO_MOVIMIENTO"), "BM-00000001");
    EXPECT_EQ(data->GetNextFolio("MTY", "Gasto_x_Comprobar"), "GC-MTY-00000001");
    EXPECT_EQ(data->GetNextFolio("MTY", "GASTO_X_COMPROBAR"), "GC-MTY-00000002") << "the same series";
    EXPECT_EQ(data->GetNextFolio("MTY", "PEDIDO"), "PEDIDO-MTY-00000001") << "any code may have a series";
}

TEST_F(Data, a_closed_series_gives_no_folio_and_says_what_to_do) {
    auto data = suite.data();
    data->GetNextFolio("MTY", "CHEQUE");
    set_folio_series_open(connection, "cheque", "MTY", false);
    EXPECT_EQ(data->GetNextFolio("MTY", "CHEQUE"), "");
    EXPECT_EQ(data->LastErrorText(),
              "La serie de folios de CHEQUE de la sucursal: MTY, está cerrada; ábrala antes de continuar");
    EXPECT_EQ(data->GetNextFolio("GDL", "CHEQUE"), "CH-GDL-00000001");
    EXPECT_EQ(data->LastErrorText(), "");
    set_folio_series_open(connection, "CHEQUE", "MTY", true);
    EXPECT_EQ(data->GetNextFolio("MTY", "CHEQUE"), "CH-MTY-00000002");
}

TEST_F(Data, a_series_can_be_closed_before_it_is_first_used) {
    set_folio_series_open(connection, "CHEQUE", "MTY", false);
    EXPECT_EQ(suite.data()->GetNextFolio("MTY", "CHEQUE"), "");
}

TEST_F(Data, an_administrator_moves_a_series_forward_but_never_back) {
    set_next_folio(connection, "CHEQUE", "MTY", 500);
    EXPECT_EQ(suite.data()->GetNextFolio("MTY", "CHEQUE"), "CH-MTY-00000500");
    EXPECT_THROW(set_next_folio(connection, "CHEQUE", "MTY", 500), Database_error);
    EXPECT_EQ(suite.data()->GetNextFolio("MTY", "CHEQUE"), "CH-MTY-00000501");
    EXPECT_EQ(folio_series_of(connection, "CHEQUE", "MTY").last, 501);
}

TEST_F(Data, only_periods_that_exist_and_are_open_are_open) {
    auto data = suite.data();
    EXPECT_TRUE(data->IsOperatingPeriodOpen(make_date(2024, 1, 31, 23, 59, 59), "FINANZAS"));
    EXPECT_FALSE(data->IsOperatingPeriodOpen(make_date(2023, 12, 31), "FINANZAS")) << "closed";
    EXPECT_FALSE(data->IsOperatingPeriodOpen(make_date(2035, 1, 1), "FINANZAS")) << "none";
    EXPECT_FALSE(data->IsOperatingPeriodOpen(make_date(2024, 1, 31), "VENTAS")) << "another module";
    set_period(connection, {"FINANZAS", 2024, 1, false});
    EXPECT_FALSE(data->IsOperatingPeriodOpen(make_date(2024, 1, 31), "FINANZAS"));
    set_period(connection, {"finanzas", 2035, 1, true});
    EXPECT_TRUE(data->IsOperatingPeriodOpen(make_date(2035, 1, 1), "FINANZAS"));
}

TEST_F(Data, a_document_is_registered_in_one_row_that_counts) {
    auto data = suite.data();
    EXPECT_TRUE(data->RegisterDocument("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_TRUE(data->RegisterDocument("Recibo_Pago", "RP-MTY-00000001"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Documento_Registrado"), "1");
    EXPECT_EQ(scalar("SELECT Dr_Veces AS value FROM Documento_Registrado"), "2");
    EXPECT_FALSE(data->RegisterDocument("RECIBO_PAGO", ""));
    EXPECT_EQ(data->LastErrorText(), "No se puede registrar un documento sin código o sin folio");
}

TEST_F(Data, a_document_posted_by_hand_is_named_with_what_to_do) {
    auto data = suite.data();
    EXPECT_FALSE(data->IsDocumentPosted("CHEQUE", "CH-1"));
    EXPECT_EQ(data->LastErrorText(), "");
    mark_posted(connection, "cheque", "CH-1", "AUDITOR");
    mark_posted(connection, "CHEQUE", "CH-1", "AUDITOR");
    EXPECT_TRUE(data->IsDocumentPosted("CHEQUE", "CH-1"));
    EXPECT_EQ(data->LastErrorText(), "CHEQUE: CH-1, cancele antes su registro en contabilidad");
    EXPECT_TRUE(unmark_posted(connection, "CHEQUE", "CH-1"));
    EXPECT_FALSE(unmark_posted(connection, "CHEQUE", "CH-1"));
    EXPECT_FALSE(data->IsDocumentPosted("CHEQUE", "CH-1"));
}

TEST_F(Data, a_payment_line_needs_what_its_method_requires) {
    auto methods = suite.payment_methods();
    const auto accepts = [&](const char* method, const char* number, const char* bank) {
        return methods->ValidatePaymentLine(method, number, bank, 100, "RECIBO_PAGO", "RP-1", "", "");
    };
    EXPECT_TRUE(accepts("01", "", ""));
    EXPECT_TRUE(accepts("02", "1234", "Banco del Puerto"));
    EXPECT_EQ(methods->LastError(), "");
    EXPECT_FALSE(accepts("02", "1234", ""));
    EXPECT_EQ(methods->LastError(), "La forma de pago: 02 Cheque, requiere un banco; indique el banco emisor");
    EXPECT_FALSE(accepts("04", "", ""));
    EXPECT_EQ(
        methods->LastError(),
        "La forma de pago: 04 Tarjeta de crédito, requiere una referencia; indique el número de cheque o de operación");
    EXPECT_FALSE(accepts("99", "", ""));
    EXPECT_EQ(methods->LastError(), "La forma de pago: 99, no existe o está dada de baja; elija otra");
    EXPECT_TRUE(methods->ReleasePaymentLine("02", "1234", ""));
    EXPECT_EQ(methods->LastError(), "");
}

}  // namespace
}  // namespace cuvexa::tests
