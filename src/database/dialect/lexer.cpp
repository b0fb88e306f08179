#include "database/dialect/lexer.h"

#include <algorithm>
#include <array>

#include "core/case.h"
#include "core/utf8.h"
#include "cuvexa/errors.h"

namespace cuvexa::dialect {
namespace {

enum class Class : std::uint8_t { unknown, blank, letter, digit, quote, nul, high, symbol, special };

// Characters that need a look at what follows are `special`.
constexpr std::array<Class, 256> make_classes() {
    std::array<Class, 256> classes{};
    for (int c = 0x80; c < 256; ++c) classes[c] = Class::high;
    for (int c = 'a'; c <= 'z'; ++c) classes[c] = Class::letter;
    for (int c = 'A'; c <= 'Z'; ++c) classes[c] = Class::letter;
    for (int c = '0'; c <= '9'; ++c) classes[c] = Class::digit;
    for (const char c : {' ', '\t', '\r', '\n', '\f', '\v'}) classes[static_cast<unsigned char>(c)] = Class::blank;
    for (const char c : {'+', '*', '%', '&', '^', '~', ',', '='}) {
        classes[static_cast<unsigned char>(c)] = Class::symbol;
    }
    for (const char c : {'-', '/', '<', '>', '!', '|', '.', '(', ')', '[', '"', ';', '?', '@', ':', '$'}) {
        classes[static_cast<unsigned char>(c)] = Class::special;
    }
    classes['_'] = classes['#'] = Class::letter;
    classes['\''] = Class::quote;
    classes[0] = Class::nul;
    return classes;
}

constexpr auto classes = make_classes();

[[noreturn]] void refuse(const char* reason) {
    throw Database_error(std::string(reason) + "; la instrucción no se envió a la base de datos");
}

class Reader {
public:
    Reader(std::string_view text, std::vector<Token>& tokens) : text_(text), tokens_(tokens) {}

    void read() {
        while (at_ < text_.size()) read_one();
    }

private:
    Class look(std::size_t at) const {
        return at < text_.size() ? classes[static_cast<unsigned char>(text_[at])] : Class::blank;
    }
    char character(std::size_t at) const { return at < text_.size() ? text_[at] : ' '; }

    void add(Token_kind kind, std::size_t end) {
        tokens_.push_back({kind, at_, end - at_});
        at_ = end;
    }

    void read_one() {
        switch (look(at_)) {
            case Class::blank:
                ++at_;
                return;
            case Class::letter:
            case Class::high:
                return read_word();
            case Class::digit:
                return read_number();
            case Class::quote:
                return add(Token_kind::text, end_of_quoted(at_, '\''));
            case Class::symbol:
                return add(Token_kind::symbol, at_ + 1);
            case Class::special:
                return read_special();
            case Class::nul:
                refuse("El texto de la instrucción contiene un carácter nulo");
            case Class::unknown:
                if (static_cast<unsigned char>(text_[at_]) < ' ') {
                    refuse("El texto de la instrucción contiene un carácter de control");
                }
                return add(Token_kind::unknown, at_ + 1);
        }
    }

    void read_word() {
        if ((text_[at_] == 'N' || text_[at_] == 'n') && look(at_ + 1) == Class::quote) {
            return add(Token_kind::text, end_of_quoted(at_ + 1, '\''));
        }
        const std::size_t end = end_of_word(at_);
        if (marks_text(end)) refuse("El texto de la instrucción contiene un texto con prefijo (E, B, X o U&)");
        add(Token_kind::word, end);
    }

    // E'…', B'…', X'…' and U&'…' are texts that some engine reads by rules of its own.
    bool marks_text(std::size_t end) const {
        if (end - at_ != 1) return false;
        const char letter = upper_ascii(text_[at_]);
        if (letter == 'U') return character(end) == '&' && look(end + 1) == Class::quote;
        return (letter == 'E' || letter == 'B' || letter == 'X') && look(end) == Class::quote;
    }

    std::size_t end_of_word(std::size_t at) const {
        for (;;) {
            const Class c = look(at);
            if (c == Class::high) {
                at = end_of_letter(at);
            } else if (c == Class::letter || c == Class::digit || character(at) == '$' || character(at) == '@') {
                ++at;
            } else {
                return at;
            }
        }
    }

    // 0DELETE is one word to nobody: a server reads a number and a statement.
    void read_number() {
        std::size_t end = at_;
        while (look(end) == Class::digit) ++end;
        if (character(end) == '.') {
            ++end;
            while (look(end) == Class::digit) ++end;
        }
        if (character(end) == 'e' || character(end) == 'E') end = end_of_exponent(end);
        if (character(end) == '.' || end_of_word(end) != end) {
            refuse("El texto de la instrucción contiene un número mal escrito");
        }
        add(Token_kind::number, end);
    }

