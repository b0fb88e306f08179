#include "cli/syntax.h"

#include <algorithm>
#include <numeric>

namespace cuvexa::cli {

namespace {

bool is_shown(const CLI::App* command) {
    return !command->get_group().empty();
}

std::vector<const CLI::Option*> options_that(const CLI::App& command, bool (*holds)(const CLI::Option*)) {
    return command.get_options([holds](const CLI::Option* option) { return holds(option); });
}

/// How many letters must be put in, taken out, changed or swapped with the next one to make one word of another.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::vector<std::size_t>> rows(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
    std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        rows[i][0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t changed = rows[i - 1][j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            rows[i][j] = std::min({changed, rows[i - 1][j] + 1, rows[i][j - 1] + 1});
            const bool swapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
            if (swapped) rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
        }
    }
    return rows.back().back();
}

std::vector<std::string> names_of(const std::vector<const CLI::App*>& commands) {
    std::vector<std::string> names;
    names.reserve(commands.size());
    for (const CLI::App* command : commands) names.push_back(command->get_name());
    return names;
}

/// Every option that may be given to a command, those of the commands above it where it hands them on.
std::vector<std::string> options_known_to(const CLI::App& command) {
    std::vector<std::string> known;
    const CLI::App* at = &command;
    while (at != nullptr) {
        for (const CLI::Option* option : dashed_options_of(*at)) {
            for (const std::string& form : forms_of(*option)) known.push_back(form);
        }
        at = at->get_fallthrough() ? at->get_parent() : nullptr;
    }
    return known;
}

std::string suggested(const std::string& word, const std::vector<std::string>& known) {
    const std::string meant = nearest(word, known);
    return meant.empty() ? std::string() : ", did you mean " + meant + "?";
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}

std::string first_line(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

/// The word that no command expected; empty when there is none.
std::string unexpected(const CLI::App& program) {
    for (const std::string& word : program.remaining(true)) {
        if (word != "--") return word;
    }
    return {};
}

}  // namespace

std::vector<const CLI::App*> commands_of(const CLI::App& command) {
    std::vector<const CLI::App*> commands = command.get_subcommands([](const CLI::App*) { return true; });
    commands.erase(
        std::remove_if(commands.begin(), commands.end(), [](const CLI::App* each) { return !is_shown(each); }),
        commands.end());
    return commands;
}

std::vector<const CLI::Option*> dashed_options_of(const CLI::App& command) {
    return options_that(command, [](const CLI::Option* option) { return !option->get_positional(); });
}

std::vector<const CLI::Option*> positions_of(const CLI::App& command) {
    return options_that(command, [](const CLI::Option* option) { return option->get_positional(); });
}

std::string full_name(const CLI::App& command) {
    const CLI::App* const above = command.get_parent();
    return above == nullptr ? command.get_name() : full_name(*above) + ' ' + command.get_name();
}

std::vector<std::string> forms_of(const CLI::Option& option) {
    std::vector<std::string> forms;
    for (const std::string& name : option.get_lnames()) forms.push_back("--" + name);
    for (const std::string& name : option.get_snames()) forms.push_back("-" + name);
    return forms;
}

std::string value_name(const CLI::Option& option) {
    if (option.get_type_size() == 0) return {};
    const std::string type = option.get_type_name();
    return type.substr(0, type.find_first_of(": "));
}

std::vector<std::string> choices_of(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const auto begin = type.find('{'), end = type.find('}');
    if (begin == std::string::npos || end == std::string::npos) return {};
    return CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',');
}

const CLI::App& innermost(const CLI::App& program) {
    const auto given = program.get_subcommands();
    return given.empty() ? program : innermost(*given.front());
}

const CLI::App* find_command(const CLI::App& command, std::string_view name) {
    for (const CLI::App* each : command.get_subcommands([](const CLI::App*) { return true; })) {
        if (each->get_name() == name) return each;
    }
    return nullptr;
}

std::string nearest(std::string_view word, const std::vector<std::string>& known) {
    const std::string* best = nullptr;
    std::size_t least = std::max<std::size_t>(1, word.size() / 3) + 1;
    for (const std::string& each : known) {
        const std::size_t changes = each.starts_with(word) && word.size() > 2 ? 1 : distance(word, each);
        if (changes >= least) continue;
        least = changes;
        best = &each;
    }
    return best == nullptr ? std::string() : *best;
}

std::string reason_of(const CLI::App& program, const CLI::ParseError& error) {
    const CLI::App& given = innermost(program);
    const std::vector<std::string> commands = names_of(commands_of(given));
    const std::string word = unexpected(program);
    const std::string see = " (see " + full_name(given) + " --help)";
    if (word.starts_with('-')) return "there is no option " + word + suggested(word, options_known_to(given)) + see;
    if (!commands.empty() && !word.empty()) return "there is no command " + word + suggested(word, commands) + see;
    if (!word.empty()) return "a word too many: " + word + see;
    if (!commands.empty() && given.get_subcommands().empty()) return "a command is missing: " + joined(commands) + see;
    return first_line(error.what()) + see;
}

}  // namespace cuvexa::cli
