// The rows of a query inside an operation: columns read by name, as text, number or date.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// Walked with `for (; !rows.eof(); rows.next())`; dies in the function that opened it.
class Rows {
public:
    explicit Rows(std::unique_ptr<Recordset> recordset) : recordset_(std::move(recordset)) {}

    bool eof() const { return recordset_->eof(); }
    void next() { recordset_->move_next(); }

    Value value(std::string_view column) const { return recordset_->field(column); }
    std::string text(std::string_view column) const { return to_text(value(column)); }
    double number(std::string_view column) const { return to_number(value(column)); }
    Date date(std::string_view column) const { return to_date(value(column)); }

private:
    std::unique_ptr<Recordset> recordset_;
};

}  // namespace cuvexa
