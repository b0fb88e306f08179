// Column values read as text, numbers, Booleans and dates, and numbers written as text.
#include "cuvexa/value.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>

#include "core/case.h"
#include "core/number_text.h"
#include "cuvexa/errors.h"

namespace cuvexa::tests {
namespace {

using namespace std::string_literals;

constexpr double infinity = std::numeric_limits<double>::infinity();

template <class Body>
int automation_error_of(Body&& body) {
    try {
        body();
    } catch (const Automation_error& error) {
        return error.number();
    }
    return 0;
}

TEST(Number_text, whole_numbers_carry_no_point) {
    EXPECT_EQ(number_text(0), "0");
    EXPECT_EQ(number_text(-0.0), "0");
    EXPECT_EQ(number_text(150), "150");
    EXPECT_EQ(number_text(-100), "-100");
}

TEST(Number_text, at_most_15_significant_digits) {
    EXPECT_EQ(number_text(0.1), "0.1");
    EXPECT_EQ(number_text(0.1 + 0.2), "0.3");
    EXPECT_EQ(number_text(19.5 * 10), "195");
    EXPECT_EQ(number_text(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(number_text(2.0 / 3), "0.666666666666667");
    EXPECT_EQ(number_text(123456789.12), "123456789.12");
    EXPECT_EQ(number_text(999999999999999), "999999999999999");
}

TEST(Number_text, beyond_15_digits_an_exponent) {
    EXPECT_EQ(number_text(1e15), "1E+15");
    EXPECT_EQ(number_text(-1.5e20), "-1.5E+20");
    EXPECT_EQ(number_text(1e-10), "1E-10");
    EXPECT_EQ(number_text(std::numeric_limits<double>::max()), "1.79769313486232E+308");
}

TEST(Number_text, what_is_no_number_never_becomes_text) {
    EXPECT_EQ(automation_error_of([] { number_text(std::nan("")); }), error_overflow);
    EXPECT_EQ(automation_error_of([] { number_text(infinity); }), error_overflow);
    EXPECT_EQ(automation_error_of([] { number_text(-infinity); }), error_overflow);
}

TEST(Number_text, a_message_can_still_show_what_is_no_number) {
    EXPECT_EQ(shown_number(std::nan("")), "NaN");
    EXPECT_EQ(shown_number(infinity), "Infinito");
    EXPECT_EQ(shown_number(-infinity), "-Infinito");
    EXPECT_EQ(shown_number(-19.5), "-19.5");
}

/// A locale whose decimal sign is a comma and that groups digits.
class Comma final : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Number_text, the_locale_of_the_program_changes_nothing) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
    const std::string c_locale = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"es_MX.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8", "C.UTF-8"}) {
        if (std::setlocale(LC_NUMERIC, name) != nullptr) break;
    }
    const std::string text = number_text(1234567.5);
    const double number = to_number("1234567.5"s);
    const std::string whole = to_text(Value(std::int64_t{1234567}));
    std::setlocale(LC_NUMERIC, c_locale.c_str());
    std::locale::global(before);
    EXPECT_EQ(text, "1234567.5");
    EXPECT_EQ(number, 1234567.5);
    EXPECT_EQ(whole, "1234567");
}

TEST(Four_digits, line_numbers_are_padded_with_zeros_and_never_cut) {
    EXPECT_EQ(four_digits(1), "0001");
    EXPECT_EQ(four_digits(999), "0999");
    EXPECT_EQ(four_digits(9999), "9999");
    EXPECT_EQ(four_digits(10000), "10000");
    EXPECT_EQ(four_digits(32767), "32767");
}

TEST(Value, as_text) {
    EXPECT_EQ(to_text(Value{}), "");
    EXPECT_EQ(to_text("Pago"s), "Pago");
    EXPECT_EQ(to_text(true), "True");
    EXPECT_EQ(to_text(false), "False");
    EXPECT_EQ(to_text(std::int64_t{-7}), "-7");
    EXPECT_EQ(to_text(19.5), "19.5");
    EXPECT_EQ(to_text(make_date(2024, 3, 15, 10, 20, 30)), "2024-03-15T10:20:30");
}

