// Between VARIANTs and the values of this component. Reading converts as automation converts (a text that holds a number
// is a number, True is -1) and follows references; it throws `Result_error` where automation refuses.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "com/pointers.h"
#include "cuvexa/date.h"
#include "cuvexa/value.h"

namespace cuvexa::com {

Any any(std::string_view utf8);
Any any(bool value);
Any any(std::int16_t value);
Any any(std::int32_t value);
Any any(double value);
Any any(Date value);
Any any(const Pointer<IDispatch>& object);
Any any(const Value& value);
inline Any any(const std::string& utf8) {
    return any(std::string_view(utf8));
}
inline Any any(const char* utf8) {
    return any(std::string_view(utf8));
}

/// An argument that is left out.
Any missing();
bool is_missing(const VARIANT& value);

/// The value itself, references followed.
Any copy_of(const VARIANT& value);

/// The value in another VARIANT type, by the rules of the locale; references are followed.
Any converted(const VARIANT& value, VARTYPE type, LCID locale = LOCALE_USER_DEFAULT);

std::string text_in(const VARIANT& value);
bool boolean_in(const VARIANT& value);
std::int32_t integer_in(const VARIANT& value);
double number_in(const VARIANT& value);
Date date_in(const VARIANT& value);
/// The object; null for Nothing and Empty.
Pointer<IDispatch> object_in(const VARIANT& value);
/// A database value or parameter: whole numbers stay whole, decimals and currency become doubles, Empty and Null are null.
Value value_in(const VARIANT& value);

}  // namespace cuvexa::com
