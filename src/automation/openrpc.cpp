#include "automation/openrpc.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/contract.h"
#include "automation/json_value.h"
#include "automation/members.h"

namespace cuvexa::automation {

namespace {

/// A JSON text in the making; it knows where commas stand.
class Writer {
public:
    void open(char bracket) {
        separate();
        json_ += bracket;
        first_ = true;
    }
    void close(char bracket) {
        json_ += bracket;
        first_ = false;
    }
    void name(std::string_view name) {
        value(name);
        json_ += ':';
        first_ = true;
    }
    template <class T>
    void value(const T& value) {
        separate();
        append_json(json_, value);
    }
    template <class T>
    void member(std::string_view name_of_it, const T& its_value) {
        name(name_of_it);
        value(its_value);
    }
    std::string take() { return std::move(json_); }

private:
    void separate() {
        if (!first_) json_ += ',';
        first_ = false;
    }

    std::string json_;
    bool first_ = true;
};

std::string comment_of(const Contract& contract, std::string_view type, std::string_view name = "") {
    const auto found = contract.find({std::string(type), std::string(name)});
    return found == contract.end() ? std::string() : found->second;
}

// ---- Types ----------------------------------------------------------------------------------------------------------

void write_reference(Writer& writer, std::string_view schema) {
    writer.member("$ref", "#/components/schemas/" + std::string(schema));
}

/// The members of the schema of a type, between its braces.
void write_type(Writer& writer, const Value_type& type) {
    switch (type.type) {
        case Type::none:
            return writer.member("type", "null");
        case Type::boolean:
            return writer.member("type", "boolean");
        case Type::integer16:
            writer.member("type", "integer");
            writer.member("minimum", std::int64_t{INT16_MIN});
            return writer.member("maximum", std::int64_t{INT16_MAX});
        case Type::real:
            return writer.member("type", "number");
        case Type::text:
            return writer.member("type", "string");
        case Type::date:
            return write_reference(writer, "Date");
        case Type::record:
            return write_reference(writer, type.record->name);
        case Type::object:
            return write_reference(writer, "Object");
    }
}

void write_schema(Writer& writer, std::string_view name, const Value_type& type) {
    writer.name(name);
    writer.open('{');
    write_type(writer, type);
    writer.close('}');
}

/// What stands beside a "$ref" is read by nobody: the comment of a field stands around it.
void write_field(Writer& writer, const Field& field, const std::string& comment) {
    writer.name(field.name);
    writer.open('{');
    if (!comment.empty()) writer.member("description", comment);
    const bool refers = field.type.type == Type::record || field.type.type == Type::date;
    if (refers && !comment.empty()) {
        writer.name("allOf");
        writer.open('[');
        writer.open('{');
    }
    write_type(writer, field.type);
    if (refers && !comment.empty()) {
        writer.close('}');
        writer.close(']');
    }
    writer.close('}');
}

void write_record(Writer& writer, const Record_type& record, const Contract& contract) {
    writer.name(record.name);
    writer.open('{');
    writer.member("description", comment_of(contract, record.name));
    writer.member("type", "object");
    writer.name("properties");
    writer.open('{');
    for (const Field& field : record.fields) write_field(writer, field, comment_of(contract, record.name, field.name));
    writer.close('}');
    writer.member("additionalProperties", false);
    writer.close('}');
}

// ---- Members --------------------------------------------------------------------------------------------------------

std::string_view kind_of(const Member& member) {
    switch (member.kind) {
        case Member_kind::method:
            return "method";
        case Member_kind::property_get:
            return "get";
        case Member_kind::property_let:
            break;
    }
    return "let";
}

void write_parameter(Writer& writer, const Parameter& parameter) {
    writer.open('{');
    writer.member("name", parameter.name);
    writer.member("required", !parameter.optional);
    writer.member("byReference", parameter.by_reference);
    write_schema(writer, "schema", parameter.type);
    writer.close('}');
}

void write_member(Writer& writer, const Member& member, const std::string& comment) {
    writer.open('{');
    writer.member("name", member.name);
    writer.member("kind", kind_of(member));
    writer.member("identifier", std::int64_t{member.identifier});
    if (!comment.empty()) writer.member("description", comment);
    if (const std::string_view refusals = refusals_in(comment); !refusals.empty()) writer.member("refusals", refusals);
    if (member.shows_dialog) writer.member("dialog", true);
    writer.name("params");
    writer.open('[');
    for (const Parameter& parameter : member.parameters) write_parameter(writer, parameter);
    writer.close(']');
    write_schema(writer, "result", member.result);
    writer.close('}');
}

void write_class(Writer& writer, const Automation_class& type, const Contract& contract) {
    writer.open('{');
    writer.member("name", type.name);
    writer.member("description", comment_of(contract, type.name));
    writer.name("members");
    writer.open('[');
    for (const Member& member : type.members) {
        write_member(writer, member, comment_of(contract, type.name, member.name));
    }
    writer.close(']');
    writer.close('}');
}

// ---- The whole ------------------------------------------------------------------------------------------------------

std::string names_of(Member_kind kind) {
    std::vector<std::string_view> names;
    for (const Automation_class& type : automation_classes()) {
        for (const Member& member : type.members) {
            if (member.kind == kind) names.push_back(member.name);
        }
    }
    Writer writer;
    for (const std::string_view name : names) writer.value(name);
    return writer.take();
}

std::string class_names() {
    Writer writer;
    for (const Automation_class& type : automation_classes()) writer.value(type.name);
    return writer.take();
}

std::string records(const Contract& contract) {
    Writer writer;
    for (const Record_type& record : record_types) write_record(writer, record, contract);
    return writer.take();
}

std::string classes(const Contract& contract) {
    Writer writer;
    for (const Automation_class& type : automation_classes()) write_class(writer, type, contract);
    return writer.take();
}

void fill(std::string& text, std::string_view hole, const std::string& content) {
    text.replace(text.find(hole), hole.size(), content);
}

std::string written_document() {
    const Contract contract = contract_of(contract_headers());
    std::string text(openrpc_frame());
    fill(text, R"("{classes}")", class_names());
    fill(text, R"("{methods}")", names_of(Member_kind::method));
    fill(text, R"("{properties read}")", names_of(Member_kind::property_get));
    fill(text, R"("{properties set}")", names_of(Member_kind::property_let));
    fill(text, R"("{records}": {})", records(contract));
    fill(text, R"("{members}")", classes(contract));
    return text;
}

}  // namespace

const std::string& openrpc_document() {
    static const std::string document = written_document();
    return document;
}

}  // namespace cuvexa::automation
