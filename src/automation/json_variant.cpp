#include "automation/json_variant.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <type_traits>

namespace cuvexa::automation {
namespace {

[[noreturn]] void refuse(const std::string& place, std::string_view what) {
    throw Json_value_error(place + " " + std::string(what));
}

// ---- Reading -------------------------------------------------------------------------------------------------------

void read(const Json_in& json, bool& value, const std::string& place) {
    if (json.is_boolean()) {
        value = json.get<bool>();
    } else if (json.is_number()) {
        value = json.get<double>() != 0;
    } else {
        refuse(place, "must be true or false");
    }
}

void read(const Json_in& json, double& value, const std::string& place) {
    if (!json.is_number()) refuse(place, "must be a number");
    value = json.get<double>();
}

void read(const Json_in& json, std::string& value, const std::string& place) {
    if (!json.is_string()) refuse(place, "must be a string");
    value = json.get_ref<const std::string&>();
}

bool has_iso_form(std::string_view text) {
    return (text.size() == 10 || (text.size() == 19 && text[10] == 'T')) && text[4] == '-';
}

void read(const Json_in& json, Date& value, const std::string& place) {
    constexpr auto form = R"(must be a date as "2024-03-15" or "2024-03-15T10:20:30")";
    if (!json.is_string()) refuse(place, form);
    const auto& text = json.get_ref<const std::string&>();
    const std::optional<Date> date = has_iso_form(text) ? parse_date(text) : std::nullopt;
    if (!date) refuse(place, form);
    value = *date;
}

void read(const Json_in& json, Record_place record, const std::string& place) {
    if (!json.is_object()) refuse(place, "must be an object with the members of " + std::string(record.type->name));
    const auto& fields = record.type->fields;
    for (const auto& [name, value] : json.items()) {
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
Variant variant_of(const Json_in& json, const std::string& place) {
    T value{};
    read(json, value, place);
    return value;
}

// ---- Writing -------------------------------------------------------------------------------------------------------

Json_out written(const Record_place& record) {
    Json_out json = Json_out::object();
    for (const Field& field : record.type->fields) {
        std::visit(
            [&](auto at) {
                if constexpr (std::is_same_v<decltype(at), Record_place>) {
                    json.push_back({std::string(field.name), written(at)});
                } else if constexpr (std::is_same_v<decltype(at), Date*>) {
                    json.push_back({std::string(field.name), iso_date(*at)});
                } else {
                    json.push_back({std::string(field.name), *at});
                }
            },
            field.place(record.record));
    }
    return json;
}

}  // namespace

Variant from_json(const Json_in& json, const Value_type& type, const std::string& place,
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
        case Type::object:
            if (!json.is_object() || json.size() != 1 || !json.contains("object")) {
                refuse(place, R"(must be an object as {"object":1})");
            }
            return object(json["object"]);
    }
    refuse(place, "takes no value");
}

Json_out to_json(const Variant& value, const Number_of_object& number) {
    return std::visit(
        [&](const auto& held) -> Json_out {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, Missing>) {
                return nullptr;
            } else if constexpr (std::is_same_v<Held, Date>) {
                return iso_date(held);
            } else if constexpr (std::is_same_v<Held, Record>) {
                Record copy = held;
                return written(place_of(copy));
            } else if constexpr (std::is_same_v<Held, Object>) {
                return held ? Json_out{{"object", number(held)}} : Json_out(nullptr);
            } else {
                return held;
            }
        },
        value);
}

}  // namespace cuvexa::automation
