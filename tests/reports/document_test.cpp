// A document's page: what belongs to it, what happened to it, and the links both ways.
#include "reports/document.h"

#include <algorithm>

#include "reports/findings.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

using reports::Document;
using Texts = std::vector<std::string>;
using testing::Contains;
using testing::IsSupersetOf;
using testing::Not;
using testing::SizeIs;

class Reports_document : public testing::Test {
protected:
    Document page(const char* view, const std::string& folio) {
        auto found = read_document({company.connection(), Date_style::iso}, *reports::find_view(view), folio);
        if (!found) throw std::runtime_error(folio + " is not there");
        return std::move(*found);
    }

    static std::vector<std::string> links(const Document& document) {
        std::vector<std::string> texts;
        for (const auto& link : document.links) texts.push_back(std::string(link.to.kind) + " " + link.to.folio);
        return texts;
    }

    /// "Captura AC", "Depósito AD DP-MTY-00000001"
    static std::vector<std::string> life(const Document& document) {
        std::vector<std::string> texts;
        for (const auto& event : document.life) {
            std::string text = event.name + (event.state.empty() ? "" : " " + event.state);
            if (!event.document.folio.empty()) text += " " + event.document.folio;
            texts.push_back(text);
        }
        return texts;
    }

    static const reports::Related_rows& related(const Document& document, std::string_view name) {
        return *std::find_if(document.related.begin(), document.related.end(),
                             [&](const auto& rows) { return rows.name == name; });
    }

    /// Every link of that page leads to a page that leads back.
    void expect_links_both_ways(const char* view, const std::string& folio) {
        for (const auto& link : page(view, folio).links) {
            if (link.to.kind == "accounts") continue;
            const Document there = page(std::string(link.to.kind).c_str(), link.to.folio);
            EXPECT_THAT(links(there), Contains(std::string(view) + " " + folio)) << link.to.folio;
        }
    }

    std::string deposited_receipt() {
        const std::string folio =
            company.capture_receipt({Company::receipt_line(100), Company::receipt_line(50, "05", "", "V1")});
        EXPECT_TRUE(company.treasury().FinReciboCaja(folio)) << company.treasury().Error();
        EXPECT_TRUE(company.treasury().Genera_Deposito("SRR-MXN", folio, Company::today(), false, Company::today()))
            << company.treasury().Error();
        return folio;
    }

    Company company;
};

TEST_F(Reports_document, a_receipt_shows_its_lines_its_deposit_and_its_movement) {
    company.post_automatically("RECIBO_PAGO");
    const std::string folio = deposited_receipt();
    const Document receipt = page("receipts", folio);
    EXPECT_EQ(receipt.state, "DP");
    EXPECT_THAT(receipt.lines.rows, SizeIs(2));
    EXPECT_THAT(life(receipt), ElementsAre("Captura AC", "Registro", "Depósito DP DP-MTY-00000001"));
    EXPECT_EQ(receipt.life[0].who, "CAJA1");
    EXPECT_EQ(receipt.life[0].when, "2024-03-15T10:20:30");
    EXPECT_THAT(links(receipt), IsSupersetOf(Texts{"deposits DP-MTY-00000001", "movements BM-00000001"}));
    EXPECT_THAT(related(receipt, "movements").table.rows, SizeIs(1));
    const auto& vouchers = related(receipt, "vouchers");
    ASSERT_THAT(vouchers.table.rows, SizeIs(1));
    EXPECT_THAT(vouchers.lines, SizeIs(1));
    EXPECT_THAT(vouchers.lines[0].rows, SizeIs(testing::Ge(2)));
}

TEST_F(Reports_document, receipts_deposits_and_movements_lead_to_each_other) {
    const std::string folio = deposited_receipt();
    const Document deposit = page("deposits", "DP-MTY-00000001");
    EXPECT_THAT(links(deposit),
                IsSupersetOf(Texts{"accounts SRR-MXN", "receipts " + folio, std::string("movements BM-00000001")}));
    EXPECT_THAT(links(page("movements", "BM-00000001")),
                IsSupersetOf(Texts{"accounts SRR-MXN", "deposits DP-MTY-00000001"}));
    expect_links_both_ways("deposits", "DP-MTY-00000001");
}

