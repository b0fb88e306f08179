// The views of a database: title, statement, columns.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/terminal.h"
#include "cuvexa/data_access.h"

namespace cuvexa::cli {

struct View {
    std::string_view name;  ///< as the command line says it
    std::string_view title;
    std::string_view select;  ///< the statement up to its WHERE
    std::string_view key;     ///< column that the key of the command line selects by
    std::string_view order;
    std::span<const Column> columns;
};

/// The view of that name; there must be one.
const View& view_named(std::string_view name);

/// All names, in the order of the help.
std::vector<std::string> view_names();

/// The rows of a view: all, or those of one key.
std::vector<Row> read_view(Connection& connection, const View& view, std::string_view key = {});

/// A value between quotes, as a statement carries it.
std::string sql_text(std::string_view text);

}  // namespace cuvexa::cli
