// Rows as they are sent: objects of JSON, or a table for spreadsheets.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "reports/table.h"

namespace cuvexa::reports {

using Ordered_json = nlohmann::ordered_json;

/// An object with the names of the columns.
Ordered_json json_of_row(const Row& row, Columns columns);

/// An array of them.
Ordered_json json_of_rows(const Table& table);

/// A line of names, then a line for each row. A text that a spreadsheet would read as a formula has an apostrophe before it.
std::string csv_of(const Table& table);

/// The text of JSON, in UTF-8 whatever the database holds.
std::string written(const Ordered_json& json);

}  // namespace cuvexa::reports
