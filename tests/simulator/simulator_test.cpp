// The simulator itself: it sees what differs, makes the script short, and the session it writes shows the same.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "simulator/generator.h"
#include "simulator/script_file.h"
#include "simulator/shrink.h"
#include "simulator/stage.h"
#include "support/places.h"
#include "support/programs.h"

namespace cuvexa::simulator {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

Step step(int id, Step::Kind kind, const std::string& name, Json arguments = Json::array(), int object = 1) {
    Step step;
    step.id = id;
    step.kind = kind;
    step.name = name;
    step.arguments = std::move(arguments);
    step.object = kind == Step::Kind::create ? 0 : object;
    return step;
}

/// What nobody told the model: a bank's balance moves by a cent more.
Step planted_cent(int id) {
    Step step = Step::sql(
        "CREATE TRIGGER Centavo AFTER INSERT ON Banco_Movimiento "
        "BEGIN UPDATE Banco SET Bn_Saldo = Bn_Saldo + 0.01 WHERE Bn_Cve_Banco = 'SIERRA'; END");
    step.id = id;
    return step;
}

Json movement() {
    return {{{"Bt_Cve_Banco_Tipo_Movimiento", "INT"},
             {"Bm_Fecha", "2024-03-15"},
             {"Bm_Comentario", "Intereses"},
             {"Cuenta", {{"Bc_Cve_Banco_Cuenta", "SRR-MXN"}}},
             {"Bm_Importe", 250.5},
             {"Bm_Tipo_Cambio", 1}}};
}

Script script_with_a_cent_too_much() {
    return {step(1, Step::Kind::create, "Tesoreria"),
            step(2, Step::Kind::call, "Nuevo"),
            planted_cent(3),
            step(4, Step::Kind::create, "Tesoreria"),
            step(5, Step::Kind::let, "Ch_Banco_Destino", {"x"}, 4),
            step(6, Step::Kind::call, "GetSaldo", {"SRR-MXN"}, 4),
            step(7, Step::Kind::call, "Registra_Movimiento_Banco", movement(), 4),
            step(8, Step::Kind::call, "Cancelar_Movimiento_Bancos", {reference(7, "Banco_Movimiento", 0)}, 4)};
}

std::vector<int> ids(const Script& script) {
    std::vector<int> found;
    for (const Step& step : script) found.push_back(step.id);
    return found;
}

// ---- What differs ---------------------------------------------------------------------------------------------------

TEST(Simulator, a_row_that_the_model_does_not_expect_is_a_difference_at_once) {
    const auto finding = play(script_with_a_cent_too_much());
    ASSERT_TRUE(finding);
    EXPECT_EQ(finding->script.back().name, "Registra_Movimiento_Banco");
    EXPECT_THAT(finding->differences, ElementsAre(AllOf(HasSubstr("Banco \"SIERRA\": Bn_Saldo is 250.50999999999999"),
                                                        HasSubstr("the model has 250.5"))));
}

TEST(Simulator, a_row_that_only_the_database_has_is_a_difference) {
    Step planted = Step::sql(
        "CREATE TRIGGER Otra AFTER INSERT ON Banco_Movimiento "
        "BEGIN INSERT INTO Moneda (Mn_Cve_Moneda) VALUES ('XXX'); END");
    planted.id = 2;
    const auto finding = play({step(1, Step::Kind::create, "Tesoreria"), planted,
                               step(3, Step::Kind::call, "Registra_Movimiento_Banco", movement())});
    ASSERT_TRUE(finding);
    EXPECT_THAT(finding->differences, ElementsAre("Moneda \"XXX\": the model has no such row"));
}

TEST(Simulator, a_row_that_the_database_did_not_get_is_a_difference) {
    Step planted = Step::sql("CREATE TRIGGER Nada BEFORE UPDATE ON Banco BEGIN SELECT RAISE(IGNORE); END");
    planted.id = 2;
    const auto finding = play({step(1, Step::Kind::create, "Tesoreria"), planted,
                               step(3, Step::Kind::call, "Registra_Movimiento_Banco", movement())});
    ASSERT_TRUE(finding);
    EXPECT_THAT(finding->differences, Contains(HasSubstr("Banco \"SIERRA\": Bn_Saldo is 0, the model has 250.5")));
}

TEST(Simulator, a_text_in_error_and_a_result_are_compared) {
    Step planted =
        Step::sql("CREATE TRIGGER Falla BEFORE INSERT ON Banco_Movimiento BEGIN SELECT RAISE(FAIL, 'no'); END");
    planted.id = 2;
    const auto finding = play({step(1, Step::Kind::create, "Tesoreria"), planted,
                               step(3, Step::Kind::call, "Registra_Movimiento_Banco", movement())});
    ASSERT_TRUE(finding);
    EXPECT_THAT(
        finding->differences,
        AllOf(Contains("the result is false, the model has true"),
              Contains(AllOf(HasSubstr("Error is \"Cuvexa.dll - Registra_Movimiento_Banco() "), HasSubstr("no\"")))));
}

TEST(Simulator, an_honest_script_shows_nothing) {
    Script script = script_with_a_cent_too_much();
    script.erase(script.begin() + 2);
    EXPECT_FALSE(play(script));
}

TEST(Simulator, a_deposit_folio_of_blanks_is_none) {
    EXPECT_FALSE(
        play({step(1, Step::Kind::create, "Tesoreria"),
              step(2, Step::Kind::let, "RpEncabezado",
                   {{{"Rp_Fecha", "2024-03-15"},
                     {"Mn_Cve_Moneda", "MXN"},
                     {"Rp_Tipo_Cambio", 1},
                     {"Rp_Folio_Deposito", " "},
                     {"Sucursal", {{"Sc_Cve_Sucursal", "MTY"}}},
                     {"TipoReciboPago", {{"Trp_Cve_Tipo_Recibo_Pago", "01"}}}}}),
              step(3, Step::Kind::let, "RpDetalle",
                   {{{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "01"}}}, {"Rp_Importe", 5}}}),
              step(4, Step::Kind::call, "Add_Recibo_Caja_Detalle"),
              step(5, Step::Kind::call, "Cancelar_Recibo_Caja", {reference(4, "Recibo_Pago", 0), true, true})}));
}

