// What a database holds, as text, and what changed between two looks at it.
#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cuvexa::tests {

/// Runs a query in the engine's own words, past every layer, and hands each row to `each(columns, values)`.
template <class Each>
void read_bare(sqlite3* database, const std::string& query, Each&& each) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, query.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        throw std::runtime_error(query + ": " + sqlite3_errmsg(database));
    }
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::vector<std::pair<std::string, std::string>> row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            row.emplace_back(sqlite3_column_name(statement, i),
                             text == nullptr
                                 ? "NULL"
                                 : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, i))));
        }
        each(row);
    }
    const bool done = sqlite3_finalize(statement) == SQLITE_OK;
    if (!done) throw std::runtime_error(query + ": " + sqlite3_errmsg(database));
}

/// Every row of every table, by table and key.
class Snapshot {
public:
    using Row = std::vector<std::pair<std::string, std::string>>;

    explicit Snapshot(sqlite3* database) {
        std::vector<std::string> tables;
        read_bare(database,
                  "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name",
                  [&](const Row& row) { tables.push_back(row[0].second); });
        for (const std::string& table : tables) read_table(database, table);
    }

    bool operator==(const Snapshot&) const = default;

    /// One line per row that came ("+ Table key: column=value, …", empty columns left out), went ("- Table key") or
    /// changed ("~ Table key: column old -> new, …"). Columns of the audit (who, when) are left out unless asked for.
    std::vector<std::string> changes_to(const Snapshot& later, bool with_audit = false) const {
        std::vector<std::string> lines;
        for (const auto& [key, row] : later.rows_) {
            const auto before = rows_.find(key);
            if (before == rows_.end()) {
                lines.push_back("+ " + key + listed(row, with_audit));
            } else if (before->second != row) {
                const std::string differences = compared(before->second, row, with_audit);
                if (!differences.empty()) lines.push_back("~ " + key + ": " + differences);
            }
        }
        for (const auto& [key, row] : rows_) {
            if (!later.rows_.contains(key)) lines.push_back("- " + key);
        }
        return lines;
    }

private:
    static bool is_audit(const std::string& column) {
        static constexpr std::string_view audit[] = {"Oper_Alta", "Fecha_Alta", "Oper_Ult_Modif", "Fecha_Ult_Modif"};
        return std::find(std::begin(audit), std::end(audit), column) != std::end(audit);
    }

    void read_table(sqlite3* database, const std::string& table) {
        std::vector<std::string> key_columns;
        read_bare(database, "SELECT name FROM pragma_table_info('" + table + "') WHERE pk > 0 ORDER BY pk",
                  [&](const Row& row) { key_columns.push_back(row[0].second); });
        read_bare(database, "SELECT * FROM \"" + table + "\"", [&](const Row& row) {
            std::string key = table + " ";
            for (const auto& [column, value] : row) {
                if (std::find(key_columns.begin(), key_columns.end(), column) == key_columns.end()) continue;
                key += (key.back() == ' ' ? "" : "/") + value;
            }
            rows_.emplace(key, row);
        });
    }

    static std::string listed(const Row& row, bool with_audit) {
        std::string text;
        for (const auto& [column, value] : row) {
            if (value.empty() || value == "NULL" || (is_audit(column) && !with_audit)) continue;
            text += (text.empty() ? ": " : ", ") + column + "=" + value;
        }
        return text;
    }

    static std::string compared(const Row& before, const Row& after, bool with_audit) {
        std::string text;
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (before[i] == after[i] || (is_audit(after[i].first) && !with_audit)) continue;
            text += (text.empty() ? "" : ", ") + after[i].first + " " + before[i].second + " -> " + after[i].second;
        }
        return text;
    }

    std::map<std::string, Row> rows_;
};

}  // namespace cuvexa::tests
