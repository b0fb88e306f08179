// What the tests of the database room share.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/errors.h"
#include "database/sqlite/engine.h"

namespace cuvexa::tests {

/// The column of every row, as text.
inline std::vector<std::string> column(Connection& connection, std::string_view name, std::string_view text) {
    std::vector<std::string> values;
    const auto rows = connection.execute(text);
    for (; !rows->eof(); rows->move_next()) {
        const Value value = rows->field(name);
        values.push_back(is_null(value) ? "NULL" : to_text(value));
    }
    return values;
}

/// The description with which a statement fails; empty when it runs.
inline std::string failure(Connection& connection, std::string_view text) {
    try {
        connection.execute(text);
    } catch (const Database_error& error) {
        return error.what();
    }
    return {};
}

/// The steps by which the engine would run a statement.
inline std::vector<std::string> plan(const Sqlite_connection& connection, std::string_view text) {
    std::vector<std::string> steps;
    const auto add = [](void* steps, int, char** values, char**) {
        static_cast<std::vector<std::string>*>(steps)->emplace_back(values[3]);
        return 0;
    };
    const std::string explained = "EXPLAIN QUERY PLAN " + connection.translate(text);
    EXPECT_EQ(sqlite3_exec(sqlite::handle_of(connection), explained.c_str(), add, &steps, nullptr), SQLITE_OK)
        << explained;
    return steps;
}

/// A database file that goes with the test.
class Database_file {
public:
    Database_file() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ = std::filesystem::temp_directory_path() / ("cuvexa-" + std::string(test->test_suite_name()) + "-" +
                                                            test->name() + "-" + std::to_string(::getpid()));
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    ~Database_file() { std::filesystem::remove_all(folder_); }
    Database_file(const Database_file&) = delete;
    Database_file& operator=(const Database_file&) = delete;

    std::string path() const { return (folder_ / "prueba.db").string(); }

    /// Opens it, making it when there is none.
    Sqlite_connection open(int busy_timeout_ms = 10000) const {
        Sqlite_options options;
        options.create = true;
        options.synchronous = Synchronous::off;
        options.busy_timeout_ms = busy_timeout_ms;
        return Sqlite_connection(path(), options);
    }

private:
    std::filesystem::path folder_;
};

}  // namespace cuvexa::tests