TEST(Value, as_a_number) {
    EXPECT_EQ(to_number(true), -1);
    EXPECT_EQ(to_number(false), 0);
    EXPECT_EQ(to_number(std::int64_t{30}), 30);
    EXPECT_EQ(to_number(" 19.5 "s), 19.5);
    EXPECT_EQ(to_number("+3"s), 3);
    EXPECT_EQ(to_number("1E+3"s), 1000);
    EXPECT_EQ(to_number(Date{2.5}), 2.5);
}

TEST(Value, text_that_is_no_number_is_a_type_mismatch) {
    for (const auto& text :
         {""s, " "s, "abc"s, "1,5"s, "12x"s, "nan"s, "inf"s, "-infinity"s, "0x10"s, "1e999"s, "\xff"s}) {
        EXPECT_EQ(automation_error_of([&] { to_number(text); }), error_type_mismatch) << text;
    }
}

TEST(Value, null_is_an_empty_text_and_an_invalid_anything_else) {
    EXPECT_TRUE(is_null(Value{}));
    EXPECT_EQ(automation_error_of([] { to_number(Value{}); }), error_invalid_use_of_null);
    EXPECT_EQ(automation_error_of([] { to_integer(Value{}); }), error_invalid_use_of_null);
    EXPECT_EQ(automation_error_of([] { to_boolean(Value{}); }), error_invalid_use_of_null);
    EXPECT_EQ(automation_error_of([] { to_date(Value{}); }), error_invalid_use_of_null);
}

TEST(Value, as_a_16_bit_whole_number_rounded_half_to_even) {
    EXPECT_EQ(to_integer(0.5), 0);
    EXPECT_EQ(to_integer(1.5), 2);
    EXPECT_EQ(to_integer(2.5), 2);
    EXPECT_EQ(to_integer(-0.5), 0);
    EXPECT_EQ(to_integer("32767"s), 32767);
    EXPECT_EQ(to_integer(-32768.0), -32768);
    EXPECT_EQ(automation_error_of([] { to_integer(32768.0); }), error_overflow);
    EXPECT_EQ(automation_error_of([] { to_integer(-32769.0); }), error_overflow);
    EXPECT_EQ(automation_error_of([] { to_integer(std::nan("")); }), error_overflow);
    EXPECT_EQ(automation_error_of([] { to_integer("treinta"s); }), error_type_mismatch);
}

TEST(Value, as_a_boolean) {
    for (const Value& value : {Value(true), Value(std::int64_t{1}), Value(-1.0), Value("True"s), Value("TRUE"s),
                               Value("Verdadero"s), Value("1"s), Value(" -1 "s)}) {
        EXPECT_TRUE(to_boolean(value)) << to_text(value);
    }
    for (const Value& value : {Value(false), Value(std::int64_t{0}), Value(0.0), Value("False"s), Value("falso"s),
                               Value("0"s), Value(""s)}) {
        EXPECT_FALSE(to_boolean(value)) << to_text(value);
    }
    EXPECT_EQ(automation_error_of([] { to_boolean("tal vez"s); }), error_type_mismatch);
}

TEST(Value, as_a_date) {
    const Date date = make_date(2024, 3, 15);
    EXPECT_EQ(to_date(date), date);
    EXPECT_EQ(to_date("2024-03-15"s), date);
    EXPECT_EQ(to_date(date.days), date);
    EXPECT_EQ(to_date(std::int64_t{45366}), date);
    EXPECT_EQ(automation_error_of([] { to_date(""s); }), error_type_mismatch);
    EXPECT_EQ(automation_error_of([] { to_date("ayer"s); }), error_type_mismatch);
}

TEST(Same_text, ascii_letters_compare_without_regard_to_case) {
    EXPECT_TRUE(same_text("Cheque", "CHEQUE"));
    EXPECT_FALSE(same_text("Cheque", "Cheques"));
    EXPECT_FALSE(same_text("ñ", "Ñ"));
    EXPECT_TRUE(same_text("", ""));
}

}  // namespace
}  // namespace cuvexa::tests
