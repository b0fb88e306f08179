// A statement of account as a page for a browser.
#include <charconv>
#include <sstream>

#include "paper/statement_form.h"

namespace cuvexa::paper {

namespace {

constexpr int chart_width = 720, chart_height = 180;

/// A text of the database as a page shows it, whatever it holds.
std::string shown(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else if (c == '>') {
            result += "&gt;";
        } else if (c == '"') {
            result += "&quot;";
        } else {
            result += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
    }
    return result;
}

/// In the page's own direction, even where a text would turn what stands behind it.
std::string cell(const char* kind, std::string_view text) {
    return std::string("<td class=\"") + kind + "\"><bdi>" + shown(text) + "</bdi></td>";
}

std::string to_one_decimal(double number) {
    char digits[400];
    return {digits, std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, 1).ptr};
}

std::string drawn(const std::vector<Chart::Point>& points) {
    std::string text;
    for (const Chart::Point& point : points) {
        text += to_one_decimal(point.x * chart_width) + ',' + to_one_decimal((1 - point.y) * chart_height) + ' ';
    }
    return text;
}

void write_chart(std::ostream& out, const Chart& chart) {
    if (chart.balance.empty()) return;
    out << "<figure>\n<svg viewBox=\"-10 -10 " << chart_width + 20 << ' ' << chart_height + 20
        << "\" role=\"img\" aria-label=\"Saldo por día\">\n"
        << R"(<polyline class="firm" points=")" << drawn(chart.firm) << "\"/>\n"
        << R"(<polyline class="balance" points=")" << drawn(chart.balance) << "\"/>\n</svg>\n"
        << "<figcaption>Saldo por día, de " << chart.first_day << " a " << chart.last_day << ", entre "
        << written_money(chart.low) << " y " << written_money(chart.high)
        << "; con línea de puntos lo que está en firme</figcaption>\n</figure>\n";
}

void write_balance(std::ostream& out, const char* title, const reports::Balance& balance) {
    out << "<tr><th scope=\"row\">" << title << "</th><td class=\"n\">" << written_money(balance.total)
        << "</td><td class=\"n\">" << written_money(balance.firm) << "</td><td class=\"n\">"
        << written_money(balance.total - balance.firm) << "</td></tr>\n";
}

constexpr const char* style = R"(
:root { color-scheme: light; }
@page { size: letter; margin: 15mm; @bottom-right { content: "Página " counter(page) " de " counter(pages); font-size: 8pt; } }
body { font: 10pt/1.35 system-ui, sans-serif; color: #111; background: #fff; max-width: 60rem; margin: 1rem auto; padding: 0 1rem; }
h1 { font-size: 1.3rem; margin: 0; } p { margin: .2rem 0; }
table { border-collapse: collapse; width: 100%; margin: .8rem 0; } thead { display: table-header-group; }
th, td { text-align: left; padding: .15rem .4rem; border-bottom: 1px solid #ccc; vertical-align: top; }
.n { text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; } .d { white-space: nowrap; } tr { break-inside: avoid; }
figure { margin: .8rem 0; break-inside: avoid; } svg { width: 100%; height: auto; border: 1px solid #ccc; }
polyline { fill: none; stroke: #0b5394; stroke-width: 2; } .firm { stroke: #666; stroke-dasharray: 3 3; } figcaption { font-size: .85em; }
)";

}  // namespace

std::string html_of(const reports::Whole_statement& statement) {
    std::ostringstream out;
    out << "<!DOCTYPE html>\n<html lang=\"es-MX\">\n<head>\n<meta charset=\"utf-8\">\n"
        << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        << "<title>Estado de cuenta " << shown(statement.account) << "</title>\n<style>" << style
        << "</style>\n</head>\n<body>\n<header>\n<h1>Estado de cuenta " << shown(statement.account) << "</h1>\n<p><bdi>"
        << shown(statement.company) << "</bdi></p>\n<p><bdi>" << shown(written_account(statement)) << "</bdi>, <bdi>"
        << shown(statement.bank) << "</bdi>, número <bdi>" << shown(statement.number) << "</bdi></p>\n<p>"
        << written_period(statement.period) << "</p>\n</header>\n<main>\n";
    out << "<table>\n<thead><tr><th></th><th class=\"n\">Saldo</th><th class=\"n\">En firme</th>"
        << "<th class=\"n\">En tránsito</th></tr></thead>\n<tbody>\n";
    write_balance(out, "Saldo inicial", statement.movements.opening);
    write_balance(out, "Saldo final", statement.movements.closing);
    out << "</tbody>\n</table>\n";
    write_chart(out, chart_of(statement.daily, statement.period));
    out << "<table>\n<thead><tr><th>Fecha</th><th>Movimiento</th><th>Concepto</th><th>Documento</th>"
        << R"(<th class="n">Abono</th><th class="n">Cargo</th><th class="n">Saldo</th><th class="n">En firme</th>)"
        << "</tr></thead>\n<tbody>\n";
    for (const Statement_line& line : lines_of(statement)) {
        out << "<tr>" << cell("d", line.date) << cell("d", line.folio) << cell("t", line.what)
            << cell("t", line.document) << cell("n", line.in) << cell("n", line.out) << cell("n", line.balance)
            << cell("n", line.firm) << "</tr>\n";
    }
    out << "</tbody>\n</table>\n<p>* En tránsito</p>\n</main>\n</body>\n</html>\n";
    return out.str();
}

}  // namespace cuvexa::paper
