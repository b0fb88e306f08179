// Lists: pages in an order that holds, and what is searched for.
#include "reports/lists.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

using reports::Order;
using reports::Page;
using reports::Question;
using testing::SizeIs;

class Reports_lists : public testing::Test {
protected:
    static const reports::View& view(const char* name) { return *reports::find_view(name); }

    Page list(const char* name, const Question& question = {}) {
        return read_list({company.connection(), Date_style::iso}, view(name), question);
    }

    std::vector<std::string> folios(const char* name, const Page& page) {
        std::vector<std::string> found;
        for (const reports::Row& row : page.table.rows) {
            found.push_back(to_text(value_in(row, page.table.columns, view(name).key)));
        }
        return found;
    }
    std::vector<std::string> folios(const char* name, const Question& question = {}) {
        return folios(name, list(name, question));
    }

    /// All pages, one after the other.
    std::vector<std::string> walked(const char* name, Question question) {
        std::vector<std::string> all;
        do {
            const Page page = list(name, question);
            for (const std::string& folio : folios(name, page)) all.push_back(folio);
            question.behind = page.next;
        } while (!question.behind.empty());
        return all;
    }

    /// Captures a receipt of several lines on that day.
    std::string receipt(const std::vector<double>& amounts, int day = 15, const std::string& branch = "MTY",
                        const std::string& reference = "REF-1") {
        tRpEncabezado header = Company::receipt_header();
        header.Rp_Fecha = make_date(2024, 3, day);
        header.Sucursal.Sc_Cve_Sucursal = branch;
        header.Rp_Referencia = reference;
        std::vector<tRpDetalle> lines;
        for (const double amount : amounts) lines.push_back(Company::receipt_line(amount));
        return company.capture_receipt(lines, header);
    }

    Company company;
};

TEST_F(Reports_lists, a_document_of_several_lines_is_one_row_with_their_total) {
    receipt({100, 50.25});
    const Page page = list("receipts");
    ASSERT_THAT(page.table.rows, SizeIs(1));
    const auto value = [&](const char* name) {
        return to_text(value_in(page.table.rows[0], page.table.columns, name));
    };
    EXPECT_EQ(value("Rp_Folio"), "RP-MTY-00000001");
    EXPECT_EQ(value("Importe"), "150.25");
    EXPECT_EQ(value("Renglones"), "2");
    EXPECT_EQ(value("Es_Cve_Estado"), "AC");
    EXPECT_TRUE(page.next.empty());
}

TEST_F(Reports_lists, the_newest_come_first_and_by_folio_if_wanted) {
    receipt({1}, 10);
    receipt({1}, 12);
    receipt({1}, 11);
    EXPECT_THAT(folios("receipts"), ElementsAre("RP-MTY-00000002", "RP-MTY-00000003", "RP-MTY-00000001"));
    EXPECT_THAT(folios("receipts", {.order = Order::by_key}),
                ElementsAre("RP-MTY-00000001", "RP-MTY-00000002", "RP-MTY-00000003"));
}

TEST_F(Reports_lists, pages_follow_each_other_without_gap_and_without_repetition) {
    for (const int day : {10, 10, 11, 12, 12, 12, 13}) receipt({1, 2}, day, day % 2 == 0 ? "MTY" : "GDL");
    for (const Order order : {Order::newest_first, Order::by_key}) {
        const auto whole = folios("receipts", {.order = order});
        ASSERT_THAT(whole, SizeIs(7));
        for (const std::size_t limit : {1u, 2u, 3u, 7u}) {
            EXPECT_EQ(walked("receipts", {.order = order, .limit = limit}), whole) << limit;
        }
    }
}

TEST_F(Reports_lists, rows_that_come_between_two_pages_hide_none_and_repeat_none) {
    receipt({1}, 10);
    receipt({1}, 11);
    receipt({1}, 12);
    const Page first = list("receipts", {.limit = 2});
    receipt({1}, 13);
    EXPECT_THAT(folios("receipts", {.behind = first.next, .limit = 2}), ElementsAre("RP-MTY-00000001"));
}

TEST_F(Reports_lists, documents_are_found_by_date_state_branch_and_amount) {
    receipt({100}, 10, "MTY");
    receipt({60, 40.5}, 12, "GDL");
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Folio = 'RP-GDL-00000001'");
    const auto one = ElementsAre("RP-GDL-00000001");
    EXPECT_THAT(folios("receipts", {.from = make_date(2024, 3, 11)}), one);
    EXPECT_THAT(folios("receipts", {.from = make_date(2024, 3, 12), .to = make_date(2024, 3, 12)}), one);
    EXPECT_THAT(folios("receipts", {.to = make_date(2024, 3, 9)}), IsEmpty());
    EXPECT_THAT(folios("receipts", {.to = make_date(9999, 12, 31)}), SizeIs(2));
    EXPECT_THAT(folios("receipts", {.order = Order::by_key, .from = make_date(2024, 3, 11)}), one);
    EXPECT_THAT(folios("receipts", {.state = "CA"}), one);
    EXPECT_THAT(folios("receipts", {.branch = "gdl"}), one);
    EXPECT_THAT(folios("receipts", {.amount = 100.5}), one);
    EXPECT_THAT(folios("receipts", {.amount = 100.51}), IsEmpty());
}

