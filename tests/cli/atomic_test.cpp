// cuvexa rpc --atomic: a call that gives False leaves nothing behind; without it, what was done stays.
#include <sqlite3.h>

#include <cstdlib>

#include "cli/program.h"
#include "cuvexa/database/sqlite_connection.h"
#include "database/sqlite/engine.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;

class Cli_atomic : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }

    static std::vector<std::string> options(bool atomic) {
        std::vector<std::string> all{"--db", "company.db", "--server-date", "2024-03-15T10:20:30", "--wait", "0.1"};
        if (atomic) all.push_back("--atomic");
        return all;
    }

    void sql(const std::string& text) {
        Sqlite_connection connection((folder / "company.db").string());
        ASSERT_EQ(sqlite3_exec(sqlite::handle_of(connection), text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    }

    /// The second movement of every deposit fails in the database.
    void refuse_second_movements() {
        sql("CREATE TRIGGER second_fails BEFORE INSERT ON Banco_Movimiento WHEN NEW.Bm_Documento_ID = '0002' "
            "BEGIN SELECT RAISE(ABORT, 'no second movement'); END");
    }

    /// Captures a receipt that is deposited in two lines and gives its folio.
    static std::string capture(Rpc_session& session) {
        session.call("NuevoReciboCaja");
        session.let("RpEncabezado", {{"Rp_Fecha", "2024-03-15"},
                                     {"TipoReciboPago", {{"Trp_Cve_Tipo_Recibo_Pago", "01"}}},
                                     {"Sucursal", {{"Sc_Cve_Sucursal", "MTY"}}},
                                     {"Mn_Cve_Moneda", "MXN"},
                                     {"Rp_Tipo_Cambio", 1}});
        session.let("RpDetalle", {{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "01"}}}, {"Rp_Importe", 150}});
        EXPECT_EQ(session.call("Add_Recibo_Caja_Detalle"), true) << session.get("Error");
        session.let("RpDetalle", {{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "02"}}},
                                  {"Rp_Banco", "SIERRA"},
                                  {"Rp_Cheque", "778"},
                                  {"Rp_Importe", 80}});
        EXPECT_EQ(session.call("Add_Recibo_Caja_Detalle"), true) << session.get("Error");
        const std::string folio = session.get("RpEncabezado")["Rp_Folio"];
        EXPECT_EQ(session.call("FinReciboCaja", {folio}), true) << session.get("Error");
        return folio;
    }

    static nlohmann::json deposit(Rpc_session& session, const std::string& folio) {
        return session.call("Genera_Deposito", {"SRR-MXN", folio, "2024-03-15", true, "2024-03-15"});
    }

    /// Tries a deposit whose second movement fails, then one that nothing stops; the folio of the second.
    std::string deposit_twice(bool atomic) {
        refuse_second_movements();
        Rpc_session session(folder, options(atomic));
        session.ask("create", {{"class", "Tesoreria"}});
        const std::string receipt = capture(session);
        EXPECT_EQ(deposit(session, receipt), false);
        EXPECT_THAT(session.get("Error").get<std::string>(), HasSubstr("no second movement"));
        movements_left = shown("movements").size();
        deposits_left = shown("deposits").size();
        audit_after_refusal = run("audit --db company.db").code;
        sql("DROP TRIGGER second_fails");
        EXPECT_EQ(deposit(session, capture(session)), true) << session.get("Error");
        const std::string folio = session.get("Dp_Folio");
        EXPECT_EQ(session.finish(), 0);
        return folio;
    }

    std::size_t movements_left = 0, deposits_left = 0;
    int audit_after_refusal = -1;
};

TEST_F(Cli_atomic, a_deposit_refused_at_its_second_movement_leaves_nothing) {
    EXPECT_EQ(deposit_twice(true), "DP-MTY-00000001") << "the folio was given back";
    EXPECT_EQ(movements_left, 0u);
    EXPECT_EQ(deposits_left, 0u);
    EXPECT_EQ(audit_after_refusal, 0);
    EXPECT_EQ(shown("deposits").size(), 2u) << "what succeeded is kept";
    EXPECT_EQ(output_of("audit --db company.db").substr(0, 11), "Todo cuadra");
}

TEST_F(Cli_atomic, without_it_the_refused_deposit_stays_half_done) {
    EXPECT_EQ(deposit_twice(false), "DP-MTY-00000002");
    EXPECT_EQ(movements_left, 1u);
    EXPECT_GE(deposits_left, 1u);
    EXPECT_EQ(audit_after_refusal, 1);
}

TEST_F(Cli_atomic, a_call_that_cannot_begin_is_an_error_and_the_session_goes_on) {
    Rpc_session session(folder, options(true));
    session.ask("create", {{"class", "Tesoreria"}});
    const std::string receipt = capture(session);
    {
        Sqlite_connection other((folder / "company.db").string());
        other.execute("BEGIN TRANSACTION");
        const auto answer = session.ask("call", {{"object", 1},
                                                 {"member", "Genera_Deposito"},
                                                 {"args", {"SRR-MXN", receipt, "2024-03-15", true, "2024-03-15"}}});
        EXPECT_TRUE(answer.contains("error")) << answer;
    }
    EXPECT_EQ(deposit(session, receipt), true) << session.get("Error");
}

TEST_F(Cli_atomic, a_dialog_keeps_nobody_waiting) {
    for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(display);  // it says so and opens no window
    Rpc_session session(folder, options(true));
    session.ask("create", {{"class", "Tesoreria"}});
    Sqlite_connection other((folder / "company.db").string());
    other.execute("BEGIN TRANSACTION");
    const auto answer =
        session.ask("call", {{"object", 1}, {"member", "PedirDatosDeposito"}, {"args", {"2024-03-15", "MXN"}}});
    EXPECT_TRUE(answer.contains("error")) << answer;
}

}  // namespace
}  // namespace cuvexa::tests
