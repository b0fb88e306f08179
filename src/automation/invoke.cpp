#include "automation/invoke.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "cuvexa/value.h"

namespace cuvexa::automation {
namespace {

using Kind = Invoke_error::Kind;

[[noreturn]] void fail(Kind kind, const Member& member, const std::string& what) {
    throw Invoke_error(kind, std::string(member.name) + ": " + what);
}

// ---- Finding -------------------------------------------------------------------------------------------------------

template <class Same>
const Member& find(const Automation_class& type, const std::string& sought, Member_kind kind, Same same) {
    bool known = false;
    for (const Member& member : type.members) {
        if (!same(member)) continue;
        if (member.kind == kind) return member;
        known = true;
    }
    const std::string name = std::string(type.name) + "." + sought;
    if (!known) throw Invoke_error(Kind::unknown_member, "no member " + name);
    switch (kind) {
        case Member_kind::method:
            throw Invoke_error(Kind::wrong_kind, name + " is a property, not a method");
        case Member_kind::property_get:
            throw Invoke_error(Kind::wrong_kind, name + " is a method, not a property");
        case Member_kind::property_let:
            break;
    }
    throw Invoke_error(Kind::wrong_kind, name + " cannot be assigned");
}

// ---- Converting ----------------------------------------------------------------------------------------------------

/// A number as automation sees it: True is -1. Empty for what is not a number.
std::optional<double> number(const Variant& value) {
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? -1.0 : 0.0;
    if (const auto* small = std::get_if<std::int16_t>(&value)) return *small;
    if (const auto* integer = std::get_if<std::int32_t>(&value)) return *integer;
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* date = std::get_if<Date>(&value)) return date->days;
    return std::nullopt;
}

std::optional<Variant> converted_number(double value, Type type) {
    switch (type) {
        case Type::boolean:
            return value != 0;
        case Type::integer16:
            return to_integer(value);
        case Type::real:
            return value;
        case Type::date:
            return Date{value};
        default:
            return std::nullopt;
    }
}

/// The value in the exact type of a parameter, or nothing.
std::optional<Variant> converted(const Variant& value, const Value_type& type) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (type.type == Type::text) return value;
        if (type.type != Type::date) return std::nullopt;
        const std::optional<Date> date = parse_date(*text);
        return date ? std::optional<Variant>(*date) : std::nullopt;
    }
    if (const auto* record = std::get_if<Record>(&value)) {
        return type.type == Type::record && &type_of(*record) == type.record ? std::optional(value) : std::nullopt;
    }
    if (const auto* object = std::get_if<Object>(&value)) {
        const bool fits = type.type == Type::object && (!*object || (*object)->type().name == type.class_name);
        return fits ? std::optional(value) : std::nullopt;
    }
    const std::optional<double> real = number(value);
    return real ? converted_number(*real, type.type) : std::nullopt;
}

/// Whether the member has a trap for what was given: an object of a class that the parameter does not take.
bool is_trapped(const Member& member, const std::vector<Variant>& arguments) {
    if (!member.mismatched) return false;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const bool object = std::holds_alternative<Object>(arguments[at]);
        if (object && !converted(arguments[at], member.parameters[at].type)) return true;
    }
    return false;
}

std::string description(const Value_type& type) {
    switch (type.type) {
        case Type::none:
            return "nothing";
        case Type::boolean:
            return "a Boolean";
        case Type::integer16:
            return "a 16-bit whole number";
        case Type::real:
            return "a number";
        case Type::text:
            return "a text";
        case Type::date:
            return "a date";
        case Type::record:
            return "a record " + std::string(type.record->name);
        case Type::object:
            return "an object " + std::string(type.class_name);
    }
    return {};
}

Variant argument(const Member& member, const Parameter& parameter, const Variant& given) {
    const std::string name(parameter.name);
    if (is_missing(given)) {
        if (!parameter.optional) fail(Kind::wrong_count, member, "argument " + name + " is not optional");
        return parameter.default_value;
    }
    try {
        if (auto value = converted(given, parameter.type)) return *std::move(value);
    } catch (const Automation_error&) {
        fail(Kind::out_of_range, member, "argument " + name + " is out of range");
    }
    fail(Kind::wrong_type, member, "argument " + name + " must be " + description(parameter.type));
}

}  // namespace

const Member& find_member(const Automation_class& type, std::string_view name, Member_kind kind) {
    return find(type, std::string(name), kind, [&](const Member& member) { return same_text(member.name, name); });
}

const Member& find_member(const Automation_class& type, std::int32_t identifier, Member_kind kind) {
    return find(type, std::to_string(identifier), kind,
                [&](const Member& member) { return member.identifier == identifier; });
}

std::size_t find_parameter(const Member& member, std::string_view name) {
    const auto found = std::find_if(member.parameters.begin(), member.parameters.end(),
                                    [&](const Parameter& parameter) { return same_text(parameter.name, name); });
    if (found == member.parameters.end()) fail(Kind::unknown_argument, member, "no argument " + std::string(name));
    return static_cast<std::size_t>(found - member.parameters.begin());
}

Variant Invoke(Automation_object& object, const Member& member, std::vector<Variant>& arguments) {
    if (arguments.size() > member.parameters.size()) {
        fail(Kind::wrong_count, member,
             std::to_string(arguments.size()) + " arguments where at most " + std::to_string(member.parameters.size()) +
                 " are taken");
    }
    if (is_trapped(member, arguments)) {
        member.mismatched(object);
        return {};
    }
    std::vector<Variant> exact;
    exact.reserve(member.parameters.size());
    for (std::size_t at = 0; at < member.parameters.size(); ++at) {
        exact.push_back(argument(member, member.parameters[at], at < arguments.size() ? arguments[at] : Variant()));
    }
    try {
        Variant result = member.run(object, exact);
        for (std::size_t at = 0; at < arguments.size(); ++at) {
            if (member.parameters[at].by_reference && !is_missing(arguments[at])) arguments[at] = std::move(exact[at]);
        }
        return result;
    } catch (const Automation_error&) {
        throw;
    } catch (const std::exception& failure) {
        throw Automation_error(error_automation, failure.what());
    }
}

Variant Invoke(Automation_object& object, std::string_view name, Member_kind kind, std::vector<Variant>& arguments) {
    return Invoke(object, find_member(object.type(), name, kind), arguments);
}

Variant Invoke(Automation_object& object, std::int32_t identifier, Member_kind kind, std::vector<Variant>& arguments) {
    return Invoke(object, find_member(object.type(), identifier, kind), arguments);
}

}  // namespace cuvexa::automation
