#include "database/dialect/grammar.h"

namespace cuvexa::dialect {

bool starts_query(const Nodes& nodes) {
    return !nodes.empty() && nodes.front().is_any_word({"SELECT", "WITH"});
}

bool is_keyword(const Node& node) {
    return node.is_any_word(
        {"SELECT", "DISTINCT",  "ALL",    "FROM",    "WHERE",   "GROUP",     "BY",   "HAVING", "ORDER",  "AND",
         "OR",     "NOT",       "IN",     "LIKE",    "BETWEEN", "IS",        "AS",   "ON",     "JOIN",   "INNER",
         "OUTER",  "CROSS",     "FULL",   "UNION",   "EXCEPT",  "INTERSECT", "SET",  "VALUES", "INTO",   "INSERT",
         "UPDATE", "DELETE",    "WHEN",   "THEN",    "ELSE",    "EXISTS",    "ASC",  "DESC",   "TOP",    "LIMIT",
         "OUTPUT", "RETURNING", "ESCAPE", "COLLATE", "ANY",     "SOME",      "OVER", "USING",  "OFFSET", "WITH"});
}

bool is_sign(const Node& node) {
    return node.kind == Node::Kind::token && node.token == Token_kind::symbol;
}

bool is_comparison_sign(const Node& node) {
    return is_sign(node) && (node.text == "=" || node.text == "<>" || node.text == "!=" || node.text == "<" ||
                             node.text == ">" || node.text == "<=" || node.text == ">=");
}

bool is_comparison(const Node& node) {
    return is_comparison_sign(node) || node.is_any_word({"IN", "NOT", "LIKE", "BETWEEN"});
}

bool separates(const Node& node) {
    return node.is_symbol(",") || is_comparison(node) || is_keyword(node);
}

Clause clause_at(const Node& node, Clause clause) {
    if (node.is_any_word({"FROM", "JOIN"})) return Clause::from;
    if (node.is_any_word({"INTO", "INSERT"})) return Clause::into;
    if (node.is_any_word({"GROUP", "ORDER"})) return Clause::order;
    if (node.is_any_word({"SELECT", "VALUES", "WHERE", "ON", "SET", "HAVING", "OUTPUT", "LIMIT", "UNION"})) {
        return Clause::other;
    }
    return clause;
}

}  // namespace cuvexa::dialect
