#include "simulator/rows.h"

#include <cmath>
#include <sstream>
#include <stdexcept>
#include <type_traits>

#include "cuvexa/suite/schema.h"
#include "cuvexa/value.h"

namespace cuvexa::simulator {
namespace {

using model::Nullable;
using model::Text;

Text text_at(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

/// A column that never holds NULL shows one as a text that nobody writes.
void read(sqlite3_stmt* statement, int& column, Text& field) {
    const bool null = sqlite3_column_type(statement, column) == SQLITE_NULL;
    field = null ? Text("\1NULL") : text_at(statement, column);
    ++column;
}
void read(sqlite3_stmt* statement, int& column, Nullable& field) {
    field.reset();
    if (sqlite3_column_type(statement, column) != SQLITE_NULL) field = text_at(statement, column);
    ++column;
}
void read(sqlite3_stmt* statement, int& column, double& field) {
    const bool null = sqlite3_column_type(statement, column) == SQLITE_NULL;
    field = null ? std::nan("") : sqlite3_column_double(statement, column);
    ++column;
}
void read(sqlite3_stmt* statement, int& column, model::rows::Whole& field) {
    field = sqlite3_column_int64(statement, column++);
}
void read(sqlite3_stmt* statement, int& column, model::rows::Months& field) {
    for (double& month : field) read(statement, column, month);
}

template <class Row>
Row read_row(sqlite3_stmt* statement) {
    Row row;
    int column = 0;
    model::each_field(row, [&](auto& field) { read(statement, column, field); });
    return row;
}

/// Sums may differ in the last bits, for the database adds in an order of its own.
bool equal(double stored, double& expected) {
    if (stored == expected) return true;
    if (!(std::abs(stored - expected) <= 1e-9 * std::max(1.0, std::abs(stored)))) return false;
    expected = stored;
    return true;
}
template <class Field>
bool equal(const Field& stored, const Field& expected) {
    return stored == expected;
}

/// A date with or without its midnight is one date; an empty text is the first of 1900 as a date.
bool same_moment(std::string_view stored, std::string_view expected) {
    const auto said = [](std::string_view date) {
        constexpr std::string_view midnight = " 00:00:00";
        if (date.ends_with(midnight)) date.remove_suffix(midnight.size());
        return date.empty() ? "1900-01-01" : date;
    };
    return said(stored) == said(expected);
}
bool same_moment(const Nullable& stored, const Nullable& expected) {
    return stored && expected && same_moment(std::string_view(*stored), std::string_view(*expected));
}
template <class Field>
bool same_moment(const Field&, const Field&) {
    return false;
}

Text shown(const Text& text) {
    return '"' + text + '"';
}
Text shown(const Nullable& text) {
    return text ? shown(*text) : "NULL";
}
Text shown(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", number);
    return text;
}
Text shown(model::rows::Whole number) {
    return std::to_string(number);
}
Text shown(const model::rows::Months& months) {
    Text text;
    for (const double month : months) text += (text.empty() ? "" : " ") + shown(month);
    return text;
}

/// The first column of the key: what references give.
template <class Row>
Text first_column(const Row& row) {
    Text first;
    bool found = false;
    model::each_field(row, [&](const auto& field) {
        if (std::exchange(found, true)) return;
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, Text>) first = field;
    });
    return first;
}

/// What the columns of a table take, as the schema says it: a column a line.
template <class Limit>
std::vector<Limit> limits_of(const std::string& table) {
    std::istringstream schema{std::string(schema_sql())};
    std::string line;
    while (std::getline(schema, line) && !line.starts_with("CREATE TABLE " + table + " ")) continue;
    std::vector<Limit> limits;
    while (std::getline(schema, line) && line.starts_with("    ")) {
        std::string column, type;
        std::istringstream(line) >> column >> type;
        Limit limit;
        limit.refusal = "El valor no cabe en la columna " + column + ": admite ";
        if (const auto open = type.find("char("); open != std::string::npos && std::isdigit(type[open + 5])) {
            limit.most = std::stoul(type.substr(open + 5));
            limit.refusal += "hasta " + std::to_string(*limit.most) + " caracteres";
        }
        limit.date = type == "datetime";
        if (limit.date) limit.refusal += "de 1753-01-01 a 9999-12-31";
        limits.push_back(std::move(limit));
    }
    return limits;
}

template <class Row>
void bind_key(sqlite3_stmt* statement, const Row& row) {
    int at = 0;
    model::each_field(row, [&](const auto& field) {
        if (++at > Row::keys) return;
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, Text>) {
            sqlite3_bind_text(statement, at, field.data(), static_cast<int>(field.size()), SQLITE_TRANSIENT);
        } else if constexpr (std::is_integral_v<std::remove_cvref_t<decltype(field)>>) {
            sqlite3_bind_int64(statement, at, field);
        }
    });
}

template <class Row>
Text name_of(const Row& row) {
    Text name;
    int at = 0;
    model::each_field(row, [&](const auto& field) {
        if (at++ < Row::keys) name += (name.empty() ? "" : " ") + shown(field);
    });
    return name;
}

}  // namespace

