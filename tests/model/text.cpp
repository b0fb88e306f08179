#include "model/text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "cuvexa/value.h"

namespace cuvexa::model {
namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// A byte of a text in one case: the letters A to Z, and those of À to Þ (two bytes each, the first of which is C3).
unsigned char letter(std::string_view text, std::size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const bool accented = at > 0 && static_cast<unsigned char>(text[at - 1]) == 0xC3;
    if (accented && byte >= 0x80 && byte <= 0x9E && byte != 0x97) return static_cast<unsigned char>(byte + 0x20);
    return static_cast<unsigned char>(lower(static_cast<char>(byte)));
}

std::string_view without_last_blanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Enough of a text to recognise it by: 200 bytes, cut between characters.
Text beginning(const Text& text) {
    if (text.size() <= 200) return text;
    std::size_t end = 200;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return text.substr(0, end) + "…";
}

}  // namespace

bool same(Column column, std::string_view text) {
    if (column.null) return false;
    const std::string_view a = without_last_blanks(column.text), b = without_last_blanks(text);
    if (a.size() != b.size()) return false;
    for (std::size_t at = 0; at < a.size(); ++at) {
        if (letter(a, at) != letter(b, at)) return false;
    }
    return true;
}

bool differs(Column column, std::string_view text) {
    return !column.null && !same(column, text);
}

Text in_one_case(std::string_view text) {
    text = without_last_blanks(text);
    Text one_case;
    for (std::size_t at = 0; at < text.size(); ++at) one_case += static_cast<char>(letter(text, at));
    return one_case;
}

bool before(std::string_view a, std::string_view b) {
    return in_one_case(a) < in_one_case(b);
}

bool same_code(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

std::size_t characters(std::string_view text) {
    text = without_last_blanks(text);
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

Text quoted(const Text& text) {
    Text kept;
    for (std::size_t at = 0; at < text.size(); ++at) {
        kept += text[at];
        if (text[at] != '\'') continue;
        if (at + 1 < text.size() && text[at + 1] == '\'') {
            ++at;
        } else {
            throw Failure{
                "El valor: " + beginning(text) +
                ", lleva un apóstrofo que debe escribirse doble (''); la instrucción no se envió a la base de "
                "datos"};
        }
    }
    return kept;
}

double bare(double number) {
    return std::strtod(number_text(number).c_str(), nullptr);
}

Text sql_date(Date date) {
    const Calendar day = calendar(date);
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
    return text;
}

Text sql_date_time(Date date) {
    const Calendar t = calendar(date);
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    return text;
}

Date date_of(const Nullable& column) {
    if (!column) throw Failure{words::use_of_null};
    const std::optional<Date> date = parse_date(*column);
    if (!date) throw Failure{words::type_mismatch};
    return *date;
}

double number_of(const Text& text) {
    return to_number(text);
}

Text four_digits(int number) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d", number);
    return text;
}

double cents(double amount) {
    return std::round(amount * 100) / 100;
}

bool adds_up_to_zero(double total) {
    return std::abs(total) < 0.000'000'5;
}

Text trimmed(const Text& text) {
    const auto first = text.find_first_not_of(' ');
    return first == Text::npos ? Text() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace cuvexa::model
