// The tables of the schema and their columns, by name, as its text defines them.
#pragma once

#include <initializer_list>
#include <string_view>

namespace cuvexa::reference {

/// Whether the schema has that table; without regard to case.
bool schema_has(std::string_view table);

/// Whether it has that column; without regard to case.
bool schema_has(std::string_view table, std::string_view column);

/// Throws `Database_error`, in the operator's language, unless the schema has the table with all these columns.
void require_in_schema(std::string_view table, std::initializer_list<std::string_view> columns);

}  // namespace cuvexa::reference
