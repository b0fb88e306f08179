// Parts of the statements that lists are read with.
#include "reports/conditions.h"

#include <gtest/gtest.h>

namespace cuvexa::tests {
namespace {

using namespace reports;

const Date day = make_date(2024, 3, 15);
const Date moment = make_date(2024, 3, 15, 10, 20, 30);

TEST(Reports_conditions, a_date_is_written_as_its_server_reads_it_under_every_language) {
    EXPECT_EQ(date_literal(day, Date_style::iso), "'2024-03-15'");
    EXPECT_EQ(date_literal(moment, Date_style::iso), "'2024-03-15 10:20:30'");
    EXPECT_EQ(date_literal(day, Date_style::neutral), "'20240315'");
    EXPECT_EQ(date_literal(moment, Date_style::neutral), "'2024-03-15T10:20:30'");
}

TEST(Reports_conditions, a_text_that_holds_a_date_is_written_anew_for_a_server_and_else_left_as_it_is_held) {
    EXPECT_EQ(date_literal(std::string("2024-03-15"), Date_style::neutral), "'20240315'");
    EXPECT_EQ(date_literal(std::string("2024-03-15"), Date_style::iso), "'2024-03-15'");
    EXPECT_EQ(date_literal(std::string("mañana"), Date_style::neutral), "'mañana'");
}

TEST(Reports_conditions, days_are_whole_and_may_be_open_on_either_side) {
    EXPECT_EQ(between_days("F", moment, moment, Date_style::neutral), "F >= '20240315' AND F < '20240316'");
    EXPECT_EQ(between_days("F", day, std::nullopt, Date_style::iso), "F >= '2024-03-15'");
    EXPECT_EQ(between_days("F", std::nullopt, day, Date_style::iso), "F < '2024-03-16'");
    EXPECT_EQ(between_days("F", std::nullopt, make_date(9999, 12, 31), Date_style::iso), "F IS NOT NULL");
}

TEST(Reports_conditions, a_text_that_is_looked_for_means_itself) {
    EXPECT_EQ(holds("C", "O'Brien"), "C LIKE '%O''Brien%'");
    EXPECT_EQ(holds("C", "50%_[a]\\"), R"(C LIKE '%50\%\_\[a]\\%' ESCAPE '\')");
}

}  // namespace
}  // namespace cuvexa::tests
