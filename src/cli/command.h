// What the commands of the program share: how they fail, and the options that name a company.
#pragma once

#include <CLI/CLI.hpp>
#include <stdexcept>

#include "cuvexa/company.h"

namespace cuvexa::cli {

enum Exit_code { exit_done = 0, exit_refused = 1, exit_wrong_use = 2, exit_interrupted = 130 };

/// Ends a command with exit code 1; the text goes to standard error.
class Refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Adds --db alone.
void add_db_option(CLI::App& command, Company_options& options, bool required = true);

/// Adds --db, --trace, --synchronous and --wait to a command.
void add_company_options(CLI::App& command, Company_options& options, bool db_required = true);

/// Opens a company that is not to be changed; what its operator should know goes to standard error.
Company open_to_read(const Company_options& options);

/// The commands; each adds itself, with what it does when chosen.
void add_init(CLI::App& program);
void add_upgrade(CLI::App& program);
void add_backup(CLI::App& program);
void add_restore(CLI::App& program);
void add_demo(CLI::App& program);
void add_sample(CLI::App& program);
void add_rpc(CLI::App& program);
void add_describe(CLI::App& program);
void add_show(CLI::App& program);
void add_statement(CLI::App& program);
void add_parameter(CLI::App& program);
void add_suite(CLI::App& program);
void add_audit(CLI::App& program);
void add_dialog(CLI::App& program);
void add_serve(CLI::App& program);  ///< in a program built with the service
void add_token(CLI::App& program);  ///< likewise
void add_help(CLI::App& program);
void add_completion(CLI::App& program);

}  // namespace cuvexa::cli
