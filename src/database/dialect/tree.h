// A statement as a tree of its parentheses and CASE expressions, the form in which it is rewritten.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/case.h"
#include "database/dialect/lexer.h"

namespace cuvexa::dialect {

struct Node;
using Nodes = std::vector<Node>;

/// A token, or several nodes that stand together.
struct Node {
    enum class Kind : unsigned char {
        token,
        group,      ///< ( … )
        case_when,  ///< CASE … END
        span,       ///< nodes that a rewriting put in one place; no marks of its own
    };

    Kind kind = Kind::token;
    Token_kind token = Token_kind::unknown;
    bool is_text = false;  ///< its value is known to be text
    bool pinned = false;   ///< a literal that stays in the statement
    int literal = -1;      ///< position among the literals of the source
    std::string_view text;
    Nodes children;
    std::shared_ptr<const std::string> composed;  ///< what `text` refers into where no source and no table has it

    bool is_word(std::string_view word) const noexcept {
        return kind == Kind::token && token == Token_kind::word && same_text(text, word);
    }
    bool is_any_word(std::initializer_list<std::string_view> words) const noexcept;
    bool is_symbol(std::string_view symbol) const noexcept {
        return kind == Kind::token && token == Token_kind::symbol && text == symbol;
    }
    bool is_name() const noexcept {
        return kind == Kind::token && (token == Token_kind::word || token == Token_kind::quoted_name);
    }
    bool is_group() const noexcept { return kind == Kind::group; }
    bool is_text_literal() const noexcept { return literal >= 0 && token == Token_kind::text; }
    bool is_number() const noexcept { return literal >= 0 && token == Token_kind::number; }
};

/// A word of a rewriting.
Node word(std::string_view text);
/// A word that the rewriting itself composed.
Node composed(std::string text);
Node symbol(std::string_view text);
Node group(Nodes children);
Node span(Nodes children);

/// The name without its marks.
std::string_view plain_name(const Node& node) noexcept;

/// The tree of a statement; empty when parentheses or CASE … END do not match or nest too deep: such a text is the
/// engine's to refuse.
std::optional<Nodes> parse_tree(std::string_view text, const std::vector<Token>& tokens);

/// The tokens one after the other, without structure.
Nodes flat_nodes(std::string_view text, const std::vector<Token>& tokens);

/// The parts between top-level commas; an empty list has no part.
std::vector<Nodes> split_at_commas(const Nodes& nodes);

/// The position of the first of those words at or after `from`, or the size.
std::size_t find_word(const Nodes& nodes, std::initializer_list<std::string_view> words, std::size_t from = 0);

/// Adds `more` to the end of `nodes`.
void append(Nodes& nodes, Nodes more);

/// Takes [first, last) out of `nodes`.
Nodes cut(Nodes& nodes, std::size_t first, std::size_t last);

}  // namespace cuvexa::dialect
