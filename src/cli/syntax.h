// What the commands, options and words of the program are, read from the same declarations that parse a command line and
// print --help: the manual's pages, the completions and the suggestions cannot say anything else.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace cuvexa::cli {

/// The commands below a command that a person may give, in the order of the help.
std::vector<const CLI::App*> commands_of(const CLI::App& command);

/// The options with a dash, or the words by their position.
std::vector<const CLI::Option*> dashed_options_of(const CLI::App& command);
std::vector<const CLI::Option*> positions_of(const CLI::App& command);

/// The command with those that it stands below: "cuvexa suite folios".
std::string full_name(const CLI::App& command);

/// How an option may be written, the long form first: --help, -h.
std::vector<std::string> forms_of(const CLI::Option& option);

/// What the value of an option is called, FILE; empty when it takes none.
std::string value_name(const CLI::Option& option);

/// The words that an option takes; empty when any.
std::vector<std::string> choices_of(const CLI::Option& option);

/// The command that was given, down to the innermost.
const CLI::App& innermost(const CLI::App& program);

/// The command of that name below another; null when there is none.
const CLI::App* find_command(const CLI::App& command, std::string_view name);

/// The word that is most like another; empty when none is like it.
std::string nearest(std::string_view word, const std::vector<std::string>& known);

/// Why a command line was not understood, in a line that names what is missing or what was meant.
std::string reason_of(const CLI::App& program, const CLI::ParseError& error);

/// A page of the manual, section 1, in the language of man.
std::string manual_page(const CLI::App& command);

}  // namespace cuvexa::cli
