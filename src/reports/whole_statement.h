// A statement of account as it is handed out: everything of a period, with what stands around it.
#pragma once

#include <optional>
#include <string>

#include "reports/account_statement.h"

namespace cuvexa::reports {

struct Whole_statement {
    std::string account;
    std::string description;
    std::string number;  ///< that the bank gave it
    std::string bank;
    std::string currency;
    std::string company;
    Columns account_columns;
    Row account_row;
    Period period;
    Statement_page movements;
    Daily_balances daily;
};

constexpr std::size_t all_movements = 1'000'000'000;

/// Nothing when there is no such account. Throws `Database_error`, and `Bad_question` when it has more movements than `most`.
std::optional<Whole_statement> read_whole_statement(const Source& source, const std::string& account,
                                                    const Period& period, std::size_t most = all_movements);

}  // namespace cuvexa::reports
