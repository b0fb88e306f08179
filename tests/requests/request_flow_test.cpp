// A check request with the reference services: from its capture to its end, and every failure on the way.
#include "support/in_turn.h"

namespace cuvexa::tests {
namespace {

bool capture(Company& company) {
    company.treasury().SchEncabezado(Company::request_header());
    return company.treasury().Add_Solicitud_Cheque();
}

std::string folio(Company& company) {
    return company.treasury().SchEncabezado().Sch_Folio;
}

bool add_line(Company& company) {
    company.treasury().SchDetalle(Company::request_line(folio(company)));
    return company.treasury().Add_Solicitud_Cheque_Detalle();
}

/// Issues the check that pays the request.
bool pay(Company& company) {
    tTsEncabezado check = Company::check_header();
    check.Ch_Tabla = "SOLICITUD_CHEQUE";
    check.Ch_Documento = folio(company);
    return company.treasury().Crear_Cheque_Pago_Proveedor(company.capture_check({Company::check_line(120)}, check));
}

TEST(Check_request_flow, a_request_is_authorized_paid_and_cancelled_once_its_check_is) {
    Company company;
    company.set_parameter("TES_AUTORIZAR_SOLICITUD_CHEQUE", "1");
    Tesoreria& treasury = company.treasury();
    ASSERT_TRUE(capture(company)) << treasury.Error();
    ASSERT_TRUE(add_line(company)) << treasury.Error();
    const std::string request = folio(company);
    const std::string states =
        "SELECT Solicitud_Cheque.Es_Cve_Estado, Solicitud_Cheque_Detalle.Es_Cve_Estado FROM "
        "Solicitud_Cheque INNER JOIN Solicitud_Cheque_Detalle ON Solicitud_Cheque.Sch_Folio = "
        "Solicitud_Cheque_Detalle.Sch_Folio WHERE Solicitud_Cheque.Sch_Folio = '" +
        request + "'";
    EXPECT_THAT(company.rows(states), ElementsAre("PXA|PXA"));
    ASSERT_TRUE(treasury.Autorizar_Solicitud_Cheque(request)) << treasury.Error();
    EXPECT_THAT(company.rows(states), ElementsAre("AC|AC"));

    ASSERT_TRUE(pay(company)) << treasury.Error();
    const std::string check = treasury.Encabezado().Ch_Folio;
    EXPECT_FALSE(treasury.Cancelar_Solicitud_Cheque(request));
    EXPECT_EQ(
        treasury.Error(),
        "Cuvexa.dll - Cancelar_Solicitud_Cheque()\r\nLa solicitud ya está aplicada\r\nDebe cancelar el cheque antes "
        "de continuar\r\nCheque: " +
            check);
    ASSERT_TRUE(treasury.Cancelar_Cheque(check)) << treasury.Error();
    ASSERT_TRUE(treasury.Cancelar_Solicitud_Cheque(request)) << treasury.Error();
    EXPECT_THAT(company.rows(states), ElementsAre("CA|CA"));
}

struct Stage {
    std::string name;
    Preparation prepare;
    Call call;
};

std::ostream& operator<<(std::ostream& out, const Stage& stage) {
    return out << stage.name;
}

void start(Company& company) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    company.set_parameter("GEN_VALIDAR_PERIODO_OPERATIVO", "1");
}

void captured(Company& company) {
    start(company);
    ASSERT_TRUE(capture(company)) << company.treasury().Error();
}

void with_line(Company& company) {
    captured(company);
    ASSERT_TRUE(add_line(company)) << company.treasury().Error();
}

class Check_request_stage : public ::testing::TestWithParam<Stage> {};

TEST_P(Check_request_stage, reports_any_failure_behind_its_tag) {
    const std::string tag = "Cuvexa.dll - " + GetParam().name + "()\r\n";
    std::vector<Outcome> outcomes = statements_fail_in_turn(GetParam().prepare, GetParam().call);
    const std::vector<Outcome> calls = calls_fail_in_turn(GetParam().prepare, GetParam().call);
    EXPECT_FALSE(outcomes.empty());
    outcomes.insert(outcomes.end(), calls.begin(), calls.end());
    for (const Outcome& outcome : outcomes) EXPECT_THAT(outcome.error, ::testing::StartsWith(tag)) << outcome.failed;
}

INSTANTIATE_TEST_SUITE_P(
    Of, Check_request_stage,
    ::testing::Values(
        Stage{"Add_Solicitud_Cheque", start, capture}, Stage{"Add_Solicitud_Cheque_Detalle", captured, add_line},
        Stage{"Autorizar_Solicitud_Cheque", with_line,
              [](Company& company) { return company.treasury().Autorizar_Solicitud_Cheque(folio(company)); }},
        Stage{"Cancelar_Solicitud_Cheque", with_line,
              [](Company& company) { return company.treasury().Cancelar_Solicitud_Cheque(folio(company)); }}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace cuvexa::tests
