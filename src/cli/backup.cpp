// cuvexa backup and restore: a database in a file, copied while programs work on it, and made of such a copy.
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/progress.h"
#include "cli/watched_audit.h"
#include "cuvexa/suite/audit.h"

namespace cuvexa::cli {

namespace {

struct Copy_options {
    Company_options company;
    std::string copy;
};

/// A company's findings, or why they cannot be looked for yet, are its administrator's to know: the copy stands all the
/// same.
void remark_on(Company_options options) {
    heed_ctrl_c(options, "la copia está hecha y sin revisar");
    try {
        const Company company(options, Access::read);
        const auto findings = watched_audit(company.connection());
        if (findings.empty()) return;
        std::cerr << "Diferencias encontradas: " << findings.size() << " (las dice: cuvexa audit --db "
                  << options.database << ")\n";
    } catch (const Company_error& older) {
        std::cerr << older.what() << '\n';
    }
}

void back_up(const Copy_options& options) {
    Company_options company = options.company;
    heed_ctrl_c(company, "no queda ninguna copia");
    {
        Progress progress("Copia");
        Company::back_up(company, options.copy, progress.per_cent_of("Copia"));
    }
    std::cout << "Copia hecha: " << options.copy << std::endl;
    remark_on({.database = options.copy});
}

void restore(const Copy_options& options) {
    Company_options company = options.company;
    heed_ctrl_c(company, "no queda ninguna base de datos");
    {
        Progress progress("Copia");
        Company::restore(company, options.copy, progress.per_cent_of("Copia"));
    }
    std::cout << "Base de datos recuperada: " << options.company.database << std::endl;
    remark_on({.database = options.company.database});
}

void add(CLI::App& program, const char* name, const char* help, const char* copy_help,
         void (*action)(const Copy_options&)) {
    auto options = std::make_shared<Copy_options>();
    CLI::App* command = program.add_subcommand(name, help);
    command->add_option("copy", options->copy, copy_help)->required()->type_name("FILE");
    add_db_option(*command, options->company);
    command->callback([options, action] { action(*options); });
}

}  // namespace

void add_backup(CLI::App& program) {
    add(program, "backup", "Copy a database file while programs work on it", "The copy, a new file", back_up);
}

void add_restore(CLI::App& program) {
    add(program, "restore", "Make a database file of a copy", "A copy that backup made", restore);
}

}  // namespace cuvexa::cli
