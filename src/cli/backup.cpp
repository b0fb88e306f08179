// cuvexa backup and restore: a database in a file, copied while programs work on it, and made of such a copy.
#include <unistd.h>

#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cuvexa/suite/audit.h"

namespace cuvexa::cli {

namespace {

struct Copy_options {
    Company_options company;
    std::string copy;
};

/// One line that tells a person how far it is, wiped in the end.
class Shown_progress {
public:
    ~Shown_progress() {
        if (watched_) std::cerr << "\r\033[K";
    }
    void operator()(int per_cent) const {
        if (watched_) std::cerr << '\r' << per_cent << " %" << std::flush;
    }

private:
    bool watched_ = isatty(STDERR_FILENO) != 0;
};

/// A company's findings, or why they cannot be looked for yet, are its administrator's to know: the copy stands all the
/// same.
void remark_on(const Company_options& options) {
    try {
        const Company company(options, Access::read);
        const auto findings = audit(company.connection());
        if (findings.empty()) return;
        std::cerr << "Diferencias encontradas: " << findings.size() << " (las dice: cuvexa audit --db "
                  << options.database << ")\n";
    } catch (const Company_error& older) {
        std::cerr << older.what() << '\n';
    }
}

void back_up(const Copy_options& options) {
    {
        const Shown_progress progress;
        Company::back_up(options.company, options.copy, std::cref(progress));
    }
    std::cout << "Copia hecha: " << options.copy << '\n';
    remark_on({.database = options.copy});
}

void restore(const Copy_options& options) {
    {
        const Shown_progress progress;
        Company::restore(options.company, options.copy, std::cref(progress));
    }
    std::cout << "Base de datos recuperada: " << options.company.database << '\n';
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
