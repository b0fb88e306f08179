// What the documents say of the house, held against the house.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "support/places.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

std::string text_of(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::set<std::string> matches(const std::string& text, const std::regex& pattern) {
    std::set<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at) found.insert((*at)[1]);
    return found;
}

std::set<std::string> without(std::set<std::string> names, const std::set<std::string>& others) {
    for (const std::string& other : others) names.erase(other);
    return names;
}

/// Where the links of a document lead inside the tree; what stands in other places of the world is not looked at.
std::set<std::string> links_of(const std::string& document) {
    static const std::regex link(R"(\]\(([^)#\s:]+)(#[^)\s]*)?\))");
    return matches(document, link);
}

std::vector<fs::path> documents() {
    const fs::path root = in_source("");
    std::vector<fs::path> found;
    for (const fs::path& folder : {root, root / "docs"}) {
        for (const auto& entry : fs::directory_iterator(folder)) {
            if (entry.path().extension() == ".md") found.push_back(entry.path());
        }
    }
    return found;
}

std::vector<std::string> dead_links(const fs::path& document) {
    std::vector<std::string> dead;
    for (const std::string& link : links_of(text_of(document))) {
        if (!fs::exists(document.parent_path() / link)) dead.push_back(document.filename().string() + ": " + link);
    }
    return dead;
}

TEST(House, each_page_of_the_documents_is_linked_from_the_first_one) {
    std::set<std::string> pages;
    for (const auto& entry : fs::directory_iterator(in_source("docs"))) {
        if (entry.path().extension() == ".md") pages.insert("docs/" + entry.path().filename().string());
    }
    EXPECT_THAT(pages, Contains("docs/architecture.md")) << "the pages were not found";
    EXPECT_THAT(without(pages, links_of(text_of(in_source("README.md")))), IsEmpty());
}

TEST(House, each_link_of_a_document_leads_somewhere) {
    ASSERT_THAT(documents(), SizeIs(::testing::Gt(10u)));
    for (const fs::path& document : documents()) EXPECT_THAT(dead_links(document), IsEmpty());
}

TEST(House, links_are_told_from_what_is_none) {
    EXPECT_THAT(links_of("[a](docs/a.md), [b](docs/b.md#part), [c](https://example.org/), [d](#here), e[1](x)"),
                ElementsAre("docs/a.md", "docs/b.md", "x"));
}

// ---- The page on architecture ---------------------------------------------------------------------------------------

/// The folders of src/ that hold sources: "src/database/sqlite/".
std::set<std::string> rooms() {
    const fs::path root = in_source("");
    std::set<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(root / "src")) {
        if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") {
            found.insert(fs::relative(entry.path().parent_path(), root).generic_string() + "/");
        }
    }
    return found;
}

/// The rooms that the table of the page names. A row may name parts of its room after it: `qt/`.
std::set<std::string> rooms_told(const std::string& page) {
    static const std::regex row(R"(\| `(src/[a-z_0-9/]+/)` \|([^\n]*))");
    static const std::regex part("`([a-z_0-9]+/)`");
    std::set<std::string> told;
    for (std::sregex_iterator at(page.begin(), page.end(), row), end; at != end; ++at) {
        told.insert((*at)[1]);
        for (const std::string& name : matches((*at)[2], part)) told.insert((*at)[1].str() + name);
    }
    return told;
}

/// The libraries that the build makes of rooms.
std::set<std::string> libraries() {
    static const std::regex library(R"(\n *cuvexa_library\((\w+))");
    std::string build = text_of(in_source("CMakeLists.txt"));
    for (const auto& entry : fs::directory_iterator(in_source("cmake"))) build += text_of(entry.path());
    return matches(build, library);
}

TEST(House, the_page_on_architecture_tells_each_room_and_no_other) {
    const std::set<std::string> told = rooms_told(text_of(in_source("docs/architecture.md")));
    EXPECT_THAT(rooms(), IsSupersetOf({"src/core/", "src/database/sqlite/"})) << "the rooms were not found";
    EXPECT_THAT(without(rooms(), told), IsEmpty()) << "rooms that the page does not tell";
    for (const std::string& room : told) EXPECT_TRUE(fs::is_directory(in_source(room))) << room;
}

TEST(House, the_page_on_architecture_tells_each_library_and_no_other) {
    static const std::regex library(R"(`Cuvexa::(\w+)`)");
    const std::set<std::string> told = matches(text_of(in_source("docs/architecture.md")), library);
    EXPECT_THAT(libraries(), IsSupersetOf({"core", "sqlite"})) << "the libraries were not found";
    EXPECT_EQ(told, libraries());
}

TEST(House, the_rooms_of_a_table_and_their_parts_are_read) {
    EXPECT_THAT(rooms_told("| `src/core/` | all of it |\n| `src/desktop/` | `qt/` with Qt, `win32/` |\n`src/x/`\n"),
                ElementsAre("src/core/", "src/desktop/", "src/desktop/qt/", "src/desktop/win32/"));
}

}  // namespace
}  // namespace cuvexa::tests
