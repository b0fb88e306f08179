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

/// Nothing when there is no such account. Throws `Database_error`.
std::optional<Whole_statement> read_whole_statement(const Source& source, const std::string& account,
                                                    const Period& period);

}  // namespace cuvexa::reports
