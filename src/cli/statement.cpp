// cuvexa statement: the statement of a bank account.
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>

#include "cli/command.h"
#include "cli/progress.h"
#include "cli/replica.h"
#include "cli/session.h"
#include "cli/terminal.h"
#include "paper/statement_form.h"
#include "reports/rows_text.h"

namespace cuvexa::cli {

namespace {

using paper::written_money;
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

struct Read_statement {
    Whole_statement statement;
    std::optional<Replica> replica;
};

Read_statement read(const Statement_options& options) {
    const reports::Period period{day_of_text(options.from), day_of_text(options.to)};
    if (period.from && period.to && *period.to < *period.from) {
        throw CLI::ValidationError("--to is before --from");
    }
    const Company company = open_to_read(options.company);
    const auto replica = company.replica();
    auto statement = read_whole_statement({company.connection(), company.date_style()}, options.account, period);
    if (!statement) throw Refused("No existe la cuenta bancaria: " + options.account);
    return {std::move(*statement), replica};
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
    for (const paper::Statement_line& line : paper::lines_of(statement)) {
        rows.push_back({line.date, line.folio, line.what, line.document, line.in, line.out, line.balance, line.firm});
    }
    std::cout << "Estado de cuenta " << statement.account << ": " << paper::written_account(statement) << '\n'
              << paper::written_period(statement.period) << '\n';
    print_balance("Saldo inicial", statement.movements.opening);
    print_table(std::cout, columns, rows);
    print_balance("Saldo final", statement.movements.closing);
}

void write_file(const std::string& name, const std::string& content) {
    std::ofstream file(name, std::ios::binary);
    file << content << std::flush;
    if (!file) throw Refused("No se puede escribir el archivo: " + name);
}

void show_statement(const Statement_options& options) {
    if (!options.pdf.empty() && !paper::writes_pdf()) {
        throw Refused("Este programa se construyó sin la biblioteca que escribe PDF (Qt 6); use --html FILE");
    }
    std::optional<Progress> progress(std::in_place, "Estado de cuenta", !options.json);
    const auto [statement, replica] = read(options);
    progress->tell("Estado de cuenta");
    if (!options.html.empty()) write_file(options.html, paper::html_of(statement));
    if (!options.pdf.empty()) {
        write_file(options.pdf, paper::pdf_of(statement, [&](std::size_t page, std::size_t pages) {
                       progress->tell("Páginas", page, pages);
                   }));
    }
    progress.reset();
    if (options.json) {
        print_json_read(std::cout, replica, "statement", [&statement = statement] { print_json(statement); });
    } else if (options.csv) {
        std::cout << csv_of(statement.movements.table);
    } else {
        if (options.html.empty() && options.pdf.empty()) print_text(statement);
        print_replica(std::cout, replica);
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
    command->callback([options] {
        heed_ctrl_c(options->company, "no se escribió el estado de cuenta");
        show_statement(*options);
    });
}

}  // namespace cuvexa::cli
