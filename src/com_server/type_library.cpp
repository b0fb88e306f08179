#include "com_server/type_library.h"

#include "automation/members.h"
#include "com/type_library_writer.h"
#include "com_server/arguments.h"
#include "com_server/identifiers.h"
#include "com_server/record_layout.h"
#include "com_server/types.h"

namespace cuvexa::com_server {
namespace {

Described_type described(const Value_type& type) {
    return {facts_of(type).number, published_name(type)};
}

std::vector<Described_field> described(const Record_type& record, std::size_t pointer_size) {
    std::vector<Described_field> fields;
    for (std::size_t at = 0; at < record.fields.size(); ++at) {
        const Field& field = record.fields[at];
        fields.push_back({field.name, described(field.type), offset_in_record(record, at, pointer_size)});
    }
    return fields;
}

Described_parameter described(const Parameter& parameter) {
    Described_parameter result{parameter.name, described(parameter.type), parameter.by_reference, {}};
    Variant value = parameter.default_value;
    if (parameter.optional) result.default_value = result_of(value, parameter.type);
    return result;
}

INVOKEKIND described(Member_kind kind) {
    switch (kind) {
        case Member_kind::method:
            break;
        case Member_kind::property_get:
            return INVOKE_PROPERTYGET;
        case Member_kind::property_let:
            return INVOKE_PROPERTYPUT;
    }
    return INVOKE_FUNC;
}

std::vector<Described_member> described(const Automation_class& type) {
    std::vector<Described_member> members;
    for (const Member& member : type.members) {
        auto& result = members.emplace_back(Described_member{
            member.name, member.identifier, described(member.kind), {}, described(member.result), member.help});
        for (const Parameter& parameter : member.parameters) result.parameters.push_back(described(parameter));
    }
    return members;
}

}  // namespace

void write_type_library(SYSKIND system, const std::wstring& path) {
    const std::size_t pointer_size = system == SYS_WIN64 ? 8 : 4;
    Type_library_writer library({L"Cuvexa", library_id, library_major, library_minor}, system, path);
    for (const Record_type& record : record_types) library.declare(record.name, TKIND_RECORD, record_id(record));
    for (const Automation_class& type : automation_classes()) {
        library.declare(type.interface_name, TKIND_INTERFACE, ids_of(type.name).interface_id);
    }
    for (const Record_type& record : record_types) {
        library.describe_record(record.name, described(record, pointer_size), size_of_record(record, pointer_size),
                                record_alignment);
    }
    for (const Automation_class& type : automation_classes()) {
        library.describe_interface(type.interface_name, described(type));
    }
    for (const Automation_class& type : automation_classes()) {
        library.add_class(type.name, ids_of(type.name).class_id, type.interface_name);
    }
    library.save();
}

}  // namespace cuvexa::com_server
