// cuvexa rpc: sessions, their traces, two of them on one file, one that dies.
#include "cli/program.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

#include "cuvexa/database/sqlite_connection.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;

class Cli_rpc : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }

    static nlohmann::json receipt_header() {
        return {{"Rp_Fecha", "2024-03-15"},
                {"TipoReciboPago", {{"Trp_Cve_Tipo_Recibo_Pago", "01"}}},
                {"Sucursal", {{"Sc_Cve_Sucursal", "MTY"}}},
                {"Mn_Cve_Moneda", "MXN"},
                {"Rp_Tipo_Cambio", 1}};
    }

    /// Captures a receipt of one cash line and gives its folio.
    static std::string capture(Rpc_session& session, double amount) {
        session.call("NuevoReciboCaja");
        session.let("RpEncabezado", receipt_header());
        session.let("RpDetalle", {{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "01"}}}, {"Rp_Importe", amount}});
        EXPECT_EQ(session.call("Add_Recibo_Caja_Detalle"), true) << session.get("Error");
        return session.get("RpEncabezado")["Rp_Folio"];
    }

    const std::vector<std::string> on_company{"--db", "company.db", "--server-date", "2024-03-15T10:20:30"};
};

TEST_F(Cli_rpc, the_first_session_of_the_documentation_runs) {
    const auto answers = json_lines(output_of("rpc --db company.db --server-date 2024-03-15",
                                              read_file(in_source("examples/first_session.jsonl"))));
    ASSERT_EQ(answers.size(), 15u);
    for (std::size_t i = 0; i < answers.size(); ++i) {
        EXPECT_EQ(answers[i]["id"], i + 1);
        EXPECT_TRUE(answers[i].contains("result")) << answers[i];
    }
    for (const std::size_t accepted : {5, 7, 9, 10}) EXPECT_EQ(answers[accepted - 1]["result"]["value"], true);
    EXPECT_EQ(answers[11]["result"]["value"], 1750.5) << "the balance of the account";
    EXPECT_EQ(answers[12]["result"]["value"], false) << "deposited twice";
    EXPECT_THAT(answers[13]["result"]["value"].get<std::string>(),
                HasSubstr("Cuvexa.dll - Genera_Deposito()\r\nNo se encontró el recibo de caja"));
    EXPECT_EQ(shown("deposits DP-MTY-00000001").size(), 2u);
    EXPECT_EQ(shown("receipts")[0]["Es_Cve_Estado"], "DP");
}

TEST_F(Cli_rpc, user_and_server_date_reach_the_rows) {
    {
        Rpc_session session(folder, {"--db", "company.db", "--server-date", "2024-03-15T10:20:30", "--user", "ana"});
        session.ask("create", {{"class", "Tesoreria"}});
        capture(session, 10);
    }
    Sqlite_connection connection((folder / "company.db").string());
    const auto rows = connection.execute("SELECT Oper_Alta, Fecha_Alta FROM Recibo_Pago");
    EXPECT_EQ(to_text(rows->field("Oper_Alta")), "ana");
    EXPECT_THAT(to_text(rows->field("Fecha_Alta")), HasSubstr("10:20:30"));
}

TEST_F(Cli_rpc, a_line_that_is_not_json_does_not_end_the_session) {
    const Outcome outcome =
        run("rpc --db company.db",
            "garbage\n{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"create\",\"params\":{\"class\":\"Tesoreria\"}}\n");
    EXPECT_EQ(outcome.code, 0);
    const auto answers = json_lines(outcome.out);
    ASSERT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers[0]["error"]["code"], -32700);
    EXPECT_EQ(answers[1]["result"]["object"], 1);
}

TEST_F(Cli_rpc, a_quote_in_a_value_breaks_the_statement_and_nothing_else) {
    Rpc_session session(folder, on_company);
    session.ask("create", {{"class", "Tesoreria"}});
    auto header = receipt_header();
    header["Rp_Comentario"] = "x'); DELETE FROM Parametro_Sistema --";
    session.call("NuevoReciboCaja");
    session.let("RpEncabezado", header);
    session.let("RpDetalle", {{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "01"}}}, {"Rp_Importe", 5}});
    EXPECT_EQ(session.call("Add_Recibo_Caja_Detalle"), false);
    EXPECT_NE(session.get("Error"), "");
    EXPECT_EQ(output_of("parameter get FIN_MONEDA_LOCAL --db company.db"), "MXN\n");
    EXPECT_TRUE(shown("receipts").empty());
}

TEST_F(Cli_rpc, ten_megabytes_in_a_value_are_refused_and_the_session_goes_on) {
    Rpc_session session(folder, on_company);
    session.ask("create", {{"class", "Tesoreria"}});
    auto header = receipt_header();
    header["Rp_Comentario"] = std::string(10'000'000, 'x');
    session.call("NuevoReciboCaja");
    session.let("RpEncabezado", header);
    session.let("RpDetalle", {{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "01"}}}, {"Rp_Importe", 5}});
    EXPECT_EQ(session.call("Add_Recibo_Caja_Detalle"), false);
    EXPECT_THAT(session.get("Error").get<std::string>(),
                testing::HasSubstr("El valor no cabe en la columna Rp_Comentario"));
    EXPECT_NE(capture(session, 7), "");
}

