// Automation dates: calendar arithmetic, and the text forms in which they travel.
#include "cuvexa/date.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "cuvexa/errors.h"

namespace cuvexa::tests {
namespace {

template <class Body>
int automation_error_of(Body&& body) {
    try {
        body();
    } catch (const Automation_error& error) {
        return error.number();
    }
    return 0;
}

TEST(Date, the_unset_date_is_30_december_1899) {
    EXPECT_EQ(make_date(1899, 12, 30).days, 0);
    EXPECT_EQ(calendar(Date{}), Calendar{});
    EXPECT_EQ(short_date(Date{}), "30/12/1899");
}

TEST(Date, days_count_from_30_december_1899_and_the_fraction_is_the_time) {
    EXPECT_EQ(make_date(1900, 1, 1).days, 2);
    EXPECT_EQ(make_date(2024, 3, 15).days, 45366);
    EXPECT_EQ(make_date(2024, 3, 15, 12).days, 45366.5);
    EXPECT_EQ(make_date(1899, 12, 29).days, -1);
}

TEST(Date, before_the_epoch_the_fraction_still_counts_forward_from_midnight) {
    EXPECT_EQ(make_date(1899, 12, 29, 6).days, -1.25);
    EXPECT_EQ(calendar(Date{-1.25}), (Calendar{1899, 12, 29, 6, 0, 0}));
}

TEST(Date, every_second_of_a_day_survives_the_way_there_and_back) {
    for (int second = 0; second < 86400; second += 7) {
        const Calendar parts{2024, 2, 29, second / 3600, second / 60 % 60, second % 60};
        ASSERT_EQ(calendar(make_date(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second)),
                  parts);
    }
}

TEST(Date, a_fraction_that_rounds_up_to_midnight_belongs_to_the_next_day) {
    EXPECT_EQ(calendar(Date{45366 + 86399.7 / 86400}), (Calendar{2024, 3, 16, 0, 0, 0}));
    EXPECT_EQ(day_of(Date{45366 + 86399.7 / 86400}).days, 45367);
}

TEST(Date, the_day_of_a_date_drops_its_time) {
    EXPECT_EQ(day_of(make_date(2024, 3, 15, 23, 59, 59)), make_date(2024, 3, 15));
    EXPECT_EQ(day_of(make_date(1899, 12, 29, 6)), make_date(1899, 12, 29));
}

TEST(Date, whole_days_are_added_across_months_and_leap_years) {
    EXPECT_EQ(add_days(make_date(2024, 2, 28), 2), make_date(2024, 3, 1));
    EXPECT_EQ(add_days(make_date(2023, 2, 28), 2), make_date(2023, 3, 2));
    EXPECT_EQ(add_days(make_date(2024, 3, 15), 0), make_date(2024, 3, 15));
    EXPECT_EQ(add_days(make_date(2024, 1, 1), -1), make_date(2023, 12, 31));
}

TEST(Date, a_day_or_time_that_does_not_exist_is_a_type_mismatch) {
    EXPECT_EQ(automation_error_of([] { make_date(2023, 2, 29); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 13, 1); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 0, 1); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 1, 1, 24); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 1, 1, -1); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 1, 1, 0, 60); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 1, 1, 0, -1); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 1, 1, 0, 0, 60); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(2024, 1, 1, 0, 0, -1); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(99, 12, 31); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { make_date(10000, 1, 1); }), error_type_mismatch);
}

TEST(Date, the_years_100_to_9999_are_the_whole_range) {
    EXPECT_EQ(calendar(make_date(100, 1, 1)), (Calendar{100, 1, 1, 0, 0, 0}));
    EXPECT_EQ(calendar(make_date(9999, 12, 31, 23, 59, 59)), (Calendar{9999, 12, 31, 23, 59, 59}));
}

TEST(Date, a_number_outside_the_range_or_no_number_at_all_is_an_overflow) {
    for (const double days : {1e300, -1e300, 2958466.0, -657435.0, std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_EQ(automation_error_of([&] { calendar(Date{days}); }), error_overflow) << days;
        EXPECT_EQ(automation_error_of([&] { day_of(Date{days}); }), error_overflow) << days;
        EXPECT_EQ(automation_error_of([&] { short_date(Date{days}); }), error_overflow) << days;
    }
}

TEST(Date, text_forms) {
    const Date date = make_date(2024, 3, 5, 7, 8, 9);
    EXPECT_EQ(short_date(date), "05/03/2024");
    EXPECT_EQ(dashed_date(date), "05-03-2024");
    EXPECT_EQ(iso_date(date), "2024-03-05T07:08:09");
    EXPECT_EQ(iso_date(day_of(date)), "2024-03-05");
    EXPECT_EQ(short_date(make_date(100, 1, 2)), "02/01/0100");
}

TEST(Date, each_text_form_is_read) {
    const Date day = make_date(2024, 3, 5);
    const Date moment = make_date(2024, 3, 5, 7, 8, 9);
    EXPECT_EQ(parse_date("2024-03-05"), day);
    EXPECT_EQ(parse_date("2024-03-05T07:08:09"), moment);
    EXPECT_EQ(parse_date("2024-03-05 07:08:09"), moment);
    EXPECT_EQ(parse_date("2024-03-05 07:08:09.123"), moment);
    EXPECT_EQ(parse_date("20240305"), day);
    EXPECT_EQ(parse_date("05/03/2024"), day);
}

TEST(Date, other_texts_are_no_dates) {
    for (const char* text :
         {"", "hoy", "2024-03-32", "2024-13-01", "2023-02-29", "2024-3-5", "2024-03-05T25:00:00",
          "2024-03-05T07:08:09Z", "2024-03-05 07:08:09.1x", "31/02/2024", "2024-03-05 ", "2024-03-05.5"}) {
        EXPECT_EQ(parse_date(text), std::nullopt) << text;
    }
}

TEST(Date, the_local_clock_gives_today_without_a_time_of_day) {
    const Date before = day_of(local_now());
    const Date today = local_today();
    const Date after = day_of(local_now());
    EXPECT_TRUE(today == before || today == after);
    EXPECT_EQ(today.days, std::floor(today.days));
}

}  // namespace
}  // namespace cuvexa::tests
