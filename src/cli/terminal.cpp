#include "cli/terminal.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace cuvexa::cli {

namespace {

bool to_the_right(Column_kind kind) {
    return kind == Column_kind::amount || kind == Column_kind::rate || kind == Column_kind::number;
}

std::string decimals(double number, int count) {
    char text[400];  // the largest double has 309 digits
    std::snprintf(text, sizeof text, "%.*f", count, number);
    return text;
}

bool is_number(const Value& value) {
    return std::holds_alternative<double>(value) || std::holds_alternative<std::int64_t>(value);
}

// An engine without dates gives the text that was stored, another a date: both become one form.
std::string date_text(const Value& value) {
    const std::string text = to_text(value);
    const auto date = parse_date(text);
    return date ? iso_date(*date) : text;
}

nlohmann::ordered_json json_value(const Value& value, Column_kind kind) {
    if (is_null(value)) return nullptr;
    if (kind == Column_kind::date) return date_text(value);
    if (const auto* flag = std::get_if<bool>(&value)) return *flag;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
    if (const auto* number = std::get_if<double>(&value)) return *number;
    return to_text(value);
}

std::string aligned(const std::string& text, std::size_t width, Column_kind kind) {
    return to_the_right(kind) ? pad_left(text, width) : pad_right(text, width);
}

void print_line(std::ostream& out, std::string_view indent, const std::vector<std::string>& cells,
                const std::vector<std::size_t>& widths, std::span<const Column> columns) {
    std::string line(indent);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) line += "  ";
        line += aligned(cells[i], widths[i], columns[i].kind);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

}  // namespace

std::vector<Row> read_rows(Recordset& recordset, std::span<const Column> columns) {
    std::vector<Row> rows;
    for (; !recordset.eof(); recordset.move_next()) {
        Row& row = rows.emplace_back();
        for (const Column& column : columns) row.push_back(recordset.field(column.name));
    }
    return rows;
}

std::string cell_text(const Value& value, Column_kind kind) {
    if (is_number(value) && kind == Column_kind::amount) return decimals(to_number(value), 2);
    if (is_number(value) && kind == Column_kind::rate) return decimals(to_number(value), 4);
    std::string text = kind == Column_kind::date ? date_text(value) : to_text(value);
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
    return text;
}

void print_table(std::ostream& out, std::span<const Column> columns, const std::vector<Row>& rows,
                 std::string_view indent) {
    if (rows.empty()) {
        out << indent << "(sin renglones)\n";
        return;
    }
    std::vector<std::vector<std::string>> lines(1);
    for (const Column& column : columns) lines[0].emplace_back(column.heading);
    for (const Row& row : rows) {
        auto& line = lines.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i) line.push_back(cell_text(row[i], columns[i].kind));
    }
    std::vector<std::size_t> widths(columns.size(), 0);
    for (const auto& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], display_width(line[i]));
    }
    for (const auto& line : lines) print_line(out, indent, line, widths, columns);
}

void print_json(std::ostream& out, std::span<const Column> columns, const std::vector<Row>& rows) {
    out << '[';
    const char* separator = "\n  ";
    for (const Row& row : rows) {
        auto object = nlohmann::ordered_json::object();
        for (std::size_t i = 0; i < row.size(); ++i) {
            object[std::string(columns[i].name)] = json_value(row[i], columns[i].kind);
        }
        out << separator << object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
        separator = ",\n  ";
    }
    out << (rows.empty() ? "]\n" : "\n]\n");
}

std::size_t display_width(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](unsigned char c) { return (c & 0xC0) != 0x80; }));
}

std::string pad_right(std::string text, std::size_t width) {
    const std::size_t used = display_width(text);
    if (used < width) text.append(width - used, ' ');
    return text;
}

std::string pad_left(std::string text, std::size_t width) {
    const std::size_t used = display_width(text);
    if (used < width) text.insert(0, width - used, ' ');
    return text;
}

}  // namespace cuvexa::cli
