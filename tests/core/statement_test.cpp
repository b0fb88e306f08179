// Texts with holes.
#include "core/statement.h"

#include <gtest/gtest.h>

#include <cmath>
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

TEST(Holes, a_buffer_is_emptied_before_it_is_filled) {
    std::string buffer = "an older statement";
    fill(buffer, "SELECT {}", 1);
    EXPECT_EQ(buffer, "SELECT 1");
}

TEST(Holes, a_long_value_is_kept_whole) {
    const std::string ten_megabytes(10'000'000, 'x');
    EXPECT_EQ(filled("'{}'", ten_megabytes).size(), ten_megabytes.size() + 2);
}

}  // namespace
}  // namespace cuvexa::tests
