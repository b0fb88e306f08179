// Budgets of checks, with what was used of each month.
#pragma once

#include "reports/table.h"

namespace cuvexa::reports {

/// The budgets of a year, or of all years (0). With a year, twelve columns more tell what the holder's checks of each month
/// come to, as the budget check counts them. Throws `Database_error`.
Table read_budgets(const Source& source, int year);

}  // namespace cuvexa::reports
