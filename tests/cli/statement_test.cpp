// cuvexa statement: its figures, and its forms.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <regex>

#include "cli/program.h"
#include "cuvexa/database/sqlite_connection.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Cli_statement : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }

    /// Moves SRR-MXN on those days of March 2024, as the component does.
    void move(const std::vector<std::pair<int, double>>& movements, const std::string& comment = "Intereses") {
        Rpc_session session(folder, {"--db", "company.db", "--synchronous", "off", "--server-date", "2024-03-31"});
        session.ask("create", {{"class", "Tesoreria"}});
        for (const auto& [day, amount] : movements) {
            const std::string date = (day < 10 ? "2024-03-0" : "2024-03-") + std::to_string(day);
            const nlohmann::json movement{{"Cuenta", {{"Bc_Cve_Banco_Cuenta", "SRR-MXN"}}},
                                          {"Bm_Fecha", date},
                                          {"Bm_Fecha_Firme", date},
                                          {"Bt_Cve_Banco_Tipo_Movimiento", amount < 0 ? "COM" : "INT"},
                                          {"Bm_Importe", std::fabs(amount)},
                                          {"Bm_Tipo_Cambio", 1},
                                          {"Bm_Tabla", "ESTADO_CUENTA"},
                                          {"Bm_Documento", "EC-1"},
                                          {"Bm_Referencia", comment},
                                          {"EnFirme", day % 2 == 0}};
            ASSERT_EQ(session.call("Registra_Movimiento_Banco", nlohmann::json::array({movement})), true)
                << session.get("Error");
        }
        balance = session.call("GetSaldo", nlohmann::json::array({"SRR-MXN"}));
        session.finish();
    }

    double balance = 0;
};

TEST_F(Cli_statement, a_person_reads_balances_that_run) {
    move({{1, 1000}, {2, 250.5}, {3, -100}, {9, 5}});
    EXPECT_EQ(output_of("statement SRR-MXN --from 2024-03-02 --to 2024-03-03 --db company.db"),
              "Estado de cuenta SRR-MXN: Sierra, operación en pesos (MXN)\n"
              "Del 02/03/2024 al 03/03/2024\n"
              "Saldo inicial: 1,000.00 (en firme 0.00, en tránsito 1,000.00)\n"
              "Fecha       Movimiento     Concepto           Documento          Abono   Cargo     Saldo  En firme\n"
              "02/03/2024  BM-00000002    Intereses ganados  EC-1 · Intereses  250.50          1,250.50    250.50\n"
              "03/03/2024  BM-00000003 *  Comisión bancaria  EC-1 · Intereses          100.00  1,150.50    250.50\n"
              "Saldo final: 1,150.50 (en firme 250.50, en tránsito 900.00)\n");
}

TEST_F(Cli_statement, a_period_may_be_open_on_either_side) {
    move({{1, 1000}, {2, 250.5}, {3, -100}});
    const std::string since = output_of("statement SRR-MXN --from 2024-03-02 --db company.db");
    EXPECT_THAT(since, HasSubstr("\nDesde el 02/03/2024\nSaldo inicial: 1,000.00"));
    EXPECT_THAT(since, HasSubstr("\nSaldo final: 1,150.50"));
    const std::string until = output_of("statement SRR-MXN --to 2024-03-02 --db company.db");
    EXPECT_THAT(until, HasSubstr("\nHasta el 02/03/2024\nSaldo inicial: 0.00"));
    EXPECT_THAT(until, HasSubstr("\nSaldo final: 1,250.50"));
    const auto json = nlohmann::json::parse(output_of("statement SRR-MXN --from 2024-03-02 --json --db company.db"));
    EXPECT_EQ(json["from"], "2024-03-02");
    EXPECT_EQ(json["to"], nullptr);
}

TEST_F(Cli_statement, its_closing_balance_is_what_the_component_and_the_account_say) {
    move({{1, 0.1}, {2, 0.2}, {3, -0.7}, {5, 1234.56}});
    const auto json = nlohmann::json::parse(output_of("statement srr-mxn --json --db company.db"));
    EXPECT_NEAR(json["closing"]["balance"].get<double>(), balance, 1e-9);
    EXPECT_NEAR(json["closing"]["balance"].get<double>(), json["account"]["Bc_Saldo"].get<double>(), 1e-9);
    EXPECT_EQ(json["rows"].size(), 4u);
    EXPECT_EQ(json["rows"].back()["Saldo"], json["closing"]["balance"]);
    EXPECT_EQ(run("audit --db company.db").code, 0);
}