// ---- What goes wrong ------------------------------------------------------------------------------------------------

/// A movement whose call meets the fault.
Script disturbed_movement(const Fault& fault, const std::string& planted = {}) {
    Script script = {step(1, Step::Kind::sql, "UPDATE Configuracion_Contable SET Ct_Automatica = 'SI'"),
                     step(2, Step::Kind::create, "Tesoreria")};
    if (!planted.empty()) script.push_back(step(3, Step::Kind::sql, planted));
    script.push_back(step(4, Step::Kind::call, "Registra_Movimiento_Banco", movement(), 2));
    script.back().fault = fault;
    return script;
}

/// What a script showed, and what went wrong in it.
std::pair<std::vector<std::string>, Stage::Disturbed> shown_by(const Script& script) {
    Stage stage;
    std::vector<std::string> differences;
    for (const Step& each : script) {
        for (const std::string& difference : stage.run(each)) differences.push_back(difference);
    }
    return {differences, stage.disturbed()};
}

class Disturbed : public ::testing::TestWithParam<Fault::Kind> {};

TEST_P(Disturbed, a_call_leaves_what_the_model_expects_and_the_audit_puts_it_right) {
    Stage::Disturbed met;
    for (std::size_t at = 1; at <= 24; at += 2) {
        for (const bool atomic : {false, true}) {
            SCOPED_TRACE((atomic ? "unit, " : "") + std::to_string(at));
            const auto [differences, disturbed] = shown_by(disturbed_movement({GetParam(), at, atomic}));
            EXPECT_THAT(differences, IsEmpty());
            met.calls += disturbed.calls;
            met.with_findings += disturbed.with_findings;
            EXPECT_EQ(atomic ? disturbed.with_findings : 0, 0) << "a unit of work leaves nothing";
        }
    }
    EXPECT_GE(met.calls, 12);
    EXPECT_GE(met.with_findings, 2);
}

