// What every member sends to the database is what its file tells. To write the files anew after a change:
//
//     UPDATE_STATEMENTS=1 build/dev/bin/cuvexa_statements_tests
#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "statements/cases.h"
#include "statements/source_statements.h"
#include "statements/telling.h"
#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

constexpr auto suite_folder = "suite/";

/// A file, from its folder in tests/statements on.
struct File {
    std::string name;
    Member_cases cases;
};

/// In the order in which they are told: a member stands before those that call it.
std::vector<File> files() {
    std::vector<File> all;
    const auto add = [&](const std::string& folder, const std::vector<Member_cases>& members) {
        for (const Member_cases& member : members) all.push_back({folder + member.member, member});
    };
    for (const auto& group : {receipt_cases(), bank_cases(), deposit_cases(), check_cases(), application_cases(),
                              cancellation_cases(), request_cases(), dialog_cases()}) {
        add("", group);
    }
    add(suite_folder, suite_cases());
    return all;
}

/// The administration stamps with the clock of this machine, which does not stand still; the company's suite writes a blank
/// for the "T".
std::string at_the_company_s_time(const std::string& text) {
    static const std::regex stamp(R"('\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d')");
    return std::regex_replace(text, stamp, "'2024-03-15T10:20:30'");
}

Case_trace trace_of(const Case& of_case, bool of_suite) {
    SCOPED_TRACE(of_case.title);
    Company company;
    if (of_case.given) of_case.given(company);
    company.mark();
    EXPECT_TRUE(of_case.call(company)) << company.treasury().Error();
    Case_trace trace{of_case.title, {}};
    for (const std::string& text : of_suite ? company.wire().texts() : company.statements()) {
        const auto& refused = company.on.refused;
        trace.sent.push_back(
            {at_the_company_s_time(text), std::find(refused.begin(), refused.end(), text) != refused.end()});
    }
    return trace;
}

struct File_trace {
    std::string name, member;
    std::vector<Case_trace> cases;
};

/// What all cases send, run once.
const std::vector<File_trace>& traces() {
    static const std::vector<File_trace> all = [] {
        std::vector<File_trace> run;
        for (const File& file : files()) {
            SCOPED_TRACE(file.name);
            run.push_back({file.name, file.cases.member, {}});
            for (const Case& of_case : file.cases.cases) {
                run.back().cases.push_back(trace_of(of_case, file.name.starts_with(suite_folder)));
            }
        }
        return run;
    }();
    return all;
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

/// What stands between the lines that both have at the beginning and at the end.
std::string difference(const std::string& before, const std::string& now) {
    std::vector<std::string> old = lines_of(before), fresh = lines_of(now);
    std::size_t same = 0;
    while (same < old.size() && same < fresh.size() && old[same] == fresh[same]) ++same;
    while (old.size() > same && fresh.size() > same && old.back() == fresh.back()) {
        old.pop_back();
        fresh.pop_back();
    }
    std::string text = "from line " + std::to_string(same + 1) + " on\n";
    for (std::size_t i = same; i < old.size(); ++i) text += "- " + old[i] + "\n";
    for (std::size_t i = same; i < fresh.size(); ++i) text += "+ " + fresh[i] + "\n";
    return text;
}

std::vector<std::string> names() {
    std::vector<std::string> all;
    for (const File& file : files()) all.push_back(file.name);
    return all;
}

TEST(Statement_files, each_tells_what_its_member_sent) {
    const bool update = std::getenv("UPDATE_STATEMENTS") != nullptr;
    Teller teller;
    for (const auto& [name, member, cases] : traces()) {
        const std::string now = teller.tell(member, cases);
        const std::string path = in_source("tests/statements/" + name + ".sql");
        const std::string before = text_of_file(path);
        if (update && now != before) std::ofstream(path, std::ios::binary) << now;
        EXPECT_TRUE(update || now == before) << name << ", " << difference(before, now)
                                             << "When that is meant: UPDATE_STATEMENTS=1 cuvexa_statements_tests";
    }
}

TEST(Statement_files, each_is_told_by_a_member) {
    std::set<std::string> found;
    for (const auto& path : statement_files()) found.insert(path.stem().string());
    for (const auto& path : statement_files(suite_folder)) found.insert(suite_folder + path.stem().string());
    const std::vector<std::string> told_names = names();
    EXPECT_EQ(found, std::set<std::string>(told_names.begin(), told_names.end()));
    EXPECT_EQ(found.size(), told_names.size()) << "two have one name";
}

TEST(Statement_files, every_statement_of_the_sources_is_sent_by_a_case) {
    std::vector<std::string> all;
    for (const File_trace& file : traces()) {
        for (const Case_trace& of_case : file.cases) {
            for (const Sent& sent : of_case.sent) all.push_back(sent.text);
        }
    }
    std::size_t looked_for = 0;
    for (const char* room :
         {"core", "receipts", "checks", "banks", "deposits", "requests", "advances", "dialogs", "suite"}) {
        for (const Source_statement& statement : source_statements(room)) {
            ++looked_for;
            EXPECT_TRUE(std::any_of(all.begin(), all.end(),
                                    [&](const std::string& sent) { return comes_of(sent, statement.text); }))
                << statement.file << ": no case sends " << statement.text;
        }
    }
    EXPECT_GT(looked_for, 150u);
}

TEST(Statement_files, none_is_told_in_full_twice) {
    std::set<std::string> seen;
    for (const Told_statement& told : told_statements()) {
        EXPECT_TRUE(seen.insert(Statement_form(told.text).form).second) << told.file << ": " << told.text;
    }
}

}  // namespace
}  // namespace cuvexa::tests
