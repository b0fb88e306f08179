#include "reports/rows_text.h"

#include <string_view>

namespace cuvexa::reports {

namespace {

std::string text_of(const Value& value, Column_kind kind) {
    return kind == Column_kind::date ? date_text(value) : to_text(value);
}

Ordered_json json_value(const Value& value, Column_kind kind) {
    if (is_null(value)) return nullptr;
    if (const auto* flag = std::get_if<bool>(&value)) return *flag;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
    if (const auto* number = std::get_if<double>(&value)) return *number;
    return text_of(value, kind);
}

std::string csv_cell(const Value& value, Column_kind kind) {
    if (const auto* number = std::get_if<double>(&value)) return number_text(*number);
    std::string text = text_of(value, kind);
    const bool is_text = std::holds_alternative<std::string>(value);
    if (is_text && !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos) {
        text.insert(0, 1, '\'');
    }
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

}  // namespace

Ordered_json json_of_row(const Row& row, Columns columns) {
    Ordered_json object = Ordered_json::object();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        object[std::string(columns[i].name)] = json_value(row[i], columns[i].kind);
    }
    return object;
}

Ordered_json json_of_rows(const Table& table) {
    Ordered_json rows = Ordered_json::array();
    for (const Row& row : table.rows) rows.push_back(json_of_row(row, table.columns));
    return rows;
}

std::string csv_of(const Table& table) {
    std::string csv;
    for (const Column& column : table.columns) csv.append(csv.empty() ? "" : ",").append(column.name);
    csv += "\r\n";
    for (const Row& row : table.rows) {
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            csv.append(i == 0 ? "" : ",").append(csv_cell(row[i], table.columns[i].kind));
        }
        csv += "\r\n";
    }
    return csv;
}

std::string written(const Ordered_json& json) {
    return json.dump(-1, ' ', false, Ordered_json::error_handler_t::replace);
}

}  // namespace cuvexa::reports
