// Any value in any hole of any statement that stands in the sources: it is refused, or the statement keeps its shape, and
// the value arrives as it was meant.
#include <set>

#include "core/statement.h"
#include "cuvexa/errors.h"
#include "database/dialect/batch.h"
#include "database/dialect/lexer.h"
#include "database/dialect/postgresql.h"
#include "database/dialect/sqlite.h"
#include "database/dialect/translation.h"
#include "fuzz/oracle.h"
#include "statements/source_statements.h"

namespace cuvexa::fuzz {
namespace {

using namespace dialect;

/// A literal of the sources; each hole between quotes is one where a value goes.
struct Template {
    std::string text;
    std::vector<std::size_t> quoted;  ///< which of its holes

    /// With a value in that hole and what is harmless in the others.
    std::string filled(std::size_t hole, std::string_view value) const {
        std::string out;
        std::size_t number = 0;
        bool in_quotes = false;
        for (std::size_t at = 0; at < text.size(); ++at) {
            in_quotes ^= text[at] == '\'';
            if (text.compare(at, 2, "{}") != 0) {
                out += text[at];
                continue;
            }
            out += number == hole ? value : in_quotes ? "x" : "1";
            ++number;
            ++at;
        }
        return out;
    }
};

std::vector<Token> tokens_of(std::string_view text) {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    return tokens;
}

std::vector<Template> read_templates() {
    std::vector<Template> found;
    for (const char* const room :
         {"core", "receipts", "checks", "banks", "deposits", "requests", "advances", "dialogs", "suite"}) {
        for (const auto& [file, text] : tests::source_statements(room)) {
            Template made{text, {}};
            bool in_quotes = false;
            for (std::size_t at = 0, number = 0; at < text.size(); ++at) {
                in_quotes ^= text[at] == '\'';
                if (text.compare(at, 2, "{}") != 0) continue;
                if (in_quotes) made.quoted.push_back(number);
                ++number;
            }
            try {
                tokens_of(made.filled(std::size_t(-1), ""));
            } catch (const Database_error&) {
                continue;  // a piece of a statement that its source puts together
            }
            if (!made.quoted.empty()) found.push_back(std::move(made));
        }
    }
    require(found.size() > 100, "the statements of the sources were found", std::to_string(found.size()));
    return found;
}

bool is_batch(std::string_view text, const std::vector<Token>& tokens) {
    try {
        refuse_batch(text, tokens);
        return false;
    } catch (const Database_error&) {
        return true;
    }
}

/// The value as a reader of the statement is to see it.
std::string meant(std::string_view value) {
    std::string plain;
    for (std::size_t at = 0; at < value.size(); ++at) {
        plain += value[at];
        if (value[at] == '\'') ++at;
    }
    return plain;
}

void check(const std::string& harmless, const std::string& filled, std::string_view value) {
    std::vector<Token> tokens;
    try {
        tokens = tokens_of(filled);
    } catch (const Database_error&) {
        return;  // a NUL, no UTF-8: never sent
    }
    const std::vector<Token> plain = tokens_of(harmless);
    require(tokens.size() == plain.size(), "a value leaves the statement its shape", harmless, filled);
    int different = 0;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        require(tokens[at].kind == plain[at].kind, "a value leaves each part what it is", harmless, filled);
        if (tokens[at].in(filled) == plain[at].in(harmless)) continue;
        ++different;
        std::string scratch;
        const std::string content(text_content(tokens[at].in(filled), scratch));
        require(tokens[at].kind == Token_kind::text && content.find(meant(value)) != std::string::npos,
                "a value arrives as it was meant", harmless, filled);
    }
    require(different <= 1, "a value fills its own hole alone", harmless, filled);
    require(is_batch(filled, tokens) == is_batch(harmless, plain), "a value begins no statement", harmless, filled);
    for (const Dialect& to : {sqlite, postgresql}) {
        const Translation a = translate(harmless, plain, to), b = translate(filled, tokens, to);
        require(skeleton(a.with_literals()) == skeleton(b.with_literals()), "the rewriting is the same for each value",
                a.with_literals(), b.with_literals());
        require(skeleton(a.with_parameters()) == skeleton(b.with_parameters()),
                "the rewriting with parameters is the same for each value", a.with_parameters(), b.with_parameters());
    }
}

}  // namespace
}  // namespace cuvexa::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cuvexa::fuzz;
    static const std::vector<Template> templates = read_templates();
    if (size < 3) return 0;
    const Template& chosen = templates[(data[0] * 256u + data[1]) % templates.size()];
    const std::size_t hole = chosen.quoted[data[2] % chosen.quoted.size()];
    const std::string_view value = text_of(data + 3, size - 3);
    try {
        cuvexa::require_doubled_apostrophes(value);
    } catch (const cuvexa::Database_error&) {
        return 0;
    }
    check(chosen.filled(hole, "x"), chosen.filled(hole, value), value);
    return 0;
}
