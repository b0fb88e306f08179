// The walk through what may stand anywhere in a statement: each rule is applied where it belongs, inner parts first.
#include <algorithm>
#include <utility>

#include "database/dialect/grammar.h"
#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

// ORDER BY 1 names a column: its number is no value that may vary.
bool is_position(const Nodes& before, const Node& node, Clause clause) {
    return clause == Clause::order && node.is_number() && !before.empty() &&
           (before.back().is_word("BY") || before.back().is_symbol(","));
}

// FROM T WITH (NOLOCK)
bool is_hint(const Nodes& before, const Node& node, Clause clause) {
    return clause == Clause::from && node.is_group() && before.size() > 1 && before.back().is_word("WITH");
}

// The dot of dbo.T; the engine has no such owner.
bool is_dot_of_owner(const Nodes& before, const Node& node) {
    return node.is_symbol(".") && !before.empty() && before.back().is_name() &&
           same_text(plain_name(before.back()), "dbo");
}

bool is_call(const Nodes& before, Clause clause) {
    return clause != Clause::from && clause != Clause::into && !before.empty() && before.back().is_name() &&
           !is_keyword(before.back());
}

/// Whether a sub-select behind those nodes stands for its rows, and not for one value.
bool stands_for_rows(const Nodes& before, Clause clause) {
    if (clause == Clause::from || clause == Clause::into) return true;
    return !before.empty() &&
           before.back().is_any_word({"IN", "EXISTS", "ANY", "ALL", "SOME", "AS", "UNION", "EXCEPT", "INTERSECT"});
}

bool any_text(const Nodes& nodes) {
    return std::any_of(nodes.begin(), nodes.end(), [](const Node& node) { return node.is_text; });
}

// THEN and ELSE bring a value, WHEN a condition.
bool gives_text(const Nodes& branches) {
    bool value = false;
    bool text = false;
    for (const Node& node : branches) {
        if (node.is_any_word({"THEN", "ELSE"})) value = true;
        if (node.is_word("WHEN")) value = false;
        text |= value && node.is_text;
    }
    return text;
}

class Walk {
public:
    explicit Walk(const Dialect& dialect) : dialect_(dialect) {}

    Nodes through(Nodes nodes, Clause clause = Clause::other) const {
        Nodes done;
        done.reserve(nodes.size());
        for (Node& node : nodes) {
            clause = clause_at(node, clause);
            if (is_hint(done, node, clause) || is_dot_of_owner(done, node)) {
                done.pop_back();
                continue;
            }
            node.pinned |= is_position(done, node, clause);
            add(done, std::move(node), clause);
        }
        join_texts(done, dialect_);
        collate_compared_literals(done, dialect_);
        return done;
    }

private:
    void add(Nodes& done, Node node, Clause clause) const {
        if (node.kind == Node::Kind::case_when) return done.push_back(case_when(std::move(node)));
        if (!node.is_group()) return done.push_back(std::move(node));
        if (starts_query(node.children)) {
            return done.push_back(sub_select(std::move(node), stands_for_rows(done, clause)));
        }
        if (!is_call(done, clause)) return done.push_back(parentheses(std::move(node), clause));
        Node name = std::move(done.back());
        done.back() = call(std::move(name), std::move(node));
    }

    Node case_when(Node node) const {
        node.children = through(std::move(node.children));
        node.is_text = gives_text(node.children);
        return without_case(std::move(node), dialect_);
    }

    Node sub_select(Node node, bool rows) const {
        node.children = through(std::move(node.children));
        move_top(node.children);
        pin_groups(node.children, dialect_);
        if (rows) return node;
        if (!dialect_.single_value.empty()) require_single_value(node.children, dialect_.single_value);
        return without_case(std::move(node), dialect_);
    }

    Node call(Node name, Node arguments) const {
        if (auto converted = conversion(name, arguments, dialect_)) {
            converted->value = through(std::move(converted->value));
            return rewrite_conversion(std::move(*converted), dialect_);
        }
        arguments.children = through(std::move(arguments.children));
        return rewrite_call(std::move(name), std::move(arguments), dialect_);
    }

    Node parentheses(Node node, Clause clause) const {
        node.children = through(std::move(node.children), clause == Clause::from ? Clause::from : Clause::other);
        node.is_text = any_text(node.children);
        return node;
    }

    const Dialect& dialect_;
};

}  // namespace

Nodes rewrite_expressions(Nodes nodes, const Dialect& dialect) {
    return Walk(dialect).through(std::move(nodes));
}

}  // namespace cuvexa::dialect