INSTANTIATE_TEST_SUITE_P(By, Disturbed,
                         ::testing::Values(Fault::Kind::refused, Fault::Kind::conflict, Fault::Kind::lost,
                                           Fault::Kind::unanswered, Fault::Kind::killed, Fault::Kind::killed_behind),
                         [](const auto& info) { return std::string(name_of(info.param)); });

TEST(Simulator, a_full_disk_leaves_what_the_model_expects) {
    Script script = disturbed_movement({Fault::Kind::disk_full, 1, false});
    // One of them needs a page more than there are.
    for (int more = 0; more < 60; ++more) {
        script.push_back(script.back());
        script.back().id = 100 + more;
    }
    const auto [differences, disturbed] = shown_by(script);
    EXPECT_THAT(differences, IsEmpty());
    EXPECT_GT(disturbed.calls, 0);
}

/// Far enough into the call for the movement to stand, and not yet to be registered.
constexpr std::size_t behind_the_movement = 14;

TEST(Simulator, rows_beyond_what_the_call_had_written_are_a_difference) {
    const auto [differences, disturbed] =
        shown_by(disturbed_movement({Fault::Kind::refused, behind_the_movement, false}, planted_cent(3).name));
    EXPECT_THAT(differences, Contains(HasSubstr("Banco \"SIERRA\": Bn_Saldo is")));
}

TEST(Simulator, advice_that_does_not_help_is_a_difference) {
    std::vector<std::string> all;
    for (std::size_t at = behind_the_movement; at <= 24; ++at) {
        const auto [differences, disturbed] = shown_by(disturbed_movement(
            {Fault::Kind::refused, at, false},
            "CREATE TRIGGER Sigue BEFORE UPDATE OF Es_Cve_Estado ON Banco_Movimiento BEGIN SELECT RAISE(IGNORE); END"));
        all.insert(all.end(), differences.begin(), differences.end());
    }
    EXPECT_THAT(all, Contains(HasSubstr("advice does not help: ")));
}

TEST(Simulator, what_the_audit_finds_and_the_model_does_not_is_a_difference) {
    Stage stage;
    // The model takes rows over when a step changes them, not when a trigger waits for a later one.
    EXPECT_THAT(stage.run(step(1, Step::Kind::sql, "UPDATE Banco SET Bn_Saldo = 7 WHERE Bn_Cve_Banco = 'SIERRA'")),
                IsEmpty());
    EXPECT_THAT(stage.run_end(), IsEmpty()) << "both find it";
    stage.rows().Banco.update([](const auto&) { return true; }, [](auto& bank) { bank.Bn_Saldo = 0; });
    EXPECT_THAT(stage.compared_findings(),
                Contains(HasSubstr("the audit finds, and the model does not: saldo-de-banco, Banco SIERRA")));
}

// ---- Scripts --------------------------------------------------------------------------------------------------------

TEST(Simulator, references_stand_for_what_a_step_made_and_for_nothing_when_it_is_gone) {
    const std::map<int, Made> made = {{12, {{"Cheque", {"CH-1", "CH-2"}}}}};
    EXPECT_EQ(resolved(reference(12, "Cheque", 1), made), "CH-2");
    EXPECT_EQ(resolved("R1," + reference(12, "Cheque", 0) + "!", made), "R1,CH-1!");
    EXPECT_EQ(resolved(reference(12, "Cheque", 2), made), "");
    EXPECT_EQ(resolved(reference(13, "Cheque", 0), made), "");
    EXPECT_EQ(resolved(Json{{"a", {reference(12, "Cheque", 0)}}, {"b", 1}}, made), (Json{{"a", {"CH-1"}}, {"b", 1}}));
}

