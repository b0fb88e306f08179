#include "database/odbc/results.h"

#include <array>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "database/utf16.h"

namespace cuvexa::odbc {
namespace {

using database::Row_set;

Date date_from(const SQL_TIMESTAMP_STRUCT& stamp) {
    return database::with_fraction(
        make_date(stamp.year, stamp.month, stamp.day, stamp.hour, stamp.minute, stamp.second), stamp.fraction / 1e9);
}

/// Where the blanks at the end of a text come from: a column char(n) is filled up with them, and its value is what was
/// written, so that a state and a code compare as they are meant.
enum class Blanks_at_end { written, filled_up };

/// Reads the cells of a statement's current row.
class Cells {
public:
    Cells(const Handle& statement, const std::function<void()>& fail) : statement_(statement), fail_(fail) {
        SQLSMALLINT count = 0;
        if (!SQL_SUCCEEDED(SQLNumResultCols(statement_, &count))) fail_();
        auto names = std::make_shared<std::vector<std::string>>();
        for (SQLUSMALLINT column = 1; column <= count; ++column) names->push_back(describe(column));
        names_ = std::move(names);
    }

    const database::Column_names& names() const noexcept { return names_; }

    void read_row(Row_set& rows) {
        for (std::size_t i = 0; i < types_.size(); ++i) read(rows, static_cast<SQLUSMALLINT>(i + 1), types_[i]);
    }

private:
    std::string describe(SQLUSMALLINT column) {
        std::u16string name(256, u'\0');
        SQLSMALLINT length = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(statement_, column, wide(name), static_cast<SQLSMALLINT>(name.size()),
                                           &length, &type, &size, &digits, &nullable))) {
            fail_();
        }
        types_.push_back(type);
        return database::utf8_from(std::u16string_view(name).substr(0, static_cast<std::size_t>(length)));
    }

    void read(Row_set& rows, SQLUSMALLINT column, SQLSMALLINT type) {
        switch (type) {
            case SQL_BIT:
            case SQL_TINYINT:
            case SQL_SMALLINT:
            case SQL_INTEGER:
            case SQL_BIGINT:
                return add(rows, column, SQL_C_SBIGINT, std::int64_t{});
            case SQL_REAL:
            case SQL_FLOAT:
            case SQL_DOUBLE:
            case SQL_DECIMAL:
            case SQL_NUMERIC:
                return add(rows, column, SQL_C_DOUBLE, double{});
            case SQL_DATETIME:
            case SQL_TIMESTAMP:
            case SQL_TYPE_DATE:
            case SQL_TYPE_TIMESTAMP:
                return add(rows, column, SQL_C_TYPE_TIMESTAMP, SQL_TIMESTAMP_STRUCT{});
            case SQL_CHAR:
            case SQL_WCHAR:
                return add_text(rows, column, Blanks_at_end::filled_up);
            default:
                return add_text(rows, column, Blanks_at_end::written);
        }
    }

    template <class Cell>
    void add(Row_set& rows, SQLUSMALLINT column, SQLSMALLINT type, Cell cell) {
        SQLLEN length = 0;
        if (!SQL_SUCCEEDED(SQLGetData(statement_, column, type, &cell, sizeof cell, &length))) fail_();
        if (length == SQL_NULL_DATA) return rows.add_null();
        if constexpr (std::is_same_v<Cell, SQL_TIMESTAMP_STRUCT>) {
            rows.add(date_from(cell));
        } else {
            rows.add(cell);
        }
    }

    // In pieces, until the driver has no more.
    void add_text(Row_set& rows, SQLUSMALLINT column, Blanks_at_end blanks) {
        text_.clear();
        for (;;) {
            SQLLEN length = 0;
            const SQLRETURN code = SQLGetData(statement_, column, SQL_C_WCHAR, piece_.data(),
                                              static_cast<SQLLEN>(piece_.size() * sizeof(char16_t)), &length);
            if (code == SQL_NO_DATA) break;
            if (!SQL_SUCCEEDED(code)) fail_();
            if (length == SQL_NULL_DATA) return rows.add_null();
            const std::size_t most = piece_.size() - 1;
            const bool more = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) / sizeof(char16_t) > most;
            text_.append(piece_.data(), more ? most : static_cast<std::size_t>(length) / sizeof(char16_t));
            if (!more) break;
        }
        if (blanks == Blanks_at_end::filled_up) text_.erase(text_.find_last_not_of(u' ') + 1);
        rows.add(std::string_view(database::utf8_from(text_)));
    }

    const Handle& statement_;
    const std::function<void()>& fail_;
    database::Column_names names_;
    std::vector<SQLSMALLINT> types_;
    std::array<char16_t, 2048> piece_;
    std::u16string text_;
};

/// Adds one result to what was read before it.
void read_result(const Handle& statement, const std::function<void()>& fail, std::unique_ptr<Row_set>& rows,
                 std::int64_t& changes) {
    Cells cells(statement, fail);
    if (cells.names()->empty()) {
        SQLLEN count = 0;
        if (SQL_SUCCEEDED(SQLRowCount(statement, &count)) && count > 0) changes += count;
        return;
    }
    auto read = std::make_unique<Row_set>(cells.names());
    SQLRETURN code = SQLFetch(statement);
    for (; SQL_SUCCEEDED(code); code = SQLFetch(statement)) cells.read_row(*read);
    if (code != SQL_NO_DATA) fail();
    if (!rows) rows = std::move(read);
}

}  // namespace

std::unique_ptr<Row_set> read_results(const Handle& statement, SQLRETURN code, const std::function<void()>& fail) {
    std::unique_ptr<Row_set> rows;
    std::int64_t changes = 0;
    // A failure may stand behind a first result.
    if (code == SQL_NO_DATA) code = SQLMoreResults(statement);
    for (; code != SQL_NO_DATA; code = SQLMoreResults(statement)) {
        if (!SQL_SUCCEEDED(code)) fail();
        read_result(statement, fail, rows, changes);
    }
    if (!rows) rows = std::make_unique<Row_set>(std::make_shared<std::vector<std::string>>());
    rows->set_changes(changes);
    return rows;
}

}  // namespace cuvexa::odbc
