// cuvexa parameter and cuvexa suite.
#include "cli/program.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Cli_parameter : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }
};

TEST_F(Cli_parameter, an_empty_value_is_a_value) {
    output_of("parameter set --db company.db TES_FORMA_PAGO_CHEQUE ''");
    EXPECT_EQ(output_of("parameter get --db company.db TES_FORMA_PAGO_CHEQUE"), "\n");
    output_of("parameter unset --db company.db TES_FORMA_PAGO_CHEQUE");
    const Outcome outcome = run("parameter get --db company.db TES_FORMA_PAGO_CHEQUE");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "No existe el parámetro: TES_FORMA_PAGO_CHEQUE\n");
}

TEST_F(Cli_parameter, a_value_is_taken_as_it_stands) {
    for (const std::string value : {"O'Higgins", "with blanks", "-5", "ñandú", "50%", "--x"}) {
        output_of("parameter set --db company.db NAME -- \"" + value + "\"");
        EXPECT_EQ(output_of("parameter get --db company.db NAME"), value + "\n");
    }
}

TEST_F(Cli_parameter, setting_again_replaces) {
    output_of("parameter set --db company.db NAME 1");
    output_of("parameter set --db company.db NAME 2");
    EXPECT_EQ(output_of("parameter get --db company.db NAME"), "2\n");
}

TEST_F(Cli_parameter, lists_for_people_and_for_programs) {
    EXPECT_THAT(output_of("parameter list --db company.db"), HasSubstr("FIN_MONEDA_LOCAL"));
    const auto all = nlohmann::json::parse(output_of("parameter list --json --db company.db"));
    EXPECT_THAT(all, testing::Contains(nlohmann::json{{"name", "FIN_MONEDA_LOCAL"}, {"value", "MXN"}}));
}

TEST_F(Cli_parameter, unsetting_what_is_not_set_is_refused) {
    EXPECT_EQ(run("parameter unset --db company.db NOBODY").code, 1);
}

class Cli_suite : public Cli_parameter {
protected:
    nlohmann::json state() { return nlohmann::json::parse(output_of("suite --db company.db show --json")); }
};

TEST_F(Cli_suite, the_server_is_named_and_keeps_its_rank_unless_told) {
    EXPECT_EQ(state()["server"], (nlohmann::json{{"id", "CENTRAL"}, {"replica", false}}));
    output_of("suite --db company.db server --id NORTE --replica");
    EXPECT_EQ(state()["server"], (nlohmann::json{{"id", "NORTE"}, {"replica", true}}));
    output_of("suite --db company.db server --id SUR");
    EXPECT_EQ(state()["server"], (nlohmann::json{{"id", "SUR"}, {"replica", true}}));
    output_of("suite --db company.db server --id SUR --central");
    EXPECT_EQ(state()["server"], (nlohmann::json{{"id", "SUR"}, {"replica", false}}));
}

TEST_F(Cli_suite, posting_goes_on_and_off_per_document_code) {
    output_of("suite --db company.db posting RECIBO_PAGO on");
    EXPECT_THAT(state()["posting"], testing::Contains(nlohmann::json{{"code", "RECIBO_PAGO"}, {"automatic", true}}));
    EXPECT_THAT(state()["posting"], testing::Contains(nlohmann::json{{"code", "CHEQUE"}, {"automatic", false}}));
    output_of("suite --db company.db posting RECIBO_PAGO off");
    EXPECT_THAT(state()["posting"], testing::Contains(nlohmann::json{{"code", "RECIBO_PAGO"}, {"automatic", false}}));
}

TEST_F(Cli_suite, periods_open_and_close_per_module) {
    output_of("suite --db company.db period close 2024-03");
    EXPECT_THAT(state()["periods"],
                testing::Contains(nlohmann::json{{"module", "FINANZAS"}, {"period", "2024-03"}, {"open", false}}));
    output_of("suite --db company.db period open 2031-01 --module COMPRAS");
    EXPECT_THAT(state()["periods"],
                testing::Contains(nlohmann::json{{"module", "COMPRAS"}, {"period", "2031-01"}, {"open", true}}));
}

TEST_F(Cli_suite, a_series_of_folios_is_shown_moved_closed_and_opened) {
    output_of("suite --db company.db folios RECIBO_PAGO MTY --next 50");
    EXPECT_THAT(state()["folios"], testing::Contains(nlohmann::json{
                                       {"code", "RECIBO_PAGO"}, {"branch", "MTY"}, {"last", 49}, {"open", true}}));
    EXPECT_EQ(run("suite --db company.db folios RECIBO_PAGO MTY --next 49").code, 1) << "given already";
    output_of("suite --db company.db folios BANCO_MOVIMIENTO '' --close");
    EXPECT_THAT(state()["folios"], testing::Contains(nlohmann::json{
                                       {"code", "BANCO_MOVIMIENTO"}, {"branch", ""}, {"last", 0}, {"open", false}}));
    EXPECT_THAT(output_of("suite --db company.db folios BANCO_MOVIMIENTO ''"), HasSubstr("NO"));
    EXPECT_THAT(output_of("suite --db company.db folios BANCO_MOVIMIENTO '' --reopen"), HasSubstr("SI"));
}

TEST_F(Cli_suite, a_posted_document_may_not_be_cancelled) {
    output_of("rpc --db company.db --server-date 2024-03-15", read_file(in_source("examples/first_session.jsonl")));
    output_of("suite --db company.db posted DEPOSITO_PAGO DP-MTY-00000001");
    Rpc_session session(folder, {"--db", "company.db", "--server-date", "2024-03-15"});
    session.ask("create", {{"class", "Tesoreria"}});
    EXPECT_EQ(session.call("Cancelar_Deposito", {"DP-MTY-00000001"}), false);
}

TEST_F(Cli_suite, shows_tables_to_people) {
    const std::string text = output_of("suite show --db company.db");
    for (const char* part : {"Servidor: CENTRAL (central)", "Pólizas automáticas", "Períodos operativos", "FINANZAS",
                             "Series de folios"}) {
        EXPECT_THAT(text, HasSubstr(part));
    }
}

}  // namespace
}  // namespace cuvexa::tests
