// Late-bound calls: names, arguments, conversions, refusals.
#include "com_server/identifiers.h"
#include "windows/com_server/probe.h"
#include "windows/com_server/server.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

using ::testing::StartsWith;

// ---- Names and kinds of calls, on the component itself -------------------------------------------------------------

struct Dispatch : ::testing::Test {
    Server server;
    Pointer<IDispatch> treasury = server.create("Tesoreria");
};

TEST_F(Dispatch, finds_every_member_by_name_without_regard_to_case_under_its_identifier) {
    for (const Automation_class& type : automation_classes()) {
        const auto object = server.create(type.name);
        for (const Member& member : type.members) {
            std::wstring name = wide(member.name);
            EXPECT_EQ(identifier(object, name.c_str()), member.identifier) << member.name;
            CharLowerW(name.data());
            EXPECT_EQ(identifier(object, name.c_str()), member.identifier) << member.name;
            CharUpperW(name.data());
            EXPECT_EQ(identifier(object, name.c_str()), member.identifier) << member.name;
        }
    }
}

TEST_F(Dispatch, knows_the_names_of_arguments_and_says_which_it_does_not_know) {
    wchar_t member[] = L"genera_deposito", first[] = L"Bc_Cve_Banco_Cuenta", last[] = L"SCOMENTARIO", none[] = L"Nada";
    LPOLESTR names[] = {member, first, last, none};
    DISPID ids[4];
    EXPECT_EQ(treasury->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
    EXPECT_EQ(static_cast<unsigned>(ids[0]), 0x6003001Fu);
    EXPECT_EQ(ids[1], 0);
    EXPECT_EQ(ids[2], 5);
    EXPECT_EQ(treasury->GetIDsOfNames(IID_NULL, names, 4, LOCALE_USER_DEFAULT, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[2], 5);
    EXPECT_EQ(ids[3], DISPID_UNKNOWN);
    LPOLESTR unknown[] = {none};
    EXPECT_EQ(treasury->GetIDsOfNames(IID_NULL, unknown, 1, LOCALE_USER_DEFAULT, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
}

TEST_F(Dispatch, refuses_what_no_member_answers_to) {
    EXPECT_EQ(invoke(treasury, 0x60030099, DISPATCH_METHOD).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(put(treasury, L"Error", any("x")).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(put(treasury, L"Nuevo", any("x")).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(get(treasury, L"Nuevo").result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(treasury, L"Error").result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(Dispatch, runs_a_call_of_which_a_script_leaves_open_whether_it_reads_or_calls) {
    constexpr WORD open = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    EXPECT_EQ(text(invoke(treasury, identifier(treasury, L"Error"), open)), "");
    EXPECT_FALSE(truth(invoke(treasury, identifier(treasury, L"Crear_Cheque"), open, arguments(any("C1")))));
    EXPECT_EQ(text(invoke(treasury, identifier(treasury, L"Error"), open)),
              "Esta operación no está soportada por la versión del sistema");
}

TEST_F(Dispatch, lets_a_property_by_either_way_of_putting) {
    for (const WORD kind :
         {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}) {
        const std::string value = "cuenta ñ “" + std::to_string(kind) + "” 😀";
        EXPECT_EQ(put(treasury, L"Ch_Banco_Destino", any(value), kind).result, S_OK);
        EXPECT_EQ(text(get(treasury, L"Ch_Banco_Destino")), value);
    }
    // The data member as well; also without the name that puts usually carry.
    EXPECT_EQ(put(treasury, L"FolioMovimiento", any("BM-1")).result, S_OK);
    EXPECT_EQ(text(get(treasury, L"FolioMovimiento")), "BM-1");
    EXPECT_EQ(
        invoke(treasury, identifier(treasury, L"FolioMovimiento"), DISPATCH_PROPERTYPUT, arguments(any("BM-2"))).result,
        S_OK);
    EXPECT_EQ(text(get(treasury, L"FolioMovimiento")), "BM-2");
}

TEST_F(Dispatch, refuses_a_put_without_a_value) {
    EXPECT_EQ(invoke(treasury, identifier(treasury, L"Ch_Banco_Destino"), DISPATCH_PROPERTYPUT).result,
              DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(text(get(treasury, L"Ch_Banco_Destino")), "");
}

TEST_F(Dispatch, works_without_a_place_for_result_exception_and_wrong_argument) {
    DISPPARAMS none{};
    EXPECT_EQ(treasury->Invoke(identifier(treasury, L"Error"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr,
                               nullptr, nullptr),
              S_OK);
    EXPECT_EQ(treasury->Invoke(identifier(treasury, L"RpDetalle2"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr,
                               nullptr, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(treasury->Invoke(identifier(treasury, L"Error"), IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr,
                               nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(treasury->Invoke(identifier(treasury, L"Error"), IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr,
                               nullptr, nullptr),
              E_INVALIDARG);
}

TEST_F(Dispatch, describes_itself_by_the_library_inside) {
    UINT count = 0;
    ASSERT_EQ(treasury->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    Pointer<ITypeInfo> type;
    ASSERT_EQ(treasury->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.receive()), S_OK);
    String name;
    type->GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr);
    EXPECT_EQ(name.text(), "_Tesoreria");
    EXPECT_EQ(treasury->GetTypeInfo(1, LOCALE_USER_DEFAULT, type.receive()), DISP_E_BADINDEX);
}

TEST_F(Dispatch, is_one_object_behind_all_its_interfaces) {
    const auto unknown = treasury.as<IUnknown>(IID_IUnknown);
    const auto support = treasury.as<ISupportErrorInfo>(IID_ISupportErrorInfo);
    const auto own = treasury.as<IDispatch>(ids_of("Tesoreria").interface_id);
    ASSERT_TRUE(unknown && support && own);
    EXPECT_EQ(support.as<IUnknown>(IID_IUnknown).get(), unknown.get());
    EXPECT_EQ(own.as<IUnknown>(IID_IUnknown).get(), unknown.get());
    EXPECT_FALSE(treasury.as<IDispatch>(ids_of("clsRpDetalle").interface_id));
    EXPECT_FALSE(treasury.as<IUnknown>(IID_IPersist));
}

// ---- Run-time errors -----------------------------------------------------------------------------------------------

TEST_F(Dispatch, raises_error_91_for_an_object_that_was_never_set) {
    const Outcome outcome = get(treasury, L"RpDetalle2");
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.scode, static_cast<HRESULT>(0x800A005B));
    EXPECT_EQ(outcome.source, "Cuvexa");
    EXPECT_THAT(outcome.description, Not(IsEmpty()));
    EXPECT_EQ(outcome.value->vt, VT_EMPTY);
}

/// The driver that the next line of a receipt is written with.
std::string next_driver(const Server& server, const Pointer<IDispatch>& treasury) {
    EXPECT_TRUE(capture(server, treasury)) << text(get(treasury, L"Error"));
    const auto rows = server.company.rows("SELECT Rp_Chofer FROM Recibo_Pago ORDER BY Rp_Folio", {"Rp_Chofer"});
    return rows.empty() ? "no row" : rows.back();
}

TEST_F(Dispatch, keeps_the_object_that_a_property_was_given_by_reference) {
    const auto extras = server.create("clsRpDetalle");
    ASSERT_EQ(put(extras, L"Rp_Chofer", any("C1")).result, S_OK);
    ASSERT_EQ(put(treasury, L"RpDetalle2", any(extras), DISPATCH_PROPERTYPUTREF).result, S_OK);
    ASSERT_EQ(put(extras, L"Rp_Chofer", any("C2")).result, S_OK);
    EXPECT_EQ(next_driver(server, treasury), "C2");
    // From a variable of the caller, too, which keeps its object.
    const auto others = server.create("clsRpDetalle");
    ASSERT_EQ(put(others, L"Rp_Chofer", any("C3")).result, S_OK);
    IDispatch* variable = others.get();
    ASSERT_EQ(put(treasury, L"RpDetalle2", reference_object(variable)).result, S_OK);
    EXPECT_EQ(variable, others.get());
    EXPECT_EQ(next_driver(server, treasury), "C3");
}

TEST_F(Dispatch, traps_objects_of_another_class_and_keeps_the_one_it_has) {
    const auto extras = server.create("clsRpDetalle");
    ASSERT_EQ(put(extras, L"Rp_Chofer", any("C1")).result, S_OK);
    ASSERT_EQ(put(treasury, L"RpDetalle2", any(extras)).result, S_OK);
    for (const auto& foreign : {server.create("tRpDetalle"), treasury}) {
        EXPECT_EQ(put(treasury, L"RpDetalle2", any(foreign)).result, S_OK);
        EXPECT_EQ(text(get(treasury, L"Error")), "Cuvexa.dll - Property Let RpDetalle2()No coinciden los tipos");
    }
    EXPECT_EQ(put(treasury, L"RpDetalle2", any("text")).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(next_driver(server, treasury), "C1");
}

TEST_F(Dispatch, lets_go_of_the_object_when_it_is_given_nothing) {
    const auto extras = server.create("clsRpDetalle");
    ASSERT_EQ(put(extras, L"Rp_Chofer", any("C1")).result, S_OK);
    ASSERT_EQ(put(treasury, L"RpDetalle2", any(extras)).result, S_OK);
    const Outcome outcome = put(treasury, L"RpDetalle2", any(Pointer<IDispatch>()), DISPATCH_PROPERTYPUTREF);
    EXPECT_EQ(outcome.result, S_OK) << outcome.description;
    EXPECT_EQ(next_driver(server, treasury), "");
}

// ---- Arguments, on a class of the tests' own -----------------------------------------------------------------------

struct Arguments_of_calls : ::testing::Test {
    Apartment apartment;
    std::shared_ptr<Probe> probe = std::make_shared<Probe>();
    Pointer<IDispatch> client = published(probe);

    /// What the member got for the argument; the call must succeed.
    Variant arrived(const wchar_t* member, Any given) {
        const Outcome outcome = call(client, member, arguments(std::move(given)));
        EXPECT_EQ(outcome.result, S_OK) << outcome.description;
        return probe->seen.empty() ? Variant() : probe->seen[0];
    }
    HRESULT refusal(const wchar_t* member, Any given) {
        probe->seen.clear();
        const Outcome outcome = call(client, member, arguments(std::move(given)));
        EXPECT_TRUE(probe->seen.empty()) << "the member ran";
        EXPECT_EQ(outcome.wrong, 0u);
        return outcome.result;
    }
};

Any of_type(VARTYPE type, LONGLONG bits) {
    Any value;
    value->vt = type;
    value->llVal = bits;
    return value;
}

TEST_F(Arguments_of_calls, numbers_convert_to_a_16_bit_whole_number_by_the_rules_of_automation) {
    const Variant seven = std::int16_t{7};
    EXPECT_EQ(arrived(L"Take_integer", any(std::int16_t{7})), seven);
    EXPECT_EQ(arrived(L"Take_integer", any(std::int32_t{7})), seven);
    EXPECT_EQ(arrived(L"Take_integer", of_type(VT_UI1, 7)), seven);
    EXPECT_EQ(arrived(L"Take_integer", of_type(VT_I8, 7)), seven);
    EXPECT_EQ(arrived(L"Take_integer", of_type(VT_CY, 70000)), seven);
    EXPECT_EQ(arrived(L"Take_integer", any(7.4)), seven);
    EXPECT_EQ(arrived(L"Take_integer", any("7")), seven);
    EXPECT_EQ(arrived(L"Take_integer", any(true)), Variant(std::int16_t{-1}));
    EXPECT_EQ(arrived(L"Take_integer", Any()), Variant(std::int16_t{0}));
    // Halves go to the even neighbour.
    EXPECT_EQ(arrived(L"Take_integer", any(6.5)), Variant(std::int16_t{6}));
    EXPECT_EQ(arrived(L"Take_integer", any(7.5)), Variant(std::int16_t{8}));
    EXPECT_EQ(arrived(L"Take_integer", any(-32768.0)), Variant(std::int16_t{-32768}));
    EXPECT_EQ(arrived(L"Take_integer_by_value", any(7.0)), seven);
}

TEST_F(Arguments_of_calls, a_number_that_does_not_fit_is_an_overflow_and_a_word_is_a_mismatch) {
    EXPECT_EQ(refusal(L"Take_integer", any(std::int32_t{32768})), DISP_E_OVERFLOW);
    EXPECT_EQ(refusal(L"Take_integer", any(1e300)), DISP_E_OVERFLOW);
    EXPECT_EQ(refusal(L"Take_integer", any("32768")), DISP_E_OVERFLOW);
    EXPECT_EQ(refusal(L"Take_integer", any("siete")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(L"Take_integer", any(client)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(L"Take_real", any("siete")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(L"Take_date", any("siete")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(L"Take_movement", any("siete")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal(L"Take_object", any("siete")), DISP_E_TYPEMISMATCH);
}

TEST_F(Arguments_of_calls, null_is_no_value_of_any_type) {
    for (const wchar_t* member : {L"Take_integer", L"Take_real", L"Take_boolean", L"Take_date", L"Take_text"}) {
        EXPECT_EQ(refusal(member, of_type(VT_NULL, 0)), DISP_E_TYPEMISMATCH) << utf8(member);
    }
}

TEST_F(Arguments_of_calls, reals_booleans_dates_and_texts_convert) {
    EXPECT_EQ(arrived(L"Take_real", any(std::int16_t{-3})), Variant(-3.0));
    EXPECT_EQ(arrived(L"Take_real", any("2.5")), Variant(2.5));
    EXPECT_EQ(arrived(L"Take_real", of_type(VT_CY, 25000)), Variant(2.5));
    EXPECT_EQ(arrived(L"Take_boolean", any(std::int32_t{2})), Variant(true));
    EXPECT_EQ(arrived(L"Take_boolean", any(0.0)), Variant(false));
    EXPECT_EQ(arrived(L"Take_boolean", any("True")), Variant(true));
    EXPECT_EQ(arrived(L"Take_date", any(Date{45366.25})), Variant(Date{45366.25}));
    EXPECT_EQ(arrived(L"Take_date", any(45366.25)), Variant(Date{45366.25}));
    EXPECT_EQ(arrived(L"Take_date", any("2024-03-15")), Variant(Date{45366}));
    EXPECT_EQ(arrived(L"Take_text", any(std::int32_t{12})), Variant(std::string("12")));
    EXPECT_EQ(arrived(L"Take_text", Any()), Variant(std::string()));
    EXPECT_EQ(arrived(L"Take_text_by_value", any("ñandú 😀 'x' \"y\"")), Variant(std::string("ñandú 😀 'x' \"y\"")));
    EXPECT_EQ(arrived(L"Take_text", of_type(VT_BSTR, 0)), Variant(std::string()));
    EXPECT_EQ(arrived(L"Take_text", any(std::string_view("a\0b", 3))), Variant(std::string("a\0b", 3)));
}

TEST_F(Arguments_of_calls, a_value_arrives_from_wherever_the_argument_points) {
    std::int32_t whole = 7;
    double real = 7;
    Any inside = any(std::int16_t{7});
    const String string("7");
    BSTR text = string.get();
    EXPECT_EQ(arrived(L"Take_integer", reference(whole)), Variant(std::int16_t{7}));
    EXPECT_EQ(arrived(L"Take_integer", reference(real)), Variant(std::int16_t{7}));
    EXPECT_EQ(arrived(L"Take_integer", reference(inside)), Variant(std::int16_t{7}));
    EXPECT_EQ(arrived(L"Take_integer", reference(text)), Variant(std::int16_t{7}));
}

TEST_F(Arguments_of_calls, what_a_member_changes_goes_back_in_the_exact_type) {
    std::int16_t whole = 1;
    double real = 2;
    VARIANT_BOOL boolean = VARIANT_FALSE;
    DATE date = 3;
    BSTR text = new_string("antes");
    ASSERT_TRUE(truth(call(
        client, L"Change_all",
        arguments(reference(whole), reference(real), reference_bool(boolean), reference_date(date), reference(text)))));
    EXPECT_EQ(whole, -321);
    EXPECT_EQ(real, 12.25);
    EXPECT_EQ(boolean, VARIANT_TRUE);
    EXPECT_EQ(date, 45000.5);
    EXPECT_EQ(text_of(text), "cambiado: ñ");
    SysFreeString(text);
}

TEST_F(Arguments_of_calls, what_a_member_changes_replaces_what_a_variable_of_a_script_holds) {
    Any whole = any("1"), real = any(std::int16_t{2}), boolean = any(false), date, text = any(std::int32_t{5});
    ASSERT_TRUE(truth(
        call(client, L"Change_all",
             arguments(reference(whole), reference(real), reference(boolean), reference(date), reference(text)))));
    EXPECT_EQ(whole->vt, VT_I2);
    EXPECT_EQ(whole->iVal, -321);
    EXPECT_EQ(real->vt, VT_R8);
    EXPECT_EQ(real->dblVal, 12.25);
    EXPECT_EQ(boolean->vt, VT_BOOL);
    EXPECT_EQ(boolean->boolVal, VARIANT_TRUE);
    EXPECT_EQ(date->vt, VT_DATE);
    EXPECT_EQ(date->date, 45000.5);
    EXPECT_EQ(text->vt, VT_BSTR);
    EXPECT_EQ(text_of(text->bstrVal), "cambiado: ñ");
}

TEST_F(Arguments_of_calls, what_a_member_changes_converts_to_another_number_that_the_caller_keeps) {
    std::int32_t whole = 1, real = 2;
    double boolean = 0, date = 3;
    BSTR text = nullptr;
    ASSERT_TRUE(truth(
        call(client, L"Change_all",
             arguments(reference(whole), reference(real), reference(boolean), reference(date), reference(text)))));
    EXPECT_EQ(whole, -321);
    EXPECT_EQ(real, 12);
    EXPECT_EQ(boolean, -1);
    EXPECT_EQ(date, 45000.5);
    EXPECT_EQ(text_of(text), "cambiado: ñ");
    SysFreeString(text);
}

TEST_F(Arguments_of_calls, arguments_by_value_stay_as_they_were) {
    std::vector<Given> given = arguments(any(std::int16_t{1}), any(2.0), any(false), any(Date{3}), any("antes"));
    ASSERT_TRUE(truth(call(client, L"Change_all", std::move(given))));
    EXPECT_EQ(probe->seen[4], Variant(std::string("antes")));
}

TEST_F(Arguments_of_calls, names_and_places_mix) {
    EXPECT_TRUE(
        truth(call(client, L"Take_optional", arguments(Given(2, any("z")), Given(0, any("x")), Given(1, any(3.0))))));
    EXPECT_EQ(probe->seen, (std::vector<Variant>{std::string("x"), std::int16_t{3}, std::string("z")}));
    EXPECT_TRUE(truth(call(client, L"Take_optional", arguments(any("a"), Given(2, any("c"))))));
    EXPECT_EQ(probe->seen, (std::vector<Variant>{std::string("a"), std::int16_t{7}, std::string("c")}));
}

TEST_F(Arguments_of_calls, an_optional_one_left_out_takes_its_default_at_the_end_and_in_the_middle) {
    EXPECT_TRUE(truth(call(client, L"Take_optional", arguments(any("a")))));
    EXPECT_EQ(probe->seen, (std::vector<Variant>{std::string("a"), std::int16_t{7}, std::string("left out")}));
    EXPECT_TRUE(truth(call(client, L"Take_optional", arguments(any("a"), missing(), any("c")))));
    EXPECT_EQ(probe->seen, (std::vector<Variant>{std::string("a"), std::int16_t{7}, std::string("c")}));
    Any nothing = missing();
    EXPECT_TRUE(truth(call(client, L"Take_optional", arguments(any("a"), reference(nothing)))));
    EXPECT_EQ(probe->seen[1], Variant(std::int16_t{7}));
    EXPECT_TRUE(com::is_missing(*nothing.get()));
}

TEST_F(Arguments_of_calls, one_that_is_not_optional_must_be_there) {
    EXPECT_EQ(call(client, L"Take_optional").result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call(client, L"Take_optional", arguments(missing(), any(1.0))).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call(client, L"Take_optional", arguments(Given(1, any(1.0)))).result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(Arguments_of_calls, too_many_unknown_or_repeated_ones_are_refused) {
    EXPECT_EQ(call(client, L"Take_text", arguments(any("a"), any("b"))).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(client, L"Take_optional", arguments(any("a"), Given(9, any("b")))).result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(call(client, L"Take_optional", arguments(any("a"), Given(0, any("b")))).result, DISP_E_PARAMNOTFOUND);
    EXPECT_TRUE(probe->seen.empty());
}

TEST_F(Arguments_of_calls, the_place_of_a_refused_one_is_told_as_the_caller_counts) {
    // Handed over last one first: "b" is the second of three.
    EXPECT_EQ(call(client, L"Take_optional", arguments(any("a"), any("b"), any("c"))).wrong, 1u);
    const Outcome first =
        call(client, L"Change_all", arguments(any("uno"), any(2.0), any(true), any(Date{3}), any("e")));
    EXPECT_EQ(first.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(first.wrong, 4u);
    // Of named ones the place among what was handed over.
    EXPECT_EQ(call(client, L"Take_optional", arguments(any("a"), Given(2, any("c")), Given(1, any("b")))).wrong, 1u);
}

}  // namespace
}  // namespace cuvexa::tests
