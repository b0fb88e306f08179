// The automation date and the text forms in which it travels.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace cuvexa {

/// Days since 30 December 1899; the fraction is the time of day. The value 0 is an unset date.
struct Date {
    double days = 0;
    auto operator<=>(const Date&) const = default;
};

/// A date broken down in the proleptic Gregorian calendar.
struct Calendar {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
    bool operator==(const Calendar&) const = default;
};

/// The date of a calendar day and time. Throws `Automation_error` (13) when there is no such day or time.
Date make_date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

/// The calendar parts of a date, rounded to the second. Throws `Automation_error` (6) outside the years 100 to 9999
/// or when the value is not a number.
Calendar calendar(Date date);

/// The date without its time of day.
Date day_of(Date date);

/// The date `days` whole days later (earlier when negative).
Date add_days(Date date, int days);

/// "dd/mm/yyyy", the short date form of messages.
std::string short_date(Date date);

/// "dd-mm-yyyy", the form of the operating-period message.
std::string dashed_date(Date date);

/// "2024-03-15", or "2024-03-15T10:20:30" when the date has a time of day.
std::string iso_date(Date date);

/// How the text of a statement writes a date.
enum class Date_style {
    iso,      ///< 2024-03-15 and 2024-03-15 10:20:30
    neutral,  ///< 20240315 and 2024-03-15T10:20:30, which a server reads alike under every language setting
};

/// Reads "2024-03-15", "2024-03-15T10:20:30", the same with a blank instead of the T (a fraction of a second is
/// dropped), "20240315", and "dd/mm/yyyy". Empty when the text is none of these or names no existing day.
std::optional<Date> parse_date(std::string_view text);

/// Today on the clock of this machine, in local time, without time of day.
Date local_today();

/// Now on the clock of this machine, in local time.
Date local_now();

}  // namespace cuvexa
