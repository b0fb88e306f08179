#include "core/statement.h"

#include <cstdio>

#include "core/number_text.h"

namespace cuvexa {

Piece::Piece(double number) : length_(write_number(number, digits_)) {}

Piece::Piece(int number) : length_(static_cast<std::size_t>(std::snprintf(digits_, sizeof digits_, "%d", number))) {}

void append_filled(std::string& out, std::string_view literal, std::initializer_list<std::string_view> pieces) {
    auto piece = pieces.begin();
    std::size_t from = 0;
    for (std::size_t hole; (hole = literal.find("{}", from)) != std::string_view::npos; from = hole + 2) {
        out.append(literal, from, hole - from);
        out.append(*piece++);
    }
    out.append(literal, from);
}

}  // namespace cuvexa
