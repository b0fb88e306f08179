// The shape of whole statements: TOP, OUTPUT, the words that SQL Server lets one leave out.
#include <algorithm>
#include <utility>

#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

void insert_at(Nodes& nodes, std::size_t at, Node node) {
    nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(at), std::move(node));
}

/// TOP n, right behind SELECT; TOP … PERCENT and TOP … WITH TIES are the engine's to refuse.
bool is_top(const Nodes& query, std::size_t at) {
    if (at == 0 || at + 1 >= query.size() || !query[at - 1].is_any_word({"SELECT", "DISTINCT", "ALL"})) return false;
    if (!query[at + 1].is_number() && !query[at + 1].is_group()) return false;
    return at + 2 >= query.size() || !query[at + 2].is_any_word({"PERCENT", "WITH"});
}

/// Takes the row's name from inserted.Column, where the engine gives the row as it is after the statement
/// (deleted.Column: as it was, of a DELETE). False when a column is of another row.
bool drop_row_name(Nodes& list, std::string_view row) {
    for (std::size_t i = 0; i + 1 < list.size(); ++i) {
        if (!list[i + 1].is_symbol(".") || !list[i].is_name()) continue;
        if (!same_text(plain_name(list[i]), row)) return false;
        cut(list, i, i + 2);
    }
    return true;
}

using Place = Nodes::iterator;

bool holds_literal(Place begin, Place end) {
    return std::any_of(begin, end, [](Node& node) {
        return node.literal >= 0 || holds_literal(node.children.begin(), node.children.end());
    });
}

void pin(Place begin, Place end) {
    for (; begin < end; ++begin) {
        begin->pinned |= begin->literal >= 0;
        pin(begin->children.begin(), begin->children.end());
    }
}

}  // namespace

void complete_words(Nodes& statement) {
    if (statement.size() < 2) return;
    if (statement[0].is_word("INSERT") && !statement[1].is_any_word({"INTO", "OR"})) {
        insert_at(statement, 1, word("INTO"));
    }
    if (statement[0].is_word("DELETE") && !statement[1].is_word("FROM")) insert_at(statement, 1, word("FROM"));
}

void move_top(Nodes& query) {
    for (std::size_t at = find_word(query, {"TOP"}); at < query.size(); at = find_word(query, {"TOP"}, at + 1)) {
        if (!is_top(query, at)) continue;
        const std::size_t end = find_word(query, {"UNION", "EXCEPT", "INTERSECT"}, at);
        Node count = std::move(query[at + 1]);
        insert_at(query, end, std::move(count));
        insert_at(query, end, word("LIMIT"));
        cut(query, at, at + 2);
    }
}

void pin_groups(Nodes& query, const Dialect& dialect) {
    if (!dialect.knows_groups_by_literals) return;
    const auto place = [&](std::size_t at) { return query.begin() + static_cast<std::ptrdiff_t>(at); };
    for (std::size_t begin = 0; begin < query.size();) {
        const std::size_t end = find_word(query, {"UNION", "EXCEPT", "INTERSECT"}, begin);
        const std::size_t groups = std::min(find_word(query, {"GROUP"}, begin), end);
        const std::size_t groups_end = std::min(find_word(query, {"HAVING", "ORDER"}, groups), end);
        if (holds_literal(place(groups), place(groups_end))) {
            pin(place(begin), place(std::min(find_word(query, {"FROM"}, begin), end)));
            pin(place(groups), place(end));
        }
        begin = end + 1;
    }
}

// A SELECT without parentheses may end in a sub-select of its own.
void open_select(Nodes& insert) {
    Node& last = insert.back();
    if (find_word(insert, {"SELECT"}) < insert.size()) return;
    if (insert.front().is_word("INSERT") && last.is_group() && !last.children.empty() &&
        last.children.front().is_word("SELECT")) {
        last.kind = Node::Kind::span;
    }
}

void move_output(Nodes& statement) {
    const std::size_t output = find_word(statement, {"OUTPUT"});
    if (output == statement.size()) return;
    const std::size_t end = find_word(statement, {"WHERE", "FROM", "VALUES", "SELECT", "DEFAULT", "INTO"}, output);
    if (end < statement.size() && statement[end].is_word("INTO")) return;
    Nodes list(statement.begin() + static_cast<std::ptrdiff_t>(output) + 1,
               statement.begin() + static_cast<std::ptrdiff_t>(end));
    if (!drop_row_name(list, statement.front().is_word("DELETE") ? "deleted" : "inserted")) return;
    cut(statement, output, end);
    statement.push_back(word("RETURNING"));
    append(statement, std::move(list));
}

Nodes rewrite_statement(Nodes nodes, const Dialect& dialect) {
    if (!dialect.remember.empty() && !nodes.empty() && nodes.front().is_word("UPDATE")) {
        remember_answers(nodes, dialect);
    }
    nodes = rewrite_expressions(std::move(nodes), dialect);
    complete_words(nodes);
    move_top(nodes);
    pin_groups(nodes, dialect);
    if (nodes.empty() || !nodes.front().is_any_word({"INSERT", "UPDATE", "DELETE"})) return nodes;
    open_select(nodes);
    move_output(nodes);
    if (nodes.front().is_word("UPDATE")) take_target_out_of_from(nodes);
    return nodes;
}

}  // namespace cuvexa::dialect
