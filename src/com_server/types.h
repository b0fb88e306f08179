// The types of the tables of members and records as automation has them.
#pragma once

#include <string>
#include <type_traits>

#include "automation/variant.h"
#include "com/types.h"

namespace cuvexa::com_server {

using namespace automation;

/// Runs `body` with the C++ type, as a `std::type_identity`, that a `Variant` holds values of that type in.
template <class Body>
decltype(auto) with_type(Type type, Body&& body) {
    switch (type) {
        case Type::boolean:
            return body(std::type_identity<bool>());
        case Type::integer16:
            return body(std::type_identity<std::int16_t>());
        case Type::real:
            return body(std::type_identity<double>());
        case Type::text:
            return body(std::type_identity<std::string>());
        case Type::date:
            return body(std::type_identity<Date>());
        case Type::record:
            return body(std::type_identity<Record>());
        case Type::object:
            return body(std::type_identity<Object>());
        case Type::none:
            break;
    }
    return body(std::type_identity<Missing>());
}

/// The name under which the type library has a record, or the interface of an object; empty for any other type.
inline std::string published_name(const Value_type& type) {
    if (type.type == Type::record) return std::string(type.record->name);
    if (type.type == Type::object) return std::string("_").append(type.class_name);
    return {};
}

}  // namespace cuvexa::com_server

namespace cuvexa::com {

template <>
inline constexpr std::uint16_t number_of<automation::Record> = type_number::record;
template <>
inline constexpr std::uint16_t number_of<automation::Object> = type_number::object;

}  // namespace cuvexa::com

namespace cuvexa::com_server {

/// What automation knows about a type of the tables.
inline const com::Type_facts& facts_of(const Value_type& type) {
    return with_type(
        type.type, [](auto held) -> const com::Type_facts& { return com::facts_of<typename decltype(held)::type>(); });
}

}  // namespace cuvexa::com_server
