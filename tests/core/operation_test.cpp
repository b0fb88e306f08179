// The frame of an operation: what becomes of refusals and failures, and the reports of trapped accessors.
#include "core/operation.h"

#include <new>

#include "core/posting.h"
#include "core/report.h"
#include "core/validations.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

constexpr auto tag = "Cuvexa.dll - Prueba()";

class Frame : public ::testing::Test {
protected:
    /// Runs a body in the frame, with something left in the text by an operation before.
    template <class Body>
    bool run(Body&& body, std::string_view with_tag = tag) {
        error = "de antes";
        return operation(company.module(), error, with_tag, std::forward<Body>(body));
    }

    Company company;
    std::string error;
};

TEST_F(Frame, empties_the_error_before_the_body_runs) {
    std::string seen = "not looked at";
    EXPECT_TRUE(run([&](Operation&) { seen = error; }));
    EXPECT_EQ(seen, "");
    EXPECT_EQ(error, "");
}

TEST_F(Frame, a_success_leaves_no_error_though_a_member_called_inside_failed) {
    EXPECT_TRUE(run([&](Operation&) { error = "of a member whose result the body did not mind"; }));
    EXPECT_EQ(error, "");
}

TEST_F(Frame, a_plain_refusal_is_the_message_alone) {
    EXPECT_FALSE(run([](Operation& op) { op.refuse_plain_if(true, "La moneda: {}, no existe", "XXX"); }));
    EXPECT_EQ(error, "La moneda: XXX, no existe");
}

