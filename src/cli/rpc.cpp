// cuvexa rpc: the component for any language, over standard input and output.
#include <iostream>
#include <memory>

#include "automation/json_rpc.h"
#include "cli/command.h"
#include "cli/desktop.h"
#include "cuvexa/module.h"
#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/unit_of_work.h"

namespace cuvexa::cli {

namespace {

struct Rpc_options {
    Database_options database;
    std::string user = Suite_options{}.user;
    std::string server_date;
    bool atomic = false;
};

std::string date_problem(const std::string& text) {
    return parse_date(text) ? std::string() : "not a date: " + text;
}

void serve(const Rpc_options& options) {
    Database database(options.database, Access::write);
    Suite_options suite;
    suite.date_style = database.date_style();
    suite.user = options.user;
    if (!options.server_date.empty()) suite.server_date = parse_date(options.server_date);
    const auto windows = desktop();
    report_in_windows(suite, windows);
    Module module(std::make_shared<Reference_suite>(database.connection(), suite));
    module.dialog_toolkit(windows);
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    const Around_call as_a_whole = [&](const Called_method& method, const std::function<bool()>& call) {
        // A dialog waits for a person, and nobody else could write meanwhile.
        if (method.shows_dialog) {
            call();
        } else {
            unit_of_work(database.connection(), call);
        }
    };
    serve_json_rpc(std::cin, std::cout, object_factory(module), options.atomic ? as_a_whole : Around_call());
}

}  // namespace

void add_rpc(CLI::App& program) {
    auto options = std::make_shared<Rpc_options>();
    CLI::App* command = program.add_subcommand("rpc", "Drive the component by JSON-RPC on standard input and output");
    command->add_option("--user", options->user, "User that the audit columns carry")
        ->type_name("NAME")
        ->capture_default_str();
    command
        ->add_option("--server-date", options->server_date, "Fix the server's date: 2024-03-15 or 2024-03-15T10:20:30")
        ->type_name("ISO")
        ->check(date_problem);
    command->add_flag("--atomic", options->atomic, "Run each call in a transaction, undone when it gives False");
    options->database.add_to(*command);
    command->callback([options] { serve(*options); });
}

}  // namespace cuvexa::cli
