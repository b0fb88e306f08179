// Between VARIANTs and the values of this component. Reading converts as automation converts (a text that holds a number
// is a number, True is -1) and follows references; it throws `Result_error` where automation refuses.
#pragma once

#include "com/memory.h"

namespace cuvexa::com {

template <Travels T>
Any any(const T& value) {
    Any result;
    store(value, &result->llVal,
          Before::nothing);  // whatever its type, the value of a variant begins at the same place
    result->vt = number_of<T>;
    return result;
}
Any any(const Value& value);
inline Any any(std::string_view utf8) {
    return any(std::string(utf8));
}
inline Any any(const char* utf8) {
    return any(std::string(utf8));
}

/// An argument that is left out.
Any missing();
bool is_missing(const VARIANT& value);

/// The value itself, references followed.
Any copy_of(const VARIANT& value);

/// The value in another VARIANT type, by the rules of the locale; references are followed.
Any converted(const VARIANT& value, VARTYPE type, LCID locale = LOCALE_USER_DEFAULT);

/// The object; null for Nothing and Empty.
Pointer<IDispatch> object_in(const VARIANT& value);

/// A database value or parameter: whole numbers stay whole, decimals and currency become doubles, Empty and Null are null.
Value value_in(const VARIANT& value);

/// The value in a type that travels.
template <Travels T>
T value_of(const VARIANT& value, LCID locale = LOCALE_USER_DEFAULT) {
    if constexpr (std::is_same_v<T, Value>) {
        return value_in(value);
    } else {
        return load<T>(&converted(value, number_of<T>, locale)->llVal);
    }
}
inline std::string text_in(const VARIANT& value) {
    return value_of<std::string>(value);
}
inline bool boolean_in(const VARIANT& value) {
    return value_of<bool>(value);
}
inline std::int32_t integer_in(const VARIANT& value) {
    return value_of<std::int32_t>(value);
}
inline double number_in(const VARIANT& value) {
    return value_of<double>(value);
}

/// Puts a value where a by-reference argument points, through as many references as there are, in the type that the caller
/// keeps there; a variant takes it as it is. An argument by value is left alone. Throws `Result_error` when the value does
/// not convert.
void give_back(VARIANT& argument, const Any& value, LCID locale = LOCALE_USER_DEFAULT);

}  // namespace cuvexa::com
