// Authorization and cancellation of a check request.
#include "support/company_test.h"

namespace cuvexa::tests {
namespace {

const std::string authorize_tag = "Cuvexa.dll - Autorizar_Solicitud_Cheque()\r\n";
const std::string cancel_tag = "Cuvexa.dll - Cancelar_Solicitud_Cheque()\r\n";

class Written_request : public Company_test {
protected:
    Written_request() {
        request("S-1", "PXA");
        line("S-1", "0001", "PXA");
        line("S-1", "0002", "PXA");
        request("S-2", "PXA");  // never touched
        line("S-2", "0001", "PXA");
    }

    void request(const std::string& folio, const std::string& state) {
        run("INSERT INTO Solicitud_Cheque (Sch_Folio, Es_Cve_Estado) VALUES ('" + folio + "', '" + state + "')");
    }

    void line(const std::string& folio, const std::string& id, const std::string& state) {
        run("INSERT INTO Solicitud_Cheque_Detalle (Sch_Folio, Scd_Id, Es_Cve_Estado) VALUES ('" + folio + "', '" + id +
            "', '" + state + "')");
    }

    void check(const std::string& folio, const std::string& request, const std::string& state,
               const std::string& table = "SOLICITUD_CHEQUE") {
        run("INSERT INTO Cheque (Ch_Folio, Ch_Tabla, Ch_Documento, Es_Cve_Estado) VALUES ('" + folio + "', '" + table +
            "', '" + request + "', '" + state + "')");
    }

