#include "com_server/type_library_writer.h"

#include <cstddef>
#include <deque>
#include <map>
#include <string_view>
#include <vector>

#include "automation/members.h"
#include "com/failures.h"
#include "com/type_library_file.h"
#include "com_server/identifiers.h"
#include "com_server/record_layout.h"

namespace cuvexa::com_server {

using namespace com;
namespace {

std::wstring wide_name(std::string_view name) {
    return {name.begin(), name.end()};
}

Any default_of(const Value_type& type) {
    Any value;
    switch (type.type) {
        case Type::boolean:
            value->vt = VT_BOOL;
            break;
        case Type::integer16:
            value->vt = VT_I2;
            break;
        default:
            value->bstrVal = new_string({});
            value->vt = VT_BSTR;
            break;
    }
    return value;
}

class Writer {
public:
    Writer(SYSKIND system, std::size_t pointer_size, const std::wstring& path) : pointer_size_(pointer_size) {
        check(CreateTypeLib2(system, path.c_str(), library_.receive()));
        check(library_->SetGuid(library_id));
        check(library_->SetVersion(library_major, library_minor));
        check(library_->SetLcid(LOCALE_NEUTRAL));
        set_name(L"Cuvexa");
        Pointer<ITypeLib> standard;
        check(LoadTypeLib(L"stdole2.tlb", standard.receive()));
        check(standard->GetTypeInfoOfGuid(IID_IDispatch, dispatch_.receive()));
    }

    void write() {
        for (const Record_type& record : record_types) declare(record.name, TKIND_RECORD, record_id(record));
        for (const Automation_class& type : automation_classes())
            declare(type.interface_name, TKIND_INTERFACE, ids_of(type.name).interface_id);
        for (const Record_type& record : record_types) add_record(record);
        for (const Automation_class& type : automation_classes()) add_interface(type);
        for (const Automation_class& type : automation_classes()) add_class(type);
        check(library_->SaveAllChanges());
    }

private:
    struct Declared {
        Pointer<ICreateTypeInfo> create;
        Pointer<ITypeInfo> read;
    };

    void set_name(const wchar_t* name) {
        std::wstring copy = name;
        check(library_->SetName(copy.data()));
    }

    Declared& declare(std::string_view name, TYPEKIND kind, const GUID& id) {
        Declared& declared = declared_[std::string(name)];
        check(library_->CreateTypeInfo(wide_name(name).data(), kind, declared.create.receive()));
        check(declared.create->SetGuid(id));
        declared.read = declared.create.as<ITypeInfo>(IID_ITypeInfo);
        return declared;
    }

    HREFTYPE reference(ICreateTypeInfo& from, ITypeInfo* to) {
        HREFTYPE handle;
        check(from.AddRefTypeInfo(to, &handle));
        return handle;
    }

    TYPEDESC* kept(TYPEDESC description) { return &kept_.emplace_back(description); }

    TYPEDESC pointer_to(TYPEDESC description) {
        TYPEDESC pointer{};
        pointer.vt = VT_PTR;
        pointer.lptdesc = kept(description);
        return pointer;
    }

    TYPEDESC named(ICreateTypeInfo& from, std::string_view name) {
        TYPEDESC description{};
        description.vt = VT_USERDEFINED;
        description.hreftype = reference(from, declared_.at(std::string(name)).read.get());
        return description;
    }

    TYPEDESC described(ICreateTypeInfo& from, const Value_type& type) {
        TYPEDESC description{};
        switch (type.type) {
            case Type::none:
                description.vt = VT_VOID;
                break;
            case Type::boolean:
                description.vt = VT_BOOL;
                break;
            case Type::integer16:
                description.vt = VT_I2;
                break;
            case Type::real:
                description.vt = VT_R8;
                break;
            case Type::text:
                description.vt = VT_BSTR;
                break;
            case Type::date:
                description.vt = VT_DATE;
                break;
            case Type::record:
                return named(from, type.record->name);
            case Type::object:
                return pointer_to(named(from, std::string("_").append(type.class_name)));
        }
        return description;
    }

    // ---- Records ----

    void add_record(const Record_type& record) {
        ICreateTypeInfo& info = *declared_.at(std::string(record.name)).create.get();
        check(info.SetAlignment(record_alignment));
        for (std::size_t at = 0; at < record.fields.size(); ++at) {
            VARDESC variable{};
            variable.memid = static_cast<MEMBERID>(0x40000000 + at);
            variable.varkind = VAR_PERINSTANCE;
            variable.oInst = static_cast<ULONG>(offset_in_record(record, at, pointer_size_));
            variable.elemdescVar.tdesc = described(info, record.fields[at].type);
            check(info.AddVarDesc(static_cast<UINT>(at), &variable));
            check(info.SetVarName(static_cast<UINT>(at), wide_name(record.fields[at].name).data()));
        }
        check(info.LayOut());
    }

