// Wrong use: exit code 2 and one line.
#include "cli/program.h"
#include "support/places.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

class Cli_use : public Program {};

TEST_F(Cli_use, wrong_is_one_line_and_code_2) {
    make_company();
    for (const std::string arguments : {
             "",
             "dance",
             "init",
             "show",
             "show receipts",
             "show secrets --db company.db",
             "show receipts --db company.db --loud",
             "show receipts A B --db company.db",
             "parameter --db company.db",
             "parameter get --db company.db",
             "parameter set --db company.db NAME",
             "suite --db company.db",
             "suite --db company.db server",
             "suite --db company.db server --id A --replica --central",
             "suite --db company.db posting CHEQUE maybe",
             "suite --db company.db period open 2024-13",
             "suite --db company.db period open 2024-00",
             "suite --db company.db period open 24-1",
             "suite --db company.db period open 2024/01",
             "suite --db company.db period open x024-01",
             "suite --db company.db period open 2x24-01",
             "suite --db company.db period open 20x4-01",
             "suite --db company.db period open 202x-01",
             "suite --db company.db period open 2024-x1",
             "suite --db company.db period open 2024-0x",
             "suite --db company.db period shut 2024-01",
             "suite --db company.db folios RECIBO_PAGO",
             "suite --db company.db folios RECIBO_PAGO MTY --next 0",
             "suite --db company.db folios RECIBO_PAGO MTY --next x",
             "suite --db company.db folios RECIBO_PAGO MTY --close --reopen",
             "suite --db company.db posted CHEQUE",
             "rpc",
             "rpc --db company.db --server-date yesterday",
             "rpc --db company.db --server-date 2024-02-30",
             "rpc --db company.db --synchronous sometimes",
             "demo --wait soon",
         }) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << "cuvexa " << arguments;
        EXPECT_THAT(outcome.err, StartsWith("cuvexa: ")) << "cuvexa " << arguments;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_EQ(outcome.out, "") << "cuvexa " << arguments;
    }
}

TEST_F(Cli_use, wrong_says_what_is_missing_and_what_was_meant) {
    const std::pair<const char*, const char*> lines[] = {
        {"", "a command is missing: init, upgrade, "},
        {"shw accounts", "there is no command shw, did you mean show? (see cuvexa --help)\n"},
        {"audti", "there is no command audti, did you mean audit? (see cuvexa --help)\n"},
        {"dance", "there is no command dance (see cuvexa --help)\n"},
        {"suite --db a.db flios X", "there is no command flios, did you mean folios? (see cuvexa suite --help)\n"},
        {"suite --db a.db",
         "a command is missing: show, server, posting, period, folios, posted (see cuvexa suite --help)\n"},
        {"show accounts --db a.db --jsn", "there is no option --jsn, did you mean --json? (see cuvexa show --help)\n"},
        {"suite folios A B --trase x --db a.db",
         "there is no option --trase, did you mean --trace? (see cuvexa suite folios --help)\n"},
        {"show accounts A B --db a.db", "a word too many: B (see cuvexa show --help)\n"},
        {"show", "view is required (see cuvexa show --help)\n"},
        {"init", "--db is required (see cuvexa init --help)\n"},
        {"help dnace", "there is no command dnace (see cuvexa help --help)\n"},
        {"help suite folos", "there is no command folos, did you mean folios? (see cuvexa help --help)\n"},
    };
    for (const auto& [arguments, line] : lines) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments;
        EXPECT_THAT(outcome.err, StartsWith(std::string("cuvexa: ") + line)) << arguments;
    }
}

TEST_F(Cli_use, help_and_version_are_asked_for) {
    EXPECT_THAT(output_of("--help"), HasSubstr("parameter"));
    EXPECT_THAT(output_of("show --help"), HasSubstr("--json"));
    EXPECT_THAT(output_of("--version"), MatchesRegex("cuvexa [0-9]+[.][0-9]+[.][0-9]+\ncommit: [0-9a-z]+\n"
                                                     "engines: SQLite [0-9.]+[A-Za-z, ]*\n"));
}

TEST_F(Cli_use, help_says_of_each_command_what_the_command_says) {
    EXPECT_EQ(output_of("help"), output_of("--help"));
    for (const std::string command : {"init", "show", "suite", "suite folios", "rpc", "help"}) {
        EXPECT_EQ(output_of("help " + command), output_of(command + " --help")) << command;
    }
}

TEST_F(Cli_use, the_component_is_described_for_machines) {
    EXPECT_THAT(output_of("describe"), testing::AllOf(StartsWith("{\"openrpc\":"), HasSubstr("\"Genera_Deposito\"")));
}

TEST_F(Cli_use, a_result_that_cannot_be_written_is_a_failure) {
    make_company();
    const std::string line = "cd '" + folder.string() + "' && '" + in_build("bin/cuvexa") +
                             "' show accounts --db company.db >/dev/full 2>.err";
    EXPECT_NE(std::system(line.c_str()), 0);
    EXPECT_EQ(read_file(folder / ".err"), "No se pudo escribir el resultado\n");
}

TEST_F(Cli_use, what_cannot_be_written_is_a_failure) {
    for (const char* asked : {"--help", "--version", "init --help"}) {
        const std::string line =
            "'" + in_build("bin/cuvexa") + "' " + asked + " >/dev/full 2>'" + (folder / ".err").string() + "'";
        EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), 1) << asked;
        EXPECT_EQ(read_file(folder / ".err"), "No se pudo escribir el resultado\n");
    }
    make_company();
    const Outcome traced = run("show receipts --db company.db --trace /dev/full");
    EXPECT_EQ(traced.code, 1);
    EXPECT_EQ(traced.err, "La instrucción se ejecutó, pero no se pudo escribir en el rastro\n");
}

TEST_F(Cli_use, what_is_no_number_of_seconds_and_no_name_of_a_user_is_refused) {
    make_company();
    for (const char* wait : {"nan", "-nan", "inf", "-1", "x"}) {
        EXPECT_EQ(run("show receipts --db company.db --wait=" + std::string(wait)).code, 2) << wait;
    }
    for (const char* user : {"\"o'brien\"", "$(printf '\\377')", "$(printf 'a\\nb')"}) {
        EXPECT_EQ(run("rpc --db company.db --user " + std::string(user)).code, 2) << user;
    }
    EXPECT_EQ(run("rpc --db company.db --user \"o''brien\"").code, 0);
}

}  // namespace
}  // namespace cuvexa::tests
