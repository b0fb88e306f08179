// The audit's advice where a caller's own values stand in its way.
#include "interruptions/advice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/company.h"

namespace cuvexa::tests {
namespace {

class Advised : public ::testing::Test {
protected:
    void expect_finding(const std::string& check) {
        const auto findings = audit(company.connection());
        ASSERT_EQ(findings.size(), 1u);
        EXPECT_EQ(findings.front().check, check);
    }

    /// What is found still when the advice was followed, and what was done.
    std::string after_advice() {
        const Desk desk{company.treasury(), *company.suite(), company.connection()};
        const Followed followed = follow_to_the_end(desk, [&] { return audit(company.connection()); });
        return followed.left.empty() ? "" : followed.left.front().check + ", after:" + followed.told;
    }

    Company company;
};

TEST_F(Advised, a_receipt_with_the_folio_of_a_deposit_that_nobody_made_can_be_cancelled) {
    tRpEncabezado header = Company::receipt_header("02", "CL01");
    header.Rp_Folio_Deposito = "DP-MTY-99999999";
    const std::string folio = company.capture_receipt({Company::receipt_line(6)}, header);
    ASSERT_TRUE(company.treasury().FinReciboCaja(folio)) << company.treasury().Error();
    company.sql("UPDATE Pago_Cxc SET Pc_Importe_Pago = Pc_Importe_Pago - 1 WHERE Pc_Documento = '" + folio + "'");
    expect_finding("recibo-y-aplicacion-difieren");
    EXPECT_FALSE(company.treasury().Cancelar_Recibo_Caja(folio, true, true)) << "the folio stands in the way";
    EXPECT_EQ(after_advice(), "");
}

TEST_F(Advised, a_folio_may_have_the_blank_of_its_branch) {
    company.sql(
        "INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Mn_Cve_Moneda, Cxa_Importe, Es_Cve_Estado) VALUES "
        "('CH-MTY -00000001', '0001', 'MXN', 5, 'AC')");
    expect_finding("cheque-sin-encabezado");
    EXPECT_EQ(after_advice(), "");
}

}  // namespace
}  // namespace cuvexa::tests
