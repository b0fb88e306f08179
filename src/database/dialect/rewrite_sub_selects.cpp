// A sub-select that stands for one value: SQL Server refuses it when it yields a second row, some engines take the first.
#include <algorithm>
#include <utility>

#include "database/dialect/grammar.h"
#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

bool has(const Nodes& nodes, std::initializer_list<std::string_view> words) {
    return find_word(nodes, words) < nodes.size();
}

/// Also between parentheses, but not in a sub-select of its own.
bool calls_aggregate(const Nodes& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].is_any_word({"SUM", "MAX", "MIN", "COUNT", "AVG"}) && i + 1 < nodes.size() &&
            nodes[i + 1].is_group()) {
            return true;
        }
        if (!starts_query(nodes[i].children) && calls_aggregate(nodes[i].children)) return true;
    }
    return false;
}

/// One plain expression: no name after it, no star.
bool is_plain_value(const Nodes& nodes) {
    const auto is_comma = [](const Node& node) { return node.is_symbol(","); };
    if (nodes.empty() || std::any_of(nodes.begin(), nodes.end(), is_comma) || nodes.back().is_symbol("*")) return false;
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        if (!is_sign(nodes[i - 1]) && !is_sign(nodes[i]) && !nodes[i].is_symbol(".")) return false;
    }
    return true;
}

/// Without tables, and not joined to another query.
bool gives_one_row(const Nodes& query) {
    return query.front().is_word("SELECT") && !has(query, {"FROM", "UNION"});
}

/// WITH cuvexa_rows(cuvexa_value) AS (query) SELECT aggregate(cuvexa_value) FROM cuvexa_rows: takes every query.
void wrap(Nodes& query, std::string_view aggregate) {
    Nodes inner = std::move(query);
    query = {word("WITH"),   word("cuvexa_rows"), group({word("cuvexa_value")}), word("AS"),   group(std::move(inner)),
             word("SELECT"), word(aggregate),     group({word("cuvexa_value")}), word("FROM"), word("cuvexa_rows")};
}

}  // namespace

void require_single_value(Nodes& query, std::string_view aggregate) {
    if (gives_one_row(query)) return;
    const std::size_t from = find_word(query, {"FROM"});
    if (!query.front().is_word("SELECT") || from == query.size()) return wrap(query, aggregate);
    const bool joined = has(query, {"UNION", "EXCEPT", "INTERSECT"});
    Nodes list(query.begin() + 1, query.begin() + static_cast<std::ptrdiff_t>(from));
    // An aggregate over all rows yields one.
    if (!joined && !has(query, {"GROUP"}) && calls_aggregate(list)) return;
    const bool simple = !joined && !has(query, {"DISTINCT", "ALL", "GROUP", "ORDER", "LIMIT", "HAVING"});
    if (!simple || !is_plain_value(list)) return wrap(query, aggregate);
    cut(query, 1, from);
    query.insert(query.begin() + 1, {word(aggregate), group(std::move(list))});
}

}  // namespace cuvexa::dialect
