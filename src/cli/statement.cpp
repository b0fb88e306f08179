// cuvexa statement: the statement of a bank account.
#include <fstream>
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/session.h"
#include "cli/statement_form.h"
#include "cli/terminal.h"
#include "reports/rows_text.h"

namespace cuvexa::cli {

namespace {

using reports::Ordered_json;
using reports::Whole_statement;

struct Statement_options {
    Company_options company;
    std::string account;
    std::string from, to;
    bool json = false;
    bool csv = false;
    std::string html;
    std::string pdf;
};

std::optional<Date> day_of_text(const std::string& text) {
    if (text.empty()) return std::nullopt;
    return day_of(*parse_date(text));
}

Whole_statement read(const Statement_options& options) {
    const reports::Period period{day_of_text(options.from), day_of_text(options.to)};
    if (period.from && period.to && *period.to < *period.from) {
        throw CLI::ValidationError("--to is before --from");
    }
    const Company company = open_to_read(options.company);
    auto statement = read_whole_statement({company.connection(), company.date_style()}, options.account, period);
    if (!statement) throw Refused("No existe la cuenta bancaria: " + options.account);
    return std::move(*statement);
}

Ordered_json balance_json(const reports::Balance& balance) {
    return {{"balance", balance.total}, {"firm", balance.firm}};
}

Ordered_json day_json(const std::optional<Date>& day) {
    return day ? Ordered_json(iso_date(*day)) : Ordered_json(nullptr);
}

/// As the service answers.
void print_json(const Whole_statement& statement) {
    Ordered_json json;
    json["account"] = json_of_row(statement.account_row, statement.account_columns);
    json["from"] = day_json(statement.period.from);
    json["to"] = day_json(statement.period.to);
    json["opening"] = balance_json(statement.movements.opening);
    json["rows"] = json_of_rows(statement.movements.table);
    json["next"] = nullptr;
    json["closing"] = balance_json(statement.movements.closing);
    std::cout << reports::written(json) << '\n';
}

void print_balance(const char* title, const reports::Balance& balance) {
    std::cout << title << ": " << written_money(balance.total) << " (en firme " << written_money(balance.firm)
              << ", en tránsito " << written_money(balance.total - balance.firm) << ")\n";
}

void print_text(const Whole_statement& statement) {
    static constexpr Column columns[] = {{"date", "Fecha"},
                                         {"folio", "Movimiento"},
                                         {"what", "Concepto"},
                                         {"document", "Documento"},
                                         {"in", "Abono", Column_kind::number},
                                         {"out", "Cargo", Column_kind::number},
                                         {"balance", "Saldo", Column_kind::number},
                                         {"firm", "En firme", Column_kind::number}};
    std::vector<Row> rows;
    for (const Statement_line& line : lines_of(statement)) {
        rows.push_back({line.date, line.folio, line.what, line.document, line.in, line.out, line.balance, line.firm});
    }
    std::cout << "Estado de cuenta " << statement.account << ": " << written_account(statement) << '\n'
              << written_period(statement.period) << '\n';
    print_balance("Saldo inicial", statement.movements.opening);
    print_table(std::cout, columns, rows);
    print_balance("Saldo final", statement.movements.closing);
}

void write_html_file(const std::string& name, const Whole_statement& statement) {
    std::ofstream file(name, std::ios::binary);
    write_html(file, statement);
    file << std::flush;
    if (!file) throw Refused("No se puede escribir el archivo: " + name);
}

void show_statement(const Statement_options& options) {
    const Whole_statement statement = read(options);
    if (!options.html.empty()) return write_html_file(options.html, statement);
    if (!options.pdf.empty()) return write_pdf(options.pdf, statement);
    if (options.json) return print_json(statement);
    if (options.csv) {
        std::cout << csv_of(statement.movements.table);
    } else {
        print_text(statement);
    }
}

}  // namespace

void add_statement(CLI::App& program) {
    auto options = std::make_shared<Statement_options>();
    CLI::App* command = program.add_subcommand("statement", "The statement of a bank account, on screen or on paper");
    command->add_option("account", options->account, "The account")->required();
    command->add_option("--from", options->from, "First day; if not given, that of the first movement")
        ->type_name("DAY")
        ->check(date_problem);
    command->add_option("--to", options->to, "Last day; if not given, that of the last movement")
        ->type_name("DAY")
        ->check(date_problem);
    CLI::Option* json = command->add_flag("--json", options->json, "An object, for programs");
    CLI::Option* csv = command->add_flag("--csv", options->csv, "The movements, for spreadsheets")->excludes(json);
    CLI::Option* html =
        command->add_option("--html", options->html, "A page for a browser, with a chart of the balance")
            ->type_name("FILE")
            ->excludes(json)
            ->excludes(csv);
    command->add_option("--pdf", options->pdf, "The same on paper, letter size, its pages numbered")
        ->type_name("FILE")
        ->excludes(json)
        ->excludes(csv)
        ->excludes(html);
    add_company_options(*command, options->company);
    command->callback([options] { show_statement(*options); });
}

}  // namespace cuvexa::cli
