#include "cli/command.h"

#include <cmath>
#include <cstdlib>
#include <iostream>

namespace cuvexa::cli {

namespace {

/// A range lets it pass.
std::string no_number_problem(const std::string& text) {
    return std::isnan(std::strtod(text.c_str(), nullptr)) ? "not a number: " + text : std::string();
}

}  // namespace

Company open_to_read(const Company_options& options) {
    Company company(options, Access::read);
    if (!company.notice().empty()) std::cerr << company.notice() << '\n';
    return company;
}

void add_db_option(CLI::App& command, Company_options& options, bool required) {
    command
        .add_option(
            "--db", options.database,
            "Database file, or a server: postgresql://…, or an ODBC connection string (password: CUVEXA_PASSWORD)")
        ->required(required)
        ->type_name("FILE");
}

void add_company_options(CLI::App& command, Company_options& options, bool db_required) {
    add_db_option(command, options, db_required);
    command.add_option("--trace", options.trace, "Append one JSON object per statement to this file")
        ->type_name("FILE");
    command
        .add_option("--synchronous", options.synchronous,
                    "What an acknowledged statement survives: full, normal or off")
        ->check(CLI::IsMember({"full", "normal", "off"}, CLI::ignore_case))
        ->capture_default_str();
    command.add_option("--wait", options.wait_s, "Seconds to wait for another program that is writing")
        ->check(CLI::Range(0.0, 3600.0))
        ->check(no_number_problem)
        ->capture_default_str();
}

}  // namespace cuvexa::cli
