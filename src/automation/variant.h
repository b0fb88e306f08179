// A value on its way between a caller of any language and a member.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "automation/record_table.h"
#include "cuvexa/date.h"

namespace cuvexa::automation {

class Automation_object;
using Object = std::shared_ptr<Automation_object>;

/// An argument that was left out (also the result of a member that has none).
using Missing = std::monostate;

using Variant = std::variant<Missing, bool, std::int16_t, std::int32_t, double, std::string, Date, Record, Object>;

inline bool is_missing(const Variant& value) noexcept {
    return std::holds_alternative<Missing>(value);
}

}  // namespace cuvexa::automation
