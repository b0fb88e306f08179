// Rows under their columns: what every report gives, whatever shows it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/rows.h"
#include "cuvexa/data_access.h"
#include "cuvexa/date.h"

namespace cuvexa::reports {

/// What a column holds decides how it is written.
enum class Column_kind {
    text,
    date,    ///< 2024-03-15
    amount,  ///< two decimals, to the right
    rate,    ///< four decimals, to the right
    number,  ///< as it is, to the right
};

struct Column {
    std::string_view name;     ///< of the database; what JSON calls it
    std::string_view heading;  ///< what a reader sees
    Column_kind kind = Column_kind::text;
};

using Columns = std::span<const Column>;
using Row = std::vector<Value>;

struct Table {
    Columns columns;
    std::vector<Row> rows = {};
};

/// A database to be read, and how its statements write a date.
struct Source {
    Connection& connection;
    Date_style dates = Date_style::iso;

    Rows query(const std::string& statement) const { return Rows(connection.execute(statement)); }
};

/// The columns of all rows that `recordset` gives.
std::vector<Row> read_rows(Recordset& recordset, Columns columns);

/// The columns of the row at which `rows` stands.
Row row_of(const Rows& rows, Columns columns);

/// A date, however the database gave it; "2024-03-15". An engine without dates gives the text that was stored, another a
/// date: both become one form. What is no date stays as it is.
std::string date_text(const Value& value);

/// The value of the column of that name; there must be one.
const Value& value_in(const Row& row, Columns columns, std::string_view name);

/// A number, and 0 for NULL: what a sum without rows gives.
double number_or_zero(const Value& value);

}  // namespace cuvexa::reports
