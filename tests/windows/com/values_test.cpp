// The kit's values: what the one table of types says, and what goes back through references. Linked with the kit alone.
#include "com/values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "com/failures.h"

namespace cuvexa::tests {

using namespace com;
namespace {

// ---- The table -----------------------------------------------------------------------------------------------------

TEST(Types, have_the_sizes_that_the_system_gives_them) {
    const std::pair<VARTYPE, std::size_t> sizes[] = {
        {VT_BOOL, sizeof(VARIANT_BOOL)}, {VT_I1, sizeof(CHAR)},       {VT_UI1, sizeof(BYTE)},
        {VT_I2, sizeof(SHORT)},          {VT_UI2, sizeof(USHORT)},    {VT_I4, sizeof(LONG)},
        {VT_UI4, sizeof(ULONG)},         {VT_INT, sizeof(INT)},       {VT_UINT, sizeof(UINT)},
        {VT_I8, sizeof(LONGLONG)},       {VT_UI8, sizeof(ULONGLONG)}, {VT_R4, sizeof(FLOAT)},
        {VT_R8, sizeof(DOUBLE)},         {VT_CY, sizeof(CY)},         {VT_DATE, sizeof(DATE)},
        {VT_DECIMAL, sizeof(DECIMAL)},   {VT_BSTR, sizeof(BSTR)},     {VT_DISPATCH, sizeof(IDispatch*)}};
    for (const auto& [number, size] : sizes) {
        const Type_facts* const type = find_facts(number);
        ASSERT_TRUE(type) << number;
        EXPECT_EQ(type->bytes(), size) << number;
    }
    EXPECT_EQ(facts_of<std::string>().bytes(4), 4u);
    EXPECT_EQ(facts_of<std::string>().bytes(8), 8u);
    EXPECT_EQ(facts_of<double>().bytes(4), 8u);
}

TEST(Types, that_travel_come_back_as_they_went) {
    EXPECT_EQ(value_of<bool>(*any(true).get()), true);
    EXPECT_EQ(value_of<std::int16_t>(*any(std::int16_t{-7}).get()), -7);
    EXPECT_EQ(value_of<std::int32_t>(*any(std::int32_t{70000}).get()), 70000);
    EXPECT_EQ(value_of<double>(*any(2.5).get()), 2.5);
    EXPECT_EQ(value_of<Date>(*any(Date{45366.25}).get()), Date{45366.25});
    EXPECT_EQ(value_of<std::string>(*any(std::string("a\0ñ", 4)).get()), std::string("a\0ñ", 4));
    EXPECT_EQ(any(true)->vt, VT_BOOL);
    EXPECT_EQ(any(true)->boolVal, VARIANT_TRUE);
    EXPECT_EQ(any("x")->vt, VT_BSTR);
    EXPECT_EQ(any(Date{1})->vt, VT_DATE);
}

TEST(Types, stand_in_memory_on_any_boundary_and_take_the_place_of_what_was_there) {
    alignas(8) unsigned char memory[16] = {};
    store(12.5, memory + 4, Before::nothing);
    EXPECT_EQ(load<double>(memory + 4), 12.5);
    store(std::string("uno"), memory + 4, Before::nothing);
    store(std::string("dos"), memory + 4, Before::a_value);
    EXPECT_EQ(load<std::string>(memory + 4), "dos");
    SysFreeString(bytes_at<BSTR>(memory + 4));
}

// ---- By reference --------------------------------------------------------------------------------------------------

Any reference(VARTYPE type, void* place) {
    Any result;
    result->vt = type | VT_BYREF;
    result->byref = place;
    return result;
}

/// What stands there after 7 was given back to a variable of that type.
template <class T>
T seven_in(VARTYPE type) {
    T variable{};
    give_back(*reference(type, &variable).get(), any(std::int32_t{7}));
    return variable;
}

TEST(Giving_back, converts_to_whatever_number_the_caller_keeps) {
    EXPECT_EQ(seven_in<CHAR>(VT_I1), 7);
    EXPECT_EQ(seven_in<BYTE>(VT_UI1), 7);
    EXPECT_EQ(seven_in<SHORT>(VT_I2), 7);
    EXPECT_EQ(seven_in<USHORT>(VT_UI2), 7);
    EXPECT_EQ(seven_in<LONG>(VT_I4), 7);
    EXPECT_EQ(seven_in<ULONG>(VT_UI4), 7u);
    EXPECT_EQ(seven_in<INT>(VT_INT), 7);
    EXPECT_EQ(seven_in<UINT>(VT_UINT), 7u);
    EXPECT_EQ(seven_in<LONGLONG>(VT_I8), 7);
    EXPECT_EQ(seven_in<ULONGLONG>(VT_UI8), 7u);
    EXPECT_EQ(seven_in<FLOAT>(VT_R4), 7);
    EXPECT_EQ(seven_in<DOUBLE>(VT_R8), 7);
    EXPECT_EQ(seven_in<DATE>(VT_DATE), 7);
    EXPECT_EQ(seven_in<LONGLONG>(VT_CY), 70000);
    EXPECT_EQ(seven_in<VARIANT_BOOL>(VT_BOOL), VARIANT_TRUE);
}

TEST(Giving_back, replaces_the_text_of_the_caller) {
    BSTR variable = new_string("antes");
    give_back(*reference(VT_BSTR, &variable).get(), any("después"));
    EXPECT_EQ(text_of(variable), "después");
    give_back(*reference(VT_BSTR, &variable).get(), any(std::int32_t{12}));
    EXPECT_EQ(text_of(variable), "12");
    SysFreeString(variable);
}

TEST(Giving_back, leaves_a_variant_the_value_as_it_is) {
    Any variable = any(2.5);
    give_back(*reference(VT_VARIANT, variable.get()).get(), any("texto"));
    EXPECT_EQ(variable->vt, VT_BSTR);
    EXPECT_EQ(text_in(*variable.get()), "texto");
}

TEST(Giving_back, goes_through_a_variant_to_the_variable_that_it_refers_to) {
    BSTR variable = new_string("antes");
    Any passed_on = reference(VT_BSTR, &variable);
    give_back(*reference(VT_VARIANT, passed_on.get()).get(), any("después"));
    EXPECT_EQ(passed_on->vt, VT_BSTR | VT_BYREF);
    EXPECT_EQ(text_of(variable), "después");
    SysFreeString(variable);
}

TEST(Giving_back, leaves_an_argument_by_value_alone) {
    Any argument = any("antes");
    give_back(*argument.get(), any("después"));
    EXPECT_EQ(text_in(*argument.get()), "antes");
}

HRESULT refusal(VARTYPE type, void* variable, const Any& value) {
    try {
        give_back(*reference(type, variable).get(), value);
    } catch (const Result_error& failure) {
        return failure.result();
    }
    return S_OK;
}

TEST(Giving_back, refuses_what_does_not_convert_and_what_has_no_place_and_changes_nothing) {
    LONG number = 5;
    EXPECT_EQ(refusal(VT_I4, &number, any("siete")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(VT_I2, &number, any(1e9)), DISP_E_OVERFLOW);
    EXPECT_EQ(number, 5);
    DECIMAL decimal{};
    SAFEARRAY* array = nullptr;
    VARIANT record{};
    EXPECT_EQ(refusal(VT_DECIMAL, &decimal, any(7.0)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(VT_ARRAY | VT_I4, &array, any(7.0)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(VT_RECORD, &record, any(7.0)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(VT_ERROR, &number, any(7.0)), DISP_E_TYPEMISMATCH);
}

}  // namespace
}  // namespace cuvexa::tests
