#include "automation/json_variant.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace cuvexa::automation {
namespace {

[[noreturn]] void refuse(const std::string& place, std::string_view what) {
    throw Json_value_error(place + " " + std::string(what));
}

// ---- Reading -------------------------------------------------------------------------------------------------------

void read(const Json_value& json, bool& value, const std::string& place) {
    if (const bool* flag = json.as<bool>()) {
        value = *flag;
    } else if (const auto* number = json.as<Json_number>()) {
        value = number->value != 0;
    } else {
        refuse(place, "must be true or false");
    }
}

void read(const Json_value& json, double& value, const std::string& place) {
    const auto* number = json.as<Json_number>();
    if (!number) refuse(place, "must be a number");
    value = number->value;
}

void read(const Json_value& json, std::string& value, const std::string& place) {
    const auto* text = json.as<std::string>();
    if (!text) refuse(place, "must be a string");
    value = *text;
}

bool has_iso_form(std::string_view text) {
    return (text.size() == 10 || (text.size() == 19 && text[10] == 'T')) && text[4] == '-';
}

void read(const Json_value& json, Date& value, const std::string& place) {
    const auto* text = json.as<std::string>();
    const std::optional<Date> date = text && has_iso_form(*text) ? parse_date(*text) : std::nullopt;
    if (!date) refuse(place, R"(must be a date as "2024-03-15" or "2024-03-15T10:20:30")");
    value = *date;
}

void read(const Json_value& json, Record_place record, const std::string& place) {
    const auto* object = json.as<Json_object>();
    if (!object) refuse(place, "must be an object with the members of " + std::string(record.type->name));
    const auto& fields = record.type->fields;
    for (const auto& member : *object) {
        const std::string& name = member.first;
        const Json_value& value = member.second;
        const auto field = std::find_if(fields.begin(), fields.end(), [&](const Field& f) { return f.name == name; });
        if (field == fields.end()) refuse(place, "has no member " + name);
        if (value.is_null()) continue;
        std::visit(
            [&](auto at) {
                if constexpr (std::is_pointer_v<decltype(at)>) {
                    read(value, *at, place + "." + name);
                } else {
                    read(value, at, place + "." + name);
                }
            },
            field->place(record.record));
    }
}

template <class T>
Variant variant_of(const Json_value& json, const std::string& place) {
    T value{};
    read(json, value, place);
    return value;
}

// ---- Writing -------------------------------------------------------------------------------------------------------

template <class T>
void append_field(std::string& json, const T& value) {
    if constexpr (std::is_same_v<T, Date>) {
        append_json(json, iso_date(value));
    } else {
        append_json(json, value);
    }
}

void append_record(std::string& json, const Record_place& record) {
    char separator = '{';
    for (const Field& field : record.type->fields) {
        json += std::exchange(separator, ',');
        append_json(json, field.name);
        json += ':';
        std::visit(
            [&](auto at) {
                if constexpr (std::is_pointer_v<decltype(at)>) {
                    append_field(json, *at);
                } else {
                    append_record(json, at);
                }
            },
            field.place(record.record));
    }
    json += '}';
}

}  // namespace

Variant from_json(const Json_value& json, const Value_type& type, const std::string& place,
                  const Object_of_number& object) {
    if (json.is_null()) return {};
    switch (type.type) {
        case Type::none:
            break;
        case Type::boolean:
            return variant_of<bool>(json, place);
        case Type::integer16:
        case Type::real:
            return variant_of<double>(json, place);
        case Type::text:
            return variant_of<std::string>(json, place);
        case Type::date:
            return variant_of<Date>(json, place);
        case Type::record: {
            Record record = type.record->create();
            read(json, place_of(record), place);
            return record;
        }
        case Type::object: {
            const auto* members = json.as<Json_object>();
            const Json_value* number = members && members->size() == 1 ? json.find("object") : nullptr;
            if (!number) refuse(place, R"(must be an object as {"object":1})");
            return object(*number);
        }
    }
    refuse(place, "takes no value");
}

void append_json(std::string& json, const Variant& value, const Number_of_object& number) {
    std::visit(
        [&](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, Missing>) {
                json += "null";
            } else if constexpr (std::is_same_v<Held, Record>) {
                Record copy = held;
                append_record(json, place_of(copy));
            } else if constexpr (std::is_same_v<Held, Object>) {
                json += held ? "{\"object\":" + std::to_string(number(held)) + "}" : "null";
            } else if constexpr (std::is_integral_v<Held> && !std::is_same_v<Held, bool>) {
                append_json(json, std::int64_t{held});
            } else {
                append_field(json, held);
            }
        },
        value);
}

}  // namespace cuvexa::automation
