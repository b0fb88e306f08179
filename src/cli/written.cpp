#include "cli/written.h"

#include <type_traits>

#include "cuvexa/value.h"

namespace cuvexa::cli {

using namespace automation;

namespace {

std::string fields_text(Record_place now, Record_place before);

/// The value of a field; empty when it is the same as before.
std::string change_text(const Place& now, const Place& before) {
    return std::visit(
        [&](auto value) -> std::string {
            const auto then = std::get<decltype(value)>(before);
            if constexpr (std::is_same_v<decltype(value), Record_place>) {
                const std::string fields = fields_text(value, then);
                return fields.empty() ? fields : '{' + fields + '}';
            } else {
                return *value == *then ? std::string() : written(Variant(*value));
            }
        },
        now);
}

std::string fields_text(Record_place now, Record_place before) {
    std::string text;
    for (const Field& field : now.type->fields) {
        const std::string change = change_text(field.place(now.record), field.place(before.record));
        if (change.empty()) continue;
        if (!text.empty()) text += ", ";
        text.append(field.name).append(": ").append(change);
    }
    return text;
}

}  // namespace

std::string written(const Variant& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
    if (const auto* number = std::get_if<double>(&value)) return number_text(*number);
    if (const auto* date = std::get_if<Date>(&value)) return iso_date(*date);
    return '"' + std::get<std::string>(value) + '"';
}

std::string written(Record record, Record before) {
    const bool shortened = before != type_of(before).create();
    return std::string(shortened ? "{…, " : "{") + fields_text(place_of(record), place_of(before)) + '}';
}

}  // namespace cuvexa::cli
