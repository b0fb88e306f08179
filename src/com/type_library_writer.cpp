#include "com/type_library_writer.h"

#include "com/failures.h"
#include "com/type_library_file.h"

namespace cuvexa::com {

Type_library_writer::Type_library_writer(const Library_identity& identity, SYSKIND system, const std::wstring& path)
    : path_(path), pointer_size_(system == SYS_WIN64 ? 8 : 4) {
    DeleteFileW(path.c_str());
    check(CreateTypeLib2(system, path.c_str(), library_.receive()));
    check(library_->SetGuid(identity.id));
    check(library_->SetVersion(identity.major, identity.minor));
    check(library_->SetLcid(LOCALE_NEUTRAL));
    std::wstring name = identity.name;
    check(library_->SetName(name.data()));
    Pointer<ITypeLib> standard;
    check(LoadTypeLib(L"stdole2.tlb", standard.receive()));
    check(standard->GetTypeInfoOfGuid(IID_IDispatch, dispatch_.receive()));
}

void Type_library_writer::save() {
    check(library_->SaveAllChanges());
    Type_library_file file(path_);
    for (const auto& [place, size] : record_sizes_) file.set_record_size(place, size);
    for (const std::size_t place : interfaces_) file.set_virtual_table(place, pointer_size_);
    file.save();
}

// ---- Types ---------------------------------------------------------------------------------------------------------

void Type_library_writer::declare(std::string_view name, TYPEKIND kind, const GUID& id) {
    Declared& declared = declared_[std::string(name)];
    declared.place = declared_.size() - 1;
    check(library_->CreateTypeInfo(wide(name).data(), kind, declared.create.receive()));
    check(declared.create->SetGuid(id));
    declared.read = declared.create.as<ITypeInfo>(IID_ITypeInfo);
}

Type_library_writer::Declared& Type_library_writer::declared(std::string_view name) {
    const auto found = declared_.find(name);
    if (found == declared_.end()) throw Result_error(TYPE_E_ELEMENTNOTFOUND, "no type " + std::string(name));
    return found->second;
}

HREFTYPE Type_library_writer::reference(ICreateTypeInfo& from, ITypeInfo* to) {
    HREFTYPE handle;
    check(from.AddRefTypeInfo(to, &handle));
    return handle;
}

TYPEDESC Type_library_writer::pointer_to(TYPEDESC description) {
    TYPEDESC pointer{};
    pointer.vt = VT_PTR;
    pointer.lptdesc = &pointed_to_.emplace_back(description);
    return pointer;
}

TYPEDESC Type_library_writer::described(ICreateTypeInfo& from, const Described_type& type) {
    TYPEDESC description{};
    description.vt = type.number;
    if (type.name.empty()) return description;
    description.vt = VT_USERDEFINED;
    description.hreftype = reference(from, declared(type.name).read.get());
    return type.number == VT_DISPATCH ? pointer_to(description) : description;
}

// ---- Records -------------------------------------------------------------------------------------------------------

void Type_library_writer::describe_record(std::string_view name, std::span<const Described_field> fields,
                                          std::size_t size, WORD alignment) {
    ICreateTypeInfo& info = *declared(name).create.get();
    check(info.SetAlignment(alignment));
    for (UINT at = 0; at < fields.size(); ++at) {
        VARDESC variable{};
        variable.memid = static_cast<MEMBERID>(0x40000000 + at);
        variable.varkind = VAR_PERINSTANCE;
        variable.oInst = static_cast<ULONG>(fields[at].offset);
        variable.elemdescVar.tdesc = described(info, fields[at].type);
        check(info.AddVarDesc(at, &variable));
        check(info.SetVarName(at, wide(fields[at].name).data()));
    }
    check(info.LayOut());
    record_sizes_[declared(name).place] = size;
}

// ---- Interfaces and classes ----------------------------------------------------------------------------------------

void Type_library_writer::describe_interface(std::string_view name, std::span<const Described_member> members) {
    ICreateTypeInfo& info = *declared(name).create.get();
    check(info.SetTypeFlags(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE |
                            TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FHIDDEN));
    check(info.AddImplType(0, reference(info, dispatch_.get())));
    for (UINT at = 0; at < members.size(); ++at) {
        add_member(info, at, members[at]);
        name_member(info, at, members[at]);
    }
    check(info.LayOut());
    interfaces_.push_back(declared(name).place);
}

ELEMDESC Type_library_writer::parameter(ICreateTypeInfo& info, const Described_parameter& parameter,
                                        PARAMDESCEX& extra) {
    ELEMDESC element{};
    element.tdesc = described(info, parameter.type);
    element.paramdesc.wParamFlags = PARAMFLAG_FIN;
    if (parameter.by_reference) {
        element.tdesc = pointer_to(element.tdesc);
        element.paramdesc.wParamFlags |= PARAMFLAG_FOUT;
    }
    if (parameter.default_value->vt != VT_EMPTY) {
        extra = {sizeof(PARAMDESCEX), *parameter.default_value.get()};
        element.paramdesc.wParamFlags |= PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
        element.paramdesc.pparamdescex = &extra;
    }
    return element;
}

void Type_library_writer::add_member(ICreateTypeInfo& info, UINT at, const Described_member& member) {
    std::vector<ELEMDESC> elements;
    std::deque<PARAMDESCEX> extras;
    for (const Described_parameter& described : member.parameters) {
        elements.push_back(parameter(info, described, extras.emplace_back()));
    }
    if (member.result.number != VT_EMPTY) {
        ELEMDESC element{};
        element.tdesc = pointer_to(described(info, member.result));
        element.paramdesc.wParamFlags = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;
        elements.push_back(element);
    }
    FUNCDESC function{};
    function.memid = member.identifier;
    function.funckind = FUNC_PUREVIRTUAL;
    function.invkind = member.kind;
    function.callconv = CC_STDCALL;
    function.cParams = static_cast<SHORT>(elements.size());
    function.lprgelemdescParam = elements.data();
    function.elemdescFunc.tdesc.vt = VT_HRESULT;
    check(info.AddFuncDesc(at, &function));
}

void Type_library_writer::name_member(ICreateTypeInfo& info, UINT at, const Described_member& member) {
    std::vector<std::wstring> texts{wide(member.name)};
    // The value of a let has no name.
    if (member.kind == INVOKE_FUNC) {
        for (const Described_parameter& parameter : member.parameters) texts.push_back(wide(parameter.name));
    }
    std::vector<LPOLESTR> names;
    for (std::wstring& text : texts) names.push_back(text.data());
    check(info.SetFuncAndParamNames(at, names.data(), static_cast<UINT>(names.size())));
    if (!member.help.empty()) check(info.SetFuncDocString(at, wide(member.help).data()));
}

void Type_library_writer::add_class(std::string_view name, const GUID& id, std::string_view interface_name) {
    declare(name, TKIND_COCLASS, id);
    ICreateTypeInfo& info = *declared(name).create.get();
    check(info.SetTypeFlags(TYPEFLAG_FCANCREATE));
    check(info.AddImplType(0, reference(info, declared(interface_name).read.get())));
    check(info.SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT));
    check(info.LayOut());
}

}  // namespace cuvexa::com
