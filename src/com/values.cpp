#include "com/values.h"

#include "com/failures.h"

namespace cuvexa::com {
namespace {

constexpr VARTYPE numbers_of_the_system[] = {
    VT_EMPTY, VT_NULL, VT_BOOL, VT_I2,  VT_I4, VT_R8,  VT_DATE, VT_BSTR, VT_DISPATCH, VT_VARIANT, VT_RECORD,
    VT_I1,    VT_UI1,  VT_UI2,  VT_UI4, VT_I8, VT_UI8, VT_INT,  VT_UINT, VT_R4,       VT_CY,      VT_DECIMAL};
static_assert(std::equal(std::begin(type_table), std::end(type_table), std::begin(numbers_of_the_system),
                         std::end(numbers_of_the_system),
                         [](const Type_facts& row, VARTYPE number) { return row.number == number; }),
              "the rows stand for the system's types");

/// Whether a value of that type stands in a variant as it stands in the memory of a caller.
bool stands_alone(const Type_facts& type) {
    return type.nature != Nature::nothing && type.nature <= Nature::object && type.bytes() <= sizeof(VARIANT::llVal);
}

}  // namespace

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

Pointer<IDispatch> object_in(const VARIANT& value) {
    Any plain = copy_of(value);
    if (plain->vt == VT_EMPTY) return nullptr;
    return value_of<Pointer<IDispatch>>(*plain.get());
}

Value value_in(const VARIANT& value) {
    Any plain = copy_of(value);
    const Type_facts* const type = find_facts(plain->vt);
    switch (type ? type->nature : Nature::text) {
        case Nature::nothing:
            return {};
        case Nature::boolean:
            return boolean_in(*plain.get());
        case Nature::date:
            return value_of<Date>(*plain.get());
        case Nature::whole:
            return std::int64_t{converted(*plain.get(), VT_I8)->llVal};
        case Nature::real:
            return number_in(*plain.get());
        default:
            return text_in(*plain.get());
    }
}

void give_back(VARIANT& argument, const Any& value, LCID locale) {
    if (!(argument.vt & VT_BYREF)) return;
    if (argument.vt == (VT_BYREF | VT_VARIANT)) {
        VARIANT& behind = *argument.pvarVal;
        if (behind.vt & VT_BYREF) return give_back(behind, value, locale);
        return check(VariantCopy(&behind, const_cast<VARIANT*>(value.get())));
    }
    const Type_facts* const kept = find_facts(argument.vt & ~VT_BYREF);
    if (!kept || !stands_alone(*kept)) {
        throw Result_error(DISP_E_TYPEMISMATCH,
                           "an argument by reference has a type that nothing can be given back to");
    }
    Any fitting = converted(*value.get(), kept->number, locale);
    Any old;  // goes with what the caller kept
    std::memcpy(&old->llVal, argument.byref, kept->bytes());
    old->vt = kept->number;
    std::memcpy(argument.byref, &fitting->llVal, kept->bytes());
    fitting->vt = VT_EMPTY;  // given away
}

}  // namespace cuvexa::com
