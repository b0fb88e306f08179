// cuvexa suite: administers the reference suite of a database.
#include <cctype>
#include <cstdio>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/command.h"
#include "cli/terminal.h"
#include "cuvexa/suite/administration.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa::cli {

namespace {

constexpr Column posting_columns[] = {{"code", "Documento"}, {"automatic", "Póliza automática"}};
constexpr Column period_columns[] = {{"module", "Módulo"}, {"period", "Período"}, {"open", "Abierto"}};
constexpr Column series_columns[] = {
    {"code", "Documento"}, {"branch", "Sucursal"}, {"last", "Último folio", Column_kind::number}, {"open", "Abierta"}};

struct Suite_command_options {
    Company_options company;
    bool json = false;
    std::string id;
    bool replica = false, central = false;
    std::string code, folio, branch;
    std::string on_off, open_close, month, module = "FINANZAS";
    int next = 0;
    bool close = false, reopen = false;
};

std::string yes_no(bool yes) {
    return yes ? "SI" : "NO";
}

std::string year_month(const Period& period) {
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d", period.year, period.month);
    return text;
}

std::vector<Row> posting_rows(Connection& connection) {
    std::vector<Row> rows;
    for (const Posting& posting : postings(connection)) rows.push_back({posting.code, yes_no(posting.automatic)});
    return rows;
}

std::vector<Row> period_rows(Connection& connection) {
    std::vector<Row> rows;
    for (const Period& period : periods(connection)) {
        rows.push_back({period.module, year_month(period), yes_no(period.open)});
    }
    return rows;
}

Row series_row(const Folio_series& series) {
    return {series.code, series.branch, std::int64_t{series.last}, yes_no(series.open)};
}

std::vector<Row> series_rows(Connection& connection) {
    std::vector<Row> rows;
    for (const Folio_series& series : folio_series(connection)) rows.push_back(series_row(series));
    return rows;
}

void show_json(Connection& connection) {
    const Server_identity server = server_identity(connection);
    nlohmann::ordered_json all{{"server", {{"id", server.id}, {"replica", server.replica}}}};
    all["posting"] = nlohmann::json::array();
    for (const Posting& posting : postings(connection)) {
        all["posting"].push_back({{"code", posting.code}, {"automatic", posting.automatic}});
    }
    all["periods"] = nlohmann::json::array();
    for (const Period& period : periods(connection)) {
        all["periods"].push_back({{"module", period.module}, {"period", year_month(period)}, {"open", period.open}});
    }
    all["folios"] = nlohmann::json::array();
    for (const Folio_series& series : folio_series(connection)) {
        all["folios"].push_back(
            {{"code", series.code}, {"branch", series.branch}, {"last", series.last}, {"open", series.open}});
    }
    std::cout << all.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

void show(const Suite_command_options& options) {
    const Company company = open_to_read(options.company);
    Connection& connection = company.connection();
    if (options.json) return show_json(connection);
    const Server_identity server = server_identity(connection);
    std::cout << "Servidor: " << server.id << (server.replica ? " (réplica)" : " (central)")
              << "\n\nPólizas automáticas\n";
    print_table(std::cout, posting_columns, posting_rows(connection));
    std::cout << "\nPeríodos operativos\n";
    print_table(std::cout, period_columns, period_rows(connection));
    std::cout << "\nSeries de folios\n";
    print_table(std::cout, series_columns, series_rows(connection));
}

void set_server(const Suite_command_options& options) {
    const Company company(options.company, Access::write);
    Server_identity server = server_identity(company.connection());
    server.id = options.id;
    if (options.replica || options.central) server.replica = options.replica;
    set_server_identity(company.connection(), server);
}

void set_posting_of(const Suite_command_options& options) {
    const Company company(options.company, Access::write);
    set_posting(company.connection(), options.code, options.on_off == "on");
}

void set_period_state(const Suite_command_options& options) {
    const Company company(options.company, Access::write);
    const int year = std::stoi(options.month.substr(0, 4));
    const int month = std::stoi(options.month.substr(5));
    set_period(company.connection(), {options.module, year, month, options.open_close == "open"});
}

void administer_series(const Suite_command_options& options) {
    const bool changes = options.next > 0 || options.close || options.reopen;
    const Company company(options.company, changes ? Access::write : Access::read);
    Connection& connection = company.connection();
    if (options.next > 0) set_next_folio(connection, options.code, options.branch, options.next);
    if (options.close || options.reopen) {
        set_folio_series_open(connection, options.code, options.branch, options.reopen);
    }
    print_table(std::cout, series_columns, {series_row(folio_series_of(connection, options.code, options.branch))});
}

void mark(const Suite_command_options& options) {
    const Company company(options.company, Access::write);
    mark_posted(company.connection(), options.code, options.folio, Suite_options{}.user);
}

std::string month_problem(const std::string& text) {
    const auto digit = [&](std::size_t at) { return std::isdigit(static_cast<unsigned char>(text[at])) != 0; };
    const bool form =
        text.size() == 7 && digit(0) && digit(1) && digit(2) && digit(3) && text[4] == '-' && digit(5) && digit(6);
    if (form && text.substr(5) >= "01" && text.substr(5) <= "12") return {};
    return "not a month (YYYY-MM): " + text;
}

}  // namespace

void add_suite(CLI::App& program) {
    auto options = std::make_shared<Suite_command_options>();
    CLI::App* command = program.add_subcommand("suite", "Administer the reference suite");
    command->require_subcommand(1);
    add_company_options(*command, options->company);

    const auto add = [&](const char* name, const char* help, void (*action)(const Suite_command_options&)) {
        CLI::App* verb = command->add_subcommand(name, help)->fallthrough();
        verb->callback([options, action] { action(*options); });
        return verb;
    };
    add("show", "Server, posting, periods and folios", show)
        ->add_flag("--json", options->json, "An object, for programs");

    CLI::App* server = add("server", "Say which server this database runs on", set_server);
    server->add_option("--id", options->id, "Server id")->required();
    CLI::Option* replica = server->add_flag("--replica", options->replica, "It is not the central server");
    server->add_flag("--central", options->central, "It is the central server")->excludes(replica);

    CLI::App* posting = add("posting", "Switch the automatic voucher of a document code", set_posting_of);
    posting->add_option("code", options->code, "Document code")->required();
    posting->add_option("state", options->on_off, "on or off")->required()->check(CLI::IsMember({"on", "off"}));

    CLI::App* period = add("period", "Open or close an operating period", set_period_state);
    period->add_option("state", options->open_close, "open or close")
        ->required()
        ->check(CLI::IsMember({"open", "close"}));
    period->add_option("month", options->month, "YYYY-MM")->required()->check(month_problem);
    period->add_option("--module", options->module, "Module")->capture_default_str();

    CLI::App* folios = add("folios", "Show or change a series of folios", administer_series);
    folios->add_option("code", options->code, "Document code")->required();
    folios->add_option("branch", options->branch, "Branch; \"\" for the series without one")->required();
    folios->add_option("--next", options->next, "Next number to give")->check(CLI::Range(1, 99999999));
    CLI::Option* close = folios->add_flag("--close", options->close, "Give no more folios");
    folios->add_flag("--reopen", options->reopen, "Give folios again")->excludes(close);

    CLI::App* posted = add("posted", "Mark a document as posted to accounting", mark);
    posted->add_option("code", options->code, "Document code")->required();
    posted->add_option("folio", options->folio, "Folio")->required();
}

}  // namespace cuvexa::cli
