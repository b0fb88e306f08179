#include "dialogs/key_text.h"

#include <gtest/gtest.h>

namespace cuvexa::tests {
using namespace dialogs;
namespace {

TEST(Key_text, spanish_letters_become_capitals_and_the_rest_stays) {
    EXPECT_EQ(capitals("cañón-09 güera ÷ ß ¿x?"), "CAÑÓN-09 GÜERA ÷ ß ¿X?");
    EXPECT_EQ(capitals("\xC3"), "\xC3");
}

TEST(Key_text, a_format_of_zeros_fills_a_number) {
    EXPECT_EQ(formatted("7", "000"), "007");
    EXPECT_EQ(formatted("1234", "000"), "1234");
    EXPECT_EQ(formatted("7A", "000"), "7A");
    EXPECT_EQ(formatted("", "000"), "");
    EXPECT_EQ(formatted("7", ""), "7");
    EXPECT_EQ(formatted("7", "0-0"), "7");
}

TEST(Key_text, a_format_that_begins_with_an_angle_makes_capitals) {
    EXPECT_EQ(formatted("srr-mxn", ">AAAAAAAAAA"), "SRR-MXN");
}

TEST(Key_text, the_key_takes_the_place_of_the_mark_with_its_quotes_doubled) {
    EXPECT_EQ(with_key("a = '?' AND b = '?' ", "O'X"), "a = 'O''X' AND b = 'O''X' ");
}

TEST(Key_text, a_key_that_is_the_mark_itself_is_put_in_once) {
    EXPECT_EQ(with_key("a = '?'", "'?'"), "a = '''?'''");
}

TEST(Key_text, a_search_looks_anywhere_in_the_column) {
    EXPECT_EQ(with_pattern("(a LIKE ? OR b LIKE ?)", "x'y"), "(a LIKE '%x''y%' OR b LIKE '%x''y%')");
    EXPECT_EQ(with_pattern("a LIKE ?", ""), "a LIKE '%%'");
}

}  // namespace
}  // namespace cuvexa::tests
