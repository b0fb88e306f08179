// What automation knows about the types that travel: a row for each, and no other place says it again.
//
// Nothing here needs the headers of Windows, so that the names that documents use are checked on any machine.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "cuvexa/date.h"
#include "cuvexa/value.h"

namespace cuvexa::com {

/// What a value is, whatever its width.
enum class Nature : std::uint8_t { nothing, boolean, whole, real, date, text, object, record, variant };

/// The numbers of types in the tag of a variant and in a type library: the system's VARTYPE.
namespace type_number {
inline constexpr std::uint16_t empty = 0, null = 1, int16 = 2, int32 = 3, real32 = 4, real64 = 5, currency = 6,
                               date = 7, text = 8, object = 9, boolean = 11, variant = 12, decimal = 14, int8 = 16,
                               uint8 = 17, uint16 = 18, uint32 = 19, int64 = 20, uint64 = 21, integer = 22,
                               unsigned_integer = 23, record = 36;
}

struct Type_facts {
    std::uint16_t number;
    Nature nature;           ///< what whoever takes any type takes it for
    std::uint8_t size;       ///< bytes in memory; 0 is the size of a pointer
    std::string_view cpp;    ///< its name in C++ and in IDL, where something published has it
    std::string_view basic;  ///< its name in Visual Basic, in the same way

    constexpr std::size_t bytes(std::size_t pointer_size = sizeof(void*)) const { return size ? size : pointer_size; }
};

inline constexpr Type_facts type_table[] = {
    {type_number::empty, Nature::nothing, 0, "void", ""},
    {type_number::null, Nature::nothing, 0, "void", ""},
    {type_number::boolean, Nature::boolean, 2, "VARIANT_BOOL", "Boolean"},
    {type_number::int16, Nature::whole, 2, "short", "Integer"},
    {type_number::int32, Nature::whole, 4, "long", "Long"},
    {type_number::real64, Nature::real, 8, "double", "Double"},
    {type_number::date, Nature::date, 8, "DATE", "Date"},
    {type_number::text, Nature::text, 0, "BSTR", "String"},
    {type_number::object, Nature::object, 0, "IDispatch*", "Object"},
    {type_number::variant, Nature::variant, 0, "VARIANT", "Variant"},
    {type_number::record, Nature::record, 0, "", ""},
    // What callers may have besides.
    {type_number::int8, Nature::whole, 1, "", ""},
    {type_number::uint8, Nature::whole, 1, "", ""},
    {type_number::uint16, Nature::whole, 2, "", ""},
    {type_number::uint32, Nature::whole, 4, "", ""},
    {type_number::int64, Nature::whole, 8, "", ""},
    {type_number::uint64, Nature::real, 8, "", ""},  // more than a whole number of a database
    {type_number::integer, Nature::whole, 4, "", ""},
    {type_number::unsigned_integer, Nature::whole, 4, "", ""},
    {type_number::real32, Nature::real, 4, "", ""},
    {type_number::currency, Nature::real, 8, "", ""},
    {type_number::decimal, Nature::real, 16, "", ""},
};

/// The row of a number; null for a type that no value of this house has.
constexpr const Type_facts* find_facts(std::uint16_t number) {
    const auto* const found = std::find_if(std::begin(type_table), std::end(type_table),
                                           [&](const Type_facts& row) { return row.number == number; });
    return found == std::end(type_table) ? nullptr : found;
}

// ---- The rows of C++ types -----------------------------------------------------------------------------------------

/// The number of a C++ type; 0 for one that does not travel.
template <class T>
inline constexpr std::uint16_t number_of = 0;
template <>
inline constexpr std::uint16_t number_of<std::int16_t> = type_number::int16;
template <>
inline constexpr std::uint16_t number_of<std::int32_t> = type_number::int32;
template <>
inline constexpr std::uint16_t number_of<double> = type_number::real64;
template <>
inline constexpr std::uint16_t number_of<Date> = type_number::date;
template <>
inline constexpr std::uint16_t number_of<std::string> = type_number::text;
template <>
inline constexpr std::uint16_t number_of<bool> = type_number::boolean;
template <>
inline constexpr std::uint16_t number_of<Value> = type_number::variant;

template <class T>
concept Travels = number_of<T>
!= 0;

template <class T>
constexpr const Type_facts& facts_of() {
    return *find_facts(number_of<T>);
}

}  // namespace cuvexa::com