    // ---- Interfaces and classes ----

    void add_interface(const Automation_class& type) {
        ICreateTypeInfo& info = *declared_.at(std::string(type.interface_name)).create.get();
        check(info.SetTypeFlags(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE |
                                TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FHIDDEN));
        check(info.AddImplType(0, reference(info, dispatch_.get())));
        for (std::size_t at = 0; at < type.members.size(); ++at)
            add_member(info, static_cast<UINT>(at), type.members[at]);
        check(info.LayOut());
    }

    void add_member(ICreateTypeInfo& info, UINT at, const Member& member) {
        std::vector<ELEMDESC> parameters;
        std::vector<Any> defaults(member.parameters.size());
        std::vector<PARAMDESCEX> extras(member.parameters.size());
        for (std::size_t place = 0; place < member.parameters.size(); ++place) {
            const Parameter& parameter = member.parameters[place];
            ELEMDESC element{};
            element.tdesc = described(info, parameter.type);
            element.paramdesc.wParamFlags = PARAMFLAG_FIN;
            if (parameter.by_reference) {
                element.tdesc = pointer_to(element.tdesc);
                element.paramdesc.wParamFlags |= PARAMFLAG_FOUT;
            }
            if (parameter.optional) {
                defaults[place] = default_of(parameter.type);
                extras[place] = {sizeof(PARAMDESCEX), *defaults[place].get()};
                element.paramdesc.wParamFlags |= PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
                element.paramdesc.pparamdescex = &extras[place];
            }
            parameters.push_back(element);
        }
        if (member.result.type != Type::none) {
            ELEMDESC element{};
            element.tdesc = pointer_to(described(info, member.result));
            element.paramdesc.wParamFlags = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;
            parameters.push_back(element);
        }
        FUNCDESC function{};
        function.memid = member.identifier;
        function.funckind = FUNC_PUREVIRTUAL;
        function.invkind = member.kind == Member_kind::method         ? INVOKE_FUNC
                           : member.kind == Member_kind::property_get ? INVOKE_PROPERTYGET
                                                                      : INVOKE_PROPERTYPUT;
        function.callconv = CC_STDCALL;
        function.cParams = static_cast<SHORT>(parameters.size());
        function.lprgelemdescParam = parameters.data();
        function.elemdescFunc.tdesc.vt = VT_HRESULT;
        check(info.AddFuncDesc(at, &function));
        name_member(info, at, member);
    }

    void name_member(ICreateTypeInfo& info, UINT at, const Member& member) {
        std::vector<std::wstring> texts{wide_name(member.name)};
        // The value of a let has no name.
        if (member.kind == Member_kind::method) {
            for (const Parameter& parameter : member.parameters) texts.push_back(wide_name(parameter.name));
        }
        std::vector<LPOLESTR> names;
        for (std::wstring& text : texts) names.push_back(text.data());
        check(info.SetFuncAndParamNames(at, names.data(), static_cast<UINT>(names.size())));
        if (!member.help.empty()) check(info.SetFuncDocString(at, wide_name(member.help).data()));
    }

    void add_class(const Automation_class& type) {
        ICreateTypeInfo& info = *declare(type.name, TKIND_COCLASS, ids_of(type.name).class_id).create.get();
        check(info.SetTypeFlags(TYPEFLAG_FCANCREATE));
        check(info.AddImplType(0, reference(info, declared_.at(std::string(type.interface_name)).read.get())));
        check(info.SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT));
        check(info.LayOut());
    }

    std::size_t pointer_size_;
    Pointer<ICreateTypeLib2> library_;
    Pointer<ITypeInfo> dispatch_;
    std::map<std::string, Declared> declared_;
    std::deque<TYPEDESC> kept_;
};

}  // namespace

void write_type_library(SYSKIND system, const std::wstring& path) {
    DeleteFileW(path.c_str());
    const std::size_t pointer_size = system == SYS_WIN64 ? 8 : 4;
    Writer(system, pointer_size, path).write();

    Type_library_file file(path);
    std::size_t type = 0;
    for (const Record_type& record : record_types) file.set_record_size(type++, size_of_record(record, pointer_size));
    for ([[maybe_unused]] const Automation_class& with_interface : automation_classes())
        file.set_virtual_table(type++, pointer_size);
    file.save();
}

}  // namespace cuvexa::com_server
