// cuvexa init: makes a database.
#include <iostream>
#include <memory>

#include "cli/command.h"

namespace cuvexa::cli {

namespace {

struct Init_options {
    Database_options database;
    bool sample = false;
    bool if_missing = false;
};

void init(const Init_options& options) {
    const std::string file = options.database.shown();
    if (options.if_missing && options.database.stands()) {
        Database(options.database, Access::read);  // refuses what is no database of this version
        std::cout << "Ya existía: " << file << '\n';
        return;
    }
    Database::create(options.database, options.sample);
    std::cout << "Base de datos creada" << (options.sample ? " con la empresa de muestra: " : ": ") << file << '\n';
}

}  // namespace

void add_init(CLI::App& program) {
    auto options = std::make_shared<Init_options>();
    CLI::App* command = program.add_subcommand("init", "Make a database");
    command->add_flag("--sample", options->sample, "With the sample company");
    command->add_flag("--if-missing", options->if_missing, "Leave an existing database as it is, and succeed");
    options->database.add_to(*command);
    command->callback([options] { init(*options); });
}

}  // namespace cuvexa::cli
