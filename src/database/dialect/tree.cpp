#include "database/dialect/tree.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace cuvexa::dialect {
namespace {

// Deeper than any engine takes; bounds the recursion over a hostile text.
constexpr int deepest = 200;

class Parser {
public:
    Parser(std::string_view text, const std::vector<Token>& tokens) : text_(text), tokens_(tokens) {}

    std::optional<Nodes> parse() {
        Nodes nodes = read(Until::end, 0);
        if (!ok_ || at_ != tokens_.size()) return std::nullopt;
        return nodes;
    }

    Nodes flat() {
        Nodes nodes;
        while (at_ < tokens_.size()) nodes.push_back(leaf());
        return nodes;
    }

private:
    enum class Until { end, close, case_end };

    Node leaf() {
        const Token& token = tokens_[at_++];
        Node node;
        node.token = token.kind;
        node.text = token.in(text_);
        if (token.is_literal()) node.literal = literals_++;
        node.is_text = token.kind == Token_kind::text;
        return node;
    }

    bool next_is_word(std::string_view word) const {
        return tokens_[at_].kind == Token_kind::word && same_text(tokens_[at_].in(text_), word);
    }

    Node nested(Node::Kind kind, Until until, int depth) {
        ++at_;
        Node node;
        node.kind = kind;
        if (depth >= deepest) {
            ok_ = false;
        } else {
            node.children = read(until, depth + 1);
        }
        if (ok_ && at_ < tokens_.size()) {
            ++at_;
        } else {
            ok_ = false;
        }
        return node;
    }

    Nodes read(Until until, int depth) {
        Nodes nodes;
        while (ok_ && at_ < tokens_.size()) {
            const Token_kind kind = tokens_[at_].kind;
            if (kind == Token_kind::close) {
                ok_ = until == Until::close;
                return nodes;
            }
            if (until == Until::case_end && next_is_word("END")) return nodes;
            if (kind == Token_kind::open) {
                nodes.push_back(nested(Node::Kind::group, Until::close, depth));
            } else if (next_is_word("CASE")) {
                nodes.push_back(nested(Node::Kind::case_when, Until::case_end, depth));
            } else {
                nodes.push_back(leaf());
            }
        }
        if (until != Until::end) ok_ = false;
        return nodes;
    }

    std::string_view text_;
    const std::vector<Token>& tokens_;
    std::size_t at_ = 0;
    int literals_ = 0;
    bool ok_ = true;
};

Node made(Token_kind kind, std::string_view text) {
    Node node;
    node.token = kind;
    node.text = text;
    return node;
}

Node made(Node::Kind kind, Nodes children) {
    Node node;
    node.kind = kind;
    node.children = std::move(children);
    return node;
}

}  // namespace

bool Node::is_any_word(std::initializer_list<std::string_view> words) const noexcept {
    if (kind != Kind::token || token != Token_kind::word) return false;
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return same_text(text, word); });
}

Node word(std::string_view text) {
    return made(Token_kind::word, text);
}
Node composed(std::string text) {
    auto kept = std::make_shared<const std::string>(std::move(text));
    Node node = word(*kept);
    node.composed = std::move(kept);
    return node;
}
Node symbol(std::string_view text) {
    return made(Token_kind::symbol, text);
}
Node group(Nodes children) {
    return made(Node::Kind::group, std::move(children));
}
Node span(Nodes children) {
    return made(Node::Kind::span, std::move(children));
}

std::string_view plain_name(const Node& node) noexcept {
    return node.token == Token_kind::quoted_name ? node.text.substr(1, node.text.size() - 2) : node.text;
}

std::optional<Nodes> parse_tree(std::string_view text, const std::vector<Token>& tokens) {
    return Parser(text, tokens).parse();
}

Nodes flat_nodes(std::string_view text, const std::vector<Token>& tokens) {
    return Parser(text, tokens).flat();
}

std::vector<Nodes> split_at_commas(const Nodes& nodes) {
    std::vector<Nodes> parts;
    if (nodes.empty()) return parts;
    parts.emplace_back();
    for (const Node& node : nodes) {
        if (node.is_symbol(",")) {
            parts.emplace_back();
        } else {
            parts.back().push_back(node);
        }
    }
    return parts;
}

std::size_t find_word(const Nodes& nodes, std::initializer_list<std::string_view> words, std::size_t from) {
    while (from < nodes.size() && !nodes[from].is_any_word(words)) ++from;
    return from;
}

void append(Nodes& nodes, Nodes more) {
    nodes.insert(nodes.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

Nodes cut(Nodes& nodes, std::size_t first, std::size_t last) {
    const auto begin = nodes.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = nodes.begin() + static_cast<std::ptrdiff_t>(last);
    Nodes result(std::make_move_iterator(begin), std::make_move_iterator(end));
    nodes.erase(begin, end);
    return result;
}

}  // namespace cuvexa::dialect
