// The shape of whole statements: TOP, OUTPUT, the words that SQL Server lets one leave out.
#include <utility>

#include "database/dialect/rewriter.h"

namespace cuvexa {
namespace {

void insert_at(Nodes& nodes, std::size_t at, Node node) {
    nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(at), std::move(node));
}

// INSERT T …, DELETE T …
void complete_words(Nodes& nodes) {
    if (nodes.size() < 2) return;
    if (nodes[0].is_word("INSERT") && !nodes[1].is_any_word({"INTO", "OR"})) insert_at(nodes, 1, word("INTO"));
    if (nodes[0].is_word("DELETE") && !nodes[1].is_word("FROM")) insert_at(nodes, 1, word("FROM"));
}

// INSERT INTO T (…) (SELECT …); a SELECT without parentheses may end in a sub-select of its own.
void open_select(Nodes& nodes) {
    Node& last = nodes.back();
    if (find_word(nodes, {"SELECT"}) < nodes.size()) return;
    if (nodes.front().is_word("INSERT") && last.is_group() && !last.children.empty() &&
        last.children.front().is_word("SELECT"))
        last.kind = Node::Kind::span;
}

// inserted.Column, where the engine gives the row as it is after the statement (deleted.Column: as it was, of a
// DELETE).
bool drop_row_name(Nodes& list, std::string_view row) {
    for (std::size_t i = 0; i + 1 < list.size(); ++i) {
        if (!list[i + 1].is_symbol(".") || !list[i].is_name()) continue;
        if (!same_text(plain_name(list[i]), row)) return false;
        cut(list, i, i + 2);
    }
    return true;
}

// OUTPUT inserted.Column stands in the middle; RETURNING Column at the end.
void move_output(Nodes& nodes) {
    const std::size_t output = find_word(nodes, {"OUTPUT"});
    if (output == nodes.size()) return;
    const std::size_t end = find_word(nodes, {"WHERE", "FROM", "VALUES", "SELECT", "DEFAULT", "INTO"}, output);
    if (end < nodes.size() && nodes[end].is_word("INTO")) return;
    Nodes list(nodes.begin() + static_cast<std::ptrdiff_t>(output) + 1,
               nodes.begin() + static_cast<std::ptrdiff_t>(end));
    if (!drop_row_name(list, nodes.front().is_word("DELETE") ? "deleted" : "inserted")) return;
    cut(nodes, output, end);
    nodes.push_back(word("RETURNING"));
    append(nodes, std::move(list));
}

std::size_t end_of_select(const Nodes& nodes, std::size_t from) {
    return find_word(nodes, {"UNION", "EXCEPT", "INTERSECT"}, from);
}

}  // namespace

void rewrite_query(Nodes& query) {
    for (std::size_t at = find_word(query, {"TOP"}); at + 1 < query.size(); at = find_word(query, {"TOP"}, at + 1)) {
        if (at == 0 || !query[at - 1].is_any_word({"SELECT", "DISTINCT", "ALL"})) continue;
        if (!query[at + 1].is_number() && !query[at + 1].is_group()) continue;
        if (at + 2 < query.size() && query[at + 2].is_any_word({"PERCENT", "WITH"})) continue;
        const std::size_t end = end_of_select(query, at);
        Node count = std::move(query[at + 1]);
        insert_at(query, end, std::move(count));
        insert_at(query, end, word("LIMIT"));
        cut(query, at, at + 2);
    }
}

Nodes rewrite_statement(Nodes nodes, const Dialect& dialect) {
    nodes = rewrite_expressions(std::move(nodes), dialect);
    complete_words(nodes);
    rewrite_query(nodes);
    if (nodes.empty() || !nodes.front().is_any_word({"INSERT", "UPDATE", "DELETE"})) return nodes;
    open_select(nodes);
    move_output(nodes);
    if (nodes.front().is_word("UPDATE")) rewrite_update(nodes);
    return nodes;
}

}  // namespace cuvexa
