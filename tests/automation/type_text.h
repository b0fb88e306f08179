// The types of values as the tests write them.
#pragma once

#include <string>

#include "automation/record_table.h"

namespace cuvexa::tests {

inline std::string type_text(const Value_type& type) {
    switch (type.type) {
        case Type::none:
            return "none";
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
            return std::string(type.record->name);
        case Type::object:
            return std::string(type.class_name);
    }
    return {};
}

}  // namespace cuvexa::tests
