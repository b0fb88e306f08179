// The administrators' page: its commands do what they say, one after the other.
#include <filesystem>
#include <regex>
#include <sstream>

#include "cli/program.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using testing::Contains;
using testing::SizeIs;

class Cli_guide : public Program {};

/// The commands of the blocks that a reader is to type as they stand, without the name of the program.
std::vector<std::string> commands_of(const std::string& page) {
    static const std::regex block("```sh\n([^`]*)```");
    std::vector<std::string> commands;
    for (std::sregex_iterator at(page.begin(), page.end(), block), end; at != end; ++at) {
        std::istringstream lines((*at)[1].str());
        for (std::string line; std::getline(lines, line);) commands.push_back(line.substr(line.find(' ') + 1));
    }
    return commands;
}

TEST_F(Cli_guide, has_commands_that_do_what_it_says_one_after_the_other) {
    const std::vector<std::string> commands = commands_of(read_file(in_source("docs/administration.md")));
    ASSERT_THAT(commands, SizeIs(testing::Ge(10u)));
    EXPECT_THAT(commands, Contains("upgrade --db company.db"));
    for (const std::string& command : commands) {
        const Outcome outcome = run(command);
        EXPECT_EQ(outcome.code, 0) << command << '\n' << outcome.err;
        EXPECT_EQ(outcome.err, "") << command;
    }
    EXPECT_TRUE(std::filesystem::exists(folder / "recovered.db"));
}

}  // namespace
}  // namespace cuvexa::tests
