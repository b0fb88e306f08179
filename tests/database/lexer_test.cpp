#include "database/dialect/lexer.h"

#include "fixture.h"

namespace cuvexa::tests {
using namespace dialect;
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> pieces(std::string_view text) {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    std::vector<std::string> result;
    for (const Token& token : tokens) result.emplace_back(token.in(text));
    return result;
}

Token_kind only_kind(std::string_view text) {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    EXPECT_EQ(tokens.size(), 1u) << text;
    return tokens.at(0).kind;
}

std::string refusal(std::string_view text) {
    try {
        pieces(text);
    } catch (const Database_error& error) {
        return error.what();
    }
    return {};
}

TEST(Lexer, names_numbers_texts_and_symbols_come_apart) {
    EXPECT_THAT(pieces("SELECT [a b].\"c\",N'x''y'+1.5E+3>=.5 FROM t"),
                ElementsAre("SELECT", "[a b]", ".", "\"c\"", ",", "N'x''y'", "+", "1.5E+3", ">=", ".5", "FROM", "t"));
    EXPECT_EQ(only_kind("Año_2"), Token_kind::word);
    EXPECT_EQ(only_kind("[a]]b]"), Token_kind::quoted_name);
    EXPECT_EQ(only_kind("a$b@c"), Token_kind::word);
    EXPECT_EQ(only_kind("ªºÀȯ"), Token_kind::word);
    EXPECT_EQ(only_kind("U"), Token_kind::word);
    EXPECT_THAT(pieces("U&b|c||'d'!=1"), ElementsAre("U", "&", "b", "|", "c", "||", "'d'", "!=", "1"));
    EXPECT_EQ(only_kind("N'á'"), Token_kind::text);
    EXPECT_EQ(only_kind("1E+15"), Token_kind::number);
    EXPECT_EQ(only_kind("0.1"), Token_kind::number);
}

TEST(Lexer, a_negative_number_after_an_operator_is_no_comment) {
    EXPECT_THAT(pieces("Bc_Saldo + -100"), ElementsAre("Bc_Saldo", "+", "-", "100"));
    EXPECT_THAT(pieces("Bc_Saldo - -100"), ElementsAre("Bc_Saldo", "-", "-", "100"));
}

TEST(Lexer, a_number_that_runs_into_letters_is_refused) {
    for (const char* text : {"123abc", "0DELETE", "1.DELETE", "1e0DELETE", "0xINSERT", "0x1F", "1.2.3", "1..2", "5_",
                             "SELECT a FROM T WHERE 'x' = 'x' OR 1=0DELETE T", "1ñ", ".5a", "1e", "1e+"}) {
        EXPECT_THAT(refusal(text), HasSubstr("un número mal escrito")) << text;
    }
    for (const char* text : {"1.", "1.5E-3", "1+a", "(1)", "1,2", "IN(1)AND"}) EXPECT_EQ(refusal(text), "") << text;
}

TEST(Lexer, what_an_engine_may_take_for_a_blank_is_refused_outside_of_texts) {
    for (const char* character : {"\u00A0", "\u0085", "\u1680", "\u2000", "\u200B", "\u2028", "\u202F", "\u2060",
                                  "\u3000", "\uFEFF", "\u00D7", "\U0001F600", "\uFF07"}) {
        EXPECT_THAT(refusal("SELECT 1" + std::string(character) + "DELETE"),
                    testing::AnyOf(HasSubstr("fuera de un valor, el carácter"), HasSubstr("número mal escrito")));
        EXPECT_THAT(refusal("SELECT a " + std::string(character) + "DELETE"),
                    HasSubstr("fuera de un valor, el carácter"));
        EXPECT_THAT(refusal("SELECT a" + std::string(character)), HasSubstr("fuera de un valor, el carácter"));
        EXPECT_EQ(refusal("SELECT 'a" + std::string(character) + "', [b" + std::string(character) + "]"), "");
    }
    for (const char* control : {"\x01", "\x1B", "\x1F"}) {
        EXPECT_THAT(refusal("SELECT 1 " + std::string(control) + "DELETE"), HasSubstr("carácter de control"));
    }
    EXPECT_EQ(refusal("SELECT Año, ÉPOCA, ª FROM Šk"), "");
}

TEST(Lexer, a_text_with_a_prefix_that_one_engine_knows_is_refused) {
    for (const char* text : {"SELECT E'a\\'b'", "SELECT e'x'", "SELECT B'1'", "SELECT x'41'", "SELECT U&'\\0041'"}) {
        EXPECT_THAT(refusal(text), HasSubstr("texto con prefijo")) << text;
    }
    EXPECT_EQ(refusal("SELECT N'a', LIKE'x', E + 'a', U & 1"), "");
}

TEST(Lexer, a_semicolon_at_the_end_is_dropped) {
    EXPECT_THAT(pieces("SELECT 1 ; \r\n"), ElementsAre("SELECT", "1"));
    EXPECT_THAT(pieces(" \t\r\n"), IsEmpty());
}

TEST(Lexer, a_second_statement_is_refused) {
    EXPECT_THAT(refusal("SELECT 'a'; DROP TABLE t"), HasSubstr("segunda instrucción"));
    EXPECT_THAT(refusal("SELECT 1;;"), HasSubstr("segunda instrucción"));
    EXPECT_THAT(refusal("SELECT 1; -- x"), HasSubstr("segunda instrucción"));
    EXPECT_EQ(refusal("SELECT ';'"), "");
    EXPECT_EQ(refusal("SELECT [a;b]"), "");
}

TEST(Lexer, a_comment_is_refused_unless_it_stands_in_a_text_or_a_name) {
    EXPECT_THAT(refusal("SELECT 1 --x"), HasSubstr("comentario (--)"));
    EXPECT_THAT(refusal("SELECT 1--1"), HasSubstr("comentario (--)"));
    EXPECT_THAT(refusal("SELECT /* x */ 1"), HasSubstr("comentario (/*)"));
    EXPECT_EQ(refusal("SELECT '-- /* */', [a--b], \"c/*d\""), "");
}

TEST(Lexer, what_is_left_open_is_refused) {
    EXPECT_THAT(refusal("SELECT 'O'Brien'"), HasSubstr("Falta la comilla"));
    EXPECT_THAT(refusal("SELECT 'x''"), HasSubstr("Falta la comilla"));
    EXPECT_THAT(refusal("SELECT [a"), HasSubstr("Falta la marca"));
    EXPECT_THAT(refusal("SELECT \"a"), HasSubstr("Falta la marca"));
}

TEST(Lexer, a_parameter_mark_is_refused_because_nothing_would_fill_it) {
    for (const char* text : {"SELECT ?", "SELECT @a", "SELECT :a", "SELECT $a"}) {
        EXPECT_THAT(refusal(text), HasSubstr("parámetro sin valor")) << text;
    }
    EXPECT_EQ(refusal("SELECT '?@:$'"), "");
}

TEST(Lexer, a_nul_byte_is_refused_anywhere) {
    using namespace std::string_view_literals;
    EXPECT_THAT(refusal("SELECT 'a\0b'"sv), HasSubstr("carácter nulo"));
    EXPECT_THAT(refusal("SELECT \0 1"sv), HasSubstr("carácter nulo"));
    EXPECT_THAT(refusal("SELECT [a\0]"sv), HasSubstr("carácter nulo"));
}

TEST(Lexer, malformed_utf8_is_refused_anywhere) {
    for (const char* bytes : {"\xFF", "\xC3", "\x80", "\xC0\xAF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80",
                              "\xF0\x8F\x80\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
        EXPECT_THAT(refusal("SELECT '" + std::string(bytes) + "'"), HasSubstr("UTF-8")) << bytes;
        EXPECT_THAT(refusal("SELECT a" + std::string(bytes)), HasSubstr("UTF-8")) << bytes;
    }
    EXPECT_EQ(refusal("SELECT 'ñ€\xF0\x9F\x98\x80', año"), "");
}

TEST(Lexer, a_refusal_says_that_nothing_was_sent) {
    EXPECT_EQ(refusal("SELECT 1 --"),
              "El texto de la instrucción contiene un comentario (--); la instrucción no se envió a la base de datos");
}

TEST(Lexer, doubled_quotes_in_a_text_stand_for_one) {
    std::string scratch;
    EXPECT_EQ(text_content("'abc'", scratch), "abc");
    EXPECT_EQ(text_content("N'abc'", scratch), "abc");
    EXPECT_EQ(text_content("''", scratch), "");
    EXPECT_EQ(text_content("''''", scratch), "'");
    EXPECT_EQ(text_content("'a''b''''c'", scratch), "a'b''c");
}

}  // namespace
}  // namespace cuvexa::tests