TEST_F(Cli_rpc, a_request_beyond_a_limit_does_not_end_the_session) {
    const std::string create = R"({"jsonrpc":"2.0","id":1,"method":"create","params":{"class":"Tesoreria"}})";
    std::string deep = R"({"jsonrpc":"2.0","id":2,"method":"create","params":)";
    for (int level = 0; level < 60'000; ++level) deep += R"({"a":)";
    deep += "1" + std::string(60'001, '}');
    const std::string wide = create + std::string(400'000, ' ');
    const auto answers =
        json_lines(output_of("rpc --db company.db --max-request 390KB", deep + "\n" + wide + "\n" + create + "\n"));
    ASSERT_EQ(answers.size(), 3u);
    EXPECT_EQ(answers[0]["error"]["message"], "nested deeper than 128 levels");
    EXPECT_EQ(answers[1]["error"]["message"], "a request of more than 399360 bytes");
    EXPECT_EQ(answers[2]["result"]["object"], 1);
    for (const char* wrong : {"0", "-1", "many", "5GB"}) {
        EXPECT_EQ(run("rpc --db company.db --max-request " + std::string(wrong)).code, 2) << wrong;
    }
}

TEST_F(Cli_rpc, input_that_cannot_be_read_ends_the_session_as_a_failure) {
    for (const char* unreadable : {"</", "<&-"}) {
        const std::string line = "cd '" + folder.string() + "' && '" + in_build("bin/cuvexa") +
                                 "' rpc --db company.db " + unreadable + " 2>.err";
        EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), 1) << unreadable;
        EXPECT_EQ(read_file(folder / ".err"), "No se pudo leer la entrada\n");
    }
}

TEST_F(Cli_rpc, two_sessions_on_one_file_never_share_a_folio) {
    Rpc_session one(folder, on_company);
    Rpc_session other(folder, on_company);
    one.ask("create", {{"class", "Tesoreria"}});
    other.ask("create", {{"class", "Tesoreria"}});
    std::vector<std::string> folios;
    for (int i = 0; i < 10; ++i) {
        folios.push_back(capture(one, 1));
        folios.push_back(capture(other, 2));
    }
    std::sort(folios.begin(), folios.end());
    EXPECT_EQ(std::unique(folios.begin(), folios.end()), folios.end());
    EXPECT_EQ(one.finish(), 0);
    EXPECT_EQ(other.finish(), 0);
    EXPECT_EQ(shown("receipts").size(), 20u);
}

TEST_F(Cli_rpc, what_was_acknowledged_survives_a_killed_session) {
    std::string folio;
    {
        Rpc_session session(folder, on_company);
        session.ask("create", {{"class", "Tesoreria"}});
        folio = capture(session, 125.5);
        session.kill_now();
    }
    const auto lines = shown("receipts " + folio);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0]["Rp_Importe"], 125.5);
    Rpc_session session(folder, on_company);
    session.ask("create", {{"class", "Tesoreria"}});
    EXPECT_EQ(session.call("FinReciboCaja", {folio}), true);
}

TEST_F(Cli_rpc, the_trace_holds_every_statement_line_by_line) {
    Rpc_session session(folder, {"--db", "company.db", "--server-date", "2024-03-15", "--trace", "trace.jsonl"});
    session.ask("create", {{"class", "Tesoreria"}});
    capture(session, 3);
    session.call("Genera_Deposito", {"NONE", "R", "2024-03-15", true, "2024-03-15"});
    session.kill_now();
    const auto statements = json_lines(read_file(folder / "trace.jsonl"));
    ASSERT_GT(statements.size(), 5u);
    bool inserted = false;
    for (std::size_t i = 0; i < statements.size(); ++i) {
        EXPECT_EQ(statements[i]["seq"], i + 1);
        EXPECT_TRUE(statements[i]["us"].is_number());
        EXPECT_TRUE(statements[i].contains("rows"));
        EXPECT_TRUE(statements[i]["error"].is_null()) << statements[i];
        inserted |= statements[i]["text"].get<std::string>().rfind("INSERT INTO Recibo_Pago(", 0) == 0;
    }
    EXPECT_TRUE(inserted);
}

TEST_F(Cli_rpc, a_trace_is_appended_to_and_never_written_over_the_database) {
    write_file(folder / "trace.jsonl", "{\"seq\":0}\n");
    output_of("show receipts --db company.db --trace trace.jsonl");
    const auto statements = json_lines(read_file(folder / "trace.jsonl"));
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_EQ(statements[1]["text"], "SELECT Recibo_Pago.* FROM Recibo_Pago ORDER BY Rp_Folio, Rp_Id");

    const Outcome over = run("show receipts --db company.db --trace ./company.db");
    EXPECT_EQ(over.code, 1);
    EXPECT_EQ(over.err, "El rastro no puede escribirse en la base de datos: ./company.db\n");
    EXPECT_EQ(run("show receipts --db company.db --trace nowhere/t").code, 1);
}

}  // namespace
}  // namespace cuvexa::tests
