#include "database/renewable.h"

#include <algorithm>

#include "core/case.h"
#include "database/dialect/lexer.h"

namespace cuvexa::database {
namespace {

std::string_view first_word(std::string_view text) noexcept {
    constexpr std::string_view blanks = " \t\r\n\f\v";
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    const std::size_t end = std::min(text.find_first_of(" \t\r\n\f\v;", begin), text.size());
    return text.substr(begin, end - begin);
}

bool begins(std::string_view text) noexcept {
    return same_text(first_word(text), "BEGIN");
}

bool undoes(std::string_view text) noexcept {
    return same_text(first_word(text), "ROLLBACK");
}

bool keeps(std::string_view text) noexcept {
    return same_text(first_word(text), "COMMIT");
}

/// INSERT [INTO] T … T …
bool asks_the_table_that_it_fills(std::string_view text) {
    std::vector<dialect::Token> tokens;
    dialect::tokenize(text, tokens);
    std::vector<std::string_view> words;
    for (const dialect::Token& token : tokens) {
        if (token.kind == dialect::Token_kind::word) words.push_back(token.in(text));
    }
    if (words.size() < 2 || !same_text(words[0], "INSERT")) return false;
    const auto table = words.begin() + (same_text(words[1], "INTO") ? 2 : 1);
    return table < words.end() &&
           std::any_of(table + 1, words.end(), [&](std::string_view word) { return same_text(word, *table); });
}

}  // namespace

bool Unit_watch::lets_send(std::string_view text) {
    if (unit_ != Unit::over && unit_ != Unit::gone) return true;
    const bool over = unit_ == Unit::over;
    if (undoes(text) || keeps(text) || !over) unit_ = Unit::none;
    if (undoes(text)) return false;
    if (!over) return true;
    throw Database_error(
        "La unidad de trabajo terminó cuando se perdió la conexión con el servidor de base de datos; no se conservó "
        "nada de ella");
}

void Unit_watch::ran(std::string_view text) noexcept {
    if (begins(text)) unit_ = Unit::open;
    if (undoes(text) || keeps(text)) unit_ = Unit::none;
}

bool Unit_watch::goes_on_with_failed(std::string_view text) const noexcept {
    return unit_ == Unit::failed && !keeps(text) && !undoes(text);
}

bool Unit_watch::asked_for_its_key(std::string_view text) const {
    return unit_ == Unit::open && asks_the_table_that_it_fills(text);
}

bool Unit_watch::cannot_keep(std::string_view text) const noexcept {
    return unit_ == Unit::failed && keeps(text);
}

// A unit that could not be kept has been undone.
void Unit_watch::failed(std::string_view text, bool ends_unit) noexcept {
    if (keeps(text)) {
        unit_ = Unit::none;
    } else if (unit_ == Unit::open && ends_unit) {
        unit_ = Unit::failed;
    }
}

void Unit_watch::lost(std::string_view text) noexcept {
    const bool inside = unit_ == Unit::open || unit_ == Unit::failed;
    unit_ = inside && !keeps(text) && !undoes(text) ? Unit::over : Unit::gone;
}

}  // namespace cuvexa::database
