// Texts that are computed: joined, and compared without regard to case as the columns are.
#include <algorithm>
#include <iterator>
#include <utility>

#include "database/dialect/grammar.h"
#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

Node cast(Node value, std::string_view mark) {
    Node result = span({std::move(value), word(mark)});
    result.is_text = true;
    return result;
}

Node collated(Node value, std::string_view collation) {
    const bool is_text = value.is_text;
    Node result = span({std::move(value), word("COLLATE"), word(collation)});
    result.is_text = is_text;
    return result;
}

/// The signs between two operands in [first, last); gives the last of them, or `last` where there is none.
std::size_t turn_plus_into_join(Nodes& nodes, std::size_t first, std::size_t last) {
    std::size_t joined = last;
    for (std::size_t at = first + 1; at < last; ++at) {
        if (!nodes[at].is_symbol("+") || is_sign(nodes[at - 1])) continue;
        nodes[at] = symbol("||");
        joined = at;
    }
    return joined;
}

/// Past the operand behind the sign at `at`: its own signs and the parts of its name are its.
std::size_t end_of_operand(const Nodes& nodes, std::size_t at, std::size_t last) {
    std::size_t end = at + 1;
    while (end < last && is_sign(nodes[end])) ++end;
    end = std::min(end + 1, last);
    while (end + 1 < last && nodes[end].is_symbol(".")) end += 2;
    return end;
}

/// One run of nodes between two that separate; gives where it ends afterwards.
std::size_t join_run(Nodes& nodes, std::size_t first, std::size_t last, const Dialect& dialect) {
    const auto begin = nodes.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = nodes.begin() + static_cast<std::ptrdiff_t>(last);
    const auto text = std::find_if(begin, end, [](const Node& node) { return node.is_text; });
    if (text == end) return last;
    const std::size_t joined = turn_plus_into_join(nodes, first, last);
    if (joined == last) return last;
    if (dialect.text_cast.empty()) {
        // One collated operand decides for the whole chain.
        if (text->is_text_literal()) *text = without_case(std::move(*text), dialect);
        return last;
    }
    // A joined text is of no operand's type: the chain is cast as a whole.
    const std::size_t end_of_chain = end_of_operand(nodes, joined, last);
    Nodes chain = cut(nodes, first, end_of_chain);
    nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(first), cast(group(std::move(chain)), dialect.text_cast));
    return last - (end_of_chain - first) + 1;
}

}  // namespace

Node without_case(Node value, const Dialect& dialect) {
    if (!dialect.text_cast.empty()) return value.is_text ? cast(std::move(value), dialect.text_cast) : value;
    return dialect.text_collation.empty() ? value : collated(std::move(value), dialect.text_collation);
}

void join_texts(Nodes& nodes, const Dialect& dialect) {
    for (std::size_t first = 0; first < nodes.size(); ++first) {
        std::size_t last = first;
        while (last < nodes.size() && !separates(nodes[last])) ++last;
        first = join_run(nodes, first, last, dialect);
    }
}

// Where texts compare by their type, a literal takes that of the other side.
void collate_compared_literals(Nodes& nodes, const Dialect& dialect) {
    if (dialect.text_collation.empty()) return;
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
        if (nodes[i].is_text_literal() && is_comparison(nodes[i + 1]) && (i == 0 || separates(nodes[i - 1]))) {
            nodes[i] = without_case(std::move(nodes[i]), dialect);
        }
    }
}

}  // namespace cuvexa::dialect
