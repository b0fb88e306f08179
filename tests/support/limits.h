// What fits into a column of the schema: the lengths, dates and numbers that its text gives, tried on any engine.
#pragma once

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "cuvexa/data_access.h"
#include "cuvexa/errors.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::tests {

struct Schema_column {
    std::string table, name, type;
    int length = 0;  ///< of a text
    bool needed = false;
};

/// The columns that the schema's text defines, in its order.
inline std::vector<Schema_column> schema_columns() {
    static const std::regex line(
        R"(CREATE TABLE (\w+) \(|\n    (\w+) (varchar|datetime|float|int)(?:\((\d+)\))?( NOT NULL)?)");
    const std::string schema(schema_sql());
    std::vector<Schema_column> columns;
    std::string table;
    for (std::sregex_iterator at(schema.begin(), schema.end(), line), end; at != end; ++at) {
        const std::smatch& part = *at;
        if (part[1].matched) {
            table = part[1];
        } else {
            columns.push_back({table, part[2], part[3], part[4].matched ? std::stoi(part[4]) : 0, part[5].matched});
        }
    }
    return columns;
}

inline std::string limit_failure(Connection& connection, const std::string& statement) {
    try {
        connection.execute(statement);
    } catch (const Database_error& error) {
        return error.what();
    }
    return "";
}

/// Every column of every table refuses what does not fit and takes what just fits. The schema must stand, without rows
/// whose keys are of the form of these.
inline void expect_limits_of_the_schema(Connection& connection) {
    const std::vector<Schema_column> columns = schema_columns();
    int texts = 0, dates = 0, numbers = 0;
    for (const Schema_column& column : columns) {
        // A row of that table with only what it needs, and the value in its column.
        const auto insert = [&](const std::string& value) {
            std::string names = column.name, values = "'" + value + "'";
            for (const Schema_column& other : columns) {
                if (other.table != column.table || !other.needed || other.name == column.name) continue;
                names += ", " + other.name;
                values += other.type == "int" ? ", 9" : ", 'limit'";
            }
            return limit_failure(connection,
                                 "INSERT INTO " + column.table + " (" + names + ") VALUES (" + values + ")");
        };
        const auto remove = [&] { connection.execute("DELETE FROM " + column.table); };
        const std::string refusal = "El valor no cabe en la columna " + column.name + ": admite ";
        if (column.type == "varchar") {
            const auto length = static_cast<std::size_t>(column.length);
            EXPECT_EQ(insert(std::string(length + 1, 'x')),
                      refusal + "hasta " + std::to_string(column.length) + " caracteres");
            EXPECT_EQ(insert(std::string(length, 'x')), "") << column.table << '.' << column.name;
            remove();
            ++texts;
        } else if (column.type == "datetime") {
            EXPECT_EQ(insert("1752-12-31"), refusal + "de 1753-01-01 a 9999-12-31");
            EXPECT_EQ(insert("1753-01-01"), "") << column.table << '.' << column.name;
            remove();
            ++dates;
        } else if (column.type == "float") {
            EXPECT_EQ(insert("-1E999"), "El resultado no cabe en un número") << column.table << '.' << column.name;
            EXPECT_EQ(insert("-1.7E308"), "") << column.table << '.' << column.name;
            remove();
            ++numbers;
        }
    }
    EXPECT_GT(texts, 300);
    EXPECT_GT(dates, 100);
    EXPECT_GT(numbers, 50);
}

}  // namespace cuvexa::tests
