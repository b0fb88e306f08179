// The finished type libraries, read back through the system and compared with the tables they were made from.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "com/failures.h"
#include "com_server/identifiers.h"
#include "com_server/type_library.h"
#include "windows/com_server/server.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

constexpr bool process_is_64 = sizeof(void*) == 8;

/// A library of either bitness: the one inside Cuvexa.dll, or one that is written for the test.
struct Read_library {
    explicit Read_library(SYSKIND system) : system(system) {
        path = (std::filesystem::temp_directory_path() /
                (L"cuvexa-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(system) + L".tlb"))
                   .wstring();
        if (is_own()) {
            check(LoadTypeLibEx(Library::default_path().c_str(), REGKIND_NONE, library.receive()));
        } else {
            write_type_library(system, path);
            check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.receive()));
        }
    }
    ~Read_library() {
        library = nullptr;
        DeleteFileW(path.c_str());
    }

    bool is_own() const { return (system == SYS_WIN64) == process_is_64; }
    std::size_t pointer_size() const { return system == SYS_WIN64 ? 8 : 4; }

    Pointer<ITypeInfo> type(const GUID& id) const {
        Pointer<ITypeInfo> found;
        check(library->GetTypeInfoOfGuid(id, found.receive()));
        return found;
    }
    Pointer<ITypeInfo> record(const Record_type& type) const { return this->type(record_id(type)); }

    /// The interface behind the dispatch interface that a dual one is shown as.
    Pointer<ITypeInfo> virtual_table(const Automation_class& type) const {
        const auto shown = this->type(ids_of(type.name).interface_id);
        HREFTYPE handle;
        Pointer<ITypeInfo> found;
        if (FAILED(shown->GetRefTypeOfImplType(static_cast<UINT>(-1), &handle))) return shown;
        check(shown->GetRefTypeInfo(handle, found.receive()));
        return found;
    }

    SYSKIND system;
    std::wstring path;
    Pointer<ITypeLib> library;
};

