#include "cuvexa/date.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "cuvexa/errors.h"

namespace cuvexa {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days epoch = std::chrono::year{1899} / std::chrono::December / 30;
constexpr int seconds_per_day = 86400;

std::optional<Date> date_of(const Calendar& parts) {
    const std::chrono::year_month_day day{std::chrono::year{parts.year},
                                          std::chrono::month{static_cast<unsigned>(parts.month)},
                                          std::chrono::day{static_cast<unsigned>(parts.day)}};
    const bool time_exists = parts.hour >= 0 && parts.hour < 24 && parts.minute >= 0 && parts.minute < 60 &&
                             parts.second >= 0 && parts.second < 60;
    if (!day.ok() || parts.year < 100 || parts.year > 9999 || !time_exists) return std::nullopt;
    const auto whole = static_cast<double>((sys_days(day) - epoch).count());
    const double time = (parts.hour * 3600 + parts.minute * 60 + parts.second) / static_cast<double>(seconds_per_day);
    return Date{whole < 0 ? whole - time : whole + time};  // before the epoch the fraction counts away from zero
}

std::string printed(const char* format, int a, int b, int c) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, format, a, b, c);
    return buffer;
}

/// Reads digits where the pattern has letters: 'Y', 'M', 'D', 'h', 'm', 's'; other characters must match.
std::optional<Calendar> read_pattern(std::string_view text, std::string_view pattern) {
    if (text.size() != pattern.size()) return std::nullopt;
    Calendar parts{0, 0, 0, 0, 0, 0};
    for (std::size_t i = 0; i < text.size(); ++i) {
        int* part = pattern[i] == 'Y'   ? &parts.year
                    : pattern[i] == 'M' ? &parts.month
                    : pattern[i] == 'D' ? &parts.day
                    : pattern[i] == 'h' ? &parts.hour
                    : pattern[i] == 'm' ? &parts.minute
                    : pattern[i] == 's' ? &parts.second
                                        : nullptr;
        if (part == nullptr) {
            if (text[i] != pattern[i]) return std::nullopt;
        } else {
            if (text[i] < '0' || text[i] > '9') return std::nullopt;
            *part = *part * 10 + (text[i] - '0');
        }
    }
    return parts;
}

/// The text without a fraction of a second ("10:20:30.000").
std::string_view without_fraction(std::string_view text) {
    const auto point = text.find('.');
    if (point == std::string_view::npos || point < 19) return text;
    return text.find_first_not_of("0123456789", point + 1) == std::string_view::npos ? text.substr(0, point) : text;
}

}  // namespace

Date make_date(int year, int month, int day, int hour, int minute, int second) {
    if (const auto date = date_of({year, month, day, hour, minute, second})) return *date;
    throw Automation_error(error_type_mismatch, "La fecha no existe");
}

Calendar calendar(Date date) {
    if (!(date.days > -657435.0 && date.days < 2958466.0)) throw Automation_error(error_overflow, "Desbordamiento");
    double whole = std::trunc(date.days);
    int second = static_cast<int>(std::lround(std::fabs(date.days - whole) * seconds_per_day));
    if (second == seconds_per_day) {
        second = 0;
        whole += 1;
    }
    const std::chrono::year_month_day day{epoch + days{static_cast<int>(whole)}};
    return {static_cast<int>(day.year()),
            static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

Date day_of(Date date) {
    const Calendar parts = calendar(date);
    return make_date(parts.year, parts.month, parts.day);
}

Date add_days(Date date, int count) {
    return Date{date.days + count};
}

std::string short_date(Date date) {
    const Calendar parts = calendar(date);
    return printed("%02d/%02d/%04d", parts.day, parts.month, parts.year);
}

std::string dashed_date(Date date) {
    const Calendar parts = calendar(date);
    return printed("%02d-%02d-%04d", parts.day, parts.month, parts.year);
}

std::string iso_date(Date date) {
    const Calendar parts = calendar(date);
    std::string text = printed("%04d-%02d-%02d", parts.year, parts.month, parts.day);
    if (parts.hour != 0 || parts.minute != 0 || parts.second != 0) {
        text += printed("T%02d:%02d:%02d", parts.hour, parts.minute, parts.second);
    }
    return text;
}

std::optional<Date> parse_date(std::string_view text) {
    text = without_fraction(text);
    for (const auto pattern : {"YYYY-MM-DD", "YYYY-MM-DDThh:mm:ss", "YYYY-MM-DD hh:mm:ss", "YYYYMMDD", "DD/MM/YYYY"}) {
        if (const auto parts = read_pattern(text, pattern)) return date_of(*parts);
    }
    return std::nullopt;
}

Date local_now() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
#ifdef _WIN32
    localtime_s(&parts, &now);
#else
    localtime_r(&now, &parts);
#endif
    return make_date(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min,
                     parts.tm_sec > 59 ? 59 : parts.tm_sec);
}

Date local_today() {
    return day_of(local_now());
}

}  // namespace cuvexa