TEST(Simulator, a_script_is_made_as_short_as_it_goes) {
    const Finding finding = shrunk(play(script_with_a_cent_too_much()).value());
    EXPECT_THAT(ids(finding.script), ElementsAre(3, 4, 7));
    EXPECT_FALSE(finding.script.back().arguments[0].contains("Bm_Comentario"));
    EXPECT_TRUE(finding.script.back().arguments[0].contains("Cuenta"));
}

TEST(Simulator, a_script_on_disk_is_the_same_script) {
    Script script = script_with_a_cent_too_much();
    script.push_back({.id = 9, .kind = Step::Kind::session, .name = "CAJA2", .at = make_date(2024, 3, 16, 8, 0, 0)});
    script.push_back({.id = 10, .kind = Step::Kind::clock, .name = {}, .at = make_date(2024, 3, 17)});
    script.push_back(disturbed_movement({Fault::Kind::unanswered, 7, true}).back());
    std::stringstream file;
    write_script(script, file);
    const Script again = read_script(file);
    ASSERT_EQ(again.size(), script.size());
    for (std::size_t at = 0; at < script.size(); ++at) {
        EXPECT_EQ(again[at].id, script[at].id);
        EXPECT_EQ(again[at].kind, script[at].kind);
        EXPECT_EQ(again[at].object, script[at].object);
        EXPECT_EQ(again[at].name, script[at].name);
        EXPECT_EQ(again[at].arguments, script[at].arguments);
        EXPECT_EQ(again[at].at, script[at].at);
        EXPECT_EQ(again[at].fault, script[at].fault);
    }
}

TEST(Simulator, the_same_seed_makes_the_same_script) {
    std::string written[2];
    for (std::string& text : written) {
        Stage stage;
        Generator generator({.seed = 7});
        Script script;
        for (int at = 0; at < 150; ++at) {
            script.push_back(generator.next(stage));
            EXPECT_THAT(stage.run(script.back()), IsEmpty());
            generator.observe(stage, script.back());
        }
        std::ostringstream out;
        write_script(script, out);
        text = out.str();
    }
    EXPECT_EQ(written[0], written[1]);
}

// ---- The session ----------------------------------------------------------------------------------------------------

/// What a command writes, and how it ends.
std::pair<std::string, int> run(const std::string& command) {
    std::string output;
    FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
    char buffer[4096];
    for (std::size_t read; (read = fread(buffer, 1, sizeof buffer, pipe)) > 0;) output.append(buffer, read);
    return {output, pclose(pipe)};
}

TEST(Simulator, the_session_shows_the_same_with_the_program) {
    const std::string program = tests::in_build("bin/cuvexa");
    if (!std::filesystem::exists(program)) GTEST_SKIP() << "there is no program cuvexa";
    CUVEXA_NEEDS_PROGRAM("sqlite3");
    Script script = script_with_a_cent_too_much();
    script.insert(script.begin() + 3,
                  {.id = 20, .kind = Step::Kind::session, .name = "CAJA''2", .at = make_date(2024, 3, 15, 9, 30, 0)});
    const Finding finding = play(script).value();
    const std::string path = ::testing::TempDir() + "cuvexa_session_" + std::to_string(::getpid()) + ".sh";
    {
        std::ofstream session(path);
        write_session(finding.script, finding.made, finding.differences, session);
        session
            << "sqlite3 \"$folder/company.db\" \"SELECT Bn_Saldo, Oper_Ult_Modif FROM Banco WHERE Bn_Cve_Banco = 'SIERRA'\"\n";
    }
    const auto [output, status] = run("bash " + path + " " + program);
    std::filesystem::remove(path);
    EXPECT_EQ(status, 0) << output;
    EXPECT_THAT(output, HasSubstr(R"("member":"Registra_Movimiento_Banco")"));
    EXPECT_THAT(output, HasSubstr(R"(← {"jsonrpc":"2.0","result":{"value":true,"args":[)"));
    EXPECT_THAT(output, HasSubstr(R"(← {"jsonrpc":"2.0","result":{"value":""})")) << "Error is asked for";
    EXPECT_THAT(output, HasSubstr("250.51|CAJA'2"));
}

}  // namespace
}  // namespace cuvexa::simulator
