#include "database/shape.h"

namespace cuvexa::database {

void Shape::read(std::string_view text, const std::vector<dialect::Token>& tokens) {
    text_ = text;
    marked_.clear();
    literals_.clear();
    std::size_t from = 0;
    for (const dialect::Token& token : tokens) {
        if (!token.is_literal()) continue;
        marked_.append(text, from, token.begin - from);
        marked_.push_back(mark_(token.kind, token.in(text)));
        literals_.push_back(token);
        from = token.begin + token.length;
    }
    marked_.append(text, from);
}

void Shape::shrink(std::size_t largest) {
    if (marked_.capacity() > largest) marked_ = {};
}

}  // namespace cuvexa::database
