#include "com/values.h"

#include "com/failures.h"

namespace cuvexa::com {

Any any(std::string_view text) {
    Any result;
    result->bstrVal = new_string(text);
    result->vt = VT_BSTR;
    return result;
}

Any any(bool value) {
    Any result;
    result->vt = VT_BOOL;
    result->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return result;
}

Any any(std::int16_t value) {
    Any result;
    result->vt = VT_I2;
    result->iVal = value;
    return result;
}

Any any(std::int32_t value) {
    Any result;
    result->vt = VT_I4;
    result->lVal = value;
    return result;
}

Any any(double value) {
    Any result;
    result->vt = VT_R8;
    result->dblVal = value;
    return result;
}

Any any(Date value) {
    Any result;
    result->vt = VT_DATE;
    result->date = value.days;
    return result;
}

Any any(const Pointer<IDispatch>& object) {
    Any result;
    result->vt = VT_DISPATCH;
    result->pdispVal = Pointer<IDispatch>(object).release();
    return result;
}

Any any(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        const auto small = static_cast<std::int32_t>(*whole);
        return small == *whole ? any(small) : any(static_cast<double>(*whole));
    }
    if (const auto* boolean = std::get_if<bool>(&value)) return any(*boolean);
    if (const auto* real = std::get_if<double>(&value)) return any(*real);
    if (const auto* text = std::get_if<std::string>(&value)) return any(*text);
    if (const auto* date = std::get_if<Date>(&value)) return any(*date);
    Any null;
    null->vt = VT_NULL;
    return null;
}

Any missing() {
    Any result;
    result->vt = VT_ERROR;
    result->scode = DISP_E_PARAMNOTFOUND;
    return result;
}

bool is_missing(const VARIANT& value) {
    if (value.vt == (VT_VARIANT | VT_BYREF)) return value.pvarVal && is_missing(*value.pvarVal);
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

Any copy_of(const VARIANT& value) {
    Any copy;
    check(VariantCopyInd(copy.get(), const_cast<VARIANT*>(&value)));
    return copy;
}

Any converted(const VARIANT& value, VARTYPE type, LCID locale) {
    Any plain = copy_of(value);
    if (plain->vt == type) return plain;
    Any result;
    check(VariantChangeTypeEx(result.get(), plain.get(), locale, 0, type));
    return result;
}

std::string text_in(const VARIANT& value) {
    return text_of(converted(value, VT_BSTR)->bstrVal);
}

bool boolean_in(const VARIANT& value) {
    return converted(value, VT_BOOL)->boolVal != VARIANT_FALSE;
}

std::int32_t integer_in(const VARIANT& value) {
    return converted(value, VT_I4)->lVal;
}

double number_in(const VARIANT& value) {
    return converted(value, VT_R8)->dblVal;
}

Date date_in(const VARIANT& value) {
    return {converted(value, VT_DATE)->date};
}

Pointer<IDispatch> object_in(const VARIANT& value) {
    Any plain = copy_of(value);
    if (plain->vt == VT_EMPTY) return nullptr;
    return Pointer<IDispatch>::sharing(converted(*plain.get(), VT_DISPATCH)->pdispVal);
}

Value value_in(const VARIANT& value) {
    Any plain = copy_of(value);
    switch (plain->vt) {
        case VT_EMPTY:
        case VT_NULL:
            return {};
        case VT_BOOL:
            return plain->boolVal != VARIANT_FALSE;
        case VT_DATE:
            return Date{plain->date};
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_INT:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UINT:
            return std::int64_t{converted(*plain.get(), VT_I8)->llVal};
        case VT_UI8:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DECIMAL:
            return number_in(*plain.get());
        default:
            return text_in(*plain.get());
    }
}

}  // namespace cuvexa::com
