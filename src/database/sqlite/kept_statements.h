// Prepared statements kept for texts of the same shape.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "database/dialect/lexer.h"
#include "database/row_set.h"
#include "database/sqlite/database.h"

namespace cuvexa::sqlite {

/// What a text is without the values of its literals.
class Shape {
public:
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
    std::string_view text_;
    std::string marked_;
    std::vector<dialect::Token> literals_;
};

struct Kept_statement {
    std::string shape;
    std::vector<std::pair<std::size_t, std::string>> pinned;  ///< literals that stayed in the text
    Statement statement;
    database::Column_names columns;
    int parameters = 0;  ///< -1: prepared with its literals in place, good for one text
    int repreparations = 0;

    bool serves(const Shape& other) const;
};

/// So many statements at most: the one used last is forgotten last.
class Kept_statements {
public:
    explicit Kept_statements(std::size_t most) : most_(most) {}

    /// The statement for that shape, or null.
    Kept_statement* find(const Shape& shape);
    Kept_statement* keep(Kept_statement&& statement);
    std::size_t size() const noexcept { return kept_.size(); }

private:
    void forget_oldest();

    std::size_t most_;
    std::list<Kept_statement> kept_;  ///< last used first
    std::unordered_multimap<std::string_view, std::list<Kept_statement>::iterator> by_shape_;
};

}  // namespace cuvexa::sqlite
