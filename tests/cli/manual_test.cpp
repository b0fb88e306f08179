// The pages of the manual and the completions say what the commands say.
#include <regex>
#include <set>

#include "cli/program.h"
#include "support/places.h"
#include "support/programs.h"

namespace cuvexa::tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

std::vector<std::string> lines_of(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

class Cli_manual : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        output_of("help --man .");
    }

    /// A page without its marks.
    std::string page(const std::string& name) const {
        static const std::regex marks(R"(\\f[BIR])"), dashes(R"(\\-)");
        const std::string text = read_file(folder / (name + ".1"));
        return std::regex_replace(std::regex_replace(text, marks, ""), dashes, "-");
    }

    std::vector<std::string> commands() { return lines_of(output_of("complete -- ''")); }

    /// What the shell's own question is answered.
    std::vector<std::string> candidates(const std::string& words) {
        return lines_of(output_of("complete -- " + words));
    }
};

TEST_F(Cli_manual, has_a_page_for_each_command_with_all_its_options) {
    static const std::regex option(R"(--[a-z][a-z-]*)");
    ASSERT_THAT(commands(), IsSupersetOf({"init", "upgrade", "backup", "restore", "show", "suite", "help"}));
    for (const std::string& command : commands()) {
        const std::string help = output_of(command + " --help"), text = page("cuvexa-" + command);
        EXPECT_THAT(text, HasSubstr(".SH NAME\ncuvexa-" + command + " - ")) << command;
        for (std::sregex_iterator at(help.begin(), help.end(), option), end; at != end; ++at) {
            EXPECT_THAT(text, HasSubstr(at->str())) << command;
        }
        EXPECT_THAT(page("cuvexa"), HasSubstr(".BR cuvexa-" + command + " (1)\n"));
    }
}

TEST_F(Cli_manual, has_the_commands_below_a_command_on_its_page) {
    EXPECT_THAT(page("cuvexa-suite"), HasSubstr(".SS folios\n"));
    EXPECT_THAT(page("cuvexa-suite"), HasSubstr("--reopen"));
    EXPECT_THAT(page("cuvexa-show"), HasSubstr("One of: receipts, deposits, "));
}

TEST_F(Cli_manual, is_read_by_man_without_a_warning) {
    CUVEXA_NEEDS_PROGRAM("groff");
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".1") continue;
        const std::string line = "groff -K utf8 -man -Tutf8 -ww -z '" + entry.path().string() + "' 2>&1 | tee '" +
                                 (folder / ".warnings").string() + "' >/dev/null";
        ASSERT_EQ(std::system(line.c_str()), 0);
        EXPECT_EQ(read_file(folder / ".warnings"), "") << entry.path();
    }
}

TEST_F(Cli_manual, cannot_be_written_where_there_is_no_folder) {
    const Outcome outcome = run("help --man nowhere");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "No se puede escribir la página del manual: nowhere/cuvexa.1\n");
}

class Cli_completion : public Cli_manual {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }

    void expect_read_by(const std::string& shell) {
        write_file(folder / shell, output_of("completion " + shell));
        const std::string line = shell + " -n '" + (folder / shell).string() + "'";
        EXPECT_EQ(std::system(line.c_str()), 0);
    }
};

TEST_F(Cli_completion, knows_commands_options_and_words) {
    EXPECT_THAT(candidates("i"), ElementsAre("init"));
    EXPECT_THAT(candidates("suite f"), ElementsAre("folios"));
    EXPECT_THAT(candidates("suite --db company.db f"), ElementsAre("folios"));
    EXPECT_THAT(candidates("show --js"), ElementsAre("--json"));
    EXPECT_THAT(candidates("suite folios A B --tr"), ElementsAre("--trace")) << "of the command above it";
    EXPECT_THAT(candidates("show de"), ElementsAre("deposits"));
    EXPECT_THAT(candidates("init --synchronous ''"), ElementsAre("full", "normal", "off"));
    EXPECT_THAT(candidates("completion z"), ElementsAre("zsh"));
    EXPECT_THAT(candidates("comple"), ElementsAre("completion")) << "what scripts ask is none of a person's commands";
}

TEST_F(Cli_completion, knows_the_keys_of_a_database_that_is_named) {
    EXPECT_THAT(candidates("show --db company.db accounts SRR"), Contains("SRR-MXN"));
    EXPECT_THAT(candidates("show --db company.db receivables CXC-MTY-0"), Contains("CXC-MTY-00000001"));
    EXPECT_THAT(candidates("show --db company.db accounts \"x' OR 'a' = 'a\""), IsEmpty());
}

TEST_F(Cli_completion, is_silent_where_it_does_not_know) {
    for (const std::string words :
         {"show accounts S", "show --db none.db accounts S", "show --db company.db accounts SRR-MXN ''", "backup ''",
          "show --db ''", "dance ''", "show --nothing x y z"}) {
        const Outcome outcome = run("complete -- " + words);
        EXPECT_EQ(outcome.code, 0) << words;
        EXPECT_EQ(outcome.out + outcome.err, "") << words;
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "none.db"));
}

TEST_F(Cli_completion, works_in_bash) {
    write_file(folder / "ask", output_of("completion bash") + "COMP_WORDS=(" + in_build("bin/cuvexa") +
                                   " show --db company.db accounts SRR)\nCOMP_CWORD=5\n_cuvexa\n"
                                   "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
    const std::string line = "cd '" + folder.string() + "' && bash ask >.answer 2>&1";
    EXPECT_EQ(std::system(line.c_str()), 0);
    EXPECT_THAT(lines_of(read_file(folder / ".answer")), Contains("SRR-MXN"));
}

TEST_F(Cli_completion, is_understood_by_zsh) {
    CUVEXA_NEEDS_PROGRAM("zsh");
    expect_read_by("zsh");
}

TEST_F(Cli_completion, is_understood_by_fish) {
    CUVEXA_NEEDS_PROGRAM("fish");
    expect_read_by("fish");
}

}  // namespace
}  // namespace cuvexa::tests
