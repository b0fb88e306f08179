// cuvexa parameter: the system parameters of a database.
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/terminal.h"
#include "cuvexa/suite/administration.h"

namespace cuvexa::cli {

namespace {

constexpr Column columns[] = {{"name", "Parámetro"}, {"value", "Valor"}};

struct Parameter_options {
    Company_options company;
    std::string name;
    std::string value;
    bool json = false;
};

void list(const Parameter_options& options) {
    const Company company = open_to_read(options.company);
    std::vector<Row> rows;
    for (const System_parameter& parameter : parameters(company.connection())) {
        rows.push_back({parameter.name, parameter.value});
    }
    if (options.json) {
        print_json(std::cout, columns, rows);
    } else {
        print_table(std::cout, columns, rows);
    }
}

void get(const Parameter_options& options) {
    const Company company = open_to_read(options.company);
    const auto value = parameter(company.connection(), options.name);
    if (!value) throw Refused("No existe el parámetro: " + options.name);
    std::cout << *value << '\n';
}

void set(const Parameter_options& options) {
    const Company company(options.company, Access::write);
    set_parameter(company.connection(), options.name, options.value);
}

void unset(const Parameter_options& options) {
    const Company company(options.company, Access::write);
    if (!unset_parameter(company.connection(), options.name)) throw Refused("No existe el parámetro: " + options.name);
}

}  // namespace

void add_parameter(CLI::App& program) {
    auto options = std::make_shared<Parameter_options>();
    CLI::App* command = program.add_subcommand("parameter", "System parameters");
    command->require_subcommand(1);
    add_company_options(*command, options->company);

    const auto add = [&](const char* name, const char* help, void (*action)(const Parameter_options&)) {
        CLI::App* verb = command->add_subcommand(name, help)->fallthrough();
        verb->callback([options, action] { action(*options); });
        return verb;
    };
    add("list", "All parameters by name", list)->add_flag("--json", options->json, "An array of objects, for programs");
    add("get", "Print a value", get)->add_option("name", options->name, "Parameter")->required();
    CLI::App* setting = add("set", "Give a value; an empty one is a value", set);
    setting->add_option("name", options->name, "Parameter")->required();
    setting->add_option("value", options->value, "Value (after -- when it starts with -)")->required();
    add("unset", "Take a parameter away", unset)->add_option("name", options->name, "Parameter")->required();
}

}  // namespace cuvexa::cli
