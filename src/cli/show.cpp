// cuvexa show: what a database holds, as tables or as JSON.
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/terminal.h"
#include "cli/views.h"

namespace cuvexa::cli {

namespace {

struct Show_options {
    Company_options company;
    std::string view;
    std::string key;
    bool json = false;
};

void show(const Show_options& options) {
    const View& view = view_named(options.view);
    const Company company = open_to_read(options.company);
    const auto rows = read_view(company.connection(), view, options.key);
    if (options.json) {
        print_json(std::cout, view.columns, rows);
    } else {
        std::cout << view.title << '\n';
        print_table(std::cout, view.columns, rows);
    }
}

}  // namespace

void add_show(CLI::App& program) {
    auto options = std::make_shared<Show_options>();
    CLI::App* command = program.add_subcommand("show", "Show what a database holds");
    command->add_option("view", options->view, "What to show")->required()->check(CLI::IsMember(view_names()));
    command->add_option("key", options->key, "Only the document, or the account, of this folio or key");
    command->add_flag("--json", options->json, "An array of objects, for programs");
    add_company_options(*command, options->company);
    command->callback([options] { show(*options); });
}

}  // namespace cuvexa::cli
