// The table of members as the documentation shows it.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "automation/members.h"

namespace cuvexa::testing {

inline std::string shown_type(const Value_type& type) {
    switch (type.type) {
        case Type::none:
            return "–";
        case Type::boolean:
            return "Boolean";
        case Type::integer16:
            return "Integer";
        case Type::real:
            return "Double";
        case Type::text:
            return "String";
        case Type::date:
            return "Date";
        case Type::record:
            return "`" + std::string(type.record->name) + "`";
        case Type::object:
            return "`" + std::string(type.class_name) + "`";
    }
    return {};
}

inline std::string shown_parameters(const Member& member) {
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
inline std::vector<std::string> shown_members(const Automation_class& type) {
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

}  // namespace cuvexa::testing
