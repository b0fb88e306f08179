// What a statement gave, as rows in memory.
#pragma once

#include <libpq-fe.h>

#include <memory>

#include "database/row_set.h"

namespace cuvexa::postgresql {

/// The rows of a result, or the number of rows that the statement changed.
std::unique_ptr<database::Row_set> rows_of(const PGresult* result);

}  // namespace cuvexa::postgresql
