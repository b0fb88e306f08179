// What may lie in the house: which kinds of files, how large, under which names. Looked at are the files that git tracks or,
// where there is no git, all that are not a build's.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/places.h"
#include "support/programs.h"

namespace cuvexa {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::size_t largest = 256 * 1024;

/// Text of every kind that the house has; the pictures of the documents are the only other thing.
const std::set<std::string> kinds_of_text = {".cpp", ".h",   ".cmake", ".in",   ".def",   ".rc",  ".manifest", ".vbs",
                                             ".cmd", ".nsi", ".py",    ".json", ".jsonl", ".sql", ".txt",      ".md",
                                             ".ts",  ".mjs", ".yml",   ".cfg",  ".js",    ".css", ".html",     ".svg"};
const std::set<std::string> names_of_settings = {".gitignore", ".clang-format", ".clang-tidy"};

bool is_picture(const std::string& path) {
    return fs::path(path).extension() == ".png";
}

/// What systemd and the package tools read has the names that they want.
bool is_of_the_packages(const std::string& path) {
    return path.starts_with("packaging/debian/") || path.starts_with("packaging/service/");
}

bool is_text(std::string_view content) {
    const auto is_control = [](unsigned char c) { return c < ' ' && c != '\n' && c != '\t' && c != '\r'; };
    return std::none_of(content.begin(), content.end(), is_control);
}

bool begins_with_a_dash(const fs::path& path) {
    return std::any_of(path.begin(), path.end(), [](const fs::path& name) { return name.string().starts_with('-'); });
}

/// Where every part of a pipe counts, a reader that leaves at its first hit makes the writer fail, now and then.
bool fails_now_and_then(std::string_view script) {
    static const std::regex leaves_early(R"([^|]\|\s*(head\b|grep\s+-\w*q))");
    return script.find("pipefail") != std::string_view::npos &&
           std::regex_search(script.begin(), script.end(), leaves_early);
}

/// Why the house does not keep such a file; empty when it does. A script needs no extension but says what runs it.
std::string objection(const std::string& path, std::string_view content) {
    const fs::path name = fs::path(path).filename();
    const std::string extension = name.extension().string();
    if (begins_with_a_dash(path)) return "a name that a program takes for an option";
    if (content.size() > largest) return "larger than 256 KB";
    if (is_picture(path)) {
        return content.starts_with("\x89PNG\r\n\x1a\n") ? "" : "not the picture that its name promises";
    }
    if (!is_text(content)) return "neither text nor a picture";
    if (names_of_settings.contains(name.string()) || kinds_of_text.contains(extension)) return "";
    if (is_of_the_packages(path)) return "";
    if (extension.empty() && content.starts_with("#!")) {
        return fails_now_and_then(content) ? "a pipe whose reader leaves before its writer has ended, under pipefail"
                                           : "";
    }
    return "a kind of file that the house does not have";
}

// ---- The files ------------------------------------------------------------------------------------------------------

/// What a command prints, cut at its zeros; nothing when it fails.
std::vector<std::string> names_from(const std::string& command) {
    std::FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return {};
    std::string output;
    std::array<char, 4096> part{};
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), pipe)) output.append(part.data(), size);
    if (pclose(pipe) != 0) return {};
    std::istringstream names(output);
    std::vector<std::string> found;
    for (std::string name; std::getline(names, name, '\0');) found.push_back(name);
    return found;
}

std::vector<std::string> tracked_files(const fs::path& root) {
    return names_from("git -C '" + root.string() + "' ls-files -z 2>/dev/null");
}

std::vector<std::string> files_below(const fs::path& root) {
    std::vector<std::string> found;
    for (auto at = fs::recursive_directory_iterator(root); at != fs::recursive_directory_iterator(); ++at) {
        const fs::path path = fs::relative(at->path(), root);
        if (path == "build" || path == ".git") {
            at.disable_recursion_pending();
        } else if (at->is_regular_file()) {
            found.push_back(path.generic_string());
        }
    }
    return found;
}

std::vector<std::string> files_of_the_house(const fs::path& root) {
    const std::vector<std::string> tracked = tracked_files(root);
    return tracked.empty() ? files_below(root) : tracked;
}

