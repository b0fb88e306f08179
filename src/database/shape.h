// What statements have in common that differ in their literals only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "database/dialect/lexer.h"

namespace cuvexa::database {

/// What a text is without the values of its literals.
class Shape {
public:
    /// The mark that stands in place of a literal, a character that no text has outside of its literals. Literals of
    /// different marks make different shapes.
    using Mark = char (*)(dialect::Token_kind kind, std::string_view literal);

    explicit Shape(Mark mark) : mark_(mark) {}

    /// `tokens` are those of the text, which must stay as it is while the shape is in use.
    void read(std::string_view text, const std::vector<dialect::Token>& tokens);

    /// The text with a mark in place of each literal.
    const std::string& marked() const noexcept { return marked_; }

    std::size_t literals() const noexcept { return literals_.size(); }
    bool is_number(std::size_t literal) const { return literals_[literal].kind == dialect::Token_kind::number; }
    std::string_view literal(std::size_t literal) const { return literals_[literal].in(text_); }

    /// Gives its memory back when it took more than that.
    void shrink(std::size_t largest);

private:
    Mark mark_;
    std::string_view text_;
    std::string marked_;
    std::vector<dialect::Token> literals_;
};

}  // namespace cuvexa::database
