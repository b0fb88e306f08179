// What a bearer reads: pages, filters, documents, CSV, what has not changed.
#include <algorithm>
#include <utility>

#include "cuvexa/company.h"
#include "paper/statement_form.h"
#include "service/running_service.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

class Service_resources : public Running_service {
protected:
    void SetUp() override {
        Running_service::SetUp();
        start();
        bearer = token({"reader", "", true});
    }

    /// Captures, closes and deposits a receipt.
    void deposit_receipt(double amount) {
        const std::string reader = std::exchange(bearer, token({"teller " + std::to_string(++tellers)}));
        Json batch = receipt(amount);
        batch.push_back(deposit());
        ASSERT_EQ(post(batch)->get_header_value("Cuvexa-Outcome"), "kept");
        bearer = reader;
    }

    Json read(const std::string& path, const httplib::Params& query = {}) {
        const auto answered = ask(path, query);
        return answered ? Json::parse(answered->body) : Json();
    }

    httplib::Result ask(const std::string& path, const httplib::Params& query) {
        httplib::Client client("127.0.0.1", running->port());
        const httplib::Headers headers{{"Authorization", "Bearer " + bearer}};
        return query.empty() ? client.Get(path, headers) : client.Get(path, query, headers);
    }

    int tellers = 0;
};

TEST_F(Service_resources, every_resource_is_there_for_who_may_only_read) {
    for (const char* name : {"accounts", "receipts", "deposits", "checks", "requests", "movements", "vouchers",
                             "receivables", "payables", "budgets", "advances", "audit"}) {
        const auto answered = get('/' + std::string(name));
        ASSERT_TRUE(answered);
        EXPECT_EQ(answered->status, 200) << name << answered->body;
        EXPECT_TRUE(Json::parse(answered->body)["rows"].is_array()) << name;
    }
    EXPECT_EQ(get("/nothing")->status, 404);
    EXPECT_EQ(get("/audit/x")->status, 404);
    EXPECT_EQ(get("/receipts", {{"Authorization", "Bearer no"}})->status, 401);
    EXPECT_THAT(log.str(), HasSubstr(R"("resource":"receipts")"));
}

TEST_F(Service_resources, nothing_is_read_of_a_company_that_is_not_the_bearer_s) {
    stop();
    options.companies["norte"] = options.companies[""];
    options.companies.erase("");
    start();
    EXPECT_EQ(get("/norte/accounts")->status, 200);
    bearer = token({"stranger", "sur", true});
    EXPECT_EQ(get("/norte/accounts")->status, 403);
}

TEST_F(Service_resources, pages_follow_each_other_without_gap_and_without_repetition) {
    for (int i = 1; i <= 5; ++i) deposit_receipt(i);
    std::vector<std::string> folios;
    std::string after;
    int pages = 0;
    do {
        httplib::Params query{{"limit", "2"}};
        if (!after.empty()) query.emplace("after", after);
        const Json page = read("/movements", query);
        ++pages;
        for (const Json& row : page["rows"]) folios.push_back(row["Bm_Folio"]);
        after = page["next"].is_null() ? "" : page["next"].get<std::string>();
    } while (!after.empty());
    EXPECT_EQ(pages, 3);
    EXPECT_THAT(folios, ElementsAre("BM-00000005", "BM-00000004", "BM-00000003", "BM-00000002", "BM-00000001"));
}

TEST_F(Service_resources, rows_are_found_by_date_state_branch_account_amount_and_text) {
    deposit_receipt(10);
    EXPECT_THAT(read("/receipts?from=2024-03-15&to=2024-03-15")["rows"], SizeIs(1));
    EXPECT_THAT(read("/receipts?from=2024-03-16")["rows"], SizeIs(0));
    EXPECT_THAT(read("/receipts?to=2024-03-14&order=folio")["rows"], SizeIs(0));
    EXPECT_THAT(read("/receipts?state=DP&branch=mty")["rows"], SizeIs(1));
    EXPECT_THAT(read("/receipts?state=CA")["rows"], SizeIs(0));
    EXPECT_THAT(read("/receipts?branch=GDL")["rows"], SizeIs(0));
    EXPECT_THAT(read("/deposits?text=srr&account=SRR-MXN&amount=10.00")["rows"], SizeIs(1));
    EXPECT_THAT(read("/deposits", {{"text", "nothing' OR '1'='1"}})["rows"], SizeIs(0)) << "a value stays a value";
}

