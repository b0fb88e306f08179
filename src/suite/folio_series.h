// Folios: every document code has a series of numbers in every branch. What an administrator does to them stands in
// suite/administration.h.
#pragma once

#include <string>

#include "cuvexa/data_access.h"

namespace cuvexa::reference {

/// The next number of the series as a folio; empty, with `why` filled, when the series is closed. A series begins by itself.
std::string next_folio(Connection& connection, const std::string& branch, const std::string& document_code,
                       std::string& why);

}  // namespace cuvexa::reference
