// What does not add up in a database: the answer to operations that run without a transaction.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// One thing that does not add up. Texts for the operator, in Spanish.
struct Finding {
    std::string check;     ///< short name of the rule, for programs: "saldo-de-cuenta"
    std::string document;  ///< which account, document or voucher
    std::string figures;   ///< what was found
    std::string remedy;    ///< what would put it right
};

/// The names of all rules, in the order in which they are checked.
std::vector<std::string> audit_checks();

/// Reads the database and gives all findings, rule by rule. `progress`, when given, is called before each rule with its
/// name. Changes nothing. Amounts that differ by less than half a cent are equal.
std::vector<Finding> audit(Connection& connection, const std::function<void(const std::string& check)>& progress = {});

/// What one rule finds; nothing for a name that is none.
std::vector<Finding> audit_one(Connection& connection, const std::string& check);

}  // namespace cuvexa
