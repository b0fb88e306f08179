// The form of the files of statements: readable, and got back letter by letter.
#include "statements/telling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "statements/source_statements.h"
#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(Statement_layout, a_run_of_blanks_and_a_clause_begin_a_line) {
    EXPECT_EQ(laid_out("SELECT    a,    b FROM T    INNER JOIN U ON U.k = T.k WHERE    a = 'x  FROM y' AND    b = 1 "),
              "SELECT\n"
              "   a,\n"
              "   b\n"
              "FROM T\n"
              "   INNER JOIN U ON U.k = T.k\n"
              "WHERE\n"
              "   a = 'x  FROM y' AND\n"
              "   b = 1 ;\n");
}

TEST(Statement_layout, what_is_in_parentheses_stays_together) {
    EXPECT_EQ(laid_out("SELECT a FROM T WHERE k IN (SELECT k FROM U WHERE c = 2)"),
              "SELECT a\nFROM T\nWHERE k IN (SELECT k FROM U WHERE c = 2);\n");
}

TEST(Statement_layout, a_long_line_is_broken_at_a_blank) {
    std::string statement = "INSERT INTO T (";
    for (int i = 10; i < 60; ++i) statement += "column_" + std::to_string(i) + ", ";
    statement += "last) VALUES('a text with blanks in it')";
    const std::string text = laid_out(statement);
    EXPECT_EQ(statements_in(text).at(0).text, statement);
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
        EXPECT_LE(text.find('\n', at) - at, 120u);
    }
    EXPECT_THAT(text, HasSubstr("'a text with blanks in it');\n"));
}

TEST(Statement_layout, a_blank_more_is_another_text) {
    EXPECT_NE(laid_out("SELECT a FROM T WHERE b = 1"), laid_out("SELECT a FROM T WHERE b = 1 "));
    EXPECT_NE(laid_out("SELECT a FROM T WHERE b = 1"), laid_out("SELECT a FROM T WHERE  b = 1"));
    EXPECT_NE(laid_out("SELECT a FROM T WHERE b = 1"), laid_out("SELECT a FROM  T WHERE b = 1"));
    EXPECT_NE(laid_out("SELECT a, b FROM T"), laid_out("SELECT a,b FROM T"));
}

TEST(Statement_layout, a_statement_that_could_not_be_read_back_is_refused) {
    EXPECT_THROW(laid_out("SELECT 'a\nb'"), std::runtime_error);
    EXPECT_THROW(laid_out("SELECT 'a;    b'    FROM T;    SELECT 1"), std::runtime_error);
}

TEST(Statement_form, values_are_taken_out) {
    const Statement_form statement(
        "UPDATE T2 SET a = -1.5, b = 'it''s', c = c + 1E+15, d = '' WHERE e_3 = N'x' AND f IN (7,8)");
    EXPECT_EQ(statement.form, "UPDATE T2 SET a = ?, b = ?, c = c + ?, d = ? WHERE e_3 = N? AND f IN (?,?)");
    EXPECT_THAT(statement.values, ElementsAre("-1.5", "'it''s'", "1E+15", "''", "'x'", "7", "8"));
}

std::vector<Case_trace> cases(const std::vector<std::string>& statements) {
    Case_trace trace{"a case", {}};
    for (const std::string& statement : statements) trace.sent.push_back({statement, false});
    return {trace};
}

TEST(Statement_telling, a_statement_comes_again_with_what_differs) {
    EXPECT_EQ(Teller().tell("Member", cases({"SELECT a FROM T WHERE b = 'x' AND c = 'x' AND d = 1",
                                             "SELECT a FROM T WHERE b = 'x' AND c = 'x' AND d = 1",
                                             "SELECT a FROM T WHERE b = 'y' AND c = 'y' AND d = 2"})),
              "-- Member\n"
              "\n"
              "-- ---- a case\n"
              "\n"
              "SELECT a\nFROM T\nWHERE b = 'x' AND c = 'x' AND d = 1;\n"
              "\n"
              "-- again SELECT T\n"
              "-- again SELECT T with 'y' for 'x', 2 for 1\n");
}

TEST(Statement_telling, where_one_value_became_several_all_are_told) {
    EXPECT_THAT(Teller().tell("Member", cases({"SELECT a FROM T WHERE b = 'x' AND c = 'x'",
                                               "SELECT a FROM T WHERE b = 'x' AND c = 'y'"})),
                HasSubstr("\n-- again SELECT T with 'x', 'y'\n"));
}

TEST(Statement_telling, a_list_is_one_value_however_long) {
    EXPECT_THAT(
        Teller().tell("Member", cases({"SELECT a FROM T WHERE b IN ('x')", "SELECT a FROM T WHERE b IN ('x','y')"})),
        HasSubstr("\n-- again SELECT T with 'x','y' for 'x'\n"));
}

TEST(Statement_telling, a_statement_of_a_member_called_inside_is_told_by_its_values) {
    Teller teller;
    teller.tell("Inner", cases({"SELECT a FROM T WHERE b = 'x'", "SELECT c FROM T WHERE b = 'x'"}));
    EXPECT_EQ(teller.tell("Outer", cases({"SELECT c FROM T WHERE b = 'y'", "UPDATE T SET a = 1",
                                          "SELECT a FROM T WHERE b = 'z'"})),
              "-- Outer\n"
              "\n"
              "-- ---- a case\n"
              "\n"
              "-- Inner: SELECT T (2) with 'y'\n"
              "\n"
              "UPDATE T SET a = 1;\n"
              "\n"
              "-- Inner: SELECT T with 'z'\n");
}

TEST(Statement_telling, what_the_database_refuses_is_marked) {
    const std::string text = Teller().tell(
        "Member", {{"a case", {{"SELECT a FROM T", false}, {"SELECT b FROM", true}, {"SELECT a FROM T", true}}}});
    const std::vector<Told_statement> statements = statements_in(text);
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_FALSE(statements[0].refused);
    EXPECT_TRUE(statements[1].refused);
    EXPECT_THAT(text, HasSubstr("\n-- again SELECT T, which the database refuses\n"));
}

TEST(Source_statement, literals_side_by_side_are_one) {
    EXPECT_THAT(
        literals_of(
            "f(\"SELECT \"\n   \"a\", \"b\"); // \"no\"\nconst char c = '\"'; g(\"it\\\"s\", 1'000); R\"(raw)\""),
        ElementsAre("SELECT a", "b", "it\"s", "raw"));
}

TEST(Source_statement, a_statement_has_all_that_stands_between_the_holes) {
    EXPECT_TRUE(comes_of("SELECT a FROM T WHERE b = 'x' AND c = 2", "SELECT a FROM T WHERE b = '{}' AND c = {}"));
    EXPECT_TRUE(comes_of("SELECT a FROM T WHERE b LIKE '%x%'", "SELECT a FROM T WHERE b LIKE ?"));
    EXPECT_FALSE(comes_of("SELECT a FROM T WHERE b = 'x'  AND c = 2", "SELECT a FROM T WHERE b = '{}' AND c = {}"));
    EXPECT_FALSE(comes_of("UPDATE U SET d = (SELECT a FROM T)", "SELECT a FROM T"));
}

}  // namespace
}  // namespace cuvexa::tests
