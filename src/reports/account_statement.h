// The statement of a bank account: what moved it, with the balance after each movement; the same by day, for charts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "reports/table.h"

namespace cuvexa::reports {

/// Days, both included; without a beginning or an end where it is not given. A movement without a date is before all.
struct Period {
    std::optional<Date> from = {};
    std::optional<Date> to = {};
};

/// The sum of the movements that are not cancelled, and of those of them that are firm today; the rest is in transit.
struct Balance {
    double total = 0;
    double firm = 0;
};

struct Statement_page {
    Balance opening;
    Table table;  ///< movements, the oldest first; Saldo and Saldo_Firme stand after each
    Balance closing;
    std::vector<std::string> next = {};  ///< the place where this page ended; empty when it is the last
};

/// A page of a statement behind that place, with `limit` rows at most. Opening and closing are those of the whole period. The
/// account is not looked for. Throws `Database_error`, and `Bad_question` for a place that is none.
Statement_page read_statement(const Source& source, const std::string& account, const Period& period, std::size_t limit,
                              const std::vector<std::string>& behind = {});

struct Day {
    Date date;
    double in = 0;
    double out = 0;
    Balance balance = {};  ///< at its end
};

struct Daily_balances {
    Balance opening;
    std::vector<Day> days;  ///< on which something moved
    Balance closing;
};

/// Throws `Database_error`.
Daily_balances read_daily_balances(const Source& source, const std::string& account, const Period& period);

}  // namespace cuvexa::reports
