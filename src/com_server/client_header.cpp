#include "com_server/client_header.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <set>
#include <sstream>
#include <string>

#include "automation/members.h"
#include "com_server/identifiers.h"
#include "com_server/record_layout.h"
#include "com_server/types.h"

namespace cuvexa::com_server {
namespace {

constexpr const char* beginning =
    R"(// Cuvexa.dll for C++ programs that call it through its virtual table. Made by the build; do not edit.
//
// Every member gives a result code; its result comes last. Strings that go in remain the caller's, strings and objects that
// come out become the caller's; clear(record) gives back the strings of a record. After a failing code, GetErrorInfo has
// source and description. Identifiers in comments are those of Invoke.
#pragma once

#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>

#include <cstddef>

namespace Cuvexa {

)";

std::string guid(const GUID& id) {
    std::ostringstream text;
    text << std::hex << std::setfill('0') << "{0x" << std::setw(8) << id.Data1 << ", 0x" << std::setw(4) << id.Data2
         << ", 0x" << std::setw(4) << id.Data3 << ", {";
    for (int at = 0; at < 8; ++at) text << (at ? ", 0x" : "0x") << std::setw(2) << static_cast<int>(id.Data4[at]);
    text << "}}";
    return text.str();
}

std::string name_of(const Value_type& type) {
    if (type.type == Type::record) return published_name(type);
    if (type.type == Type::object) return published_name(type) + "*";
    return std::string(facts_of(type).cpp);
}

class Records {
public:
    explicit Records(std::ostream& out) : out_(out) {}

    /// The record, after those inside it.
    void add(const Record_type& record) {
        if (!done_.insert(record.name).second) return;
        for (const Field& field : record.fields) {
            if (field.type.type == Type::record) add(*field.type.record);
        }
        out_ << "struct " << record.name << " {\n";
        for (const Field& field : record.fields) {
            out_ << "    alignas(4) " << name_of(field.type) << " " << field.name << ";\n";
        }
        out_ << "};\n";
        for (std::size_t at = 0; at < record.fields.size(); ++at) {
            out_ << "static_assert(offsetof(" << record.name << ", " << record.fields[at].name << ") == ";
            by_bitness(offset_in_record(record, at, 8), offset_in_record(record, at, 4));
        }
        out_ << "static_assert(sizeof(" << record.name << ") == ";
        by_bitness(size_of_record(record, 8), size_of_record(record, 4));
        add_clear(record);
        out_ << "inline constexpr GUID guid_" << record.name << " = " << guid(record_id(record)) << ";\n\n";
    }

private:
    void add_clear(const Record_type& record) {
        out_ << "inline void clear(" << record.name << "& record) {\n";
        for (const Field& field : record.fields) {
            if (field.type.type == Type::text) out_ << "    SysFreeString(record." << field.name << ");\n";
            if (field.type.type == Type::record) out_ << "    clear(record." << field.name << ");\n";
        }
        out_ << "    record = {};\n}\n";
    }

    void by_bitness(std::size_t of_64, std::size_t of_32) {
        if (of_64 == of_32) {
            out_ << of_64 << ");\n";
        } else {
            out_ << "(sizeof(void*) == 8 ? " << of_64 << " : " << of_32 << "));\n";
        }
    }

    std::ostream& out_;
    std::set<std::string_view> done_;
};

void add_member(std::ostream& out, const Member& member) {
    const char* prefix = member.kind == Member_kind::property_get   ? "get_"
                         : member.kind == Member_kind::property_let ? "put_"
                                                                    : "";
    out << "    virtual HRESULT STDMETHODCALLTYPE " << prefix << member.name << "(";
    const char* separator = "";
    for (const Parameter& parameter : member.parameters) {
        out << separator << name_of(parameter.type) << (parameter.by_reference ? "* " : " ") << parameter.name;
        if (parameter.optional) out << (parameter.by_reference ? "/* or null */" : "/* or null: empty */");
        separator = ", ";
    }
    if (member.result.type != Type::none) out << separator << name_of(member.result) << "* result";
    out << ") = 0;  // " << std::hex << std::uppercase << member.identifier << std::dec << std::nouppercase << "\n";
}

void add_class(std::ostream& out, const Automation_class& type) {
    const Class_ids& ids = ids_of(type.name);
    out << "inline constexpr CLSID clsid_" << type.name << " = " << guid(ids.class_id) << ";\n"
        << "inline constexpr IID iid_" << type.interface_name << " = " << guid(ids.interface_id) << ";\n\n"
        << "struct " << type.interface_name << " : IDispatch {\n";
    for (const Member& member : type.members) add_member(out, member);
    out << "};\n\n";
}

}  // namespace

void write_client_header(std::ostream& out) {
    out << beginning << "inline constexpr GUID library_id = " << guid(library_id) << ";\n\n#pragma pack(push, 4)\n\n";
    Records records(out);
    for (const Record_type& record : record_types) records.add(record);
    out << "#pragma pack(pop)\n\n";
    for (const Automation_class& type : automation_classes()) out << "struct " << type.interface_name << ";\n";
    out << "\n";
    for (const Automation_class& type : automation_classes()) add_class(out, type);
    out << "}  // namespace Cuvexa\n";
}

}  // namespace cuvexa::com_server