/// The attributes of a type, given back at the end.
class Attributes {
public:
    explicit Attributes(const Pointer<ITypeInfo>& type) : type_(type) { check(type->GetTypeAttr(&attributes_)); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { type_->ReleaseTypeAttr(attributes_); }
    TYPEATTR* operator->() const { return attributes_; }

private:
    Pointer<ITypeInfo> type_;
    TYPEATTR* attributes_ = nullptr;
};

class Function {
public:
    Function(const Pointer<ITypeInfo>& type, UINT at) : type_(type) { check(type->GetFuncDesc(at, &function_)); }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    ~Function() { type_->ReleaseFuncDesc(function_); }
    FUNCDESC* operator->() const { return function_; }

private:
    Pointer<ITypeInfo> type_;
    FUNCDESC* function_ = nullptr;
};

class Variable {
public:
    Variable(const Pointer<ITypeInfo>& type, UINT at) : type_(type) { check(type->GetVarDesc(at, &variable_)); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { type_->ReleaseVarDesc(variable_); }
    VARDESC* operator->() const { return variable_; }

private:
    Pointer<ITypeInfo> type_;
    VARDESC* variable_ = nullptr;
};

std::string name_of(const Pointer<ITypeInfo>& type, MEMBERID member = MEMBERID_NIL) {
    String name;
    check(type->GetDocumentation(member, name.receive(), nullptr, nullptr, nullptr));
    return name.text();
}

/// A type as it stands in a library, "tCuenta*" for a pointer to a record.
std::string described(const Pointer<ITypeInfo>& type, const TYPEDESC& description) {
    switch (description.vt) {
        case VT_PTR:
            return described(type, *description.lptdesc) + "*";
        case VT_USERDEFINED: {
            Pointer<ITypeInfo> named;
            check(type->GetRefTypeInfo(description.hreftype, named.receive()));
            return name_of(named);
        }
        case VT_BOOL:
            return "bool";
        case VT_I2:
            return "int16";
        case VT_R8:
            return "double";
        case VT_DATE:
            return "date";
        case VT_BSTR:
            return "text";
        case VT_HRESULT:
            return "result code";
        case VT_VOID:
            return "nothing";
        default:
            return "type " + std::to_string(description.vt);
    }
}

/// The same of the table.
std::string described(const Value_type& type) {
    switch (type.type) {
        case Type::none:
            return "nothing";
        case Type::boolean:
            return "bool";
        case Type::integer16:
            return "int16";
        case Type::real:
            return "double";
        case Type::date:
            return "date";
        case Type::text:
            return "text";
        case Type::record:
            return std::string(type.record->name);
        case Type::object:
            return "_" + std::string(type.class_name) + "*";
    }
    return {};
}

/// Name, passing and default of every parameter and the result, as one line.
std::string expected_signature(const Member& member) {
    std::string line;
    for (const Parameter& parameter : member.parameters) {
        line += described(parameter.type) + (parameter.by_reference ? "*" : "");
        if (member.kind == Member_kind::method) line += " " + std::string(parameter.name);
        line += parameter.by_reference ? " in out" : " in";
        if (parameter.optional) {
            line += " optional default ";
            line += parameter.type.type == Type::text      ? "''"
                    : parameter.type.type == Type::boolean ? "bool 0"
                                                           : "int16 0";
        }
        line += "; ";
    }
    if (member.result.type != Type::none) line += described(member.result) + "* out result; ";
    return line;
}

std::string default_in(const PARAMDESC& parameter) {
    const VARIANT& value = parameter.pparamdescex->varDefaultValue;
    if (value.vt == VT_BSTR) return "'" + text_of(value.bstrVal) + "'";
    if (value.vt == VT_BOOL) return "bool " + std::to_string(value.boolVal);
    if (value.vt == VT_I2) return "int16 " + std::to_string(value.iVal);
    return "of type " + std::to_string(value.vt);
}

std::string signature(const Pointer<ITypeInfo>& type, const Function& function) {
    BSTR raw_names[12] = {};
    UINT count = 0;
    check(type->GetNames(function->memid, raw_names, 12, &count));
    std::vector<std::string> names;
    for (UINT at = 0; at < count; ++at) {
        names.push_back(text_of(raw_names[at]));
        SysFreeString(raw_names[at]);
    }
    std::string line;
    for (SHORT at = 0; at < function->cParams; ++at) {
        const ELEMDESC& element = function->lprgelemdescParam[at];
        const USHORT flags = element.paramdesc.wParamFlags;
        line += described(type, element.tdesc);
        const std::size_t name = static_cast<std::size_t>(at) + 1;
        if (!(flags & PARAMFLAG_FRETVAL) && name < names.size() && function->invkind == INVOKE_FUNC) {
            line += " " + names[name];
        }
        if (flags & PARAMFLAG_FIN) line += " in";
        if (flags & PARAMFLAG_FOUT) line += " out";
        if (flags & PARAMFLAG_FOPT) line += " optional";
        if (flags & PARAMFLAG_FHASDEFAULT) line += " default " + default_in(element.paramdesc);
        if (flags & PARAMFLAG_FRETVAL) line += " result";
        line += "; ";
    }
    return line;
}

INVOKEKIND expected_kind(Member_kind kind) {
    switch (kind) {
        case Member_kind::method:
            return INVOKE_FUNC;
        case Member_kind::property_get:
            return INVOKE_PROPERTYGET;
        case Member_kind::property_let:
            return INVOKE_PROPERTYPUT;
    }
    return INVOKE_FUNC;
}

/// Bytes of a member of a record, up to the next 4-byte boundary.
std::size_t bytes_in_record(const Value_type& type, std::size_t pointer_size) {
    if (type.type == Type::boolean) return 4;
    if (type.type == Type::real || type.type == Type::date) return 8;
    if (type.type == Type::text) return pointer_size;
    std::size_t bytes = 0;
    for (const Field& field : type.record->fields) bytes += bytes_in_record(field.type, pointer_size);
    return bytes;
}

struct Type_library : ::testing::TestWithParam<SYSKIND> {
    Read_library read{GetParam()};
};

TEST_P(Type_library, carries_the_name_identifier_and_version_of_the_component) {
    TLIBATTR* attributes = nullptr;
    check(read.library->GetLibAttr(&attributes));
    EXPECT_TRUE(IsEqualGUID(attributes->guid, library_id));
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->lcid, 0u);
    EXPECT_EQ(attributes->syskind, GetParam());
    read.library->ReleaseTLibAttr(attributes);
    String name;
    check(read.library->GetDocumentation(-1, name.receive(), nullptr, nullptr, nullptr));
    EXPECT_EQ(name.text(), "Cuvexa");
}

TEST_P(Type_library, holds_the_records_in_their_order_then_the_interfaces_then_the_classes_and_nothing_else) {
    std::vector<std::string> expected, found;
    for (const Record_type& record : record_types) {
        expected.push_back(std::string(record.name) + " " + std::to_string(TKIND_RECORD));
    }
    for (const Automation_class& type : automation_classes()) {
        expected.push_back(std::string(type.interface_name) + " " + std::to_string(TKIND_DISPATCH));
    }
    for (const Automation_class& type : automation_classes()) {
        expected.push_back(std::string(type.name) + " " + std::to_string(TKIND_COCLASS));
    }
    for (UINT at = 0; at < read.library->GetTypeInfoCount(); ++at) {
        TYPEKIND kind;
        check(read.library->GetTypeInfoType(at, &kind));
        String name;
        check(read.library->GetDocumentation(static_cast<INT>(at), name.receive(), nullptr, nullptr, nullptr));
        found.push_back(name.text() + " " + std::to_string(kind));
    }
    EXPECT_EQ(found, expected);
}

TEST_P(Type_library, lays_every_record_out_in_the_published_order_on_4_byte_boundaries) {
    for (const Record_type& record : record_types) {
        const auto type = read.record(record);
        const Attributes attributes(type);
        EXPECT_EQ(attributes->typekind, TKIND_RECORD) << record.name;
        EXPECT_EQ(attributes->cbSizeInstance, bytes_in_record({Type::record, &record}, read.pointer_size()))
            << record.name;
        EXPECT_EQ(attributes->cbAlignment, 4) << record.name;
        ASSERT_EQ(attributes->cVars, record.fields.size()) << record.name;
        std::size_t offset = 0;
        for (UINT at = 0; at < attributes->cVars; ++at) {
            const Variable variable(type, at);
            const std::string place = std::string(record.name) + "." + std::string(record.fields[at].name);
            EXPECT_EQ(name_of(type, variable->memid), record.fields[at].name) << place;
            EXPECT_EQ(variable->varkind, VAR_PERINSTANCE) << place;
            EXPECT_EQ(variable->oInst, offset) << place;
            EXPECT_EQ(described(type, variable->elemdescVar.tdesc), described(record.fields[at].type)) << place;
            offset += bytes_in_record(record.fields[at].type, read.pointer_size());
        }
    }
}

TEST_P(Type_library, has_every_member_in_the_published_order_with_its_identifier_kind_and_parameters) {
    for (const Automation_class& type : automation_classes()) {
        const auto table = read.virtual_table(type);
        const Attributes attributes(table);
        ASSERT_EQ(attributes->cFuncs, type.members.size()) << type.name;
        for (UINT at = 0; at < attributes->cFuncs; ++at) {
            const Member& member = type.members[at];
            const Function function(table, at);
            EXPECT_EQ(name_of(table, function->memid), member.name);
            EXPECT_EQ(function->memid, member.identifier) << member.name;
            EXPECT_EQ(function->invkind, expected_kind(member.kind)) << member.name;
            EXPECT_EQ(function->callconv, CC_STDCALL) << member.name;
            EXPECT_EQ(function->funckind, FUNC_PUREVIRTUAL) << member.name;
            EXPECT_EQ(described(table, function->elemdescFunc.tdesc), "result code") << member.name;
            EXPECT_EQ(signature(table, function), expected_signature(member)) << member.name;
        }
    }
}

TEST_P(Type_library, gives_no_two_members_of_a_kind_one_identifier) {
    for (const Automation_class& type : automation_classes()) {
        const auto table = read.virtual_table(type);
        const Attributes attributes(table);
        std::set<std::pair<MEMBERID, INVOKEKIND>> seen;
        for (UINT at = 0; at < attributes->cFuncs; ++at) {
            const Function function(table, at);
            EXPECT_TRUE(seen.emplace(function->memid, function->invkind).second) << type.members[at].name;
        }
    }
}

// Wine counts the places of functions in pointers of the process that reads, whatever the library was written for; the
// size of the table it gives as it is written.
TEST_P(Type_library, puts_the_members_behind_those_of_dispatch_without_a_gap) {
    for (const Automation_class& type : automation_classes()) {
        const auto table = read.virtual_table(type);
        const Attributes attributes(table);
        EXPECT_EQ(attributes->cbSizeVft, (7 + type.members.size()) * read.pointer_size()) << type.name;
        for (UINT at = 0; at < attributes->cFuncs; ++at) {
            const Function function(table, at);
            EXPECT_EQ(static_cast<std::size_t>(function->oVft), (7 + at) * sizeof(void*)) << type.members[at].name;
        }
    }
}

TEST_P(Type_library, shows_dual_interfaces_that_extend_IDispatch) {
    for (const Automation_class& type : automation_classes()) {
        const Class_ids& ids = ids_of(type.name);
        const Attributes shown(read.type(ids.interface_id));
        EXPECT_EQ(shown->typekind, TKIND_DISPATCH) << type.name;
        EXPECT_TRUE(shown->wTypeFlags & TYPEFLAG_FDUAL) << type.name;

        const auto table = read.virtual_table(type);
        const Attributes attributes(table);
        EXPECT_EQ(attributes->typekind, TKIND_INTERFACE) << type.name;
        EXPECT_TRUE(IsEqualGUID(attributes->guid, ids.interface_id)) << type.name;
        constexpr WORD flags = TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE |
                               TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FHIDDEN;
        EXPECT_EQ(attributes->wTypeFlags, flags) << type.name;
        EXPECT_EQ(attributes->cImplTypes, 1) << type.name;
        HREFTYPE handle;
        Pointer<ITypeInfo> base;
        check(table->GetRefTypeOfImplType(0, &handle));
        check(table->GetRefTypeInfo(handle, base.receive()));
        EXPECT_TRUE(IsEqualGUID(Attributes(base)->guid, IID_IDispatch)) << type.name;
    }
}

TEST_P(Type_library, has_a_creatable_class_with_its_default_interface_for_each) {
    for (const Automation_class& type : automation_classes()) {
        const Class_ids& ids = ids_of(type.name);
        const auto described_class = read.type(ids.class_id);
        const Attributes attributes(described_class);
        EXPECT_EQ(attributes->typekind, TKIND_COCLASS) << type.name;
        EXPECT_EQ(name_of(described_class), type.name);
        EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE) << type.name;
        ASSERT_EQ(attributes->cImplTypes, 1) << type.name;
        INT flags = 0;
        check(described_class->GetImplTypeFlags(0, &flags));
        EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT) << type.name;
        HREFTYPE handle;
        Pointer<ITypeInfo> implemented;
        check(described_class->GetRefTypeOfImplType(0, &handle));
        check(described_class->GetRefTypeInfo(handle, implemented.receive()));
        EXPECT_TRUE(IsEqualGUID(Attributes(implemented)->guid, ids.interface_id)) << type.name;
    }
}

