// Functions, joined texts, collations and sub-selects: what may stand anywhere in a statement.
#include <algorithm>
#include <iterator>

#include "database/dialect/rewriter.h"

namespace cuvexa {

namespace {

bool starts_query(const Nodes& nodes) {
    return !nodes.empty() && nodes.front().is_any_word({"SELECT", "WITH"});
}

// Words after which a name does not go on and a group is no function call.
bool is_keyword(const Node& node) {
    return node.is_any_word(
        {"SELECT", "DISTINCT",  "ALL",    "FROM",    "WHERE",   "GROUP",     "BY",   "HAVING", "ORDER",  "AND",
         "OR",     "NOT",       "IN",     "LIKE",    "BETWEEN", "IS",        "AS",   "ON",     "JOIN",   "INNER",
         "OUTER",  "CROSS",     "FULL",   "UNION",   "EXCEPT",  "INTERSECT", "SET",  "VALUES", "INTO",   "INSERT",
         "UPDATE", "DELETE",    "WHEN",   "THEN",    "ELSE",    "EXISTS",    "ASC",  "DESC",   "TOP",    "LIMIT",
         "OUTPUT", "RETURNING", "ESCAPE", "COLLATE", "ANY",     "SOME",      "OVER", "USING",  "OFFSET", "WITH"});
}

bool is_comparison(const Node& node) {
    if (node.is_any_word({"IN", "NOT", "LIKE", "BETWEEN"})) return true;
    return node.kind == Node::Kind::token && node.token == Token_kind::symbol &&
           (node.text == "=" || node.text == "<>" || node.text == "!=" || node.text == "<" || node.text == ">" ||
            node.text == "<=" || node.text == ">=");
}

// Where one expression ends and the next begins.
bool separates(const Node& node) {
    return node.is_symbol(",") || is_comparison(node) || is_keyword(node);
}

bool is_operator(const Node& node) {
    return node.kind == Node::Kind::token && node.token == Token_kind::symbol;
}

/// The clause in which a node stands, as far as it decides what a group or a number is.
enum class Clause { other, from, into, order };

Clause clause_after(const Node& node, Clause clause) {
    if (node.is_any_word({"FROM", "JOIN"})) return Clause::from;
    if (node.is_any_word({"INTO", "INSERT"})) return Clause::into;
    if (node.is_any_word({"GROUP", "ORDER"})) return Clause::order;
    if (node.is_any_word({"SELECT", "VALUES", "WHERE", "ON", "SET", "HAVING", "OUTPUT", "LIMIT", "UNION"}))
        return Clause::other;
    return clause;
}

class Expressions {
public:
    explicit Expressions(const Dialect& dialect) : dialect_(dialect) {}

    Nodes rewrite(Nodes nodes, Clause clause = Clause::other) const {
        Nodes result;
        result.reserve(nodes.size());
        for (Node& node : nodes) {
            clause = clause_after(node, clause);
            node.pinned |= clause == Clause::order && is_position(result, node);
            if (is_hint(result, node, clause)) {
                result.pop_back();
            } else if (node.is_group()) {
                add_group(result, std::move(node), clause);
            } else if (node.kind == Node::Kind::case_when) {
                add_case(result, std::move(node));
            } else if (is_owner(result, node)) {
                result.pop_back();
            } else {
                result.push_back(std::move(node));
            }
        }
        join_texts(result);
        collate_literals(result);
        return result;
    }

private:
    // ORDER BY 1 names a column: its number is no value that may vary.
    static bool is_position(const Nodes& before, const Node& node) {
        return node.is_number() && !before.empty() && (before.back().is_word("BY") || before.back().is_symbol(","));
    }

    // FROM T WITH (NOLOCK)
    static bool is_hint(const Nodes& before, const Node& node, Clause clause) {
        return clause == Clause::from && node.is_group() && before.size() > 1 && before.back().is_word("WITH");
    }

    // The dot of dbo.T; the engine has no such owner.
    static bool is_owner(const Nodes& before, const Node& node) {
        return node.is_symbol(".") && !before.empty() && before.back().is_name() &&
               same_text(plain_name(before.back()), "dbo");
    }

    void add_case(Nodes& result, Node node) const {
        node.children = rewrite(std::move(node.children));
        bool value = false;
        for (const Node& child : node.children) {
            if (child.is_any_word({"THEN", "ELSE"})) value = true;
            if (child.is_word("WHEN")) value = false;
            node.is_text |= value && child.is_text;
        }
        result.push_back(collated(std::move(node)));
    }

    void add_group(Nodes& result, Node node, Clause clause) const {
        const Node* const before = result.empty() ? nullptr : &result.back();
        if (starts_query(node.children)) return add_select(result, std::move(node), clause);
        const bool call = before != nullptr && before->is_name() && !is_keyword(*before) && clause != Clause::into;
        if (call && clause != Clause::from) return add_call(result, std::move(node));
        node.children = rewrite(std::move(node.children), clause == Clause::from ? Clause::from : Clause::other);
        node.is_text =
            std::any_of(node.children.begin(), node.children.end(), [](const Node& child) { return child.is_text; });
        result.push_back(std::move(node));
    }

