// Nothing that a member throws leaves the object; what callers see instead.
#include "com/failures.h"
#include "windows/com_server/probe.h"
#include "windows/com_server/server.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

using Function = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, VARIANT_BOOL*);

struct Throwing : ::testing::Test {
    Apartment apartment;
    Pointer<IDispatch> client = published(std::make_shared<Probe>());

    ~Throwing() override { SetErrorInfo(0, nullptr); }

    HRESULT through_the_table(Probe_member member) {
        SetErrorInfo(0, nullptr);
        result = VARIANT_TRUE;
        return reinterpret_cast<Function>(function_of(client.get(), member))(client.get(), &result);
    }

    VARIANT_BOOL result = VARIANT_TRUE;
};

struct Left {
    std::string description, source;
};

/// What was left for clients of the virtual table; empty when nothing was.
Left left() {
    Pointer<IErrorInfo> info;
    Left found;
    if (GetErrorInfo(0, info.receive()) != S_OK) return found;
    String description, source;
    info->GetDescription(description.receive());
    info->GetSource(source.receive());
    return {description.text(), source.text()};
}

TEST_F(Throwing, a_run_time_error_has_its_number_source_and_description) {
    const Outcome outcome = call(client, L"Throw_automation_error");
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.scode, static_cast<HRESULT>(0x800A0000 + 1004));
    EXPECT_EQ(outcome.description, "el número 1004");
    EXPECT_EQ(outcome.source, "Cuvexa");

    EXPECT_EQ(through_the_table(throw_automation_error), static_cast<HRESULT>(0x800A0000 + 1004));
    const Left found = left();
    EXPECT_EQ(found.description, "el número 1004");
    EXPECT_EQ(found.source, "Cuvexa");
}

TEST_F(Throwing, another_exception_is_the_automation_error_440_with_its_words) {
    const Outcome outcome = call(client, L"Throw_exception");
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.scode, static_cast<HRESULT>(0x800A0000 + 440));
    EXPECT_EQ(outcome.description, "la lógica");
    EXPECT_EQ(through_the_table(throw_exception), static_cast<HRESULT>(0x800A0000 + 440));
    EXPECT_EQ(left().description, "la lógica");
}

TEST_F(Throwing, what_is_no_exception_at_all_is_an_unexpected_failure) {
    EXPECT_EQ(call(client, L"Throw_int").result, E_UNEXPECTED);
    EXPECT_EQ(through_the_table(throw_int), E_UNEXPECTED);
}

TEST_F(Throwing, exhausted_memory_inside_a_member_is_a_run_time_error_like_any_other) {
    const Outcome outcome = call(client, L"Throw_bad_alloc");
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.scode, static_cast<HRESULT>(0x800A0000 + 440));
    EXPECT_EQ(through_the_table(throw_bad_alloc), static_cast<HRESULT>(0x800A0000 + 440));
}

TEST_F(Throwing, words_that_are_not_well_formed_arrive_with_a_mark_in_the_place_of_what_is_not) {
    EXPECT_EQ(call(client, L"Throw_odd_text").description, "a\uFFFDb");
    EXPECT_EQ(through_the_table(throw_odd_text), static_cast<HRESULT>(0x800A0000 + 440));
    EXPECT_EQ(left().description, "a\uFFFDb");
}

TEST_F(Throwing, the_object_goes_on_working) {
    for (int round = 0; round < 100; ++round) {
        call(client, L"Throw_int");
        through_the_table(throw_exception);
    }
    EXPECT_TRUE(truth(call(client, L"Take_text", arguments(any("a")))));
}

TEST_F(Throwing, a_call_that_needs_a_place_for_its_result_says_so_and_does_not_run) {
    const auto probe = std::make_shared<Probe>();
    const auto other = published(probe);
    const auto take = reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(IDispatch*, BSTR*, VARIANT_BOOL*)>(
        function_of(other.get(), take_text));
    BSTR text = nullptr;
    EXPECT_EQ(take(other.get(), &text, nullptr), E_POINTER);
    EXPECT_EQ(take(other.get(), nullptr, &result), E_POINTER);
    EXPECT_TRUE(probe->seen.empty());
    EXPECT_EQ(take(other.get(), &text, &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
}

TEST_F(Throwing, changed_arguments_reach_callers_of_the_virtual_table) {
    const auto change =
        reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(IDispatch*, short*, double*, VARIANT_BOOL*, DATE*, BSTR*,
                                                     VARIANT_BOOL*)>(function_of(client.get(), change_all));
    short whole = 1;
    double real = 2;
    VARIANT_BOOL boolean = VARIANT_FALSE;
    DATE date = 3;
    BSTR text = new_string("antes");
    EXPECT_EQ(change(client.get(), &whole, &real, &boolean, &date, &text, &result), S_OK);
    EXPECT_EQ(whole, -321);
    EXPECT_EQ(real, 12.25);
    EXPECT_EQ(boolean, VARIANT_TRUE);
    EXPECT_EQ(date, 45000.5);
    EXPECT_EQ(text_of(text), "cambiado: ñ");
    SysFreeString(text);
}

// ---- The last reference goes while a member runs -------------------------------------------------------------------

struct Leaving final : Automation_object {
    const Automation_class& type() const override;
};

Pointer<IDispatch> only_reference;
std::weak_ptr<Leaving> leaving;
bool alive_afterwards = false;

const Automation_class& Leaving::type() const {
    static const Automation_class leaving_class = [] {
        Member leave;
        leave.name = "Leave";
        leave.identifier = 1;
        leave.run = [](Automation_object&, std::span<Variant>) {
            only_reference = nullptr;
            alive_afterwards = !leaving.expired();
            return Variant();
        };
        return Automation_class{"Leaving", "_Leaving", {leave}, nullptr};
    }();
    return leaving_class;
}

TEST(Leaving_object, lives_until_its_member_has_run) {
    const Apartment apartment;
    const auto use = [](auto&& call_it) {
        auto object = std::make_shared<Leaving>();
        leaving = object;
        alive_afterwards = false;
        only_reference = published(std::move(object));
        call_it(only_reference.get());
        EXPECT_TRUE(alive_afterwards);
        EXPECT_TRUE(leaving.expired());
    };
    use([](IDispatch* client) {
        DISPPARAMS none{};
        EXPECT_EQ(client->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), S_OK);
    });
    use([](IDispatch* client) {
        using Leave = HRESULT(STDMETHODCALLTYPE*)(IDispatch*);
        EXPECT_EQ(reinterpret_cast<Leave>(function_of(client, Probe_member{}))(client), S_OK);
    });
}

}  // namespace
}  // namespace cuvexa::tests