TEST_P(Type_library, has_the_one_help_string) {
    std::map<std::string, std::string> expected, found;
    for (const Automation_class& type : automation_classes()) {
        for (const Member& member : type.members) {
            if (!member.help.empty()) expected[std::string(member.name)] = member.help;
        }
        const auto table = read.virtual_table(type);
        const Attributes attributes(table);
        for (UINT at = 0; at < attributes->cFuncs; ++at) {
            const Function function(table, at);
            String name, help;
            check(table->GetDocumentation(function->memid, name.receive(), help.receive(), nullptr, nullptr));
            if (!help.text().empty()) found[name.text()] = help.text();
        }
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(found["PedirDatosFormaPago"], "Zerlonda - Tesoreria");
    EXPECT_NE(found["Genera_Deposito"].find("cambia el estado del recibo de caja"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Of_both_bitnesses, Type_library, ::testing::Values(SYS_WIN64, SYS_WIN32),
                         [](const auto& system) { return system.param == SYS_WIN64 ? "win64" : "win32"; });

// ---- Published by hand: what clients were built against ------------------------------------------------------------

TEST(Type_library_of_this_bitness, keeps_the_numbers_that_clients_were_built_against) {
    const Read_library read(process_is_64 ? SYS_WIN64 : SYS_WIN32);
    const auto table = read.virtual_table(automation_classes()[0]);
    EXPECT_EQ(Attributes(table)->cFuncs, 55);
    EXPECT_EQ(static_cast<unsigned>(Function(table, 0)->memid), 0x4003000Au);
    EXPECT_EQ(static_cast<unsigned>(Function(table, 2)->memid), 0x60030007u);
    EXPECT_EQ(static_cast<unsigned>(Function(table, 54)->memid), 0x6803004Du);
    EXPECT_EQ(signature(table, Function(table, 36)),
              "text* Bc_Cve_Banco_Cuenta in out; text* Rp_Folio in out; date* Dp_Fecha in out; bool* Bm_Firme in out; "
              "date* Bm_Fecha_Firme in out; text sComentario in optional default ''; bool* out result; ");
}

/// The places of an interface's functions as they stand in the file, where no reader scales them, and the size of its
/// table. Types stand there in the order of the library.
std::vector<unsigned> table_places(const std::wstring& path, std::size_t type) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const auto word = [&](std::size_t at) {
        return static_cast<unsigned>(static_cast<unsigned char>(bytes.at(at)) |
                                     static_cast<unsigned char>(bytes.at(at + 1)) << 8);
    };
    const auto number = [&](std::size_t at) { return word(at) | word(at + 2) << 16; };
    const std::size_t places = 0x54 + (number(0x14) & 0x100 ? 4 : 0);
    const std::size_t described = number(places + 4 * number(0x20)) + type * 0x64;
    std::vector<unsigned> found;
    std::size_t function = number(described + 4) + 4;
    for (unsigned at = 0; at < word(described + 0x18); ++at) {
        found.push_back(word(function + 0x0C));
        function += word(function);
    }
    found.push_back(word(described + 0x4E));
    return found;
}

TEST_P(Type_library, says_in_its_file_where_the_functions_stand_for_its_bitness) {
    Read_library written(GetParam());
    write_type_library(GetParam(), written.path);
    const auto pointer = static_cast<unsigned>(read.pointer_size());
    for (std::size_t at = 0; at < automation_classes().size(); ++at) {
        std::vector<unsigned> expected;
        for (unsigned place = 0; place <= automation_classes()[at].members.size(); ++place) {
            expected.push_back((7 + place) * pointer);
        }
        EXPECT_EQ(table_places(written.path, std::size(record_types) + at), expected);
    }
}

TEST(Type_library_of_the_other_bitness, has_sizes_of_its_own) {
    const Read_library read(process_is_64 ? SYS_WIN32 : SYS_WIN64);
    const Record_type& header = record_named("tRpEncabezado");
    EXPECT_EQ(Attributes(read.record(header))->cbSizeInstance, process_is_64 ? 128u : 224u);
}

}  // namespace
}  // namespace cuvexa::tests
