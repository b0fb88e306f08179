#include "database/sqlite/kept_statements.h"

#include <algorithm>
#include <iterator>

namespace cuvexa::sqlite {

// Neither mark occurs in a text that the lexer lets through.
void Shape::read(std::string_view text, const std::vector<dialect::Token>& tokens) {
    text_ = text;
    marked_.clear();
    literals_.clear();
    std::size_t from = 0;
    for (const dialect::Token& token : tokens) {
        if (!token.is_literal()) continue;
        marked_.append(text, from, token.begin - from);
        marked_.push_back(token.kind == dialect::Token_kind::text ? '?' : '\0');
        literals_.push_back(token);
        from = token.begin + token.length;
    }
    marked_.append(text, from);
}

void Shape::shrink(std::size_t largest) {
    if (marked_.capacity() > largest) marked_ = {};
}

bool Kept_statement::serves(const Shape& other) const {
    return std::all_of(pinned.begin(), pinned.end(),
                       [&](const auto& literal) { return other.literal(literal.first) == literal.second; });
}

Kept_statement* Kept_statements::find(const Shape& shape) {
    const auto [first, last] = by_shape_.equal_range(shape.marked());
    const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second->serves(shape); });
    if (found == last) return nullptr;
    kept_.splice(kept_.begin(), kept_, found->second);
    return &kept_.front();
}

Kept_statement* Kept_statements::keep(Kept_statement&& statement) {
    while (kept_.size() >= most_) forget_oldest();
    kept_.push_front(std::move(statement));
    by_shape_.emplace(kept_.front().shape, kept_.begin());
    return &kept_.front();
}

void Kept_statements::forget_oldest() {
    const auto oldest = std::prev(kept_.end());
    const auto [first, last] = by_shape_.equal_range(oldest->shape);
    by_shape_.erase(std::find_if(first, last, [&](const auto& entry) { return entry.second == oldest; }));
    kept_.pop_back();
}

}  // namespace cuvexa::sqlite
