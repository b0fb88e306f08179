// When what is owed falls due.
#pragma once

#include <string>

#include "cuvexa/date.h"
#include "cuvexa/value.h"

namespace cuvexa {

/// The date plus the credit days that a look-up gave; an empty text, which is no such row, gives none.
inline Date due_date(Date date, const std::string& credit_days) {
    return credit_days.empty() ? date : add_days(date, to_integer(credit_days));
}

}  // namespace cuvexa