    bool authorize(const std::string& folio = "S-1") { return treasury().Autorizar_Solicitud_Cheque(folio); }
    bool cancel(const std::string& folio = "S-1") { return treasury().Cancelar_Solicitud_Cheque(folio); }
};

// ---- Authorization --------------------------------------------------------------------------------------------------

TEST_F(Written_request, is_authorized_with_all_its_lines_and_without_a_trace_of_who_did_it) {
    EXPECT_THAT(changes([this] { return authorize(); }, true),
                ElementsAre("~ Solicitud_Cheque S-1: Es_Cve_Estado PXA -> AC",
                            "~ Solicitud_Cheque_Detalle S-1/0001: Es_Cve_Estado PXA -> AC",
                            "~ Solicitud_Cheque_Detalle S-1/0002: Es_Cve_Estado PXA -> AC"));
}

TEST_F(Written_request, authorized_twice_changes_nothing_more) {
    ASSERT_TRUE(authorize());
    EXPECT_THAT(changes([this] { return authorize(); }), IsEmpty());
}

TEST_F(Written_request, without_lines_is_authorized_all_the_same) {
    request("S-3", "PXA");
    EXPECT_THAT(changes([this] { return authorize("S-3"); }),
                ElementsAre("~ Solicitud_Cheque S-3: Es_Cve_Estado PXA -> AC"));
    EXPECT_EQ(on.statements.size(), 3u);
}

TEST_F(Written_request, authorization_brings_cancelled_lines_back_when_one_is_live) {
    request("S-3", "PXA");
    line("S-3", "0001", "CA");
    line("S-3", "0002", "PXA");
    changes([this] { return authorize("S-3"); });
    EXPECT_THAT(rows("Solicitud_Cheque_Detalle", "Scd_Id, Es_Cve_Estado", "Sch_Folio = 'S-3'"),
                ElementsAre("0001|AC", "0002|AC"));
}

TEST_F(Written_request, authorization_leaves_the_lines_cancelled_when_all_are) {
    request("S-3", "PXA");
    line("S-3", "0001", "CA");
    EXPECT_THAT(changes([this] { return authorize("S-3"); }),
                ElementsAre("~ Solicitud_Cheque S-3: Es_Cve_Estado PXA -> AC"));
}

TEST_F(Written_request, authorization_refuses_an_empty_folio_before_it_looks) {
    expect_refusal(authorize_tag + "Debe especificar un folio válido para la solicitud",
                   [this] { return authorize(""); });
    EXPECT_THAT(on.statements, IsEmpty());
}

TEST_F(Written_request, authorization_refuses_a_request_that_does_not_exist_or_is_cancelled) {
    const std::string message = authorize_tag + "La solicitud de cheque no existe o está de baja";
    expect_refusal(message, [this] { return authorize("S-9"); });
    request("S-3", "CA");
    line("S-3", "0001", "PXA");
    expect_refusal(message, [this] { return authorize("S-3"); });
}

TEST_F(Written_request, authorization_that_fails_in_the_database_leaves_what_it_did) {
    const std::string failure = authorize_tag + obstructed::statement_failure;
    const std::string header = "~ Solicitud_Cheque S-1: Es_Cve_Estado PXA -> AC";
    on.failing_statement = 1;
    EXPECT_THAT(left_by(failure, [this] { return authorize(); }), IsEmpty());
    on.failing_statement = 2;
    EXPECT_THAT(left_by(failure, [this] { return authorize(); }), IsEmpty());
    on.failing_statement = 3;
    EXPECT_THAT(left_by(failure, [this] { return authorize(); }), ElementsAre(header));
    on.failing_statement = 4;
    EXPECT_THAT(left_by(failure, [this] { return authorize("S-2"); }),
                ElementsAre("~ Solicitud_Cheque S-2: Es_Cve_Estado PXA -> AC"));
}

// ---- Cancellation ---------------------------------------------------------------------------------------------------

TEST_F(Written_request, is_cancelled_lines_first) {
    EXPECT_THAT(changes([this] { return cancel(); }, true),
                ElementsAre("~ Solicitud_Cheque S-1: Oper_Baja  -> CAJA1, Fecha_Baja NULL -> 2024-03-15 10:20:30, "
                            "Es_Cve_Estado PXA -> CA",
                            "~ Solicitud_Cheque_Detalle S-1/0001: Oper_Baja  -> CAJA1, Fecha_Baja NULL -> "
                            "2024-03-15 10:20:30, Es_Cve_Estado PXA -> CA",
                            "~ Solicitud_Cheque_Detalle S-1/0002: Oper_Baja  -> CAJA1, Fecha_Baja NULL -> "
                            "2024-03-15 10:20:30, Es_Cve_Estado PXA -> CA"));
}

TEST_F(Written_request, is_cancelled_when_active_as_when_waiting) {
    ASSERT_TRUE(authorize());
    EXPECT_TRUE(cancel()) << treasury().Error();
    EXPECT_THAT(rows("Solicitud_Cheque", "Es_Cve_Estado", "Sch_Folio = 'S-1'"), ElementsAre("CA"));
}

TEST_F(Written_request, cancellation_refuses_an_empty_folio_before_it_looks) {
    expect_refusal(cancel_tag + "Debe especificar un folio válido para la solicitud", [this] { return cancel(""); });
    EXPECT_THAT(on.statements, IsEmpty());
}

TEST_F(Written_request, cancellation_refuses_a_folio_of_no_request) {
    check("C-1", "S-9", "AC");
    expect_refusal(cancel_tag + "Imposible localizar la solicitud de cheque! \r\nSolicitud: S-9",
                   [this] { return cancel("S-9"); });
}

TEST_F(Written_request, cancelled_twice_is_refused_also_when_a_check_pays_it) {
    ASSERT_TRUE(cancel());
    check("C-1", "S-1", "AC");
    expect_refusal(cancel_tag + "La solicitud de cheque ya está cancelada! \r\nSolicitud: S-1",
                   [this] { return cancel(); });
}

TEST_F(Written_request, paid_by_a_live_check_is_not_cancelled_and_the_lowest_folio_is_named) {
    check("C-0", "S-1", "CA");
    check("C-2", "S-1", "PXA");
    check("C-1", "S-1", "AP");
    expect_refusal(
        cancel_tag + "La solicitud ya está aplicada\r\nDebe cancelar el cheque antes de continuar\r\nCheque: C-1",
        [this] { return cancel(); });
}

TEST_F(Written_request, paid_by_a_cancelled_check_or_another_document_of_that_folio_is_cancelled) {
    check("C-0", "S-1", "CA");
    check("C-1", "S-1", "AC", "ORDEN_COMPRA");
    check("C-2", "S-2", "AC");
    EXPECT_TRUE(cancel()) << treasury().Error();
}

TEST_F(Written_request, cancellation_that_fails_between_its_two_writes_leaves_cancelled_lines_under_a_live_header) {
    const std::string failure = cancel_tag + obstructed::statement_failure;
    for (const std::size_t n : {1u, 2u, 3u}) {
        on.failing_statement = n;
        EXPECT_THAT(left_by(failure, [this] { return cancel(); }), IsEmpty());
    }
    on.failing_statement = 4;
    left_by(failure, [this] { return cancel(); });
    EXPECT_THAT(rows("Solicitud_Cheque", "Es_Cve_Estado", "Sch_Folio = 'S-1'"), ElementsAre("PXA"));
    EXPECT_THAT(rows("Solicitud_Cheque_Detalle", "Es_Cve_Estado", "Sch_Folio = 'S-1'"), ElementsAre("CA", "CA"));
}

TEST_F(Written_request, a_service_that_does_not_answer_is_reported_behind_the_tag) {
    on.fail("GetServerDate", obstructed::call_failure);
    expect_refusal(cancel_tag + obstructed::call_failure, [this] { return cancel(); });
}

}  // namespace
}  // namespace cuvexa::tests
