// When what is owed falls due: the document's date plus the credit days of who owes it.
#pragma once

#include <string>

#include "core/operation.h"

namespace cuvexa {

/// A supplier that is not active has no credit days.
Date supplier_due_date(Operation& op, Date date, const std::string& supplier);

/// The same of a customer. `table` and `condition` are those of the look-up, which the callers word each in its own way.
Date customer_due_date(Operation& op, Date date, const std::string& customer, const std::string& table,
                       const std::string& condition = {});

}  // namespace cuvexa
