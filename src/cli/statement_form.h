// The forms of a statement of account: what each puts on paper, and how it writes figures and dates.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "reports/whole_statement.h"

namespace cuvexa::cli {

/// "1,234.50", "-1,234.50".
std::string written_money(double amount);

/// "Del 01/03/2024 al 31/03/2024", "Hasta el 31/03/2024", "Todos los movimientos".
std::string written_period(const reports::Period& period);

/// "Sierra, operación en pesos (MXN)"
std::string written_account(const reports::Whole_statement& statement);

/// A movement as a reader sees it.
struct Statement_line {
    std::string date, folio, what, document, in, out, balance, firm;
};
std::vector<Statement_line> lines_of(const reports::Whole_statement& statement);

/// The balance by day between 0 and 1, from left to right and from the lowest balance to the highest; each day's balance holds
/// until the next.
struct Chart {
    struct Point {
        double x, y;
    };
    std::vector<Point> balance, firm;
    double low = 0, high = 0;
    std::string first_day, last_day;
};

/// Empty when nothing moved.
Chart chart_of(const reports::Daily_balances& daily, const reports::Period& period);

/// As a page of its own: without scripts, nothing from elsewhere, to be read on a screen and printed on paper of letter size.
void write_html(std::ostream& out, const reports::Whole_statement& statement);

/// The same as a file of PDF, letter size, its pages numbered. Throws `Refused` when it cannot be written, or when this program
/// was built without the library that writes it.
void write_pdf(const std::string& file, const reports::Whole_statement& statement);

}  // namespace cuvexa::cli
