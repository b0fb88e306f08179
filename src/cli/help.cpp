// cuvexa help: what --help says of a command, and the pages of the manual.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/syntax.h"

namespace cuvexa::cli {

namespace {

struct Help_options {
    std::vector<std::string> command;
    std::string man;
};

const CLI::App& command_named(const CLI::App& program, const std::vector<std::string>& names) {
    const CLI::App* found = &program;
    for (const std::string& name : names) {
        const CLI::App* const below = find_command(*found, name);
        if (below == nullptr) {
            std::vector<std::string> known;
            for (const CLI::App* each : commands_of(*found)) known.push_back(each->get_name());
            const std::string meant = nearest(name, known);
            throw CLI::ValidationError("there is no command " + name +
                                       (meant.empty() ? "" : ", did you mean " + meant + "?"));
        }
        found = below;
    }
    return *found;
}

void write_page(const CLI::App& command, const std::filesystem::path& folder) {
    std::string name = full_name(command);
    for (char& c : name) {
        if (c == ' ') c = '-';
    }
    const std::filesystem::path page = folder / (name + ".1");
    std::ofstream file(page, std::ios::binary);
    file << manual_page(command) << std::flush;
    if (!file) throw Refused("No se puede escribir la página del manual: " + page.string());
}

void help(const CLI::App& program, const Help_options& options) {
    if (options.man.empty()) {
        const CLI::App& command = command_named(program, options.command);
        const std::string name = full_name(command);
        std::cout << command.get_formatter()->make_help(&command, name, CLI::AppFormatMode::Normal);
    } else {
        write_page(program, options.man);
        for (const CLI::App* command : commands_of(program)) write_page(*command, options.man);
    }
}

}  // namespace

void add_help(CLI::App& program) {
    auto options = std::make_shared<Help_options>();
    CLI::App* command = program.add_subcommand("help", "What a command does and which options it takes");
    command->add_option("command", options->command, "The command, and the one below it");
    command->add_option("--man", options->man, "Write the pages of the manual into this folder")->type_name("FOLDER");
    command->callback([options, &program] { help(program, *options); });
}

}  // namespace cuvexa::cli
