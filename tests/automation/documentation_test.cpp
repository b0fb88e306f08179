// What docs/automation.md tells integrators is what the tables say.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "automation/members.h"
#include "automation/type_text.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using namespace automation;

std::string shown_type(const Value_type& type) {
    if (type.type == Type::none) return "–";
    const bool own = type.type == Type::record || type.type == Type::object;
    return own ? "`" + type_text(type) + "`" : type_text(type);
}

std::string shown_parameters(const Member& member) {
    std::string text;
    for (const Parameter& parameter : member.parameters) {
        if (!text.empty()) text += "; ";
        if (member.kind == Member_kind::method) text += "`" + std::string(parameter.name) + "` ";
        text += shown_type(parameter.type);
        if (parameter.by_reference) text += " ref";
        if (parameter.optional) text += " opt";
    }
    return text.empty() ? "–" : text;
}

/// One line per member, in the published order.
std::vector<std::string> shown_members(const Automation_class& type) {
    std::vector<std::string> lines;
    for (const Member& member : type.members) {
        const char* kind = member.kind == Member_kind::method         ? "method"
                           : member.kind == Member_kind::property_get ? "get"
                                                                      : "let";
        char identifier[9];
        std::snprintf(identifier, sizeof identifier, "%08X", static_cast<unsigned>(member.identifier));
        lines.push_back("| `" + std::string(member.name) + "` | " + kind + " | " + identifier + " | " +
                        shown_parameters(member) + " | " + shown_type(member.result) + " |");
    }
    return lines;
}

TEST(Documentation, lists_every_member_in_the_published_order) {
    std::ifstream file(tests::in_source("docs/automation.md"));
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
    std::ifstream file(tests::in_source("docs/automation.md"));
    const std::string text(std::istreambuf_iterator<char>(file), {});
    for (const Record_type& record : record_types) {
        EXPECT_NE(text.find("`" + std::string(record.name) + "`"), std::string::npos) << record.name;
    }
}

}  // namespace
}  // namespace cuvexa::tests
