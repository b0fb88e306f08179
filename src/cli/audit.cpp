// cuvexa audit: what does not add up in a database.
#include <algorithm>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/command.h"
#include "cli/progress.h"
#include "cli/replica.h"
#include "cli/watched_audit.h"
#include "core/utf8.h"
#include "cuvexa/suite/audit.h"

namespace cuvexa::cli {

namespace {

struct Audit_options {
    Company_options company;
    bool json = false;
};

void print_findings(const std::vector<Finding>& findings) {
    std::string_view check;
    for (const Finding& finding : findings) {
        if (finding.check != check) std::cout << finding.check << '\n';
        check = finding.check;
        std::cout << "  " << finding.document << ": " << finding.figures << '\n' << "    " << finding.remedy << '\n';
    }
}

/// What a database holds may not be UTF-8: its bytes are told by their numbers.
std::string legible(const std::string& text) {
    constexpr char digits[] = "0123456789abcdef";
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8_length(text, at);
        if (length > 0) {
            result.append(text, at, length);
        } else {
            const auto byte = static_cast<unsigned char>(text[at]);
            result.append({'\\', 'x', digits[byte >> 4], digits[byte & 0xF]});
        }
        at += std::max<std::size_t>(length, 1);
    }
    return result;
}

void print_findings_json(const std::vector<Finding>& findings) {
    auto array = nlohmann::ordered_json::array();
    for (const Finding& finding : findings) {
        array.push_back({{"check", legible(finding.check)},
                         {"document", legible(finding.document)},
                         {"figures", legible(finding.figures)},
                         {"remedy", legible(finding.remedy)}});
    }
    std::cout << array.dump(2) << '\n';
}

void run_audit(const Audit_options& options) {
    Company_options read = options.company;
    heed_ctrl_c(read, "la revisión no terminó");
    std::optional<Progress> opening(std::in_place, "Revisión", !options.json);
    const Company company = open_to_read(read);
    opening.reset();
    const auto replica = company.replica();
    const auto findings = watched_audit(company.connection(), !options.json);

    if (options.json) {
        print_json_read(std::cout, replica, "findings", [&] { print_findings_json(findings); });
    } else {
        print_findings(findings);
        if (findings.empty()) std::cout << "Todo cuadra: " << audit_checks().size() << " revisiones sin diferencias\n";
        print_replica(std::cout, replica);
    }
    if (!findings.empty()) throw Refused("Diferencias encontradas: " + std::to_string(findings.size()));
}

}  // namespace

void add_audit(CLI::App& program) {
    auto options = std::make_shared<Audit_options>();
    CLI::App* command =
        program.add_subcommand("audit", "List what does not add up; exit code 1 when anything does not");
    command->add_flag("--json", options->json, "An array of objects, for programs");
    add_company_options(*command, options->company);
    command->callback([options] { run_audit(*options); });
}

}  // namespace cuvexa::cli
