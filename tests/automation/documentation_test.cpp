// What docs/automation.md tells integrators is what the tables say.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "automation/members_text.h"

namespace cuvexa::testing {
namespace {

TEST(Documentation, lists_every_member_in_the_published_order) {
    std::ifstream file(CUVEXA_SOURCE_DIR "/docs/automation.md");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    std::size_t at = 0;
    for (const Automation_class& type : automation_classes()) {
        for (const std::string& line : shown_members(type)) {
            const std::size_t found = text.find(line + "\n", at);
            ASSERT_NE(found, std::string::npos) << "missing, or not in its place:\n" << line;
            at = found + line.size();
        }
    }
}

TEST(Documentation, names_every_record) {
    std::ifstream file(CUVEXA_SOURCE_DIR "/docs/automation.md");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    for (const Record_type& record : record_types)
        EXPECT_NE(text.find("`" + std::string(record.name) + "`"), std::string::npos) << record.name;
}

}  // namespace
}  // namespace cuvexa::testing
