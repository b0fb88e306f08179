// cuvexa token: who may use a service.
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/terminal.h"
#include "service/tokens.h"

namespace cuvexa::cli {

namespace {

constexpr Column columns[] = {{"name", "Token"}, {"company", "Empresa"}, {"right", "Derecho"}};

struct Token_options {
    std::string file;
    service::Token token;
    bool json = false;
};

void add_token_to(const Token_options& options) {
    const std::string text = service::Token_file(options.file).add(options.token);
    std::cout << "Se muestra una sola vez: " << text << '\n';
}

void remove(const Token_options& options) {
    service::Token_file(options.file).remove(options.token.name);
}

void list(const Token_options& options) {
    std::vector<Row> rows;
    for (const service::Token& token : service::Token_file(options.file).list()) {
        rows.push_back({token.name, token.company, std::string(token.read_only ? "read" : "operate")});
    }
    if (options.json) {
        print_json(std::cout, columns, rows);
    } else {
        print_table(std::cout, columns, rows);
    }
}

}  // namespace

void add_token(CLI::App& program) {
    auto options = std::make_shared<Token_options>();
    CLI::App* command = program.add_subcommand("token", "Who may use a service");
    command->require_subcommand(1);
    command->add_option("--tokens", options->file, "File of tokens")->required()->type_name("FILE");

    const auto verb = [&](const char* name, const char* help, void (*action)(const Token_options&)) {
        CLI::App* added = command->add_subcommand(name, help)->fallthrough();
        added->callback([options, action] { action(*options); });
        return added;
    };
    const auto with_name = [&](CLI::App* added) {
        added->add_option("name", options->token.name, "Name; the operator of the audit columns")->required();
        return added;
    };
    CLI::App* adding = with_name(verb("add", "Make a token and show it, once", add_token_to));
    adding->add_option("--company", options->token.company, "For this company alone")->type_name("NAME");
    adding->add_flag("--read", options->token.read_only, "It may read, not operate");
    verb("list", "All tokens by name", list)->add_flag("--json", options->json, "An array of objects, for programs");
    with_name(verb("remove", "Take a token away; a service that runs knows at once", remove));
}

}  // namespace cuvexa::cli
