// Any text as a number, a date, a whole number, a Boolean: what is read is written back as it was, the rest is refused.
#include <cmath>
#include <cstring>

#include "core/number_text.h"
#include "cuvexa/errors.h"
#include "cuvexa/value.h"
#include "fuzz/oracle.h"

namespace cuvexa::fuzz {
namespace {

/// The result of a conversion, or nothing when it refuses.
template <class Convert>
auto kept(Convert&& convert) -> std::optional<decltype(convert())> {
    try {
        return convert();
    } catch (const Automation_error& refusal) {
        require(refusal.number() == 6 || refusal.number() == 13 || refusal.number() == 94,
                "a refusal has a run-time error's number", refusal.what());
        return std::nullopt;
    }
}

void check_number(double number) {
    const auto text = kept([&] { return number_text(number); });
    require(text.has_value() == std::isfinite(number), "every finite number has a text");
    constexpr double largest = 1.79769313486231E+308;  // fifteen digits of more are more than there is
    if (!text || std::abs(number) > largest) return;
    const double again = to_number(Value(*text));
    require(number_text(again) == *text, "a number's text is read as that number", *text, number_text(again));
    require(std::abs(again - number) <= 1e-14 * std::abs(number), "a text keeps fifteen digits", *text);
    require(text->find_first_not_of("0123456789.E+-") == std::string::npos && text->size() < 40,
            "a number's text is one token", *text);
    const auto whole = kept([&] { return to_integer(Value(number)); });
    require(whole.has_value() == (std::nearbyint(number) >= -32768 && std::nearbyint(number) <= 32767),
            "a whole number fits or is refused", *text);
}

void check_date(Date date) {
    const auto calendar_of = kept([&] { return calendar(date); });
    if (!calendar_of) return;
    const Calendar day = *calendar_of;
    require(day.year >= 100 && day.year <= 9999, "a date is of the years 100 to 9999");
    const Date again = make_date(day.year, day.month, day.day, day.hour, day.minute, day.second);
    require(calendar(again) == day, "a date is made of its parts", iso_date(date), iso_date(again));
    require(parse_date(iso_date(date)) == again, "a date's text is read as that date", iso_date(date));
    require(parse_date(short_date(date)) == day_of(again), "so is its short text", short_date(date));
}

void check_text(const std::string& text) {
    if (const auto number = kept([&] { return to_number(Value(text)); })) check_number(*number);
    kept([&] { return to_integer(Value(text)); });
    kept([&] { return to_boolean(Value(text)); });
    const auto date = kept([&] { return to_date(Value(text)); });
    require(date == parse_date(text), "a column's text and a date's are read alike", text);
    if (date) check_date(*date);
    require(to_text(Value(text)) == text, "a text is itself", text);
}

}  // namespace
}  // namespace cuvexa::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cuvexa::fuzz;
    check_text(std::string(text_of(data, size)));
    double number = 0;
    if (size != sizeof number) return 0;
    std::memcpy(&number, data, sizeof number);
    check_number(number);
    check_date({number});
    return 0;
}
