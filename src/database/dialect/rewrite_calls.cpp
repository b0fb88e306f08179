// Functions and conversions of types.
#include <algorithm>
#include <utility>

#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

bool gives_text(const Function_rule& rule, const Nodes& arguments) {
    if (rule.result != Function_result::as_arguments) return rule.result == Function_result::text;
    return std::any_of(arguments.begin(), arguments.end(), [](const Node& node) { return node.is_text; });
}

const Type_rule* type_at(const Nodes& nodes, std::size_t at, const Dialect& dialect) {
    return at < nodes.size() && nodes[at].is_name() ? dialect.type(plain_name(nodes[at])) : nullptr;
}

}  // namespace

Nodes filled(std::string_view text, const std::vector<Nodes>& arguments) {
    Nodes result;
    for (;;) {
        const std::size_t hole = text.find('$');
        if (hole != 0 && !text.empty()) result.push_back(word(text.substr(0, hole)));
        if (hole == std::string_view::npos) return result;
        result.push_back(span(arguments[static_cast<std::size_t>(text[hole + 1] - '1')]));
        text.remove_prefix(hole + 2);
    }
}

Node rewrite_call(Node name, Node arguments, const Dialect& dialect) {
    const std::vector<Nodes> parts = split_at_commas(arguments.children);
    const Function_rule* const rule = dialect.function(name.text, parts.size());
    if (rule == nullptr) return span({std::move(name), std::move(arguments)});
    const bool text = gives_text(*rule, arguments.children);
    Node call = span(rule->replacement.empty() ? Nodes{std::move(name), std::move(arguments)}
                                               : filled(rule->replacement, parts));
    call.is_text = text;
    return rule->result == Function_result::other ? call : without_case(std::move(call), dialect);
}

std::optional<Conversion> conversion(const Node& name, const Node& arguments, const Dialect& dialect) {
    const Nodes& inside = arguments.children;
    if (name.is_word("CAST")) {
        const std::size_t as = find_word(inside, {"AS"});
        const Type_rule* const type = type_at(inside, as + 1, dialect);
        if (type == nullptr) return std::nullopt;
        return Conversion{Nodes(inside.begin(), inside.begin() + static_cast<std::ptrdiff_t>(as)), type};
    }
    if (name.is_word("CONVERT")) {
        std::vector<Nodes> parts = split_at_commas(inside);
        const Type_rule* const type = parts.size() == 2 ? type_at(parts[0], 0, dialect) : nullptr;
        if (type == nullptr) return std::nullopt;
        return Conversion{std::move(parts[1]), type};
    }
    return std::nullopt;
}

Node rewrite_conversion(Conversion conversion, const Dialect& dialect) {
    append(conversion.value, {word("AS"), word(conversion.type->cast)});
    Node result = span({word("CAST"), group(std::move(conversion.value))});
    result.is_text = conversion.type->text;
    return result.is_text ? without_case(std::move(result), dialect) : result;
}

}  // namespace cuvexa::dialect