TEST_F(Reports_document, a_cancelled_document_tells_who_cancelled_it) {
    const std::string folio = deposited_receipt();
    ASSERT_TRUE(company.treasury().Cancelar_Deposito("DP-MTY-00000001"));
    EXPECT_THAT(life(page("deposits", "DP-MTY-00000001")), ElementsAre("Captura AC", "Registro", "Cancelación CA"));
    EXPECT_EQ(page("deposits", "DP-MTY-00000001").life.back().who, "CAJA1");
    EXPECT_THAT(life(page("receipts", folio)), ElementsAre("Captura AC", "Registro"));
    EXPECT_THAT(links(page("receipts", folio)), Not(Contains("deposits DP-MTY-00000001")));
    EXPECT_THAT(life(page("movements", "BM-00000001")), ElementsAre("Captura", "Registro", "Cancelación CA"));
}

TEST_F(Reports_document, a_check_leads_to_what_it_pays_and_is_found_from_there) {
    const std::string folio =
        company.capture_check({Company::check_line(1000), Company::check_line(500, "CXP-MTY-00000002")});
    ASSERT_TRUE(company.treasury().Crear_Cheque_Pago_Proveedor(folio)) << company.treasury().Error();
    ASSERT_TRUE(company.treasury().Aplicar_Cheque(folio, Company::today(), true)) << company.treasury().Error();
    const Document check = page("checks", folio);
    EXPECT_EQ(check.state, "AP");
    EXPECT_THAT(life(check), ElementsAre("Captura AC", "Movimiento bancario BM-00000001", "Aplicación AP"));
    EXPECT_THAT(links(check), IsSupersetOf(Texts{"payables CXP-MTY-00000001", "payables CXP-MTY-00000002",
                                                 "movements BM-00000001", "accounts SRR-MXN"}));
    EXPECT_THAT(related(check, "payments").table.rows, SizeIs(2));
    EXPECT_THAT(related(check, "payables").table.rows, SizeIs(2));
    expect_links_both_ways("checks", folio);
    EXPECT_THAT(life(page("movements", "BM-00000001")), Contains("En firme FI").Times(0))
        << "firm from the moment when it was captured";
}

TEST_F(Reports_document, a_loan_leads_from_its_check_to_its_receivable_and_back) {
    company.treasury().Nuevo();
    company.treasury().Encabezado(Company::check_header("0004", "DE01"));
    company.treasury().Detalle(Company::check_line(400, ""));
    ASSERT_TRUE(company.treasury().Crear_Cheque_Deudor()) << company.treasury().Error();
    const std::string folio = company.treasury().Encabezado().Ch_Folio;
    ASSERT_TRUE(company.treasury().Aplicar_Cheque(folio, Company::today(), false)) << company.treasury().Error();
    EXPECT_THAT(related(page("checks", folio), "receivables").table.rows, SizeIs(1));
    expect_links_both_ways("checks", folio);
    ASSERT_TRUE(company.treasury().Cancelar_Aplicacion_Cheque(folio)) << company.treasury().Error();
    EXPECT_THAT(related(page("checks", folio), "receivables").table.rows, SizeIs(1)) << "withdrawn, and still told";
    expect_links_both_ways("checks", folio);
}

TEST_F(Reports_document, a_receipt_of_a_customer_leads_to_what_it_paid_and_what_was_left) {
    const std::string folio =
        company.capture_receipt({Company::receipt_line(1000000)}, Company::receipt_header("02", "CL01"));
    ASSERT_TRUE(company.treasury().FinReciboCaja(folio)) << company.treasury().Error();
    const Document receipt = page("receipts", folio);
    EXPECT_THAT(life(receipt), ElementsAre("Captura AC", "Registro AP"));
    EXPECT_THAT(related(receipt, "advances").table.rows, SizeIs(1));
    EXPECT_THAT(related(receipt, "payments").table.rows, Not(IsEmpty()));
    expect_links_both_ways("receipts", folio);
}

