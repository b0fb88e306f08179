// The views of a database: what people and programs read of it. A view has a row for each document, or for each of its lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "reports/table.h"

namespace cuvexa::reports {

struct View {
    std::string_view name;           ///< as the command line and paths say it
    std::string_view title;          ///< of a list
    std::string_view document = {};  ///< one of them; empty for what is no document
    std::string_view code = {};      ///< by which documents name each other
    std::string_view select;         ///< the columns of the statement
    std::string_view from;           ///< from FROM up to its WHERE
    std::string_view first = {};  ///< the condition that leaves a row for each document; empty where there is but one
    std::string_view table;       ///< that key, date and the columns of filters are in
    std::string_view key;         ///< column that one document is selected by
    std::string_view order;       ///< by key, and by the line's number
    Columns columns;              ///< of its rows
    std::size_t shown = 0;        ///< how many of them a table for people has; 0: not shown in one

    // What it can be searched by; empty: it has no such column.
    std::string_view date = {};
    std::string_view state = {};
    std::string_view branch = {};
    std::string_view account = {};
    std::string_view amount = {};
    std::span<const std::string_view> texts = {};  ///< where a text is looked for

    /// A column of its table, as the statement names it.
    std::string qualified(std::string_view column) const { return std::string(table).append(1, '.').append(column); }
};

/// The view of that name with a row for each document; null when there is none.
const View* find_view(std::string_view name);

/// The view of that name with a row for each line; null where documents have no lines.
const View* find_line_view(std::string_view name);

/// The view whose documents are named by that code, whatever its case; null when there is none.
const View* find_view_of_code(std::string_view code);

/// What tables show, in the order of the help: lines where there are some.
std::vector<const View*> shown_views();

/// The rows of a view in its order, all or those of one key, with the columns that a table shows. Throws `Database_error`.
Table read_view(const Source& source, const View& view, std::string_view key = {});

}  // namespace cuvexa::reports
