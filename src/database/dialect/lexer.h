// Reads a statement once: what is a literal, what is a name, and what must not reach an engine at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cuvexa::dialect {

/// What a piece of a statement is.
enum class Token_kind : std::uint8_t {
    word,         ///< keyword or name
    quoted_name,  ///< [name] or "name"
    text,         ///< 'text' or N'text'
    number,       ///< 12, 1.5, .5, 1E+15; never signed
    symbol,       ///< operator, comma, dot
    open,         ///< (
    close,        ///< )
    unknown,      ///< anything else; the engine is left to say what is wrong with it
};

/// A piece of a statement: where it starts and how long it is in the text that was read.
struct Token {
    Token_kind kind = Token_kind::unknown;
    std::size_t begin = 0;
    std::size_t length = 0;

    bool is_literal() const noexcept { return kind == Token_kind::text || kind == Token_kind::number; }
    std::string_view in(std::string_view text) const noexcept { return text.substr(begin, length); }
};

/// Reads `text` into `tokens` (emptied first; its memory is reused). A blank text gives none. A single `;` at the end
/// is dropped. Throws `Database_error`, in the operator's language, for what no adapter may pass on: a second statement
/// after `;`, a comment, a quote left open, a parameter mark, a NUL byte, malformed UTF-8, a number that runs into letters, a
/// text with a prefix other than N, a control character, and outside of texts and marked names any character beyond ASCII
/// that is no Latin letter: what one engine takes for part of a word is a blank to another.
void tokenize(std::string_view text, std::vector<Token>& tokens);

/// The content of a text literal as it stands in a statement ('…' or N'…'). Refers into `literal` unless it holds
/// doubled quotes; then it is unescaped into `scratch`, to which the result refers.
std::string_view text_content(std::string_view literal, std::string& scratch);

}  // namespace cuvexa::dialect