TEST_F(Reports_document, a_request_leads_to_the_check_that_pays_it) {
    company.treasury().SchEncabezado(Company::request_header());
    ASSERT_TRUE(company.treasury().Add_Solicitud_Cheque()) << company.treasury().Error();
    const std::string request = company.treasury().SchEncabezado().Sch_Folio;
    tSchDetalle line = Company::request_line(request);
    line.Scd_Tabla = "CUENTA_X_PAGAR";
    company.treasury().SchDetalle(line);
    ASSERT_TRUE(company.treasury().Add_Solicitud_Cheque_Detalle()) << company.treasury().Error();
    tTsEncabezado header = Company::check_header();
    header.Ch_Tabla = "SOLICITUD_CHEQUE";
    header.Ch_Documento = request;
    const std::string check = company.capture_check({Company::check_line(100)}, header);
    ASSERT_TRUE(company.treasury().Crear_Cheque_Pago_Proveedor(check)) << company.treasury().Error();
    EXPECT_THAT(life(page("requests", request)), ElementsAre("Captura AC", "Cheque " + check));
    EXPECT_THAT(links(page("requests", request)),
                IsSupersetOf(Texts{"checks " + check, std::string("payables CXP-MTY-00000001")}));
    expect_links_both_ways("requests", request);
}

TEST_F(Reports_document, a_request_tells_who_authorized_it) {
    company.set_parameter("TES_AUTORIZAR_SOLICITUD_CHEQUE", "1");
    company.treasury().SchEncabezado(Company::request_header());
    ASSERT_TRUE(company.treasury().Add_Solicitud_Cheque()) << company.treasury().Error();
    const std::string request = company.treasury().SchEncabezado().Sch_Folio;
    EXPECT_THAT(life(page("requests", request)), ElementsAre("Captura PXA"));
    company.connection().execute("UPDATE Solicitud_Cheque SET Oper_Alta = 'ANA', Fecha_Alta = '2024-03-14T09:00:00'");
    ASSERT_TRUE(company.treasury().Autorizar_Solicitud_Cheque(request)) << company.treasury().Error();
    const Document authorized = page("requests", request);
    EXPECT_THAT(life(authorized), ElementsAre("Captura", "Autorización AC"));
    EXPECT_EQ(authorized.life[0].who, "ANA");
    EXPECT_EQ(authorized.life[1].who, "CAJA1");
}

TEST_F(Reports_document, what_is_not_there_has_no_page) {
    EXPECT_FALSE(read_document({company.connection()}, *reports::find_view("receipts"), "RP-MTY-00000001"));
    EXPECT_FALSE(read_document({company.connection()}, *reports::find_view("receipts"), "' OR '1'='1"));
}

TEST_F(Reports_document, a_finding_of_the_audit_leads_to_its_document) {
    const std::string folio = deposited_receipt();
    company.sql("UPDATE Banco_Cuenta SET Bc_Saldo = 7 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    company.sql("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA' WHERE Bm_Folio = 'BM-00000001'");
    std::vector<std::string> found;
    for (const Finding& finding : audit(company.connection())) {
        const reports::Address to = reports::address_of(finding);
        found.push_back(finding.check + " " + std::string(to.kind) + " " + to.folio);
    }
    EXPECT_THAT(found, IsSupersetOf(Texts{"saldo-de-cuenta accounts SRR-MXN",
                                          "deposito-sin-movimiento deposits DP-MTY-00000001"}));
    for (const std::string& check : audit_checks()) {
        for (const Finding& finding : audit_one(company.connection(), check)) EXPECT_EQ(finding.check, check);
    }
    EXPECT_THAT(audit_one(company.connection(), "saldo-de-cuenta"), SizeIs(1));
    EXPECT_THAT(audit_one(company.connection(), "no-such-rule"), IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
