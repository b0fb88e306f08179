// Expense records, as the module that justifies expenses would leave them.
#pragma once

#include <string>

#include "cuvexa/date.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa::reference {

/// An expense that a debtor has proved, held as an advance until it is set against the money of a check.
struct Expense_record {
    std::string debtor;
    std::string branch;
    std::string expense;  ///< folio of the expense record
    Date date;
    double amount = 0;
    std::string currency;
    double exchange_rate = 1;
    std::string reference = {};
};

/// Registers the advance ('GASTO_REGISTRO') with its receivable and gives its folio. Throws `Database_error` when the
/// debtor is unknown or the amount is not positive.
std::string register_expense_advance(Reference_suite& suite, const Expense_record& record);

/// Sets `amount` of an advance against the expense of a check: what applying the check will use.
void link_advance_to_check(Reference_suite& suite, const std::string& check_folio, const std::string& advance_folio,
                           double amount, double exchange_rate = 1);

}  // namespace cuvexa::reference
