#include "cli/terminal.h"

#include <algorithm>
#include <cstdio>

#include "reports/rows_text.h"

namespace cuvexa::cli {

namespace {

using reports::date_text;

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
        out << separator << reports::written(reports::json_of_row(row, columns));
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