TEST_F(Service_resources, a_query_that_is_not_understood_is_refused_in_words) {
    const auto refusal = [&](const std::string& path, const httplib::Params& query) -> std::string {
        const auto answered = ask(path, query);
        return std::to_string(answered->status) + ' ' +
               Json::parse(answered->body)["error"]["message"].get<std::string>();
    };
    EXPECT_EQ(refusal("/receipts", {{"nothing", "1"}}), "400 unknown parameter nothing");
    EXPECT_EQ(refusal("/receipts", {{"state", "AC"}, {"state", "CA"}}), "400 state is given twice");
    EXPECT_EQ(refusal("/receipts", {{"from", "2024-02-30"}}), "400 from is no day: 2024-02-30");
    EXPECT_EQ(refusal("/receipts", {{"to", "15/03/2024"}}), "400 to is no day: 15/03/2024");
    EXPECT_EQ(refusal("/receipts", {{"from", "2024-03-02"}, {"to", "2024-03-01"}}), "400 to is before from");
    EXPECT_EQ(refusal("/receipts", {{"limit", "0"}}), "400 limit is no number from 1 to 1000: 0");
    EXPECT_EQ(refusal("/receipts", {{"limit", "1x"}}), "400 limit is no number from 1 to 1000: 1x");
    EXPECT_EQ(refusal("/receipts", {{"limit", "x"}}), "400 limit is no number from 1 to 1000: x");
    EXPECT_EQ(refusal("/receipts", {{"limit", "1001"}}), "400 limit is no number from 1 to 1000: 1001");
    EXPECT_EQ(refusal("/receipts", {{"from", "20240301"}}), "400 from is no day: 20240301");
    EXPECT_EQ(refusal("/receipts", {{"after", "x"}}), "400 after is not what a page gave as next");
    for (const char* after : {"5", "[]", "[1]"}) {
        EXPECT_EQ(refusal("/receipts", {{"after", after}}), "400 after is not what a page gave as next");
    }
    EXPECT_EQ(refusal("/receipts", {{"after", R"(["a"])"}}), "400 after is no place of this list in this order");
    EXPECT_EQ(refusal("/receipts", {{"order", "x"}}), "400 order is date or folio: x");
    EXPECT_EQ(refusal("/receipts", {{"amount", "inf"}}), "400 amount is no number: inf");
    EXPECT_EQ(refusal("/receipts", {{"amount", "x"}}), "400 amount is no number: x");
    EXPECT_EQ(refusal("/receipts", {{"amount", "1x"}}), "400 amount is no number: 1x");
    EXPECT_EQ(refusal("/receipts", {{"text", "a\x7F"}}), "400 text is no text in UTF-8, or holds control characters");
    EXPECT_EQ(refusal("/receipts", {{"text", "a\xFF"}}), "400 text is no text in UTF-8, or holds control characters");
    EXPECT_EQ(refusal("/balances", {{"to", "2024-01-01"}}), "400 from and to are both needed");
    EXPECT_EQ(refusal("/receipts", {{"text", "a\nb"}}), "400 text is no text in UTF-8, or holds control characters");
    EXPECT_EQ(refusal("/accounts", {{"from", "2024-01-01"}}), "400 these rows have no date: from and to do not fit");
    EXPECT_EQ(refusal("/movements", {{"branch", "MTY"}}), "400 these rows have no branch");
    EXPECT_EQ(refusal("/budgets", {{"year", "24"}}), "400 year is no number from 1753 to 9998: 24");
    EXPECT_EQ(refusal("/audit", {{"check", "x"}}), "400 check is no rule of the audit: x");
    EXPECT_EQ(refusal("/balances", {{"from", "2024-01-01"}}), "400 from and to are both needed");
    EXPECT_EQ(refusal("/balances", {{"from", "2004-01-01"}, {"to", "2024-01-01"}}), "400 more than 3660 days");
    EXPECT_EQ(ask("/receipts", {{"limit", "1000"}})->status, 200);
}

