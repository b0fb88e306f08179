// The number of the version stands where tools and people look for it, and is one.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "support/places.h"

namespace cuvexa::tests {
namespace {

/// What the first group of the pattern is, where it is first in a file.
std::string said_in(const std::string& path, const std::string& pattern) {
    std::ifstream file(in_source(path), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::smatch match;
    return std::regex_search(text, match, std::regex(pattern)) ? match[1].str() : "nothing";
}

std::string version() {
    return said_in("CMakeLists.txt", R"(project\(Cuvexa VERSION (\d+\.\d+\.\d+) )");
}

std::string without_last(const std::string& numbers) {
    return numbers.substr(0, numbers.rfind('.'));
}

std::vector<int> numbers_of(const std::string& version) {
    std::vector<int> numbers;
    std::istringstream parts(version);
    for (std::string part; std::getline(parts, part, '.');) numbers.push_back(std::stoi(part));
    return numbers;
}

TEST(House, says_one_version_everywhere) {
    EXPECT_EQ(said_in("CHANGELOG.md", R"(\n## (\S+))"), version());
    EXPECT_EQ(said_in("packaging/debian/changelog", R"(^cuvexa \((.*)\))"), version());
    EXPECT_EQ(said_in("docs/administration.md", R"(cuvexa_(\S+)_amd64)"), version());
    for (const char* path : {"README.md", "examples/first_program/CMakeLists.txt"}) {
        EXPECT_EQ(said_in(path, R"(find_package\(Cuvexa (\S+) REQUIRED\))"), without_last(version())) << path;
    }
}

TEST(House, names_no_program_for_its_schema_that_is_not_there_yet) {
    const std::string program = said_in("schema/schema.sql", R"(VALUES \('CUVEXA', \d+, '([0-9.]+)'\))");
    EXPECT_LE(numbers_of(program), numbers_of(version()));
}

TEST(House, names_the_shared_library_by_the_first_number) {
    const std::string number = version().substr(0, version().find('.'));
    EXPECT_EQ(said_in("packaging/debian/libcuvexa" + number + ".symbols", R"(^libcuvexa\.so\.(\d+) )"), number);
}

}  // namespace
}  // namespace cuvexa::tests