TEST_F(Cli_statement, csv_holds_the_movements) {
    move({{1, 1000}});
    EXPECT_THAT(output_of("statement SRR-MXN --csv --db company.db"),
                StartsWith("Bm_Folio,Bm_Fecha,Bt_Cve_Banco_Tipo_Movimiento,Bt_Descripcion,"));
}

TEST_F(Cli_statement, a_page_has_a_chart_and_shows_hostile_texts_as_texts) {
    move({{1, 1000}, {4, -300}}, "<script>alert(1)</script>\"><img src=x onerror=alert(2)> & más");
    output_of("statement SRR-MXN --from 2024-03-01 --to 2024-03-31 --html page.html --db company.db");
    const std::string page = read_file(folder / "page.html");
    EXPECT_THAT(page, StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
    EXPECT_THAT(page, Not(HasSubstr("<img")));
    EXPECT_THAT(
        page, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;&quot;&gt;&lt;img src=x onerror=alert(2)&gt; &amp; más"));
    EXPECT_THAT(page, HasSubstr("<td class=\"n\">700.00</td>"));
    EXPECT_THAT(
        page,
        HasSubstr(
            "<polyline class=\"balance\" points=\"0.0,138.5 0.0,138.5 0.0,0.0 72.0,0.0 72.0,41.5 720.0,41.5 \"/>"));
    EXPECT_THAT(page, Not(testing::ContainsRegex("(src|href)=\"")));
}

TEST_F(Cli_statement, paper_is_of_letter_size_and_its_pages_are_numbered) {
    std::vector<std::pair<int, double>> movements;
    for (int i = 0; i < 120; ++i) movements.emplace_back(1 + i / 6, i % 3 == 0 ? -10.25 : 100.0 + i);
    move(movements);
    const Outcome outcome = run("statement SRR-MXN --pdf statement.pdf --db company.db");
    if (outcome.code != 0) {
        EXPECT_EQ(outcome.err,
                  "Este programa se construyó sin la biblioteca que escribe PDF (Qt 6); use --html FILE\n");
        return;
    }
    const std::string file = read_file(folder / "statement.pdf");
    EXPECT_THAT(file, StartsWith("%PDF-"));
    EXPECT_THAT(file, HasSubstr("/MediaBox [0 0 612"));
    ASSERT_EQ(std::system(("cd '" + folder.string() + "' && pdftotext -layout statement.pdf text").c_str()), 0)
        << "pdftotext is in the package poppler-utils";
    const std::string text = read_file(folder / "text");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 3) << "pages";
    for (const char* number : {"Página 1 de 3", "Página 2 de 3", "Página 3 de 3"}) EXPECT_THAT(text, HasSubstr(number));
    EXPECT_THAT(text, HasSubstr("Estado de cuenta SRR-MXN"));
    EXPECT_THAT(text, HasSubstr("Sierra, operación en pesos (MXN)"));
    const std::regex folio("BM-[0-9]{8}");
    EXPECT_EQ(std::distance(std::sregex_iterator(text.begin(), text.end(), folio), std::sregex_iterator()), 120)
        << "each movement once";
    char closing[64];
    std::snprintf(closing, sizeof closing, "%.2f", balance);
    std::string written = closing;
    for (std::size_t at = written.size() - 3; at > 3; at -= 3) written.insert(at - 3, 1, ',');
    EXPECT_THAT(text, HasSubstr("Saldo final: " + written));
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Cli_statement, what_cannot_be_is_refused) {
    const Outcome unknown = run("statement NO-SUCH --db company.db");
    EXPECT_EQ(unknown.code, 1);
    EXPECT_EQ(unknown.err, "No existe la cuenta bancaria: NO-SUCH\n");
    EXPECT_EQ(run("statement SRR-MXN --html no/such/folder --db company.db").err,
              "No se puede escribir el archivo: no/such/folder\n");
    EXPECT_EQ(run("statement SRR-MXN --json --csv --db company.db").code, 2);
    EXPECT_EQ(run("statement SRR-MXN --from yesterday --db company.db").code, 2);
    EXPECT_EQ(run("statement SRR-MXN --from 2024-03-02 --to 2024-03-01 --db company.db").code, 2);
}

}  // namespace
}  // namespace cuvexa::tests
