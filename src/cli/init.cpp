// cuvexa init: makes a database.
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/progress.h"

namespace cuvexa::cli {

namespace {

struct Init_options {
    Company_options company;
    bool sample = false;
    bool if_missing = false;
};

/// False when it stood there already, and may.
bool make(const Init_options& options) {
    Progress progress("Base de datos nueva");
    const auto share = progress.per_cent_of("Base de datos nueva");
    const Contents contents = options.sample ? Contents::sample_company : Contents::schema;
    if (options.if_missing) return Company::create_if_missing(options.company, contents, share);
    Company::create(options.company, contents, share);
    return true;
}

void init(const Init_options& options) {
    const std::string name = options.company.shown();
    if (make(options)) {
        std::cout << "Base de datos creada" << (options.sample ? " con la empresa de muestra: " : ": ") << name << '\n';
    } else {
        const Company opened = open_to_read(options.company);  // refuses what is no database of this version
        std::cout << "Ya existía: " << name << '\n';
    }
}

}  // namespace

void add_init(CLI::App& program) {
    auto options = std::make_shared<Init_options>();
    CLI::App* command = program.add_subcommand("init", "Make a database");
    command->add_flag("--sample", options->sample, "With the sample company");
    command->add_flag("--if-missing", options->if_missing, "Leave an existing database as it is, and succeed");
    add_company_options(*command, options->company);
    command->callback([options] {
        heed_ctrl_c(options->company, "no queda ninguna base de datos");
        init(*options);
    });
}

}  // namespace cuvexa::cli
