#include "database/postgresql/results.h"

#include <charconv>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace cuvexa::postgresql {
namespace {

using database::Row_set;

/// How the values of a type are read. What is none of these is text.
enum class Reading { text, filled_up, whole, real, truth, date };

// The numbers that the server's catalog gives its own types, for good.
Reading reading_of(Oid type) noexcept {
    switch (type) {
        case 20:  // bigint
        case 21:  // smallint
        case 23:  // integer
        case 26:  // oid
            return Reading::whole;
        case 700:   // real
        case 701:   // double precision
        case 1700:  // numeric
            return Reading::real;
        case 16:
            return Reading::truth;
        case 1082:  // date
        case 1114:  // timestamp
        case 1184:  // timestamp with time zone
            return Reading::date;
        case 1042:  // char(n), which the server fills up with blanks
            return Reading::filled_up;
        default:
            return Reading::text;
    }
}

void add_whole(Row_set& rows, std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc()) {
        rows.add(number);
    } else {
        rows.add(text);
    }
}

// The server's decimals reach beyond those of a machine: what is too large is infinite, what is too small is zero.
void add_real(Row_set& rows, std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range) number = std::strtod(std::string(text).c_str(), nullptr);
    rows.add(number);
}

int number_at(std::string_view text, std::size_t at, std::size_t digits) noexcept {
    int number = 0;
    if (at + digits <= text.size()) std::from_chars(text.data() + at, text.data() + at + digits, number);
    return number;
}

/// "2024-03-15", "2024-03-15 10:20:30.123"; whatever is no such date (infinity, before Christ) is text.
void add_date(Row_set& rows, std::string_view text) {
    const auto day = parse_date(text.substr(0, 10));
    if (!day || text.ends_with("BC")) return rows.add(text);
    const Date date = make_date(number_at(text, 0, 4), number_at(text, 5, 2), number_at(text, 8, 2),
                                number_at(text, 11, 2), number_at(text, 14, 2), number_at(text, 17, 2));
    double fraction = 0;
    if (text.size() > 20 && text[19] == '.') std::from_chars(text.data() + 19, text.data() + text.size(), fraction);
    rows.add(database::with_fraction(date, fraction));
}

void add(Row_set& rows, Reading reading, std::string_view text) {
    switch (reading) {
        case Reading::whole:
            return add_whole(rows, text);
        case Reading::real:
            return add_real(rows, text);
        case Reading::truth:
            return rows.add(std::int64_t{text == "t"});
        case Reading::date:
            return add_date(rows, text);
        case Reading::filled_up:
            return rows.add(text.substr(0, text.find_last_not_of(' ') + 1));
        case Reading::text:
            return rows.add(text);
    }
}

}  // namespace

std::unique_ptr<Row_set> rows_of(const PGresult* result) {
    auto names = std::make_shared<std::vector<std::string>>();
    std::vector<Reading> readings;
    const int columns = PQnfields(result);
    for (int column = 0; column < columns; ++column) {
        names->emplace_back(PQfname(result, column));
        readings.push_back(reading_of(PQftype(result, column)));
    }
    auto rows = std::make_unique<Row_set>(std::move(names));
    for (int row = 0; row < PQntuples(result); ++row) {
        for (int column = 0; column < columns; ++column) {
            if (PQgetisnull(result, row, column) != 0) {
                rows->add_null();
            } else {
                add(*rows, readings[static_cast<std::size_t>(column)],
                    {PQgetvalue(result, row, column), static_cast<std::size_t>(PQgetlength(result, row, column))});
            }
        }
    }
    const std::string_view changes = PQcmdTuples(const_cast<PGresult*>(result));
    if (columns == 0 && !changes.empty()) rows->set_changes(number_at(changes, 0, changes.size()));
    return rows;
}

}  // namespace cuvexa::postgresql
