// Wrong use: exit code 2 and one line.
#include "cli/program.h"
#include "support/places.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
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

TEST_F(Cli_use, help_and_version_are_asked_for) {
    EXPECT_THAT(output_of("--help"), HasSubstr("parameter"));
    EXPECT_THAT(output_of("show --help"), HasSubstr("--json"));
    EXPECT_THAT(output_of("--version"), StartsWith("cuvexa "));
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
