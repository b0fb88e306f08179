// Dynamic invocation: any member of any object by name or identifier, with arguments that convert as automation
// converts.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "automation/members.h"
#include "cuvexa/errors.h"

namespace cuvexa::automation {

/// A call that does not fit the table; nothing of the member ran.
class Invoke_error : public std::runtime_error {
public:
    enum class Kind {
        unknown_member,    ///< no member of that name or identifier
        wrong_kind,        ///< a method read, a property called, a read-only property let
        wrong_count,       ///< too many arguments, or one left out that is not optional
        wrong_type,        ///< an argument that does not convert
        out_of_range,      ///< a number that does not fit the parameter
        unknown_argument,  ///< a named argument that the member does not have, or has already
    };

    Invoke_error(Kind kind, const std::string& description) : std::runtime_error(description), kind_(kind) {}
    Kind kind() const noexcept { return kind_; }

private:
    Kind kind_;
};

/// The member of that name (without regard to case) or identifier and kind. Throws `Invoke_error`.
const Member& find_member(const Automation_class& type, std::string_view name, Member_kind kind);
const Member& find_member(const Automation_class& type, std::int32_t identifier, Member_kind kind);

/// The place of a parameter by name, without regard to case. Throws `Invoke_error`.
std::size_t find_parameter(const Member& member, std::string_view name);

/// Runs a member. Optional arguments may be missing or fewer; by-reference arguments that were given are left as they
/// are after the call. Throws `Invoke_error` when the arguments do not fit, `Automation_error` for a run-time error; a
/// failure of another kind becomes one with number 440.
Variant Invoke(Automation_object& object, const Member& member, std::vector<Variant>& arguments);
Variant Invoke(Automation_object& object, std::string_view name, Member_kind kind, std::vector<Variant>& arguments);
Variant Invoke(Automation_object& object, std::int32_t identifier, Member_kind kind, std::vector<Variant>& arguments);

}  // namespace cuvexa::automation