    void add_select(Nodes& result, Node node, Clause clause) const {
        const bool several = clause == Clause::from || clause == Clause::into ||
                             (!result.empty() && result.back().is_any_word({"IN", "EXISTS", "ANY", "ALL", "SOME", "AS",
                                                                            "UNION", "EXCEPT", "INTERSECT"}));
        node.children = rewrite(std::move(node.children));
        rewrite_query(node.children);
        if (several) return result.push_back(std::move(node));
        if (!dialect_.single_value.empty()) require_single(node.children);
        result.push_back(collated(std::move(node)));
    }

    // --- functions

    void add_call(Nodes& result, Node arguments) const {
        Node name = std::move(result.back());
        result.pop_back();
        if (name.is_any_word({"CAST", "CONVERT"}))
            return result.push_back(conversion(std::move(name), std::move(arguments)));
        arguments.children = rewrite(std::move(arguments.children));
        const std::vector<Nodes> parts = split_at_commas(arguments.children);
        const Function_rule* const rule = rule_for(name.text, parts.size());
        if (rule == nullptr) {
            result.push_back(span({std::move(name), std::move(arguments)}));
            return;
        }
        const bool text_argument = std::any_of(arguments.children.begin(), arguments.children.end(),
                                               [](const Node& child) { return child.is_text; });
        Node call = rule->replacement.empty() ? span({std::move(name), std::move(arguments)})
                                              : span(from_template(rule->replacement, parts));
        call.is_text =
            rule->result == Function_result::text || (rule->result == Function_result::as_arguments && text_argument);
        result.push_back(rule->result == Function_result::other ? std::move(call) : collated(std::move(call)));
    }

    const Function_rule* rule_for(std::string_view name, std::size_t arguments) const {
        for (const Function_rule& rule : dialect_.functions)
            if (same_text(rule.name, name) &&
                (rule.arguments < 0 || static_cast<std::size_t>(rule.arguments) == arguments))
                return &rule;
        return nullptr;
    }

    static Nodes from_template(std::string_view text, const std::vector<Nodes>& arguments) {
        Nodes result;
        for (;;) {
            const std::size_t hole = text.find('$');
            if (hole != 0) result.push_back(word(text.substr(0, hole)));
            if (hole == std::string_view::npos) return result;
            result.push_back(span(arguments[static_cast<std::size_t>(text[hole + 1] - '1')]));
            text.remove_prefix(hole + 2);
        }
    }

    // CAST(x AS varchar(10)) and CONVERT(varchar(10), x); a CONVERT with a style goes on as it stands.
    Node conversion(Node name, Node arguments) const {
        Nodes& inside = arguments.children;
        const std::size_t as = find_word(inside, {"AS"});
        std::vector<Nodes> parts = split_at_commas(inside);
        const bool cast = name.is_word("CAST") && as < inside.size();
        const bool convert = name.is_word("CONVERT") && parts.size() == 2;
        const Type_rule* rule = nullptr;
        if (cast && as + 1 < inside.size()) rule = type_for(inside[as + 1]);
        if (convert && !parts[0].empty()) rule = type_for(parts[0].front());
        if (rule == nullptr) {
            inside = rewrite(std::move(inside));
            return span({std::move(name), std::move(arguments)});
        }
        Nodes value = cast ? cut(inside, 0, as) : std::move(parts[1]);
        value = rewrite(std::move(value));
        append(value, {word("AS"), word(rule->cast)});
        Node result = span({word("CAST"), group(std::move(value))});
        result.is_text = rule->text;
        return rule->text ? collated(std::move(result)) : result;
    }

    const Type_rule* type_for(const Node& node) const {
        if (!node.is_name()) return nullptr;
        for (const Type_rule& rule : dialect_.types)
            if (same_text(rule.name, plain_name(node))) return &rule;
        return nullptr;
    }

    // --- texts

    Node collated(Node node) const {
        if (!dialect_.text_cast.empty()) return node.is_text ? cast(std::move(node)) : node;
        if (dialect_.text_collation.empty()) return node;
        const bool is_text = node.is_text;
        Node result = span({std::move(node), word("COLLATE"), word(dialect_.text_collation)});
        result.is_text = is_text;
        return result;
    }

    Node cast(Node node) const {
        Node result = span({std::move(node), word(dialect_.text_cast)});
        result.is_text = true;
        return result;
    }

    // a + 'x' + b is a || 'x' || b; a sum without any text stays a sum.
    void join_texts(Nodes& nodes) const {
        for (std::size_t first = 0; first < nodes.size();) {
            std::size_t last = first;
            while (last < nodes.size() && !separates(nodes[last])) ++last;
            first = join_run(nodes, first, last) + 1;
        }
    }

