// cuvexa completion: scripts for shells, which ask the program what may stand where; and the program's answer.
#include <algorithm>
#include <iostream>
#include <map>
#include <memory>

#include "cli/command.h"
#include "cli/syntax.h"
#include "core/rows.h"
#include "core/text.h"

namespace cuvexa::cli {

namespace {

// ---- What may stand at the end of a line ----------------------------------------------------------------------------

/// Where the keys of a view of `show` stand.
struct Keys {
    std::string_view view, table, column;
};

constexpr Keys keys[] = {
    {"receipts", "Recibo_Pago", "Rp_Folio"},
    {"deposits", "Deposito_Pago", "Dp_Folio"},
    {"movements", "Banco_Movimiento", "Bm_Folio"},
    {"accounts", "Banco_Cuenta", "Bc_Cve_Banco_Cuenta"},
    {"checks", "Cheque", "Ch_Folio"},
    {"requests", "Solicitud_Cheque", "Sc_Folio"},
    {"advances", "Anticipo_Cxc", "An_Folio"},
    {"receivables", "Cuenta_x_Cobrar", "Cxc_Folio"},
    {"payables", "Cuenta_x_Pagar", "Cxp_Folio"},
    {"vouchers", "Poliza", "Pz_Folio"},
};

/// The last of them that begin so.
std::vector<std::string> keys_of(const std::string& view, const std::string& database, const std::string& beginning) {
    const auto place =
        std::find_if(std::begin(keys), std::end(keys), [&](const Keys& each) { return each.view == view; });
    if (place == std::end(keys) || database.empty()) return {};
    const Company company({.database = database, .wait_s = 0}, Access::read);
    const std::string column(place->column);
    Rows rows(company.connection().execute("SELECT DISTINCT TOP 100 " + column + " FROM " + std::string(place->table) +
                                           " WHERE " + column + " LIKE '" + sql_escaped(beginning) + "%' ORDER BY " +
                                           column + " DESC"));
    std::vector<std::string> found;
    for (; !rows.eof(); rows.next()) found.push_back(rows.text(column));
    return found;
}

/// A command line that is being written, read as far as it goes.
class Line {
public:
    Line(const CLI::App& program, const std::vector<std::string>& words) : command_(&program) {
        for (std::size_t i = 0; i + 1 < words.size(); ++i) take(words[i]);
        last_ = words.empty() ? std::string() : words.back();
    }

    /// What may stand in the place of the last word.
    std::vector<std::string> candidates() const {
        std::vector<std::string> all = awaited_ != nullptr ? choices_of(*awaited_) : in_place();
        all.erase(
            std::remove_if(all.begin(), all.end(), [&](const std::string& each) { return !each.starts_with(last_); }),
            all.end());
        return all;
    }

private:
    void take(const std::string& word) {
        if (awaited_ != nullptr) {
            values_[forms_of(*awaited_).front()] = word;
            awaited_ = nullptr;
        } else if (word.starts_with('-')) {
            const CLI::Option* const option = option_written(word);
            if (option != nullptr && !value_name(*option).empty()) awaited_ = option;
        } else if (const CLI::App* const below = find_command(*command_, word)) {
            command_ = below;
            given_.clear();
        } else {
            given_.push_back(word);
        }
    }

    const CLI::Option* option_written(const std::string& word) const {
        for (const CLI::App* at = command_; at != nullptr; at = at->get_parent()) {
            for (const CLI::Option* option : dashed_options_of(*at)) {
                const auto forms = forms_of(*option);
                if (std::find(forms.begin(), forms.end(), word) != forms.end()) return option;
            }
        }
        return nullptr;
    }

    std::vector<std::string> in_place() const {
        std::vector<std::string> all;
        if (last_.starts_with('-')) {
            for (const CLI::App* at = command_; at != nullptr;
                 at = at->get_fallthrough() ? at->get_parent() : nullptr) {
                for (const CLI::Option* option : dashed_options_of(*at)) all.push_back(forms_of(*option).front());
            }
            return all;
        }
        for (const CLI::App* below : commands_of(*command_)) all.push_back(below->get_name());
        if (!all.empty()) return given_.empty() ? all : std::vector<std::string>();
        const auto positions = positions_of(*command_);
        if (given_.size() >= positions.size()) return {};
        if (command_->get_name() == "show" && given_.size() == 1) return keys_of(given_[0], value_of("--db"), last_);
        return choices_of(*positions[given_.size()]);
    }

    std::string value_of(const std::string& option) const {
        const auto value = values_.find(option);
        return value == values_.end() ? std::string() : value->second;
    }

    const CLI::App* command_;
    const CLI::Option* awaited_ = nullptr;
    std::vector<std::string> given_;
    std::map<std::string, std::string> values_;
    std::string last_;
};

// A shell that asks has no place for a failure.
void complete(const CLI::App& program, const std::vector<std::string>& words) {
    try {
        for (const std::string& candidate : Line(program, words).candidates()) std::cout << candidate << '\n';
    } catch (const std::runtime_error&) {
        std::cout.clear();
    }
}

// ---- The scripts ----------------------------------------------------------------------------------------------------

constexpr std::string_view bash =
    R"~(# Completion of cuvexa for bash. What may stand where says the program itself; else it is a file.
_cuvexa() {
    local IFS=$'\n'
    COMPREPLY=($("${COMP_WORDS[0]}" complete -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null))
}
complete -o default -F _cuvexa cuvexa
)~";

constexpr std::string_view zsh = R"~(#compdef cuvexa
# Completion of cuvexa for zsh. What may stand where says the program itself; else it is a file.
_cuvexa() {
    local -a found
    found=(${(f)"$("${words[1]}" complete -- "${(@)words[2,CURRENT]}" 2>/dev/null)"})
    if (( ${#found} )); then compadd -a found; else _files; fi
}
if [[ "$funcstack[1]" = _cuvexa ]]; then _cuvexa "$@"; else compdef _cuvexa cuvexa; fi
)~";

constexpr std::string_view fish =
    R"~(# Completion of cuvexa for fish. What may stand where says the program itself; else it is a file.
function __cuvexa
    set -l words (commandline -opc) (commandline -ct)
    $words[1] complete -- $words[2..-1] 2>/dev/null
end
complete -c cuvexa -a '(__cuvexa)'
)~";

std::string_view script_for(std::string_view shell) {
    if (shell == "zsh") return zsh;
    return shell == "fish" ? fish : bash;
}

}  // namespace

void add_completion(CLI::App& program) {
    auto shell = std::make_shared<std::string>();
    CLI::App* command = program.add_subcommand("completion", "Print the completions of a shell");
    command->add_option("shell", *shell, "The shell")->required()->check(CLI::IsMember({"bash", "zsh", "fish"}));
    command->callback([shell] { std::cout << script_for(*shell); });

    auto words = std::make_shared<std::vector<std::string>>();
    CLI::App* asked = program.add_subcommand("complete", "What may stand at the end of a line, for the scripts");
    asked->group("");
    asked->add_option("words", *words, "The line, after --; the last word is being written");
    asked->callback([words, &program] { complete(program, *words); });
}

}  // namespace cuvexa::cli