TEST_F(Service_resources, an_account_has_a_statement_with_its_balances) {
    deposit_receipt(100);
    deposit_receipt(50.5);
    const Json statement = read("/accounts/SRR-MXN/statement?from=2024-03-01&to=2024-03-31");
    ASSERT_THAT(statement["rows"], SizeIs(2));
    EXPECT_EQ(statement["opening"]["balance"], 0.0);
    EXPECT_EQ(statement["rows"][0]["Saldo"], 100.0);
    EXPECT_EQ(statement["rows"][1]["Saldo"], 150.5);
    EXPECT_EQ(statement["rows"][1]["Saldo_Firme"], 150.5);
    EXPECT_EQ(statement["closing"], Json::parse(R"({"balance":150.5,"firm":150.5})"));
    EXPECT_EQ(statement["account"]["Bc_Saldo"], 150.5) << "as the account says itself";
    EXPECT_EQ(statement["to"], "2024-03-31");
    EXPECT_EQ(read("/accounts/SRR-MXN/statement?from=2024-03-16")["opening"]["balance"], 150.5);
    EXPECT_EQ(read("/accounts/srr-mxn")["Bc_Saldo"], 150.5);
    EXPECT_EQ(get("/accounts/NO-SUCH/statement")->status, 404);
    EXPECT_EQ(get("/accounts/NO-SUCH")->status, 404);
}

