#include "cuvexa/suite/audit.h"

#include <charconv>
#include <utility>

#include "core/rows.h"
#include "suite/audit_rules.h"

namespace cuvexa {

std::vector<reference::Audit_rule> reference::all_rules() {
    std::vector<Audit_rule> all;
    for (const auto family : {number_rules(), balance_rules(), deposit_rules(), check_rules(), expense_rules(),
                              receipt_rules(), request_rules(), movement_rules(), ledger_rules(), voucher_rules()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

namespace {

using reference::all_rules;
using reference::Audit_rule;

/// The amount with two decimals, as the operator reads it.
std::string money(double amount) {
    char digits[400];
    const auto end = std::to_chars(digits, digits + sizeof digits, amount, std::chars_format::fixed, 2).ptr;
    return std::string(digits, end);
}

std::string figures(const Audit_rule& rule, const Rows& row) {
    if (rule.first == nullptr) return row.text("Detalle");
    std::string text = std::string(rule.first) + " " + money(row.number("Primero"));
    if (rule.second != nullptr) text += std::string(", ") + rule.second + " " + money(row.number("Segundo"));
    return text;
}

Finding finding_of(const Audit_rule& rule, const Rows& row) {
    const std::string kind = rule.document == nullptr ? std::string() : std::string(rule.document) + " ";
    return {rule.name, kind + row.text("Documento"), figures(rule, row), rule.remedy};
}

// A replica gives up a query that keeps it from following its primary, and answers when it is asked again.
constexpr int most_attempts = 5;

std::vector<Finding> found(Connection& connection, const Audit_rule& rule) {
    for (int attempt = 1;; ++attempt) {
        try {
            std::vector<Finding> findings;
            for (Rows row(connection.execute(rule.query)); !row.eof(); row.next()) {
                findings.push_back(finding_of(rule, row));
            }
            return findings;
        } catch (const Conflict_error&) {
            if (attempt == most_attempts) throw;
        }
    }
}

/// What the rule finds; with a database that answers but cannot compute it, that is the finding.
void check(Connection& connection, const Audit_rule& rule, std::vector<Finding>& findings) {
    try {
        for (Finding& finding : found(connection, rule)) findings.push_back(std::move(finding));
    } catch (const Conflict_error&) {
        throw;
    } catch (const Database_error& failure) {
        connection.execute("SELECT GETDATE() AS Ahora");  // throws when it does not answer
        findings.push_back({rule.name, "Revisión " + std::string(rule.name), failure.what(),
                            "La revisión no se pudo hacer: corrija primero lo que otras encontraron."});
    }
}

}  // namespace

std::vector<std::string> audit_checks() {
    std::vector<std::string> names;
    for (const Audit_rule& rule : all_rules()) names.emplace_back(rule.name);
    return names;
}

std::vector<Finding> audit(Connection& connection, const std::function<void(const std::string& check)>& progress) {
    std::vector<Finding> findings;
    for (const Audit_rule& rule : all_rules()) {
        if (progress) progress(rule.name);
        check(connection, rule, findings);
    }
    return findings;
}

std::vector<Finding> audit_one(Connection& connection, const std::string& name) {
    std::vector<Finding> findings;
    for (const Audit_rule& rule : all_rules()) {
        if (rule.name == name) check(connection, rule, findings);
    }
    return findings;
}

}  // namespace cuvexa
