// Values in memory as automation has them there: inside a variant, behind a reference, in a record of a client. Texts are
// copied: what is read is independent of the memory, what is written belongs to it.
#pragma once

#include <cstring>

#include "com/pointers.h"
#include "com/types.h"

namespace cuvexa::com {

template <>
inline constexpr std::uint16_t number_of<Pointer<IDispatch>> = type_number::object;

/// What the memory held before it is written.
enum class Before {
    nothing,  ///< anything: a place for a result
    a_value,  ///< a value of the same type, which is given back
};

/// The bytes at a place where an 8-byte value may stand on a 4-byte boundary.
template <class T>
T bytes_at(const void* memory) {
    T bytes;
    std::memcpy(&bytes, memory, sizeof bytes);
    return bytes;
}

template <Travels T>
T load(const void* memory) {
    if constexpr (std::is_same_v<T, bool>) {
        return bytes_at<VARIANT_BOOL>(memory) != VARIANT_FALSE;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return text_of(bytes_at<BSTR>(memory));
    } else if constexpr (std::is_same_v<T, Pointer<IDispatch>>) {
        return T::sharing(bytes_at<IDispatch*>(memory));
    } else {
        static_assert(std::is_trivially_copyable_v<T> && sizeof(T) == facts_of<T>().size);
        return bytes_at<T>(memory);
    }
}

template <Travels T>
void store(const T& value, void* memory, Before before) {
    if constexpr (std::is_same_v<T, bool>) {
        const VARIANT_BOOL truth = value ? VARIANT_TRUE : VARIANT_FALSE;
        std::memcpy(memory, &truth, sizeof truth);
    } else if constexpr (std::is_same_v<T, std::string>) {
        const BSTR fresh = new_string(value);
        if (before == Before::a_value) SysFreeString(bytes_at<BSTR>(memory));
        std::memcpy(memory, &fresh, sizeof fresh);
    } else if constexpr (std::is_same_v<T, Pointer<IDispatch>>) {
        IDispatch* const fresh = T(value).release();
        if (IDispatch* const old = before == Before::a_value ? bytes_at<IDispatch*>(memory) : nullptr) old->Release();
        std::memcpy(memory, &fresh, sizeof fresh);
    } else {
        static_assert(std::is_trivially_copyable_v<T> && sizeof(T) == facts_of<T>().size);
        std::memcpy(memory, &value, sizeof value);
    }
}

}  // namespace cuvexa::com
