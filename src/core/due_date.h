// When what is owed falls due: the document's date plus the credit days of who owes it; the document's own date when the
// catalog does not give any, as for who is not active or not of the class that the document asks for any more.
#pragma once

#include <string>

#include "core/operation.h"

namespace cuvexa {

Date supplier_due_date(Operation& op, Date date, const std::string& supplier);

/// `table` and `condition` are those of the look-up, which the callers word each in its own way.
Date customer_due_date(Operation& op, Date date, const std::string& customer, const std::string& table,
                       const std::string& condition = {});

}  // namespace cuvexa
