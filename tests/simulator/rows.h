// The rows of the database beside those of the model.
#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "model/database.h"
#include "simulator/step.h"

namespace cuvexa::simulator {

/// Reads the database past the component, notes which of its rows change, and compares them with the model's.
class Rows {
public:
    Rows(sqlite3* database, model::Database& model);
    ~Rows();
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    /// The model takes over every table, or those that the database has changed since the last comparison.
    void load_all();
    void load_changed();

    /// The database has dates as such: whether the text had their midnight is not kept.
    void midnight_need_not_be_said() { midnight_said_ = false; }

    /// Compares the rows that either side has changed since the last time, and gives what each differs in; empty when
    /// all are equal. `made` gets the keys of the rows that came.
    std::vector<std::string> compare(Made& made);

    /// The same for every row of every table.
    std::vector<std::string> compare_all();

private:
    struct Table {
        std::string name;
        std::vector<std::string> columns;
        sqlite3_stmt* by_rowid = nullptr;
        sqlite3_stmt* by_key = nullptr;
        sqlite3_stmt* all = nullptr;
        std::set<sqlite3_int64> changed, came;
    };

    static void note(void* self, int operation, const char*, const char* table, sqlite3_int64 row);
    Table table_of(const std::string& name, int keys);
    sqlite3_stmt* prepared(const std::string& text);

    template <class Row>
    void load(Table& table, model::Table<Row>& rows);
    template <class Row>
    void compare_changed(Table& table, model::Table<Row>& rows, Made& made, std::vector<std::string>& differences);
    template <class Row>
    void compare_rows(const Table& table, const Row& stored, Row& expected, std::vector<std::string>& differences);
    template <class Row>
    void compare_whole(Table& table, model::Table<Row>& rows, std::vector<std::string>& differences);

    sqlite3* database_;
    model::Database& model_;
    std::map<std::string, Table, std::less<>> tables_;
    bool midnight_said_ = true;
};

}  // namespace cuvexa::simulator
