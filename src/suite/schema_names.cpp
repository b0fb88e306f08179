#include "suite/schema_names.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "core/case.h"
#include "core/statement.h"
#include "cuvexa/errors.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::reference {
namespace {

using Columns = std::unordered_set<std::string>;
using Tables = std::unordered_map<std::string, Columns>;

constexpr std::string_view begin_of_table = "CREATE TABLE ", begin_of_column = "    ";

std::string_view first_word(std::string_view text) {
    return text.substr(0, text.find(' '));
}

// One line of the schema is a column, or the beginning of a table.
Tables read_schema() {
    Tables tables;
    Columns* columns = nullptr;
    for (std::string_view rest = schema_sql(); !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (line.starts_with(begin_of_table)) {
            columns = &tables[upper_ascii(first_word(line.substr(begin_of_table.size())))];
        } else if (columns != nullptr && line.starts_with(begin_of_column) &&
                   !line.substr(4).starts_with("PRIMARY KEY")) {
            columns->insert(upper_ascii(first_word(line.substr(begin_of_column.size()))));
        } else {
            columns = nullptr;
        }
    }
    return tables;
}

const Columns* columns_of(std::string_view table) {
    static const Tables tables = read_schema();
    const auto found = tables.find(upper_ascii(table));
    return found == tables.end() ? nullptr : &found->second;
}

}  // namespace

bool schema_has(std::string_view table) {
    return columns_of(table) != nullptr;
}

bool schema_has(std::string_view table, std::string_view column) {
    const Columns* const columns = columns_of(table);
    return columns != nullptr && columns->contains(upper_ascii(column));
}

void require_in_schema(std::string_view table, std::initializer_list<std::string_view> columns) {
    if (!schema_has(table)) throw Database_error(filled("La tabla: {}, no existe; verifique su nombre", table));
    for (const std::string_view column : columns) {
        if (!schema_has(table, column)) {
            throw Database_error(
                filled("La columna: {}, no existe en la tabla: {}; verifique su nombre", column, table));
        }
    }
}

}  // namespace cuvexa::reference