TEST_F(Frame, a_tagged_refusal_stands_behind_the_tag_and_a_line_break) {
    EXPECT_FALSE(run([](Operation& op) { op.refuse_if(true, "No existe: {}", 7); }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nNo existe: 7");
    EXPECT_FALSE(run([](Operation& op) { op.refuse("No existe"); }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nNo existe");
}

TEST_F(Frame, nothing_after_a_refusal_runs_and_a_condition_that_is_false_refuses_nothing) {
    bool reached = false;
    EXPECT_FALSE(run([&](Operation& op) {
        op.refuse_if(false, "no");
        op.refuse_plain_if(false, "no");
        op.relay_unless(true);
        op.pass_on_unless(true);
        op.refuse("sí");
        reached = true;
    }));
    EXPECT_FALSE(reached);
}

TEST_F(Frame, the_text_of_a_member_called_inside_is_relayed_behind_the_tag_and_so_nests) {
    EXPECT_FALSE(run([&](Operation& outer) {
        outer.relay_unless(
            operation(company.module(), error, "Cuvexa.dll - Dentro()", [](Operation& inner) { inner.refuse("mal"); }));
    }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nCuvexa.dll - Dentro()\r\nmal");
}

TEST_F(Frame, the_text_of_a_member_called_inside_can_be_passed_on_unchanged) {
    EXPECT_FALSE(run([&](Operation& outer) {
        outer.pass_on_unless(
            operation(company.module(), error, "Cuvexa.dll - Dentro()", [](Operation& inner) { inner.refuse("mal"); }));
    }));
    EXPECT_EQ(error, "Cuvexa.dll - Dentro()\r\nmal");
}

TEST_F(Frame, the_last_error_of_a_service_is_asked_only_after_its_failure) {
    struct {
        int asked = 0;
        std::string LastError() {
            ++asked;
            return "no alcanza";
        }
    } service;
    EXPECT_TRUE(run([&](Operation& op) {
        op.relay_unless(true, service);
        op.pass_on_unless(true, service);
    }));
    EXPECT_EQ(service.asked, 0);
    EXPECT_FALSE(run([&](Operation& op) { op.relay_unless(false, service); }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nno alcanza");
    EXPECT_FALSE(run([&](Operation& op) { op.pass_on_unless(false, service); }));
    EXPECT_EQ(error, "no alcanza");
    EXPECT_EQ(service.asked, 2);
}

TEST_F(Frame, the_data_service_is_asked_for_its_own_last_error) {
    company.on.refuse("RegisterDocument", "sin registro");
    EXPECT_FALSE(run([](Operation& op) { op.relay_unless(op.data().RegisterDocument("CHEQUE", "CH-1"), op.data()); }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nsin registro");
}

TEST_F(Frame, an_operation_may_speak_under_another_tag) {
    EXPECT_FALSE(run([](Operation& op) { op.under("Cuvexa.dll - Otra()").refuse("mal"); }));
    EXPECT_EQ(error, "Cuvexa.dll - Otra()\r\nmal");
}

TEST_F(Frame, any_failure_becomes_the_tag_and_its_description_without_its_number) {
    EXPECT_FALSE(run([](Operation&) { throw Automation_error(13, "No coinciden los tipos"); }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nNo coinciden los tipos");
    EXPECT_FALSE(run([](Operation&) { throw Database_error("no such table: X"); }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nno such table: X");
    EXPECT_FALSE(run([](Operation&) { throw std::bad_alloc(); }));
    EXPECT_EQ(error.substr(0, 23), "Cuvexa.dll - Prueba()\r\n");
    EXPECT_FALSE(run([](Operation&) { throw 7; }));
    EXPECT_EQ(error, "Cuvexa.dll - Prueba()\r\nError desconocido");
}

TEST_F(Frame, without_a_tag_a_failure_is_its_description_alone) {
    EXPECT_FALSE(run([](Operation&) { throw 7; }, ""));
    EXPECT_EQ(error, "Error desconocido");
    EXPECT_FALSE(run([](Operation&) { throw Database_error("no such table: X"); }, ""));
    EXPECT_EQ(error, "no such table: X");
}

TEST_F(Frame, a_query_composes_into_the_module_s_buffer_and_reads_by_name) {
    EXPECT_TRUE(run([](Operation& op) {
        const Rows rows = op.query("SELECT * FROM Moneda WHERE Mn_Cve_Moneda = '{}'", "MXN");
        ASSERT_FALSE(rows.eof());
        EXPECT_EQ(rows.text("mn_descripcion"), "Peso mexicano");
        EXPECT_THROW(rows.number("Mn_Descripcion"), Automation_error);
        EXPECT_THROW(rows.text("Mn_Nada"), Database_error);
        EXPECT_EQ(op.module().statement(), "SELECT * FROM Moneda WHERE Mn_Cve_Moneda = 'MXN'");
    }));
    EXPECT_THAT(company.statements(), ElementsAre("SELECT * FROM Moneda WHERE Mn_Cve_Moneda = 'MXN'"));
}

TEST_F(Frame, rows_stay_readable_while_another_statement_is_composed) {
    EXPECT_TRUE(run([](Operation& op) {
        Rows rows = op.query("SELECT Mn_Cve_Moneda FROM Moneda ORDER BY Mn_Cve_Moneda");
        std::string all;
        for (; !rows.eof(); rows.next()) {
            op.execute("UPDATE Moneda SET Mn_Simbolo = 'x' WHERE Mn_Cve_Moneda = '{}'", rows.text("Mn_Cve_Moneda"));
            all += rows.text("Mn_Cve_Moneda") + " ";
        }
        EXPECT_EQ(all, "EUR MXN USD ");
        EXPECT_THROW(rows.next(), Database_error);
        EXPECT_THROW(rows.text("Mn_Cve_Moneda"), Database_error);
    }));
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Moneda WHERE Mn_Simbolo = 'x'"), "3");
}

TEST_F(Frame, the_server_stamp_is_date_and_time) {
    EXPECT_TRUE(run([](Operation& op) { EXPECT_EQ(op.server_stamp(), "2024-03-15 10:20:30"); }));
}

// ---- Reports of trapped accessors -----------------------------------------------------------------------------------

TEST_F(Frame, a_report_carries_description_icon_routine_no_title_project_and_code) {
    company.mark();
    reporting(company.module(), "Property Let Detalle()", "ERR-ID:7500012",
              [] { throw std::runtime_error("sin memoria"); });
    EXPECT_THAT(company.on.reports_in_full,
                ElementsAre(Report{"sin memoria", 16, "Property Let Detalle()", "", "Cuvexa", "ERR-ID:7500012"}));
    reporting(company.module(), "Property Let Detalle()", "ERR-ID:7500012", [] {});
    EXPECT_EQ(company.on.reports_in_full.size(), 1u);
}

// ---- Shared validations ---------------------------------------------------------------------------------------------

TEST_F(Frame, each_shared_validation_is_said_with_or_without_the_tag) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    company.on.replica = true;
    const auto text_of = [&](auto validation, Wording wording) {
        EXPECT_FALSE(run([&](Operation& op) { validation(op, wording); }));
        return error;
    };
    const auto both = [&](auto validation, const std::string& message) {
        EXPECT_EQ(text_of(validation, Wording::plain), message);
        EXPECT_EQ(text_of(validation, Wording::tagged), "Cuvexa.dll - Prueba()\r\n" + message);
    };
    both([](Operation& op, Wording wording) { check_central_server(op, "", wording); },
         "Esta operación solo puede realizarse en el servidor central");
    both([](Operation& op, Wording wording) { check_central_server(op, "SUR", wording); },
         "Esta operación solo puede realizarse en el servidor con id: SUR\r\nel id del servidor actual es: CENTRAL");
    both([](Operation& op, Wording wording) { check_same_day(op, make_date(2024, 3, 1), wording); },
         "No es posible realizar esta operación, la fecha del documento no es del día actual\r\n"
         "Fecha del documento: 01/03/2024, fecha del día: 15/03/2024");
    both([](Operation& op, Wording wording) { check_operating_period(op, make_date(2023, 3, 1), wording); },
         "El período operativo correspondiente a la fecha: 01-03-2023, está cerrado o no existe!");
    both([](Operation& op, Wording wording) { check_currency(op, "EUR", wording); },
         "La moneda: EUR, no existe o está dada de baja");
    both([](Operation& op, Wording wording) { check_rate(op, -0.5, wording); },
         "El tipo de cambio: -0.5, no es válido");
    both([](Operation& op, Wording wording) { check_rate(op, 0, wording); }, "El tipo de cambio: 0, no es válido");
}

TEST_F(Frame, shared_validations_let_the_good_ones_pass) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    EXPECT_TRUE(run([](Operation& op) {
        check_central_server(op, "", Wording::plain);
        check_central_server(op, "CENTRAL", Wording::plain);
        check_same_day(op, make_date(2024, 3, 15, 23, 59, 59), Wording::plain);
        check_operating_period(op, make_date(2024, 3, 31, 23, 59, 59), Wording::plain);
        check_currency(op, "USD", Wording::plain);
        check_rate(op, 0.0001, Wording::plain);
    })) << error;
}

TEST_F(Frame, the_central_server_is_asked_for_only_by_a_branch_without_server) {
    company.mark();
    EXPECT_TRUE(run([](Operation& op) { check_central_server(op, "CENTRAL", Wording::plain); }));
    EXPECT_THAT(company.on.asked, IsEmpty());
}

TEST_F(Frame, out_of_real_time_the_server_s_date_is_not_even_asked) {
    company.mark();
    EXPECT_TRUE(run([](Operation& op) { check_same_day(op, make_date(1999, 1, 1), Wording::plain); }));
    EXPECT_THAT(company.on.asked, IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
