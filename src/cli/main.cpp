// The program: its commands, and the only place that turns failures into exit codes.
#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

#include <exception>
#include <iostream>

#include "cli/command.h"
#include "cli/progress.h"
#include "cli/syntax.h"
#include "cli/version.h"

namespace cuvexa::cli {

namespace {

/// Texts of the component hold CR LF; a terminal wants LF.
std::string for_terminal(std::string_view text) {
    std::string lines;
    for (const char c : text) {
        if (c != '\r') lines += c;
    }
    return lines;
}

/// A file that takes the place of a closed stream would be read and written as one. What takes it here fails as a closed
/// one does.
void fill_closed_places() {
#ifndef _WIN32
    for (const int place : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(place, F_GETFD) < 0) open("/dev/null", place == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
#endif
}

int wrong_use(const std::string& reason) {
    std::cerr << "cuvexa: " << reason << '\n';
    return exit_wrong_use;
}

int refused(std::string_view reason) {
    std::cerr << for_terminal(reason) << '\n';
    return exit_refused;
}

int interrupted() {
    std::cerr << text_of_interruption() << '\n';
    return exit_interrupted;
}

int written() {
    std::cout.flush();
    return std::cout ? exit_done : refused("No se pudo escribir el resultado");
}

int run(int count, char** words) {
    CLI::App program("Cuvexa, the treasury component: receipts, checks, deposits and bank movements", "cuvexa");
    program.set_version_flag("--version", version_text());
    program.require_subcommand(1);
    for (const auto add :
         {add_init, add_upgrade, add_backup, add_restore, add_demo, add_sample, add_rpc, add_describe, add_show,
          add_statement, add_parameter, add_suite, add_audit, add_dialog, add_help, add_completion}) {
        add(program);
    }
#ifdef CUVEXA_WITH_SERVICE
    add_serve(program);
    add_token(program);
#endif
    try {
        program.parse(count, words);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0) return wrong_use(reason_of(program, error));
        program.exit(error);  // prints what was asked for: help, the version
    }
    return written();
}

}  // namespace

}  // namespace cuvexa::cli

int main(int count, char** words) {
    cuvexa::cli::fill_closed_places();
    try {
        return cuvexa::cli::run(count, words);
    } catch (const std::exception& failure) {
        // What is being undone fails in many words.
        if (cuvexa::cli::is_interrupted()) return cuvexa::cli::interrupted();
        return cuvexa::cli::refused(failure.what());
    }
}
