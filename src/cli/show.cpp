// cuvexa show: what a database holds, as tables or as JSON.
#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/replica.h"
#include "cli/terminal.h"
#include "reports/views.h"

namespace cuvexa::cli {

namespace {

struct Show_options {
    Company_options company;
    std::string view;
    std::string key;
    bool json = false;
};

std::vector<std::string> names_of_views() {
    std::vector<std::string> names;
    for (const reports::View* view : reports::shown_views()) names.emplace_back(view->name);
    return names;
}

const reports::View& view_named(std::string_view name) {
    const auto views = reports::shown_views();
    return **std::find_if(views.begin(), views.end(), [&](const reports::View* view) { return view->name == name; });
}

void show(const Show_options& options) {
    const reports::View& view = view_named(options.view);
    const Company company = open_to_read(options.company);
    const auto replica = company.replica();
    const auto table = reports::read_view({company.connection(), company.date_style()}, view, options.key);
    if (options.json) {
        print_json_read(std::cout, replica, "rows", [&] { print_json(std::cout, table.columns, table.rows); });
    } else {
        std::cout << view.title << '\n';
        print_table(std::cout, table.columns, table.rows);
        print_replica(std::cout, replica);
    }
}

}  // namespace

void add_show(CLI::App& program) {
    auto options = std::make_shared<Show_options>();
    CLI::App* command = program.add_subcommand("show", "Show what a database holds");
    command->add_option("view", options->view, "What to show")->required()->check(CLI::IsMember(names_of_views()));
    command->add_option("key", options->key, "Only the document, or the account, of this folio or key");
    command->add_flag("--json", options->json, "An array of objects, for programs");
    add_company_options(*command, options->company);
    command->callback([options] { show(*options); });
}

}  // namespace cuvexa::cli