    std::size_t end_of_exponent(std::size_t at) const {
        std::size_t end = at + 1;
        if (character(end) == '+' || character(end) == '-') ++end;
        if (look(end) != Class::digit) return at;
        while (look(end) == Class::digit) ++end;
        return end;
    }

    void read_special() {
        const char c = text_[at_], next = character(at_ + 1);
        switch (c) {
            case '-':
                if (next == '-') refuse("El texto de la instrucción contiene un comentario (--)");
                return add(Token_kind::symbol, at_ + 1);
            case '/':
                if (next == '*') refuse("El texto de la instrucción contiene un comentario (/*)");
                return add(Token_kind::symbol, at_ + 1);
            case '<':
                return add(Token_kind::symbol, at_ + (next == '=' || next == '>' ? 2 : 1));
            case '>':
            case '!':
                return add(Token_kind::symbol, at_ + (next == '=' ? 2 : 1));
            case '|':
                return add(Token_kind::symbol, at_ + (next == '|' ? 2 : 1));
            case '.':
                return look(at_ + 1) == Class::digit ? read_number() : add(Token_kind::symbol, at_ + 1);
            case '(':
                return add(Token_kind::open, at_ + 1);
            case ')':
                return add(Token_kind::close, at_ + 1);
            case '[':
                return add(Token_kind::quoted_name, end_of_quoted(at_, ']'));
            case '"':
                return add(Token_kind::quoted_name, end_of_quoted(at_, '"'));
            case ';':
                return read_end();
            default:
                refuse("El texto de la instrucción contiene un parámetro sin valor (?, @, : o $)");
        }
    }

    void read_end() {
        for (++at_; at_ < text_.size(); ++at_) {
            if (look(at_) != Class::blank) {
                refuse("El texto de la instrucción contiene una segunda instrucción después de «;»");
            }
        }
    }

    // Past the closing mark; a doubled mark stands for itself.
    std::size_t end_of_quoted(std::size_t open, char mark) const {
        std::size_t at = open + 1;
        while (at < text_.size()) {
            const char c = text_[at];
            if (c == mark) {
                if (character(at + 1) != mark) return at + 1;
                at += 2;
            } else if (static_cast<unsigned char>(c) >= 0x80) {
                at = end_of_sequence(at);
            } else if (c == '\0') {
                refuse("El texto de la instrucción contiene un carácter nulo");
            } else {
                ++at;
            }
        }
        refuse(mark == '\'' ? "Falta la comilla que cierra un texto de la instrucción"
                            : "Falta la marca que cierra un nombre de la instrucción");
    }

    // Past a letter of the Latin alphabets. Any other character outside of texts and marked names is refused: an engine may
    // take it for a blank.
    std::size_t end_of_letter(std::size_t at) const {
        const std::size_t end = end_of_sequence(at);
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text_[at + i]); };
        const unsigned code = end - at == 2 ? (byte(0) & 0x1Fu) << 6 | (byte(1) & 0x3Fu) : 0;
        const bool letter =
            (code >= 0xC0 && code <= 0x24F && code != 0xD7 && code != 0xF7) || code == 0xAA || code == 0xBA;
        if (!letter) {
            refuse(("El texto de la instrucción contiene, fuera de un valor, el carácter «" +
                    std::string(text_.substr(at, end - at)) + "»")
                       .c_str());
        }
        return end;
    }

    std::size_t end_of_sequence(std::size_t at) const {
        const std::size_t length = utf8_length(text_, at);
        if (length == 0) refuse("El texto de la instrucción no es UTF-8 válido");
        return at + length;
    }

    std::string_view text_;
    std::vector<Token>& tokens_;
    std::size_t at_ = 0;
};

}  // namespace

void tokenize(std::string_view text, std::vector<Token>& tokens) {
    tokens.clear();
    Reader(text, tokens).read();
}

std::string_view text_content(std::string_view literal, std::string& scratch) {
    const std::size_t open = literal.front() == '\'' ? 1 : 2;
    const std::string_view inside = literal.substr(open, literal.size() - open - 1);
    std::size_t quote = inside.find('\'');
    if (quote == std::string_view::npos) return inside;
    scratch.clear();
    std::size_t from = 0;
    for (; quote != std::string_view::npos; quote = inside.find('\'', from)) {
        scratch.append(inside, from, quote + 1 - from);
        from = quote + 2;
    }
    scratch.append(inside, from);
    return scratch;
}

}  // namespace cuvexa::dialect
