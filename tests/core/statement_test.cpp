// Texts with holes.
#include "core/statement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "cuvexa/errors.h"

namespace cuvexa::tests {
namespace {

TEST(Holes, are_filled_in_order_with_values_as_they_stand) {
    EXPECT_EQ(filled("WHERE A = '{}' AND B = {} AND C = {}", "x", 2.5, 7), "WHERE A = 'x' AND B = 2.5 AND C = 7");
    EXPECT_EQ(filled("nothing to fill"), "nothing to fill");
    EXPECT_EQ(filled("{}{}", std::string("a"), std::string_view("b")), "ab");
}

TEST(Holes, a_value_with_quotes_or_holes_of_its_own_is_not_read_again) {
    EXPECT_EQ(filled("'{}', '{}'", "O'Brien", "{}"), "'O'Brien', '{}'");
    EXPECT_EQ(filled("'{}', '{}'", "{}", "x"), "'{}', 'x'");
}

TEST(Holes, an_empty_value_leaves_the_quotes_empty) {
    EXPECT_EQ(filled("'{}'", std::string()), "''");
}

TEST(Holes, a_value_with_a_zero_byte_keeps_its_length) {
    EXPECT_EQ(filled("'{}'", std::string("a\0b", 3)), std::string("'a\0b'", 5));
}

TEST(Holes, numbers_that_are_none_stop_the_text_from_being_made) {
    EXPECT_THROW(filled("{}", std::nan("")), Automation_error);
    EXPECT_THROW(filled("{}", std::numeric_limits<double>::infinity()), Automation_error);
}

std::string refusal_of(const std::function<void()>& compose) {
    try {
        compose();
    } catch (const Database_error& error) {
        return error.what();
    }
    return "taken";
}

std::string in_quotes(const std::string& value) {
    std::string statement;
    compose(statement, "SELECT '{}'", value);
    return statement;
}

TEST(Statement, a_buffer_is_emptied_before_it_is_filled) {
    std::string buffer = "an older statement";
    compose(buffer, "SELECT {}", 1);
    EXPECT_EQ(buffer, "SELECT 1");
}

TEST(Statement, a_value_that_would_end_its_quotes_is_refused_by_name) {
    for (const std::string value : {"O'Higgins", "'", "x' OR '1'='1", "'''", "a''b'c", "x' OR 1=0DELETE T WHERE 'a'<>'",
                                    "'start", "end'", "Ñandú's"}) {
        EXPECT_EQ(
            refusal_of([&] { in_quotes(value); }),
            "El valor: " + value +
                ", lleva un apóstrofo que debe escribirse doble (''); la instrucción no se envió a la base de datos");
    }
}

TEST(Statement, a_value_whose_apostrophes_are_doubled_goes_in_as_it_stands) {
    for (const std::string value : {"", "plain", "O''Higgins", "''", "''''", "x'' OR ''1''=''1", "{}", "a{}b''"}) {
        EXPECT_EQ(in_quotes(value), "SELECT '" + value + "'");
    }
}

TEST(Statement, a_long_value_is_shown_by_its_beginning_between_characters) {
    const std::string text = refusal_of([] { in_quotes("'" + std::string(198, 'x') + "Ññ"); });
    EXPECT_TRUE(text.starts_with("El valor: '" + std::string(198, 'x') + "…, lleva")) << text;
}

TEST(Statement, each_hole_is_judged_by_its_own_place) {
    std::string statement;
    compose(statement, "UPDATE T SET A = {}, B = 'it''s {}' WHERE C = '{}' AND {}", 2.5, "a''", "b", Words("D = 'x'"));
    EXPECT_EQ(statement, "UPDATE T SET A = 2.5, B = 'it''s a''' WHERE C = 'b' AND D = 'x'");
    EXPECT_NE(refusal_of([&] { compose(statement, "A = {}, B = '{}', C = '{}'", 1, "fine", "not'fine"); }), "taken");
    EXPECT_NE(refusal_of([&] { compose(statement, "A = '{}', B = '{}', C = {}", "not'fine", "fine", 1); }), "taken");
}

TEST(Statement, what_stands_outside_of_quotes_is_known_when_it_is_compiled) {
    static_assert(stands_unquoted<int> && stands_unquoted<double> && stands_unquoted<Words> && stands_unquoted<Part> &&
                  stands_unquoted<Text_list>);
    static_assert(!stands_unquoted<std::string> && !stands_unquoted<const char*> &&
                  !stands_unquoted<std::string_view> && !stands_unquoted<char[3]>);
}

TEST(Statement, a_part_is_composed_by_the_same_rule) {
    std::string statement;
    compose(statement, "SELECT 1 {}", part("WHERE A = '{}'", "x''y"));
    EXPECT_EQ(statement, "SELECT 1 WHERE A = 'x''y'");
    EXPECT_NE(refusal_of([] { part("WHERE A = '{}'", "x'y"); }), "taken");
}

TEST(Text_list, becomes_the_content_of_an_in_list) {
    EXPECT_EQ(Text_list("R1, R2").text(), "'R1','R2'");
    EXPECT_EQ(Text_list(" R 1 ").text(), "'R1'");
    EXPECT_EQ(Text_list("").text(), "''");
    EXPECT_EQ(Text_list(",").text(), "'',''");
    std::string statement;
    compose(statement, "A IN ({})", Text_list("R1,R''2"));
    EXPECT_EQ(statement, "A IN ('R1','R''2')");
}

TEST(Text_list, one_text_that_would_end_its_quotes_is_refused_when_it_is_used) {
    std::string statement;
    // A comma makes no pair of two lone apostrophes.
    for (const char* texts : {"R1,R'2", "R1') OR ('1'='1", "a',b", "x','y", "x','',y'"}) {
        const Text_list list(texts);
        EXPECT_NE(refusal_of([&] { compose(statement, "A IN ({})", list); }), "taken") << texts;
    }
    compose(statement, "A IN ({})", Text_list("a' 'b"));
    EXPECT_EQ(statement, "A IN ('a''b')") << "what is left without blanks is a pair";
}

TEST(Holes, a_long_value_is_kept_whole) {
    const std::string ten_megabytes(10'000'000, 'x');
    EXPECT_EQ(filled("'{}'", ten_megabytes).size(), ten_megabytes.size() + 2);
}

}  // namespace
}  // namespace cuvexa::tests
