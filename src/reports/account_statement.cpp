#include "reports/account_statement.h"

#include <charconv>

#include "core/text.h"
#include "reports/conditions.h"
#include "reports/lists.h"

namespace cuvexa::reports {

namespace {

using enum Column_kind;

constexpr Column statement_columns[] = {
    {"Bm_Folio", "Movimiento"},        {"Bm_Fecha", "Fecha", date},     {"Bt_Cve_Banco_Tipo_Movimiento", "Tipo"},
    {"Bt_Descripcion", "Concepto"},    {"Bm_Tabla", "Documento"},       {"Bm_Documento", "Folio"},
    {"Bm_Referencia", "Referencia"},   {"Bm_Comentario", "Comentario"}, {"Es_Cve_Estado", "Estado"},
    {"Bm_Importe", "Importe", amount}, {"Saldo", "Saldo", amount},      {"Saldo_Firme", "En firme", amount},
};
constexpr Columns read_columns = Columns(statement_columns).first(std::size(statement_columns) - 2);

std::string live_movements(const std::string& account) {
    return "Banco_Movimiento.Bc_Cve_Banco_Cuenta = " + sql_quoted(account) +
           " AND Banco_Movimiento.Es_Cve_Estado <> 'CA'";
}

Balance balance_where(const Source& source, const std::string& account, const std::string& condition) {
    const Rows sums = source.query(
        "SELECT SUM(Bm_Importe) AS Saldo, SUM(CASE WHEN Es_Cve_Estado = 'FI' THEN Bm_Importe ELSE 0 END) AS Firme "
        "FROM Banco_Movimiento WHERE " +
        live_movements(account) + " AND " + condition);
    return {number_or_zero(sums.value("Saldo")), number_or_zero(sums.value("Firme"))};
}

Balance sum(const Balance& a, const Balance& b) {
    return {a.total + b.total, a.firm + b.firm};
}

Balance opening_of(const Source& source, const std::string& account, const Period& period) {
    Balance balance = balance_where(source, account, "Bm_Fecha IS NULL");
    if (!period.from) return balance;
    const std::string before = "Bm_Fecha < " + date_literal(day_of(*period.from), source.dates);
    return sum(balance, balance_where(source, account, before));
}

std::string in_period(const Source& source, const Period& period) {
    return between_days("Bm_Fecha", period.from, period.to, source.dates);
}

/// Where a page ended: date and folio of its last movement, and the balances after it.
struct Place {
    std::string date, folio;
    Balance balance;
};

double number_of(const std::string& text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) throw Bad_question("after is no place of this list");
    return number;
}

Place place_of(const std::vector<std::string>& steps) {
    if (steps.size() != 4) throw Bad_question("after is no place of this list");
    return {steps[0], steps[1], {number_of(steps[2]), number_of(steps[3])}};
}

std::string exact(double number) {
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

std::string behind(const Source& source, const Place& place) {
    const std::string day = date_literal(place.date, source.dates);
    return " AND Bm_Fecha >= " + day + " AND (Bm_Fecha > " + day + " OR Bm_Folio > " + sql_quoted(place.folio) + ")";
}

}  // namespace

Statement_page read_statement(const Source& source, const std::string& account, const Period& period, std::size_t limit,
                              const std::vector<std::string>& steps) {
    Statement_page page{opening_of(source, account, period), {statement_columns}, {}};
    page.closing = sum(page.opening, balance_where(source, account, in_period(source, period)));
    Balance balance = page.opening;
    std::string statement = "SELECT TOP " + std::to_string(limit + 1) +
                            " Banco_Movimiento.*, Bt_Descripcion FROM Banco_Movimiento "
                            "LEFT JOIN Banco_Tipo_Movimiento ON Banco_Tipo_Movimiento.Bt_Cve_Banco_Tipo_Movimiento = "
                            "Banco_Movimiento.Bt_Cve_Banco_Tipo_Movimiento WHERE " +
                            live_movements(account) + " AND " + in_period(source, period);
    if (!steps.empty()) {
        const Place place = place_of(steps);
        balance = place.balance;
        statement += behind(source, place);
    }
    Rows movements = source.query(statement + " ORDER BY Bm_Fecha, Bm_Folio");
    for (; !movements.eof() && page.table.rows.size() < limit; movements.next()) {
        Row row = row_of(movements, read_columns);
        const double amount = movements.number("Bm_Importe");
        balance.total += amount;
        if (movements.text("Es_Cve_Estado") == "FI") balance.firm += amount;
        row.emplace_back(balance.total);
        row.emplace_back(balance.firm);
        page.next = {movements.text("Bm_Fecha"), movements.text("Bm_Folio"), exact(balance.total), exact(balance.firm)};
        page.table.rows.push_back(std::move(row));
    }
    if (movements.eof()) page.next.clear();
    return page;
}

Daily_balances read_daily_balances(const Source& source, const std::string& account, const Period& period) {
    Daily_balances daily{opening_of(source, account, period), {}, {}};
    Balance balance = daily.opening;
    Rows sums = source.query(
        "SELECT Bm_Fecha, SUM(CASE WHEN Bm_Importe > 0 THEN Bm_Importe ELSE 0 END) AS Entradas, "
        "SUM(CASE WHEN Bm_Importe < 0 THEN Bm_Importe ELSE 0 END) AS Salidas, "
        "SUM(CASE WHEN Es_Cve_Estado = 'FI' THEN Bm_Importe ELSE 0 END) AS Firme "
        "FROM Banco_Movimiento WHERE " +
        live_movements(account) + " AND " + in_period(source, period) + " GROUP BY Bm_Fecha ORDER BY Bm_Fecha");
    for (; !sums.eof(); sums.next()) {
        const Date date = day_of(sums.date("Bm_Fecha"));
        if (daily.days.empty() || daily.days.back().date != date) daily.days.push_back({date});
        Day& day = daily.days.back();
        const double in = number_or_zero(sums.value("Entradas")), out = number_or_zero(sums.value("Salidas"));
        day.in += in;
        day.out -= out;
        balance = sum(balance, {in + out, number_or_zero(sums.value("Firme"))});
        day.balance = balance;
    }
    daily.closing = balance;
    return daily;
}

}  // namespace cuvexa::reports