Rows::Rows(sqlite3* database, model::Database& model) : database_(database), model_(model) {
    model::each_table(model_, [&](std::string_view name, auto& rows) {
        constexpr int keys = std::remove_reference_t<decltype(rows.at(0))>::keys;
        Table table = table_of(std::string(name), keys);
        rows.taken = "UNIQUE constraint failed: ";
        for (int key = 0; key < keys; ++key) {
            rows.taken += (key == 0 ? "" : ", ") + table.name + "." + table.columns.at(static_cast<std::size_t>(key));
        }
        rows.limits = limits_of<typename std::remove_reference_t<decltype(rows)>::Limit>(table.name);
        tables_.emplace(table.name, std::move(table));
    });
    load_all();
    sqlite3_update_hook(database_, note, this);
}

Rows::~Rows() {
    sqlite3_update_hook(database_, nullptr, nullptr);
    for (const auto& [name, table] : tables_) {
        for (sqlite3_stmt* const statement : {table.by_rowid, table.by_key, table.all}) sqlite3_finalize(statement);
    }
}

Rows::Table Rows::table_of(const std::string& name, int keys) {
    Table table;
    table.name = name;
    table.by_rowid = prepared("SELECT * FROM " + name + " WHERE rowid = ?");
    table.all = prepared("SELECT * FROM " + name + " ORDER BY rowid");
    for (int column = 0; column < sqlite3_column_count(table.all); ++column) {
        table.columns.push_back(sqlite3_column_name(table.all, column));
    }
    std::string condition;
    for (int key = 0; key < keys; ++key) {
        condition += (key == 0 ? " WHERE " : " AND ") + table.columns.at(static_cast<std::size_t>(key)) + " = ?";
    }
    table.by_key = prepared("SELECT * FROM " + name + condition);
    return table;
}

sqlite3_stmt* Rows::prepared(const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, text.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        throw std::runtime_error(text + ": " + sqlite3_errmsg(database_));
    }
    return statement;
}

void Rows::note(void* self, int operation, const char*, const char* table, sqlite3_int64 row) {
    auto& tables = static_cast<Rows*>(self)->tables_;
    const auto found = tables.find(std::string_view(table));
    if (found == tables.end()) return;
    found->second.changed.insert(row);
    if (operation == SQLITE_INSERT) found->second.came.insert(row);
}

// ---- The model takes over -------------------------------------------------------------------------------------------

template <class Row>
void Rows::load(Table& table, model::Table<Row>& rows) {
    std::deque<Row> read;
    while (sqlite3_step(table.all) == SQLITE_ROW) read.push_back(read_row<Row>(table.all));
    sqlite3_reset(table.all);
    rows.load(std::move(read));
    table.changed.clear();
    table.came.clear();
}

void Rows::load_all() {
    model::each_table(model_, [&](std::string_view name, auto& rows) { load(tables_.find(name)->second, rows); });
}

