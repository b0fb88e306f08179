#include "paper/statement_form.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace cuvexa::paper {

using reports::Balance;

std::string written_money(double amount) {
    char digits[400];  // the largest double has 309 digits
    const auto [end, error] =
        std::to_chars(digits, digits + sizeof digits, std::fabs(amount), std::chars_format::fixed, 2);
    std::string text(digits, end);
    for (std::size_t at = text.size() - 3; at > 3; at -= 3) text.insert(at - 3, 1, ',');
    const bool below_zero = amount < 0 && text.find_first_not_of("0.,") != std::string::npos;
    return below_zero ? '-' + text : text;
}

std::string written_period(const reports::Period& period) {
    if (period.from && period.to) return "Del " + short_date(*period.from) + " al " + short_date(*period.to);
    if (period.from) return "Desde el " + short_date(*period.from);
    if (period.to) return "Hasta el " + short_date(*period.to);
    return "Todos los movimientos";
}

std::string written_account(const reports::Whole_statement& statement) {
    return statement.description + " (" + statement.currency + ")";
}

std::string file_name_of(const reports::Whole_statement& statement) {
    std::string name = "estado-de-cuenta-" + statement.account;
    for (const auto& day : {statement.period.from, statement.period.to}) {
        if (day) name += '-' + iso_date(*day);
    }
    return name;
}

std::vector<Statement_line> lines_of(const reports::Whole_statement& statement) {
    const reports::Table& table = statement.movements.table;
    std::vector<Statement_line> lines;
    for (const reports::Row& row : table.rows) {
        const auto value = [&](std::string_view name) { return value_in(row, table.columns, name); };
        const auto text = [&](std::string_view name) { return to_text(value(name)); };
        const double amount = to_number(value("Bm_Importe"));
        const auto date = parse_date(text("Bm_Fecha"));
        const std::string transit = text("Es_Cve_Estado") == "FI" ? "" : " *";
        const std::string reference = text("Bm_Referencia");
        lines.push_back({date ? short_date(*date) : text("Bm_Fecha"), text("Bm_Folio") + transit,
                         text("Bt_Descripcion"), text("Bm_Documento") + (reference.empty() ? "" : " · " + reference),
                         amount < 0 ? "" : written_money(amount), amount < 0 ? written_money(-amount) : "",
                         written_money(to_number(value("Saldo"))), written_money(to_number(value("Saldo_Firme")))});
    }
    return lines;
}

namespace {

/// The line of one of the two balances, with a step at each day.
std::vector<Chart::Point> steps(const reports::Daily_balances& daily, double Balance::*which, Date first, Date last,
                                const Chart& chart) {
    const double days = std::max(1.0, last.days - first.days), range = chart.high - chart.low;
    const auto y = [&](const Balance& balance) { return (balance.*which - chart.low) / range; };
    std::vector<Chart::Point> points{{0, y(daily.opening)}};
    for (const reports::Day& day : daily.days) {
        const double x = (day.date.days - first.days) / days;
        points.push_back({x, points.back().y});
        points.push_back({x, y(day.balance)});
    }
    points.push_back({1, points.back().y});
    return points;
}

}  // namespace

Chart chart_of(const reports::Daily_balances& daily, const reports::Period& period) {
    Chart chart;
    if (daily.days.empty()) return chart;
    const Date first = period.from.value_or(daily.days.front().date);
    const Date last = std::max(daily.days.back().date, std::min(period.to.value_or(daily.days.back().date),
                                                                add_days(daily.days.back().date, 366)));
    const auto take = [&](const Balance& balance) {
        chart.low = std::min({chart.low, balance.total, balance.firm});
        chart.high = std::max({chart.high, balance.total, balance.firm});
    };
    take(daily.opening);
    for (const reports::Day& day : daily.days) take(day.balance);
    if (chart.high - chart.low <= 0) chart.high = chart.low + 1;
    chart.balance = steps(daily, &Balance::total, first, last, chart);
    chart.firm = steps(daily, &Balance::firm, first, last, chart);
    chart.first_day = short_date(first);
    chart.last_day = short_date(last);
    return chart;
}

}  // namespace cuvexa::paper
