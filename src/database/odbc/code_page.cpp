#include "database/odbc/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <vector>

#include "core/utf8.h"
#include "cuvexa/errors.h"
#include "database/dialect/lexer.h"

namespace cuvexa::odbc {
namespace {

constexpr int utf8 = 65001, latin_1 = 28591;

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void* converter_to(int number) {
    if (number == 0 || number == utf8) return nullptr;
    const std::string name = number == latin_1 ? "ISO-8859-1" : "CP" + std::to_string(number);
    const iconv_t converter = iconv_open(name.c_str(), "UTF-8");
    // NOLINTNEXTLINE(performance-no-int-to-ptr): this is how iconv_open says that it failed
    return converter == reinterpret_cast<iconv_t>(-1) ? nullptr : converter;
}

bool takes(void* converter, std::string_view character) {
    std::array<char, 16> in{}, out{};
    std::copy(character.begin(), character.end(), in.begin());
    char *from = in.data(), *to = out.data();
    std::size_t left = character.size(), room = out.size();
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    // Nothing was put in a character's place: what is not reversible is counted.
    return iconv(converter, &from, &left, &to, &room) == 0;
}

}  // namespace

void Code_page::Close::operator()(void* converter) const noexcept {
    iconv_close(converter);
}

Code_page::Code_page(int number) : number_(number), converter_(converter_to(number)) {}

std::string Code_page::lacking(std::string_view text) const {
    std::string found;
    if (!converter_ || is_ascii(text)) return found;
    for (std::size_t at = 0, length; at < text.size(); at += length) {
        length = std::max<std::size_t>(utf8_length(text, at), 1);
        const std::string_view character = text.substr(at, length);
        if (length > 1 && found.find(character) == std::string::npos && !takes(converter_.get(), character)) {
            found += character;
        }
    }
    return found;
}

void Code_page::require_kept(std::string_view statement) const {
    if (!converter_ || is_ascii(statement)) return;
    std::vector<dialect::Token> tokens;
    tokenize(statement, tokens);
    std::string texts;
    for (const dialect::Token& token : tokens) {
        const std::string_view text = token.in(statement);
        if (token.kind == dialect::Token_kind::text && text.starts_with('\'')) texts += text;
    }
    const std::string characters = lacking(texts);
    if (characters.empty()) return;
    throw Database_error("La base de datos no guarda estos caracteres: " + characters +
                         " (su página de códigos es la " + std::to_string(number_) +
                         "); la instrucción no se envió a la base de datos");
}

}  // namespace cuvexa::odbc
