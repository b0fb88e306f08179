// UPDATE T SET T.a = … FROM T INNER JOIN X ON … WHERE …
//
// SQL Server finds the target among the tables of FROM; other engines join it with FROM by themselves and take it amiss
// when it is named there again. So the target leaves FROM and the conditions of its joins go to WHERE, where the
// planner finds the same indexes.
#include <algorithm>
#include <optional>
#include <utility>

#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

struct Joined_table {
    Nodes join;   ///< the words before it: a comma, INNER JOIN, LEFT OUTER JOIN; empty for the first
    Nodes table;  ///< its name and alias
    Nodes on;     ///< its condition, without ON
};

struct Update_parts {
    Nodes target;
    Nodes set;
    std::vector<Joined_table> from;
    Nodes where;
    Nodes returning;
};

bool is_join_word(const Node& node) {
    return node.is_any_word({"INNER", "LEFT", "RIGHT", "FULL", "CROSS", "OUTER", "JOIN"}) || node.is_symbol(",");
}

std::vector<Joined_table> split_joins(const Nodes& from) {
    std::vector<Joined_table> tables(1);
    bool in_condition = false;
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (is_join_word(from[i])) {
            if (i == 0 || !is_join_word(from[i - 1])) tables.emplace_back();
            tables.back().join.push_back(from[i]);
            in_condition = false;
        } else if (from[i].is_word("ON")) {
            in_condition = true;
        } else {
            (in_condition ? tables.back().on : tables.back().table).push_back(from[i]);
        }
    }
    return tables;
}

Update_parts split(Nodes nodes) {
    Update_parts parts;
    const std::size_t set = find_word(nodes, {"SET"});
    const std::size_t returning = find_word(nodes, {"RETURNING"}, set);
    const std::size_t where = std::min(find_word(nodes, {"WHERE"}, set), returning);
    const std::size_t from = std::min(find_word(nodes, {"FROM"}, set), where);
    parts.returning = cut(nodes, returning, nodes.size());
    parts.where = cut(nodes, std::min(where + 1, returning), returning);
    if (from < where) parts.from = split_joins(cut(nodes, from + 1, where));
    parts.set = cut(nodes, set + 1, from);
    parts.target = cut(nodes, 1, set);
    return parts;
}

bool names(const Node& node, std::string_view name) {
    return node.is_name() && same_text(plain_name(node), name);
}

std::string_view alias_of(const Joined_table& table) {
    return table.table.size() > 1 ? plain_name(table.table.back()) : std::string_view{};
}

// An alias goes before a table of that name, as it does for SQL Server.
std::optional<std::size_t> find_target(const std::vector<Joined_table>& from, std::string_view target) {
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (same_text(alias_of(from[i]), target)) return i;
    }
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (!from[i].table.empty() && names(from[i].table.front(), target)) return i;
    }
    return std::nullopt;
}

bool is_inner(const Joined_table& table) {
    return !std::any_of(table.join.begin(), table.join.end(), [](const Node& node) {
        return node.is_any_word({"LEFT", "RIGHT", "FULL"});
    });
}

void add_condition(Nodes& where, Nodes condition) {
    if (condition.empty()) return;
    if (!where.empty()) where.push_back(word("AND"));
    where.push_back(group(std::move(condition)));
}

// Inner joins only: a list of tables, every condition in WHERE.
void join_in_where(Update_parts& parts, std::size_t target) {
    Nodes where;
    for (Joined_table& table : parts.from) add_condition(where, std::move(table.on));
    add_condition(where, std::move(parts.where));
    parts.where = std::move(where);
    parts.from.erase(parts.from.begin() + static_cast<std::ptrdiff_t>(target));
    for (Joined_table& table : parts.from) {
        table.on.clear();
        table.join = {symbol(",")};
    }
}

Nodes unqualified_assignments(const Nodes& set) {
    Nodes result;
    for (Nodes& assignment : split_at_commas(set)) {
        while (assignment.size() > 2 && assignment[1].is_symbol(".")) cut(assignment, 0, 2);
        if (!result.empty()) result.push_back(symbol(","));
        append(result, std::move(assignment));
    }
    return result;
}

Nodes joined(const std::vector<Joined_table>& from) {
    Nodes result;
    for (const Joined_table& table : from) {
        if (!result.empty()) append(result, table.join);
        append(result, table.table);
        if (table.on.empty()) continue;
        result.push_back(word("ON"));
        append(result, table.on);
    }
    return result;
}

Nodes put_together(Update_parts parts) {
    Nodes result{word("UPDATE")};
    append(result, std::move(parts.target));
    result.push_back(word("SET"));
    append(result, unqualified_assignments(parts.set));
    if (!parts.from.empty()) {
        result.push_back(word("FROM"));
        append(result, joined(parts.from));
    }
    if (!parts.where.empty()) {
        result.push_back(word("WHERE"));
        append(result, std::move(parts.where));
    }
    append(result, std::move(parts.returning));
    return result;
}

}  // namespace

void take_target_out_of_from(Nodes& update) {
    if (find_word(update, {"SET"}) == update.size()) return;
    Update_parts parts = split(update);
    const auto target = parts.target.size() == 1 && parts.target.front().is_name()
                            ? find_target(parts.from, plain_name(parts.target.front()))
                            : std::nullopt;
    // An outer join cannot go to WHERE; the engine says that the target is named twice.
    if (target && std::all_of(parts.from.begin(), parts.from.end(), is_inner)) {
        Nodes table = parts.from[*target].table;
        if (table.size() == 2) table.insert(table.begin() + 1, word("AS"));
        join_in_where(parts, *target);
        parts.target = std::move(table);
    }
    update = put_together(std::move(parts));
}

}  // namespace cuvexa::dialect
