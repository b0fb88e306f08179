// UPDATE T SET a = (SELECT … FROM T x WHERE x.k = T.k …): what the sub-select gives depends on T.k alone, and many rows have
// the same. Asked for every row anew, and each time among all of them, the work grows with the square of the rows; so the engine
// remembers the answer to each key while the statement runs. That is also what the rows held when it began.
#include <optional>
#include <utility>

#include "database/dialect/grammar.h"
#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

bool holds_query(const Nodes& nodes) {
    for (const Node& node : nodes) {
        if (starts_query(node.children) || holds_query(node.children)) return true;
    }
    return false;
}

/// SELECT … FROM T x WHERE …: of the same table under a name of its own, so that a column without a name before it is x's.
bool is_of_same_table(const Nodes& query, std::string_view table) {
    const std::size_t from = find_word(query, {"FROM"});
    return query.front().is_word("SELECT") && from + 3 < query.size() && query[from + 1].is_name() &&
           query[from + 2].is_name() && query[from + 3].is_word("WHERE") &&
           same_text(plain_name(query[from + 1]), table) && !same_text(plain_name(query[from + 2]), table);
}

/// The columns of the updated row that the sub-select asks for: T.k.
void gather_columns(const Nodes& nodes, std::string_view table, std::vector<Nodes>& columns) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        gather_columns(nodes[i].children, table, columns);
        const bool is_column = i + 2 < nodes.size() && nodes[i].is_name() && nodes[i + 1].is_symbol(".") &&
                               same_text(plain_name(nodes[i]), table);
        if (is_column) columns.push_back({nodes[i], nodes[i + 1], nodes[i + 2]});
    }
}

/// The one column on which the answer depends.
std::optional<Nodes> key_of(const Nodes& query, std::string_view table) {
    std::vector<Nodes> columns;
    gather_columns(query, table, columns);
    if (columns.size() != 1) return std::nullopt;
    return columns.front();
}

/// COALESCE(recall(n, T.k), remember(n, T.k, (SELECT …))) in place of the sub-select; only a missing answer is asked for.
void remember_answer(Nodes& update, std::size_t at, const Nodes& key, const Dialect& dialect) {
    Nodes asked{composed(std::to_string(at)), symbol(",")};
    append(asked, key);
    Nodes told = asked;
    told.push_back(symbol(","));
    told.push_back(std::move(update[at]));
    update[at] = group(
        {word(dialect.recall), group(std::move(asked)), symbol(","), word(dialect.remember), group(std::move(told))});
    update.insert(update.begin() + static_cast<std::ptrdiff_t>(at), word("COALESCE"));
}

}  // namespace

void remember_answers(Nodes& update, const Dialect& dialect) {
    if (update.size() < 3 || !update[1].is_name() || !update[2].is_word("SET")) return;
    const std::string_view table = plain_name(update[1]);
    const auto where = [&] { return find_word(update, {"WHERE"}); };
    if (find_word(update, {"FROM"}) < where()) return;
    for (std::size_t i = 3; i < where(); ++i) {
        const Nodes& query = update[i].children;
        if (!update[i].is_group() || !starts_query(query) || holds_query(query)) continue;
        if (!update[i - 1].is_symbol("=") || !is_of_same_table(query, table)) continue;
        if (const auto key = key_of(query, table)) remember_answer(update, i, *key, dialect);
    }
}

}  // namespace cuvexa::dialect
