// cuvexa upgrade: brings a database of an earlier version to this program's.
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/progress.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::cli {

namespace {

struct Upgrade_options {
    Company_options company;
    bool dry_run = false;
};

void print_statements(const Upgrade& upgrade) {
    for (const Schema_upgrade& step : schema_upgrades()) {
        if (step.version > upgrade.from && step.version <= upgrade.to) std::cout << '\n' << step.sql;
    }
}

Upgrade run(const Upgrade_options& options) {
    Progress progress("Actualización");
    return Company::upgrade(options.company, options.dry_run ? Upgrade_mode::try_out : Upgrade_mode::keep,
                            progress.per_cent_of("Actualización"));
}

void upgrade(const Upgrade_options& options) {
    const std::string name = options.company.shown();
    const Upgrade done = run(options);
    const std::string from = std::to_string(done.from), to = std::to_string(done.to);
    if (done.from == done.to) {
        std::cout << "Ya es de la versión " << to << ": " << name << '\n';
    } else if (options.dry_run) {
        std::cout << "Se actualizaría de la versión " << from << " a la " << to << ": " << name << '\n';
        print_statements(done);
    } else {
        std::cout << "Actualizada de la versión " << from << " a la " << to << ": " << name << '\n';
    }
}

}  // namespace

void add_upgrade(CLI::App& program) {
    auto options = std::make_shared<Upgrade_options>();
    CLI::App* command = program.add_subcommand("upgrade", "Bring a database of an earlier version to this program's");
    command->add_flag("--dry-run", options->dry_run, "Run it, undo it, and print its statements");
    add_company_options(*command, options->company);
    command->callback([options] {
        heed_ctrl_c(options->company, "la base de datos queda como estaba");
        upgrade(*options);
    });
}

}  // namespace cuvexa::cli
