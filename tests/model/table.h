// A table: its rows in the order in which they came. What is read is a copy, as a recordset sees no later change.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "model/fields.h"
#include "model/text.h"

namespace cuvexa::model {

template <class Row>
class Table {
public:
    const std::deque<Row>& rows() const { return rows_; }

    template <class Where>
    std::vector<Row> where(Where&& where) const {
        std::vector<Row> found;
        std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(found), where);
        return found;
    }

    template <class Where>
    std::optional<Row> first(Where&& where) const {
        const auto found = std::find_if(rows_.begin(), rows_.end(), where);
        return found == rows_.end() ? std::nullopt : std::optional(*found);
    }

    /// The same, in the order of a column's texts.
    template <class Where>
    std::vector<Row> where(Where&& where, Text Row::*order) const {
        std::vector<Row> found = this->where(where);
        std::stable_sort(found.begin(), found.end(),
                         [&](const Row& a, const Row& b) { return before(a.*order, b.*order); });
        return found;
    }

    template <class Where>
    bool any(Where&& where) const {
        return std::any_of(rows_.begin(), rows_.end(), where);
    }

    /// Refused when a value does not fit into its column, and in the engine's words when there is a row of that key.
    void insert(Row row) {
        require_room(row);
        const Text key = key_of(row);
        if (by_key_.contains(key)) throw Failure{taken};
        if (before_write) before_write();
        by_key_.emplace(key, rows_.size());
        changed.insert(rows_.size());
        inserted.push_back(rows_.size());
        rows_.push_back(std::move(row));
    }

    template <class Where, class Set>
    void update(Where&& where, Set&& set) {
        std::vector<std::pair<std::size_t, Row>> written;
        for (std::size_t at = 0; at < rows_.size(); ++at) {
            if (!where(std::as_const(rows_[at]))) continue;
            set(written.emplace_back(at, rows_[at]).second);
            require_room(written.back().second);
        }
        if (!written.empty() && before_write) before_write();
        for (auto& [at, row] : written) {
            rows_[at] = std::move(row);
            changed.insert(at);
        }
    }

    /// What a column takes: so many characters, or dates; and what is said of a value that does not fit.
    struct Limit {
        std::optional<std::size_t> most;
        bool date = false;
        Text refusal;

        bool takes(Column column) const {
            if (column.null) return true;
            return date ? same(column, "") || column.text >= "1753-01-01" : !most || characters(column.text) <= *most;
        }
    };
    std::vector<Limit> limits;  ///< of each column, in the order of the schema; none where there are fewer

    // ---- For whoever compares ---------------------------------------------------------------------------------------

    /// What the engine says of a key that is taken.
    Text taken;

    /// Called before a statement's rows are written, when there are any; what it throws keeps them from it.
    std::function<void()> before_write;

    /// Rows written, and those of them that came, since these two were last emptied.
    std::set<std::size_t> changed;
    std::vector<std::size_t> inserted;

    /// The place of the row of the same key.
    std::optional<std::size_t> place_of(const Row& row) const {
        const auto found = by_key_.find(key_of(row));
        return found == by_key_.end() ? std::nullopt : std::optional(found->second);
    }

    Row& at(std::size_t place) { return rows_[place]; }

    void load(std::deque<Row> rows) {
        rows_ = std::move(rows);
        by_key_.clear();
        for (std::size_t at = 0; at < rows_.size(); ++at) by_key_.emplace(key_of(rows_[at]), at);
        changed.clear();
        inserted.clear();
    }

    /// The columns of the key, parted, in one case.
    static Text key_of(const Row& row) {
        Text key;
        int at = 0;
        each_field(row, [&](const auto& field) {
            if (at++ >= Row::keys) return;
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, Text>) {
                key += in_one_case(field) + '\0';
            } else if constexpr (std::is_integral_v<std::remove_cvref_t<decltype(field)>>) {
                key += std::to_string(field) + '\0';
            }
        });
        return key;
    }

private:
    void require_room(const Row& row) const {
        std::size_t at = 0;
        each_field(row, [&](const auto& field) {
            if constexpr (std::is_constructible_v<Column, decltype(field)>) {
                if (at < limits.size() && !limits[at].takes(field)) throw Failure{limits[at].refusal};
                ++at;
            } else if constexpr (requires { field.size(); }) {
                at += field.size();  // a column a month
            } else {
                ++at;
            }
        });
    }

    std::deque<Row> rows_;
    std::unordered_map<Text, std::size_t> by_key_;
};

}  // namespace cuvexa::model
