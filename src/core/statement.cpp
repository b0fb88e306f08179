#include "core/statement.h"

#include <cstdio>

#include "core/number_text.h"
#include "cuvexa/errors.h"

namespace cuvexa {
namespace {

/// Enough of a text to recognise it by, cut between characters.
std::string_view beginning(std::string_view text) {
    constexpr std::size_t most = 200;
    if (text.size() <= most) return text;
    std::size_t end = most;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return text.substr(0, end);
}

bool doubles_apostrophes(std::string_view text) {
    for (std::size_t at = text.find('\''); at != std::string_view::npos; at = text.find('\'', at)) {
        const std::size_t end = text.find_first_not_of('\'', at);
        const std::size_t run = (end == std::string_view::npos ? text.size() : end) - at;
        if (run % 2 != 0) return false;
        at += run;
    }
    return true;
}

}  // namespace

Text_list::Text_list(std::string_view texts) {
    std::string text;
    const auto add = [&] {
        if (breaks_out_.empty() && !doubles_apostrophes(text)) breaks_out_ = text;
        text_.append(text_.empty() ? "'" : ",'").append(text) += '\'';
        text.clear();
    };
    for (const char c : texts) {
        if (c == ',') {
            add();
        } else if (c != ' ') {
            text += c;
        }
    }
    add();
}

std::string_view Text_list::checked() const {
    require_doubled_apostrophes(breaks_out_);
    return text_;
}

void require_doubled_apostrophes(std::string_view text) {
    if (doubles_apostrophes(text)) return;
    const std::string_view shown = beginning(text);
    throw Database_error(
        filled("El valor: {}{}, lleva un apóstrofo que debe escribirse doble (''); la instrucción no se "
               "envió a la base de datos",
               shown, shown.size() < text.size() ? "…" : ""));
}

Piece::Piece(double number) : length_(write_number(number, digits_)) {}

Piece::Piece(int number) : length_(static_cast<std::size_t>(std::snprintf(digits_, sizeof digits_, "%d", number))) {}

void append_filled(std::string& out, std::string_view literal, std::initializer_list<std::string_view> pieces,
                   Quoted_holes quoted) {
    auto piece = pieces.begin();
    std::size_t from = 0;
    for (std::size_t hole; (hole = literal.find("{}", from)) != std::string_view::npos; from = hole + 2) {
        out.append(literal, from, hole - from);
        if ((quoted & 1) != 0) require_doubled_apostrophes(*piece);
        quoted >>= 1;
        out.append(*piece++);
    }
    out.append(literal, from);
}

}  // namespace cuvexa
