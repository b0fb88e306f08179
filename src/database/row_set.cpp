#include "database/row_set.h"

#include "core/case.h"
#include "cuvexa/errors.h"
#include "database/dialect/limits.h"

namespace cuvexa::database {

// The automation date counts the time of day away from the day, before its first day too.
Date with_fraction(Date date, double seconds) noexcept {
    const double rest = seconds / 86400;
    date.days += date.days < 0 ? -rest : rest;
    return date;
}

void refuse_no_number() {
    throw Database_error(std::string(dialect::no_number_text));
}

std::int64_t Row_set::rows() const noexcept {
    return columns_->empty() ? changes_ : static_cast<std::int64_t>(cells_.size() / columns_->size());
}

Value Row_set::field(std::string_view name) const {
    if (eof()) throw Database_error("No hay un registro actual");
    std::size_t column = 0;
    while (column < columns_->size() && !same_text((*columns_)[column], name)) ++column;
    if (column == columns_->size()) throw Database_error("No existe la columna: " + std::string(name));
    return value(column);
}

Value Row_set::value(std::size_t column) const {
    if (eof()) throw Database_error("No hay un registro actual");
    if (column >= columns_->size()) throw Database_error("No existe la columna: " + std::to_string(column));
    const Cell& cell = cells_[at_ + column];
    switch (cell.kind) {
        case Kind::whole:
            return cell.value.whole;
        case Kind::real:
            return cell.value.real;
        case Kind::date:
            return Date{cell.value.real};
        case Kind::text:
            return bytes_.substr(cell.value.offset, cell.length);
        case Kind::null:
            break;
    }
    return {};
}

void Row_set::move_next() {
    if (eof()) throw Database_error("No hay un registro actual");
    at_ += columns_->size();
}

void Row_set::close() {
    cells_.clear();
    cells_.shrink_to_fit();
    bytes_ = {};
    at_ = 0;
}

}  // namespace cuvexa::database
