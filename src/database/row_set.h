// Rows read completely before they are walked, so that an open recordset holds nothing of the database.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/data_access.h"

namespace cuvexa::database {

/// Names of the columns of a statement; shared by all its recordsets.
using Column_names = std::shared_ptr<const std::vector<std::string>>;

/// The date so many seconds, less than one, after that one.
Date with_fraction(Date date, double seconds) noexcept;

/// Throws the `Database_error` of a result that is not finite.
[[noreturn]] void refuse_no_number();

/// A recordset in memory. An engine adds the cells row by row, left to right, before it hands the recordset out.
class Row_set : public Recordset {
public:
    explicit Row_set(Column_names columns) : columns_(std::move(columns)) {}

    void add_null() { cells_.push_back({Kind::null, {}, 0}); }
    void add(std::int64_t number) { cells_.push_back({Kind::whole, {.whole = number}, 0}); }
    /// Throws `Database_error` for a number that is not finite.
    void add(double number) {
        if (!std::isfinite(number)) refuse_no_number();
        cells_.push_back({Kind::real, {.real = number}, 0});
    }
    void add(Date date) { cells_.push_back({Kind::date, {.real = date.days}, 0}); }
    void add(std::string_view text) {
        cells_.push_back({Kind::text, {.offset = bytes_.size()}, text.size()});
        bytes_.append(text);
    }

    /// Rows changed by the statement, where it gives none.
    void set_changes(std::int64_t changes) noexcept { changes_ = changes; }

    /// Rows given, or changed where the statement gives none.
    std::int64_t rows() const noexcept;

    /// The columns' names; none where the statement gives no rows.
    const std::vector<std::string>& columns() const noexcept { return *columns_; }

    /// The column of that place in the current row. Throws `Database_error` as `field` does.
    Value value(std::size_t column) const;

    bool eof() const override { return at_ >= cells_.size(); }
    Value field(std::string_view name) const override;
    void move_next() override;
    void close() override;

private:
    enum class Kind : std::uint8_t { null, whole, real, date, text };
    struct Cell {
        Kind kind;
        union {
            std::int64_t whole;
            double real;
            std::size_t offset;
        } value;
        std::size_t length;
    };

    Column_names columns_;
    std::vector<Cell> cells_;
    std::string bytes_;
    std::size_t at_ = 0;
    std::int64_t changes_ = 0;
};

}  // namespace cuvexa::database
