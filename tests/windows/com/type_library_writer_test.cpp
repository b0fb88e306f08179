// A type library of made-up types, written and read back through the system.
#include "com/type_library_writer.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "com/failures.h"
#include "com/values.h"

namespace cuvexa::tests {

using namespace com;
namespace {

constexpr GUID id(unsigned long number) {
    return {0x0a5cf200 + number, 0x7d0e, 0x4f0b, {0x8d, 0x52, 0x7e, 0x3b, 0x11, 0x2a, 0x44, 0x01}};
}

#ifdef _WIN64
constexpr SYSKIND own_system = SYS_WIN64;
#else
constexpr SYSKIND own_system = SYS_WIN32;
#endif

struct Made_up_library : ::testing::Test {
    Made_up_library() {
        writer.declare("Point", TKIND_RECORD, id(1));
        writer.declare("_Shape", TKIND_INTERFACE, id(2));
        writer.describe_record("Point", std::vector<Described_field>{{"X", {VT_R8}, 0}, {"Name", {VT_BSTR}, 8}},
                               8 + sizeof(BSTR), 4);
        std::vector<Described_member> members;
        members.push_back({"Move", 7, INVOKE_FUNC, {}, {VT_DISPATCH, "_Shape"}, "Moves it"});
        members[0].parameters.push_back(parameter("To", {VT_RECORD, "Point"}, true, {}));
        members[0].parameters.push_back(parameter("Steps", {VT_I2}, false, any(std::int16_t{3})));
        writer.describe_interface("_Shape", members);
        writer.add_class("Shape", id(3), "_Shape");
        writer.save();
        check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.receive()));
    }
    ~Made_up_library() override {
        library = nullptr;
        DeleteFileW(path.c_str());
    }

    static Described_parameter parameter(std::string_view name, const Described_type& type, bool by_reference,
                                         Any default_value) {
        return {name, type, by_reference, std::move(default_value)};
    }

    Pointer<ITypeInfo> type(const GUID& guid) const {
        Pointer<ITypeInfo> found;
        check(library->GetTypeInfoOfGuid(guid, found.receive()));
        return found;
    }

    std::wstring path =
        (std::filesystem::temp_directory_path() / (L"kit-" + std::to_wstring(GetCurrentProcessId()) + L".tlb"))
            .wstring();
    Type_library_writer writer{{L"Shapes", id(0), 2, 5}, own_system, path};
    Pointer<ITypeLib> library;
};

TEST_F(Made_up_library, has_its_identity_and_its_types_in_the_order_in_which_they_were_named) {
    TLIBATTR* attributes = nullptr;
    check(library->GetLibAttr(&attributes));
    EXPECT_TRUE(IsEqualGUID(attributes->guid, id(0)));
    EXPECT_EQ(attributes->wMajorVerNum, 2);
    EXPECT_EQ(attributes->wMinorVerNum, 5);
    library->ReleaseTLibAttr(attributes);
    std::string names;
    for (UINT at = 0; at < library->GetTypeInfoCount(); ++at) {
        String name;
        check(library->GetDocumentation(static_cast<INT>(at), name.receive(), nullptr, nullptr, nullptr));
        names += name.text() + " ";
    }
    EXPECT_EQ(names, "Point _Shape Shape ");
}

TEST_F(Made_up_library, lays_its_record_out_as_it_was_told) {
    const auto point = type(id(1));
    TYPEATTR* attributes = nullptr;
    check(point->GetTypeAttr(&attributes));
    EXPECT_EQ(attributes->cbSizeInstance, 8 + sizeof(BSTR));
    EXPECT_EQ(attributes->cVars, 2);
    point->ReleaseTypeAttr(attributes);
    VARDESC* field = nullptr;
    check(point->GetVarDesc(1, &field));
    EXPECT_EQ(field->oInst, 8u);
    EXPECT_EQ(field->elemdescVar.tdesc.vt, VT_BSTR);
    point->ReleaseVarDesc(field);
}

TEST_F(Made_up_library, finds_the_number_of_a_member) {
    wchar_t name[] = L"move";
    LPOLESTR names[] = {name};
    MEMBERID member = 0;
    check(type(id(2))->GetIDsOfNames(names, 1, &member));
    EXPECT_EQ(member, 7);
}

TEST_F(Made_up_library, refuses_a_type_that_was_not_named) {
    try {
        writer.describe_record("Point", std::vector<Described_field>{{"Inner", {VT_RECORD, "Circle"}, 0}}, 8, 4);
        FAIL();
    } catch (const Result_error& failure) {
        EXPECT_EQ(failure.result(), TYPE_E_ELEMENTNOTFOUND);
        EXPECT_STREQ(failure.what(), "no type Circle");
    }
}

}  // namespace
}  // namespace cuvexa::tests
