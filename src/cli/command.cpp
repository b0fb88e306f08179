#include "cli/command.h"

namespace cuvexa::cli {

void add_company_options(CLI::App& command, Company_options& options, bool db_required) {
    command
        .add_option(
            "--db", options.database,
            "Database file, or a server: postgresql://…, or an ODBC connection string (password: CUVEXA_PASSWORD)")
        ->required(db_required)
        ->type_name("FILE");
    command.add_option("--trace", options.trace, "Append one JSON object per statement to this file")
        ->type_name("FILE");
    command
        .add_option("--synchronous", options.synchronous,
                    "What an acknowledged statement survives: full, normal or off")
        ->check(CLI::IsMember({"full", "normal", "off"}, CLI::ignore_case))
        ->capture_default_str();
    command.add_option("--wait", options.wait_s, "Seconds to wait for another program that is writing")
        ->check(CLI::Range(0.0, 3600.0))
        ->capture_default_str();
}

}  // namespace cuvexa::cli
