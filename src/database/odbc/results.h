// What a statement gave, read completely.
#pragma once

#include <functional>
#include <memory>

#include "database/odbc/handle.h"
#include "database/row_set.h"

namespace cuvexa::odbc {

/// The rows of the first result that has columns, or the number of rows that the statement changed. `code` is what its
/// execution gave; `fail` throws what the statement says about its last call.
std::unique_ptr<database::Row_set> read_results(const Handle& statement, SQLRETURN code,
                                                const std::function<void()>& fail);

}  // namespace cuvexa::odbc
