#include "cuvexa/value.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/case.h"
#include "core/number_text.h"
#include "core/text.h"
#include "cuvexa/errors.h"

namespace cuvexa {
namespace {

[[noreturn]] void type_mismatch() {
    throw Automation_error(error_type_mismatch, "No coinciden los tipos");
}

[[noreturn]] void overflow() {
    throw Automation_error(error_overflow, "Desbordamiento");
}

[[noreturn]] void invalid_null() {
    throw Automation_error(error_invalid_use_of_null, "Uso no válido de Null");
}

constexpr std::string_view blanks = " \t";

double parse_number(std::string_view text) {
    text = trimmed(text, blanks);
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc{} || end != text.data() + text.size() || !std::isfinite(number)) type_mismatch();
    return number;
}

bool parse_boolean(std::string_view text) {
    text = trimmed(text, blanks);
    if (text.empty() || same_text(text, "False") || same_text(text, "Falso")) return false;
    if (same_text(text, "True") || same_text(text, "Verdadero")) return true;
    return parse_number(text) != 0;
}

template <class... Readers>
struct Readers_of : Readers... {
    using Readers::operator()...;
};
template <class... Readers>
Readers_of(Readers...) -> Readers_of<Readers...>;

}  // namespace

std::size_t write_number(double number, char (&buffer)[40]) {
    if (!std::isfinite(number)) overflow();
    if (number == 0) number = 0;  // -0 is written as 0
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, 15);
    const auto length = static_cast<std::size_t>(result.ptr - buffer);
    for (std::size_t i = 0; i < length; ++i) {
        if (buffer[i] == 'e') buffer[i] = 'E';
    }
    return length;
}

std::string number_text(double number) {
    char buffer[40];
    return std::string(buffer, write_number(number, buffer));
}

bool adds_up_to_zero(double total) {
    constexpr double half_a_millionth = 0.5e-6;
    return std::abs(total) < half_a_millionth;
}

std::string four_digits(std::int64_t number) {
    std::string digits = std::to_string(number);
    return digits.size() < 4 ? std::string(4 - digits.size(), '0') + digits : digits;
}

std::string next_line_number(std::int16_t& counter) {
    if (counter == std::numeric_limits<std::int16_t>::max()) overflow();
    return four_digits(++counter);
}

std::string shown_number(double number) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number > 0 ? "Infinito" : "-Infinito";
    return number_text(number);
}

std::string to_text(const Value& value) {
    return std::visit(Readers_of{
                          [](std::monostate) { return std::string(); },
                          [](bool flag) { return std::string(flag ? "True" : "False"); },
                          [](std::int64_t whole) { return std::to_string(whole); },
                          [](double number) { return number_text(number); },
                          [](const std::string& text) { return text; },
                          [](Date date) { return iso_date(date); },
                      },
                      value);
}

double to_number(const Value& value) {
    return std::visit(Readers_of{
                          [](std::monostate) -> double { invalid_null(); },
                          [](bool flag) { return flag ? -1.0 : 0.0; },
                          [](std::int64_t whole) { return static_cast<double>(whole); },
                          [](double number) { return number; },
                          [](const std::string& text) { return parse_number(text); },
                          [](Date date) { return date.days; },
                      },
                      value);
}

std::int16_t to_integer(const Value& value) {
    const double rounded = std::nearbyint(to_number(value));
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max())) {
        overflow();
    }
    return static_cast<std::int16_t>(rounded);
}

bool to_boolean(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return parse_boolean(*text);
    return to_number(value) != 0;
}

Date to_date(const Value& value) {
    if (const auto* date = std::get_if<Date>(&value)) return *date;
    if (is_null(value)) invalid_null();
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (const auto date = parse_date(*text)) return *date;
        type_mismatch();
    }
    return Date{to_number(value)};
}

}  // namespace cuvexa