TEST_F(Reports_lists, a_text_is_found_anywhere_as_it_stands_in_either_case) {
    receipt({1}, 10, "MTY", "Año 100% Ñandú");
    receipt({1}, 11, "MTY", "otra''s [cosa]");
    const auto first = ElementsAre("RP-MTY-00000001"), second = ElementsAre("RP-MTY-00000002");
    EXPECT_THAT(folios("receipts", {.text = "ñandú"}), first);
    EXPECT_THAT(folios("receipts", {.text = "100%"}), first);
    EXPECT_THAT(folios("receipts", {.text = "1%0"}), IsEmpty()) << "no wildcard";
    EXPECT_THAT(folios("receipts", {.text = "_"}), IsEmpty());
    EXPECT_THAT(folios("receipts", {.text = "A'S [C"}), second);
    EXPECT_THAT(folios("receipts", {.text = "' OR '1'='1"}), IsEmpty());
    EXPECT_THAT(folios("receipts", {.text = "00000002"}), second);
}

TEST_F(Reports_lists, the_party_is_named) {
    company.capture_receipt({Company::receipt_line(10)}, Company::receipt_header("02", "CL01"));
    const Page page = list("receipts", {.text = "peña"});
    ASSERT_THAT(page.table.rows, SizeIs(1));
    EXPECT_EQ(to_text(value_in(page.table.rows[0], page.table.columns, "Parte")), "Constructora Peña Alta");
}

TEST_F(Reports_lists, checks_and_movements_are_found_by_account) {
    company.capture_check({Company::check_line(10)});
    tBnMovimiento movement = Company::movement();
    ASSERT_TRUE(company.treasury().Registra_Movimiento_Banco(movement));
    EXPECT_THAT(folios("movements", {.account = "SRR-MXN"}), SizeIs(1));
    EXPECT_THAT(folios("movements", {.account = "PTO-MXN"}), IsEmpty());
    EXPECT_THAT(folios("movements", {.amount = 100}), SizeIs(1));
}

TEST_F(Reports_lists, what_a_view_has_not_is_refused_in_words) {
    const auto refusal = [&](const char* name, const Question& question) -> std::string {
        try {
            list(name, question);
        } catch (const reports::Bad_question& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(refusal("accounts", {.from = Company::today()}), "these rows have no date: from and to do not fit");
    EXPECT_EQ(refusal("movements", {.branch = "MTY"}), "these rows have no branch");
    EXPECT_EQ(refusal("receipts", {.account = "SRR-MXN"}), "these rows have no account");
    EXPECT_EQ(refusal("accounts", {.amount = 1}), "these rows have no amount");
    EXPECT_EQ(refusal("receipts", {.behind = {"RP-MTY-00000001"}}), "after is no place of this list in this order");
}

TEST_F(Reports_lists, an_account_tells_what_is_firm_and_what_is_in_transit) {
    tBnMovimiento firm = Company::movement(100), on_its_way = Company::movement(30), cancelled = Company::movement(7);
    firm.EnFirme = true;
    ASSERT_TRUE(company.treasury().Registra_Movimiento_Banco(firm));
    ASSERT_TRUE(company.treasury().Registra_Movimiento_Banco(on_its_way));
    ASSERT_TRUE(company.treasury().Registra_Movimiento_Banco(cancelled));
    ASSERT_TRUE(company.treasury().Cancelar_Movimiento_Bancos(company.treasury().FolioMovimiento));
    const auto row = read_document_row({company.connection()}, view("accounts"), "srr-mxn");
    ASSERT_TRUE(row);
    const auto value = [&](const char* name) { return to_number(value_in(*row, view("accounts").columns, name)); };
    EXPECT_EQ(value("Bc_Saldo"), 130);
    EXPECT_EQ(value("Saldo_Firme"), 100);
    EXPECT_EQ(value("Saldo_Transito"), 30);
    EXPECT_FALSE(read_document_row({company.connection()}, view("accounts"), "NO-SUCH"));
}

/// A search looks at so many documents; then it tells how to go on.
TEST_F(Reports_lists, a_search_for_what_is_rare_goes_on_where_it_ended) {
    company.sql(
        "INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Fecha, Bm_Importe, Bm_Referencia) "
        "VALUES ('BM-RARE', 'SRR-MXN', '2020-01-01', 5, 'the rare one')");
    Unit_of_work filling(company.connection());
    for (std::size_t i = 0; i < reports::searched_documents; ++i) {
        company.sql("INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Fecha, Bm_Importe) VALUES ('BM-" +
                    std::to_string(100000 + i) + "', 'SRR-MXN', '2024-01-01', 1)");
    }
    filling.commit();
    const Page first = list("movements", {.text = "rare one"});
    EXPECT_THAT(first.table.rows, IsEmpty());
    EXPECT_THAT(first.next, ElementsAre("2024-01-01", "BM-100000"));
    const Page second = list("movements", {.text = "rare one", .behind = first.next});
    EXPECT_THAT(folios("movements", second), ElementsAre("BM-RARE"));
    EXPECT_THAT(second.next, IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