TEST_F(Service_resources, a_statement_is_handed_out_as_a_page) {
    deposit_receipt(100);
    const std::string path = "/accounts/srr-mxn/statement?from=2024-03-01&to=2024-03-31";
    const auto page = get(path, {{"Accept", "text/html,application/xhtml+xml,*/*;q=0.8"}});
    EXPECT_EQ(page->status, 200);
    EXPECT_EQ(page->get_header_value("Content-Type"), "text/html; charset=utf-8");
    EXPECT_EQ(page->get_header_value("Content-Disposition"),
              "inline; filename=\"estado-de-cuenta-SRR-MXN-2024-03-01-2024-03-31.html\"; "
              "filename*=UTF-8''estado-de-cuenta-SRR-MXN-2024-03-01-2024-03-31.html");
    EXPECT_THAT(page->get_header_value("Content-Security-Policy"), StartsWith("default-src 'none'; "));
    EXPECT_THAT(page->body, StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(page->body, HasSubstr("<td class=\"n\">100.00</td>"));
    EXPECT_EQ(get(path, {{"Accept", "text/html"}, {"If-None-Match", page->get_header_value("ETag")}})->status, 304);
    EXPECT_THAT(get(path, {{"Accept", "application/json, text/html;q=0.5"}})->body, StartsWith("{")) << "in its order";
    EXPECT_THAT(get(path, {{"Accept", "*/*"}})->body, StartsWith("{"));
    EXPECT_EQ(get(path + "&limit=1", {{"Accept", "text/html"}})->status, 400) << "paper has no pages to turn";
    EXPECT_EQ(get("/accounts/NO-SUCH/statement", {{"Accept", "text/html"}})->status, 404);
}

TEST_F(Service_resources, a_page_shows_the_texts_of_a_company_whatever_they_hold) {
    Company(options.companies[""])
        .connection()
        .execute(
            "UPDATE Banco_Cuenta SET Bc_Descripcion = '<script>alert(1)</script> \"A\" & B' "
            "WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    const auto page = get("/accounts/SRR-MXN/statement", {{"Accept", "text/html"}});
    EXPECT_THAT(page->body, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt; &quot;A&quot; &amp; B"));
    EXPECT_THAT(page->body, testing::Not(HasSubstr("<script")));
}

TEST_F(Service_resources, a_file_s_name_is_told_whatever_the_account_is_called) {
    Company(options.companies[""])
        .connection()
        .execute("UPDATE Banco_Cuenta SET Bc_Cve_Banco_Cuenta = 'A\"ñ' WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    // Byte by byte: the client at hand would decode what it is told.
    EXPECT_THAT(said_to("GET /accounts/A%22%C3%B1/statement HTTP/1.1\r\nHost: here\r\nAccept: text/html\r\n"
                        "Authorization: Bearer " +
                        bearer + "\r\nConnection: close\r\n\r\n"),
                HasSubstr("inline; filename=\"estado-de-cuenta-A___.html\"; "
                          "filename*=UTF-8''estado-de-cuenta-A%22%C3%B1.html\r\n"));
}

TEST_F(Service_resources, statements_are_handed_out_as_pdf_to_many_at_once) {
    deposit_receipt(100);
    const std::string path = "/accounts/SRR-MXN/statement";
    const httplib::Headers accept{{"Accept", "application/pdf"}};
    if (!paper::writes_pdf()) {
        EXPECT_EQ(get(path, accept)->status, 406);
        return;
    }
    std::vector<std::string> files(8);
    {
        std::vector<std::jthread> clients;
        for (std::string& file : files) {
            clients.emplace_back([&] {
                if (const auto answered = get(path, accept)) file = answered->body;
            });
        }
    }
    for (const std::string& file : files) {
        EXPECT_THAT(file, StartsWith("%PDF-"));
        EXPECT_THAT(file, testing::EndsWith("%%EOF\n"));
        EXPECT_EQ(file.size(), files[0].size());
    }
    EXPECT_THAT(get(path, accept)->get_header_value("Content-Disposition"),
                StartsWith("attachment; filename=\"estado-de-cuenta-SRR-MXN.pdf\""));
    EXPECT_EQ(get(path, accept)->get_header_value("Content-Type"), "application/pdf");
}

TEST_F(Service_resources, a_long_statement_has_as_many_pages_as_its_movements_need) {
    if (!paper::writes_pdf()) return;
    Company(options.companies[""])
        .connection()
        .execute(
            "INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Fecha, Bm_Importe) "
            "WITH RECURSIVE Numero (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM Numero WHERE n < 200) "
            "SELECT 'BM-' || n, 'SRR-MXN', '2024-03-15T00:00:00', n FROM Numero");
    const std::string file = get("/accounts/SRR-MXN/statement", {{"Accept", "application/pdf"}})->body;
    const auto count = file.find("/Count ");
    ASSERT_NE(count, std::string::npos);
    const int pages = std::stoi(file.substr(count + 7));
    EXPECT_GT(pages, 2);
    EXPECT_LT(pages, 20);
}

TEST_F(Service_resources, balances_by_day_are_there_for_one_account_and_for_all) {
    deposit_receipt(100);
    const Json one = read("/accounts/SRR-MXN/balances?from=2024-03-01&to=2024-03-31");
    EXPECT_EQ(one["days"], Json::parse(R"([{"date":"2024-03-15","in":100.0,"out":0.0,"balance":100.0,"firm":100.0}])"));
    const Json all = read("/balances?from=2024-03-01&to=2024-03-31");
    EXPECT_THAT(all["accounts"], SizeIs(6));
    for (const Json& account : all["accounts"]) {
        EXPECT_EQ(account["days"], account["account"] == "SRR-MXN" ? one["days"] : Json::array()) << account;
    }
}

TEST_F(Service_resources, an_account_that_is_not_there_has_neither_statement_nor_balances) {
    for (const char* what : {"statement", "balances"}) {
        EXPECT_EQ(ask("/accounts/NO-SUCH/" + std::string(what), {{"from", "2024-01-01"}, {"to", "2024-01-31"}})->status,
                  404);
    }
}

TEST_F(Service_resources, a_document_has_a_page) {
    deposit_receipt(10);
    const Json page = read("/receipts/rp-mty-00000001");
    EXPECT_EQ(page["kind"], "receipts");
    EXPECT_EQ(page["folio"], "RP-MTY-00000001");
    EXPECT_EQ(page["title"], "Recibo de caja");
    EXPECT_EQ(page["state"], "DP");
    EXPECT_EQ(page["header"]["Importe"], 10.0);
    EXPECT_EQ(page["lines"][0]["Rp_Deposito_ID"], "0001");
    EXPECT_EQ(page["life"][0]["event"], "Captura");
    EXPECT_EQ(page["life"][0]["who"], "teller 1");
    EXPECT_EQ(page["life"][2]["document"], Json::parse(R"({"kind":"deposits","folio":"DP-MTY-00000001"})"));
    EXPECT_EQ(page["links"][0], Json::parse(R"({"relation":"Depósito","kind":"deposits","folio":"DP-MTY-00000001"})"));
    EXPECT_EQ(page["movements"][0]["Bm_Importe"], 10.0);
    EXPECT_EQ(get("/receipts/RP-MTY-00000009")->status, 404);
    EXPECT_EQ(get("/receipts/RP-MTY-00000001?x=1")->status, 400);
}

TEST_F(Service_resources, csv_is_sent_to_who_takes_it) {
    deposit_receipt(10);
    deposit_receipt(20);
    const auto csv = get("/deposits?limit=1", {{"Accept", "text/csv"}});
    EXPECT_THAT(csv->get_header_value("Content-Type"), StartsWith("text/csv"));
    EXPECT_THAT(csv->body, StartsWith("Dp_Folio,Dp_Fecha,"));
    EXPECT_THAT(csv->body, HasSubstr("\r\nDP-MTY-00000002,2024-03-15,MTY,SRR-MXN,20,MXN,"));
    EXPECT_EQ(std::count(csv->body.begin(), csv->body.end(), '\n'), 2);
    EXPECT_EQ(
        read("/deposits", {{"limit", "1"}, {"after", csv->get_header_value("Cuvexa-Next")}})["rows"][0]["Importe"],
        10.0);
}

TEST_F(Service_resources, csv_holds_any_text_and_no_formula) {
    Company(options.companies[""])
        .connection()
        .execute("UPDATE Banco_Cuenta SET Bc_Descripcion = '=1+1, \"x\"' WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    const auto csv = get("/accounts", {{"Accept", "text/csv"}});
    EXPECT_THAT(csv->body, HasSubstr("\r\nSRR-MXN,\"'=1+1, \"\"x\"\"\",MXN,"));
}

TEST_F(Service_resources, what_has_not_changed_is_not_sent_again) {
    deposit_receipt(10);
    const std::string tag = get("/accounts")->get_header_value("ETag");
    const auto same = get("/accounts", {{"If-None-Match", tag}});
    EXPECT_EQ(same->status, 304);
    EXPECT_EQ(same->body, "");
    EXPECT_EQ(same->get_header_value("ETag"), tag);
    EXPECT_EQ(get("/accounts", {{"If-None-Match", "\"x\", W/" + tag}})->status, 304);
    EXPECT_EQ(get("/accounts", {{"If-None-Match", "*"}})->status, 304);
    deposit_receipt(10);
    EXPECT_EQ(get("/accounts", {{"If-None-Match", tag}})->status, 200);
    EXPECT_NE(get("/accounts", {{"Accept", "text/csv"}})->get_header_value("ETag"), tag);
}

TEST_F(Service_resources, budgets_of_a_year_tell_what_was_used) {
    const Json all = read("/budgets"), one = read("/budgets?year=2024");
    EXPECT_EQ(all["rows"].size(), one["rows"].size() * 4);
    EXPECT_FALSE(all["rows"][0].contains("Usado_01"));
    EXPECT_EQ(one["rows"][0]["Usado_01"], 0.0);
    EXPECT_EQ(one["rows"][0]["Periodo"], 2024);
}

TEST_F(Service_resources, the_audit_tells_what_does_not_add_up_and_where) {
    deposit_receipt(10);
    EXPECT_THAT(read("/audit")["rows"], SizeIs(0));
    Company(options.companies[""])
        .connection()
        .execute("UPDATE Banco_Cuenta SET Bc_Saldo = 1 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    const Json finding = read("/audit")["rows"][0];
    EXPECT_EQ(finding["check"], "saldo-de-cuenta");
    EXPECT_EQ(finding["kind"], "accounts");
    EXPECT_EQ(finding["folio"], "SRR-MXN");
    EXPECT_EQ(read("/audit?check=saldo-de-cuenta")["rows"][0], finding);
    EXPECT_THAT(read("/audit?check=saldo-de-banco")["rows"], SizeIs(1));
    EXPECT_THAT(read("/audit?check=poliza-descuadrada")["rows"], SizeIs(0));
    const Json names = read("/audit?check=none");
    EXPECT_THAT(names["rows"], SizeIs(0));
    EXPECT_GT(names["checks"].size(), 40u);
}

}  // namespace
}  // namespace cuvexa::tests