void Rows::load_changed() {
    model::each_table(model_, [&](std::string_view name, auto& rows) {
        if (Table& table = tables_.find(name)->second; !table.changed.empty()) load(table, rows);
    });
}

// ---- Comparison -----------------------------------------------------------------------------------------------------

template <class Row>
void Rows::compare_rows(const Table& table, const Row& stored, Row& expected, std::vector<std::string>& differences) {
    std::vector<const void*> fields;
    model::each_field(stored, [&](const auto& field) { fields.push_back(&field); });
    std::size_t at = 0;
    model::each_field(expected, [&](auto& field) {
        const auto& other = *static_cast<const std::remove_cvref_t<decltype(field)>*>(fields[at]);
        if (!equal(other, field) && (midnight_said_ || !same_moment(other, field))) {
            differences.push_back(table.name + " " + name_of(stored) + ": " + table.columns.at(at) + " is " +
                                  shown(other) + ", the model has " + shown(field));
        }
        ++at;
    });
}

template <class Row>
void Rows::compare_changed(Table& table, model::Table<Row>& rows, Made& made, std::vector<std::string>& differences) {
    for (const sqlite3_int64 rowid : table.changed) {
        sqlite3_bind_int64(table.by_rowid, 1, rowid);
        if (sqlite3_step(table.by_rowid) == SQLITE_ROW) {
            const Row stored = read_row<Row>(table.by_rowid);
            const auto place = rows.place_of(stored);
            if (place) {
                compare_rows(table, stored, rows.at(*place), differences);
                rows.changed.erase(*place);
            } else {
                differences.push_back(table.name + " " + name_of(stored) + ": the model has no such row");
            }
        } else if (!table.came.contains(rowid)) {  // or it came in what was taken back as a whole
            differences.push_back(table.name + ": a row is gone");
        }
        sqlite3_reset(table.by_rowid);
    }
    // What the model changed and the database did not.
    for (const std::size_t place : rows.changed) {
        bind_key(table.by_key, rows.at(place));
        if (sqlite3_step(table.by_key) == SQLITE_ROW) {
            compare_rows(table, read_row<Row>(table.by_key), rows.at(place), differences);
        } else {
            differences.push_back(table.name + " " + name_of(rows.at(place)) + ": the database has no such row");
        }
        sqlite3_reset(table.by_key);
    }
    if (!rows.inserted.empty()) {
        auto& keys = made[table.name];
        for (const std::size_t place : rows.inserted) keys.push_back(first_column(rows.at(place)));
    }
    table.changed.clear();
    table.came.clear();
    rows.changed.clear();
    rows.inserted.clear();
}

std::vector<std::string> Rows::compare(Made& made) {
    std::vector<std::string> differences;
    model::each_table(model_, [&](std::string_view name, auto& rows) {
        Table& table = tables_.find(name)->second;
        if (!table.changed.empty() || !rows.changed.empty()) compare_changed(table, rows, made, differences);
    });
    return differences;
}

template <class Row>
void Rows::compare_whole(Table& table, model::Table<Row>& rows, std::vector<std::string>& differences) {
    std::size_t count = 0;
    for (; sqlite3_step(table.all) == SQLITE_ROW; ++count) {
        const Row stored = read_row<Row>(table.all);
        if (const auto place = rows.place_of(stored)) {
            compare_rows(table, stored, rows.at(*place), differences);
        } else {
            differences.push_back(table.name + " " + name_of(stored) + ": the model has no such row");
        }
    }
    sqlite3_reset(table.all);
    if (count != rows.rows().size()) {
        differences.push_back(table.name + ": " + std::to_string(count) + " rows, the model has " +
                              std::to_string(rows.rows().size()));
    }
}

std::vector<std::string> Rows::compare_all() {
    std::vector<std::string> differences;
    model::each_table(model_, [&](std::string_view name, auto& rows) {
        compare_whole(tables_.find(name)->second, rows, differences);
    });
    return differences;
}

}  // namespace cuvexa::simulator