    // Gives where the run ends afterwards.
    std::size_t join_run(Nodes& nodes, std::size_t first, std::size_t last) const {
        const auto begin = nodes.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end = nodes.begin() + static_cast<std::ptrdiff_t>(last);
        const auto text = std::find_if(begin, end, [](const Node& node) { return node.is_text; });
        if (text == end) return last;
        auto joined = end;
        for (auto it = begin; it != end; ++it) {
            if (!it->is_symbol("+") || it == begin || is_operator(*std::prev(it))) continue;
            *it = symbol("||");
            joined = it;
        }
        if (joined == end) return last;
        if (!dialect_.text_cast.empty())
            return cast_chain(nodes, first, static_cast<std::size_t>(joined - nodes.begin()), last);
        // One collated operand decides for the whole chain.
        if (text->is_text_literal()) *text = collated(std::move(*text));
        return last;
    }

    // A joined text is of no operand's type: the chain up to the operand after its last || is cast as a whole.
    std::size_t cast_chain(Nodes& nodes, std::size_t first, std::size_t joined, std::size_t last) const {
        std::size_t end = joined + 1;
        while (end < last && is_operator(nodes[end])) ++end;
        end = std::min(end + 1, last);
        while (end + 1 < last && nodes[end].is_symbol(".")) end += 2;
        Nodes chain = cut(nodes, first, end);
        nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(first), cast(group(std::move(chain))));
        return last - (end - first) + 1;
    }

    // 'a' = …: a literal on the left would compare with regard to case. Where texts compare by their type, a literal
    // takes that of the other side.
    void collate_literals(Nodes& nodes) const {
        if (dialect_.text_collation.empty()) return;
        for (std::size_t i = 0; i + 1 < nodes.size(); ++i)
            if (nodes[i].is_text_literal() && is_comparison(nodes[i + 1]) && (i == 0 || separates(nodes[i - 1])))
                nodes[i] = collated(std::move(nodes[i]));
    }

    // --- scalar sub-selects

    static bool calls_aggregate(const Nodes& nodes) {
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            if (nodes[i].is_any_word({"SUM", "MAX", "MIN", "COUNT", "AVG"}) && i + 1 < nodes.size() &&
                nodes[i + 1].is_group())
                return true;
            if (!starts_query(nodes[i].children) && calls_aggregate(nodes[i].children)) return true;
        }
        return false;
    }

    static bool has_comma(const Nodes& nodes) {
        return std::any_of(nodes.begin(), nodes.end(), [](const Node& node) { return node.is_symbol(","); });
    }

    // One plain expression: no name after it, no star.
    static bool is_plain_value(const Nodes& nodes) {
        if (nodes.empty() || has_comma(nodes) || nodes.back().is_symbol("*")) return false;
        for (std::size_t i = 1; i < nodes.size(); ++i)
            if (!is_operator(nodes[i - 1]) && !is_operator(nodes[i]) && !nodes[i].is_symbol(".")) return false;
        return true;
    }

    // A sub-select that stands for one value is refused when it yields a second row. An aggregate over all rows yields
    // one.
    void require_single(Nodes& query) const {
        const std::size_t from = find_word(query, {"FROM"});
        const bool grouped = find_word(query, {"GROUP"}) < query.size();
        if (!query.front().is_word("SELECT") || from == query.size()) return wrap_single(query);
        Nodes list(query.begin() + 1, query.begin() + static_cast<std::ptrdiff_t>(from));
        if (!grouped && find_word(query, {"UNION", "EXCEPT", "INTERSECT"}) == query.size() && calls_aggregate(list))
            return;
        const bool simple = find_word(query, {"DISTINCT", "ALL", "GROUP", "ORDER", "UNION", "EXCEPT", "INTERSECT",
                                              "LIMIT", "HAVING"}) == query.size();
        if (!simple || !is_plain_value(list)) return wrap_single(query);
        cut(query, 1, from);
        query.insert(query.begin() + 1, {word(dialect_.single_value), group(std::move(list))});
    }

    void wrap_single(Nodes& query) const {
        if (query.front().is_word("SELECT") && find_word(query, {"FROM", "UNION"}) == query.size()) return;
        Nodes inner = std::move(query);
        query = {word("WITH"),
                 word("cuvexa_rows"),
                 group({word("cuvexa_value")}),
                 word("AS"),
                 group(std::move(inner)),
                 word("SELECT"),
                 word(dialect_.single_value),
                 group({word("cuvexa_value")}),
                 word("FROM"),
                 word("cuvexa_rows")};
    }

    const Dialect& dialect_;
};

}  // namespace

Nodes rewrite_expressions(Nodes nodes, const Dialect& dialect) {
    return Expressions(dialect).rewrite(std::move(nodes));
}

}  // namespace cuvexa
