// Virtual tables that are put together while the program runs, for interfaces that are known from a table of members.
//
// Whatever a member takes and gives goes through as a pointer, or in the place of one, so a function is known by its place
// among the members and by how many of them there are.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <utility>

namespace cuvexa::com {

/// What clients point to: the table, and behind it the object that answers with `call(member, arguments)`.
template <class Object>
struct Face {
    const void* const* functions;
    Object* object;
};

inline constexpr std::size_t most_members = 64;
inline constexpr std::size_t most_pointers = 9;

namespace virtual_table_detail {

template <class Object, std::size_t member, class... Pointers>
HRESULT STDMETHODCALLTYPE function(Face<Object>* face, Pointers... pointers) {
    std::array<void*, sizeof...(Pointers) + 1> arguments{pointers...};
    return face->object->call(member, arguments.data());
}

template <std::size_t>
using Any_pointer = void*;

template <class Object, std::size_t member, std::size_t... places>
const void* with_pointers(std::index_sequence<places...>) {
    return reinterpret_cast<const void*>(&function<Object, member, Any_pointer<places>...>);
}

template <class Object, std::size_t member, std::size_t... counts>
constexpr auto by_count(std::index_sequence<counts...>) {
    using Maker = const void* (*)();
    return std::array<Maker, sizeof...(counts)>{
        +[] { return with_pointers<Object, member>(std::make_index_sequence<counts>()); }...};
}

template <class Object, std::size_t... members>
const void* function_of(std::size_t member, std::size_t pointers, std::index_sequence<members...>) {
    static constexpr std::array makers{by_count<Object, members>(std::make_index_sequence<most_pointers + 1>())...};
    return makers.at(member).at(pointers)();
}

}  // namespace virtual_table_detail

/// The function of the member at that place that takes so many pointers. Throws std::out_of_range beyond what there is.
template <class Object>
const void* function_of(std::size_t member, std::size_t pointers) {
    return virtual_table_detail::function_of<Object>(member, pointers, std::make_index_sequence<most_members>());
}

}  // namespace cuvexa::com
