#include "reports/table.h"

#include <algorithm>

namespace cuvexa::reports {

std::vector<Row> read_rows(Recordset& recordset, Columns columns) {
    std::vector<Row> rows;
    for (; !recordset.eof(); recordset.move_next()) {
        Row& row = rows.emplace_back();
        for (const Column& column : columns) row.push_back(recordset.field(column.name));
    }
    return rows;
}

Row row_of(const Rows& rows, Columns columns) {
    Row row;
    for (const Column& column : columns) row.push_back(rows.value(column.name));
    return row;
}

std::string date_text(const Value& value) {
    std::string text = to_text(value);
    const auto date = parse_date(text);
    return date ? iso_date(*date) : text;
}

const Value& value_in(const Row& row, Columns columns, std::string_view name) {
    const auto column =
        std::find_if(columns.begin(), columns.end(), [&](const Column& each) { return each.name == name; });
    return row.at(static_cast<std::size_t>(column - columns.begin()));
}

double number_or_zero(const Value& value) {
    return is_null(value) ? 0 : to_number(value);
}

}  // namespace cuvexa::reports
