// The forms of a statement of account: what each puts on paper, and how it writes figures and dates.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "reports/whole_statement.h"

namespace cuvexa::paper {

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

/// A page of its own: without scripts, nothing from elsewhere, to be read on a screen and printed on paper of letter size.
std::string html_of(const reports::Whole_statement& statement);

/// Is told which page of how many is drawn next. When it throws, the drawing ends.
using Page_progress = std::function<void(std::size_t page, std::size_t pages)>;

/// Whether this program was built with the library that writes PDF.
bool writes_pdf();

/// The same as a PDF, letter size, its pages numbered; from any thread, one at a time. Only where PDF is written.
std::string pdf_of(const reports::Whole_statement& statement, const Page_progress& progress = {});

/// Makes ready what `pdf_of` needs, which sets the locale of the program: before there are other threads.
void prepare_pdf();

/// "estado-de-cuenta-SRR-MXN-2024-03-01-2024-03-31", for a file's name.
std::string file_name_of(const reports::Whole_statement& statement);

}  // namespace cuvexa::paper
