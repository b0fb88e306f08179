// How rows look: aligned tables for people, JSON for programs.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "reports/table.h"

namespace cuvexa::cli {

using reports::Column;
using reports::Column_kind;
using reports::Row;

/// A value as a cell of a table; characters that would break the line become blanks.
std::string cell_text(const Value& value, Column_kind kind);

/// Aligned, with a heading; "(sin renglones)" when there are none. Each line starts with `indent`.
void print_table(std::ostream& out, std::span<const Column> columns, const std::vector<Row>& rows,
                 std::string_view indent = {});

/// An array of one object per row, one row per line.
void print_json(std::ostream& out, std::span<const Column> columns, const std::vector<Row>& rows);

/// Columns that a terminal needs for a text in UTF-8.
std::size_t display_width(std::string_view text);

/// The text filled up with blanks to a width, at its end or at its beginning.
std::string pad_right(std::string text, std::size_t width);
std::string pad_left(std::string text, std::size_t width);

}  // namespace cuvexa::cli
