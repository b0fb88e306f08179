#include "database/dialect/translation.h"

#include <algorithm>
#include <optional>

#include "core/case.h"
#include "database/dialect/rewriting.h"
#include "database/dialect/tree.h"

namespace cuvexa::dialect {
namespace {

void add_pieces(const Nodes& nodes, bool folds_names, std::vector<Translation::Piece>& pieces);

void add_piece(const Node& node, bool folds_names, std::vector<Translation::Piece>& pieces) {
    switch (node.kind) {
        case Node::Kind::token:
            pieces.push_back({node.text, node.literal, node.pinned,
                              folds_names && node.token == Token_kind::quoted_name, node.composed});
            return;
        case Node::Kind::span:
            add_pieces(node.children, folds_names, pieces);
            return;
        case Node::Kind::group:
            pieces.push_back({"("});
            break;
        case Node::Kind::case_when:
            pieces.push_back({"CASE"});
            break;
    }
    add_pieces(node.children, folds_names, pieces);
    pieces.push_back({node.kind == Node::Kind::group ? ")" : "END"});
}

void add_pieces(const Nodes& nodes, bool folds_names, std::vector<Translation::Piece>& pieces) {
    for (const Node& node : nodes) add_piece(node, folds_names, pieces);
}

bool is_definition(const Nodes& nodes) {
    return !nodes.empty() && nodes.front().is_any_word({"CREATE", "ALTER", "DROP", "PRAGMA"});
}

// Whether the statement is these words and nothing else.
bool is_statement(const Nodes& nodes, std::string_view words) {
    for (const Node& node : nodes) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (end == 0 || !node.is_word(words.substr(0, end))) return false;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return words.empty();
}

// The text of a literal in the form that every engine reads.
std::string_view engine_literal(std::string_view literal) {
    return literal.front() == 'N' || literal.front() == 'n' ? literal.substr(1) : literal;
}

// [Name] as "name"; only the letters that the engine folds itself.
std::string folded_name(std::string_view name) {
    const char mark = name.front() == '[' ? ']' : name.front();
    std::string result = "\"";
    for (std::size_t i = 1; i + 1 < name.size(); ++i) {
        result += lower_ascii(name[i]);
        if (name[i] == mark) ++i;
        if (name[i] == '"') result += '"';
    }
    return result += '"';
}

void add_text(std::string& result, const Translation::Piece& piece) {
    if (piece.folded_name) {
        result += folded_name(piece.text);
    } else {
        result += piece.literal >= 0 ? engine_literal(piece.text) : piece.text;
    }
}

}  // namespace

std::vector<std::size_t> Translation::pinned() const {
    std::vector<std::size_t> result;
    for (const Piece& piece : pieces_) {
        if (piece.pinned) result.push_back(static_cast<std::size_t>(piece.literal));
    }
    return result;
}

std::string Translation::with_literals() const {
    std::string result;
    for (const Piece& piece : pieces_) {
        if (!result.empty()) result += ' ';
        add_text(result, piece);
    }
    return result;
}

std::string Translation::with_parameters(char mark) const {
    std::string result;
    for (const Piece& piece : pieces_) {
        if (!result.empty()) result += ' ';
        if (piece.literal < 0 || piece.pinned) {
            add_text(result, piece);
        } else {
            (result += mark) += std::to_string(piece.literal + 1);
        }
    }
    return result;
}

Translation translate(std::string_view text, const std::vector<Token>& tokens, const Dialect& dialect,
                      const Date_columns& dates) {
    std::vector<Translation::Piece> pieces;
    std::optional<Nodes> nodes = parse_tree(text, tokens);
    if (!nodes) {
        add_pieces(flat_nodes(text, tokens), dialect.folds_names, pieces);
        return {std::move(pieces), true};
    }
    for (const Statement_rule& rule : dialect.statements) {
        if (is_statement(*nodes, rule.statement)) return {{{rule.replacement}}, true};
    }
    const bool definition = is_definition(*nodes);
    if (!dates.empty() && !definition) fill_empty_dates(*nodes, dates);
    add_pieces(
        definition ? rewrite_definition(std::move(*nodes), dialect) : rewrite_statement(std::move(*nodes), dialect),
        dialect.folds_names, pieces);
    return {std::move(pieces), !definition};
}

}  // namespace cuvexa::dialect