std::vector<std::string> objections_to_files(const fs::path& root) {
    std::vector<std::string> objections;
    for (const std::string& path : files_of_the_house(root)) {
        if (!fs::is_regular_file(root / path)) continue;  // deleted, and not yet committed
        std::ifstream file(root / path, std::ios::binary);
        const std::string content{std::istreambuf_iterator<char>(file), {}};
        const std::string why = objection(path, content);
        if (!why.empty()) objections.push_back(path + ": " + why);
    }
    return objections;
}

TEST(House, it_keeps_nothing_that_does_not_belong) {
    const fs::path root = tests::in_source("");
    EXPECT_THAT(objections_to_files(root), IsEmpty());
    EXPECT_THAT(files_of_the_house(root), Contains("tests/house/house_test.cpp")) << "the files were not found";
}

// ---- The test of the test -------------------------------------------------------------------------------------------

TEST(House, the_rule_for_files_objects_to_each_kind_that_does_not_belong) {
    EXPECT_EQ(objection("src/core/date.cpp", "// A date.\n"), "");
    EXPECT_EQ(objection("run", "#!/bin/sh\n"), "");
    EXPECT_EQ(objection(".clang-format", "IndentWidth: 4\n"), "");
    EXPECT_EQ(objection("docs/states.md", "Depósito\n"), "");
    EXPECT_EQ(objection("packaging/debian/control", "Source: cuvexa\n"), "");
    EXPECT_EQ(objection("docs/images/a.png", std::string("\x89PNG\r\n\x1a\n\0\0", 10)), "");
    EXPECT_THAT(objection("tests/servers/-1", ""), HasSubstr("option"));
    EXPECT_THAT(objection("-v/a.cpp", ""), HasSubstr("option"));
    EXPECT_THAT(objection("schema/schema.sql", std::string(largest + 1, 'x')), HasSubstr("larger"));
    EXPECT_THAT(objection("docs/images/a.png", "GIF89a"), HasSubstr("promises"));
    EXPECT_THAT(objection("tests/company.sql", std::string("SQLite format 3\0", 16)), HasSubstr("neither"));
    EXPECT_THAT(objection("tests/company", std::string("#!\0", 3)), HasSubstr("neither"));
    EXPECT_THAT(objection("tests/company.db", ""), HasSubstr("kind"));
    EXPECT_THAT(objection("src/core/date.o", ""), HasSubstr("kind"));
    EXPECT_EQ(objection("run", "#!/bin/sh\nset -eu\nls | grep -q a\n"), "");
    EXPECT_THAT(objection("run", "#!/bin/bash\nset -eo pipefail\nls | grep -q a\n"), HasSubstr("pipe"));
    EXPECT_THAT(objection("run", "#!/bin/bash\nset -eo pipefail\nls |\n    head -1\n"), HasSubstr("pipe"));
    EXPECT_EQ(objection("run", "#!/bin/bash\nset -eo pipefail\nls | grep a || head b\n"), "");
    EXPECT_THAT(objection("notes", "without a first line\n"), HasSubstr("kind"));
}

/// A folder that is thrown away.
class Scratch_house : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "cuvexa-house-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        root = name;
    }
    void TearDown() override { fs::remove_all(root); }

    void write(const std::string& path, const std::string& content) {
        fs::create_directories((root / path).parent_path());
        std::ofstream(root / path, std::ios::binary) << content;
    }

    fs::path root;
};

TEST_F(Scratch_house, a_database_that_a_test_left_behind_is_found_without_git_too) {
    write("src/a.cpp", "int a;\n");
    write("build/a.o", std::string(1, '\0'));
    write("tests/servers/-1", std::string("SQLite format 3\0", 16));
    EXPECT_THAT(objections_to_files(root), ElementsAre(HasSubstr("tests/servers/-1: ")));
}

TEST_F(Scratch_house, with_git_what_it_does_not_track_is_nobody_s_business) {
    CUVEXA_NEEDS_PROGRAM("git");
    write("src/a.cpp", "int a;\n");
    write("src/b.o", "");
    const std::string git = "git -C '" + root.string() + "' ";
    ASSERT_EQ(std::system((git + "init -q && " + git + "add src/a.cpp").c_str()), 0);
    EXPECT_THAT(files_of_the_house(root), ElementsAre("src/a.cpp"));
    ASSERT_EQ(std::system((git + "add src/b.o").c_str()), 0);
    EXPECT_THAT(objections_to_files(root), ElementsAre(HasSubstr("src/b.o: ")));
}

}  // namespace
}  // namespace cuvexa
