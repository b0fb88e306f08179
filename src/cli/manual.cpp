// Pages of the manual, made of what --help says.
#include <cstdlib>

#include "cli/syntax.h"

namespace cuvexa::cli {

namespace {

/// A text as the language of man takes it: a dash is no hyphen, a line does not begin with a control character.
std::string roff(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '\\') {
            result += "\\e";
        } else if (c == '-') {
            result += "\\-";
        } else if ((c == '.' || c == '\'') && (result.empty() || result.back() == '\n')) {
            result += "\\&";
            result += c;
        } else {
            result += c;
        }
    }
    return result;
}

std::string bold(std::string_view text) {
    return "\\fB" + roff(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + roff(text) + "\\fR";
}

std::string dashed(std::string text) {
    for (char& c : text) {
        if (c == ' ') c = '-';
    }
    return text;
}

/// The day on which the program was made.
std::string day() {
    return CUVEXA_DAY;
}

std::string option_heading(const CLI::Option& option) {
    std::string heading;
    for (const std::string& form : forms_of(option)) heading += (heading.empty() ? "" : ", ") + bold(form);
    if (option.get_positional()) heading = italic(option.get_name(true));
    const std::string value = option.get_positional() ? std::string() : value_name(option);
    return value.empty() ? heading : heading + ' ' + italic(value);
}

std::string option_text(const CLI::Option& option) {
    std::string text = roff(option.get_description());
    const auto choices = choices_of(option);
    if (!choices.empty()) {
        text += "\nOne of:";
        for (std::size_t i = 0; i < choices.size(); ++i) text += (i == 0 ? " " : ", ") + bold(choices[i]);
        text += '.';
    }
    if (!option.get_default_str().empty()) text += "\nIf not given: " + bold(option.get_default_str()) + '.';
    if (option.get_required()) text += "\nRequired.";
    return text;
}

std::string options_text(const std::vector<const CLI::Option*>& options) {
    std::string text;
    for (const CLI::Option* option : options) {
        text += ".TP\n" + option_heading(*option) + '\n' + option_text(*option) + '\n';
    }
    return text;
}

std::string synopsis(const CLI::App& command) {
    std::string line = bold(full_name(command)) + " [" + italic("options") + ']';
    for (const CLI::Option* word : positions_of(command)) {
        const std::string name = italic(word->get_name(true));
        line += word->get_required() ? ' ' + name : " [" + name + ']';
    }
    if (!commands_of(command).empty()) line += ' ' + italic("command");
    return line + '\n';
}

/// The commands below another, each with its options: what is not a page of its own.
std::string commands_text(const CLI::App& command) {
    std::string text;
    for (const CLI::App* each : commands_of(command)) {
        text +=
            ".SS " + roff(each->get_name()) + '\n' + synopsis(*each) + ".PP\n" + roff(each->get_description()) + ".\n";
        text += options_text(positions_of(*each)) + options_text(dashed_options_of(*each));
    }
    return text;
}

std::string list_of_pages(const CLI::App& program) {
    std::string text;
    for (const CLI::App* each : commands_of(program)) {
        text += ".TP\n.BR " + roff(dashed(full_name(*each))) + " (1)\n" + roff(each->get_description()) + ".\n";
    }
    return text;
}

constexpr std::string_view exit_status =
    ".SH EXIT STATUS\n.TP\n.B 0\nDone.\n.TP\n.B 1\nRefused or failed; the reason is on standard error.\n"
    ".TP\n.B 2\nWrong use of the command line; one line on standard error.\n";

}  // namespace

std::string manual_page(const CLI::App& command) {
    const bool program = command.get_parent() == nullptr;
    const std::string name = dashed(full_name(command));
    std::string page = ".TH " + roff(name) + " 1 " + day() + " \"Cuvexa " CUVEXA_VERSION "\" \"Cuvexa\"\n.nh\n";
    page += ".SH NAME\n" + roff(name) + " \\- " + roff(command.get_description()) + "\n.SH SYNOPSIS\n";
    page += synopsis(command) + ".SH DESCRIPTION\n" + roff(command.get_description()) + ".\n";
    const std::string options = options_text(positions_of(command)) + options_text(dashed_options_of(command));
    if (!options.empty()) page += ".SH OPTIONS\n" + options;
    const std::string below = program ? list_of_pages(command) : commands_text(command);
    if (!below.empty()) page += ".SH COMMANDS\n" + below;
    page += exit_status;
    if (!program) {
        page += ".SH ENVIRONMENT\n.TP\n.B CUVEXA_PASSWORD\nPassword of a server whose connection string holds none.\n";
    }
    return page + ".SH SEE ALSO\n.BR cuvexa (1)" + (program ? ",\n.BR cuvexa (3)\n" : "\n");
}

}  // namespace cuvexa::cli
