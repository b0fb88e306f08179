// The types of values as the tests write them.
#pragma once

#include <string>

#include "automation/record_table.h"
#include "com_server/types.h"

namespace cuvexa::tests {

using namespace automation;

inline std::string type_text(const Value_type& type) {
    if (type.type == Type::none) return "none";
    if (type.type == Type::record) return std::string(type.record->name);
    if (type.type == Type::object) return std::string(type.class_name);
    return std::string(com_server::facts_of(type).basic);
}

}  // namespace cuvexa::tests
