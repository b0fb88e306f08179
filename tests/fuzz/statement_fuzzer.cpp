// Any text as a statement: what is read is read whole, and what the rewriting for either engine gives is one statement.
#include "cuvexa/errors.h"
#include "database/dialect/batch.h"
#include "database/dialect/lexer.h"
#include "database/dialect/postgresql.h"
#include "database/dialect/sqlite.h"
#include "database/dialect/translation.h"
#include "fuzz/oracle.h"

namespace cuvexa::fuzz {
namespace {

using namespace dialect;

void check_tokens(std::string_view text, const std::vector<Token>& tokens) {
    std::size_t end = 0;
    const auto is_blank = [&](std::string_view between) {
        return between.find_first_not_of(" \t\r\n\v\f") == std::string_view::npos;
    };
    for (const Token& token : tokens) {
        require(token.begin >= end && token.length > 0 && token.begin + token.length <= text.size(),
                "tokens follow each other within the text", text);
        require(is_blank(text.substr(end, token.begin - end)), "nothing stands between tokens", text);
        end = token.begin + token.length;
        if (token.kind != Token_kind::text) continue;
        const std::string_view literal = token.in(text);
        require(literal.back() == '\'' && skeleton(literal).ends_with("''"), "a text ends with its quote", literal);
    }
    std::string rest(text.substr(end));
    if (const auto semicolon = rest.find(';'); semicolon != std::string::npos) rest.erase(semicolon, 1);
    require(is_blank(rest), "nothing stands behind the last token but one ;", text);
}

void check_translation(std::string_view text, const std::vector<Token>& tokens, const Dialect& to) {
    const Translation translation = translate(text, tokens, to, {"fecha"});
    std::size_t literals = 0;
    for (const Token& token : tokens) literals += token.is_literal() ? 1 : 0;
    for (const std::size_t pinned : translation.pinned()) {
        require(pinned < literals, "what is pinned is a literal", text);
    }
    const std::string whole = translation.with_literals();
    for (const std::string& engine : {whole, translation.with_parameters()}) {
        const std::string bare = skeleton(engine);
        for (const char* const mark : {"\x01", ";", "--", "/*"}) {
            require(bare.find(mark) == std::string::npos, "the rewriting gives one statement without comments", text,
                    engine);
        }
    }
    require(skeleton(whole).find('?') == std::string::npos, "literals stand in place", text, whole);
}

}  // namespace
}  // namespace cuvexa::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cuvexa::fuzz;
    const std::string_view text = text_of(data, size);
    std::vector<cuvexa::dialect::Token> tokens;
    try {
        cuvexa::dialect::tokenize(text, tokens);
    } catch (const cuvexa::Database_error&) {
        return 0;
    }
    check_tokens(text, tokens);
    try {
        cuvexa::dialect::refuse_batch(text, tokens);
    } catch (const cuvexa::Database_error&) {
    }
    check_translation(text, tokens, cuvexa::dialect::sqlite);
    check_translation(text, tokens, cuvexa::dialect::postgresql);
    return 0;
}
