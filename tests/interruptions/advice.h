// What an operator does who follows the audit's advice.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cuvexa/suite/audit.h"
#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa::tests {

/// What an operator has at hand.
struct Desk {
    Tesoreria& treasury;
    Reference_suite& suite;
    Connection& connection;

    /// The column Valor of the rows of a query; of its first one.
    std::vector<std::string> texts(const std::string& query) const;
    std::string text(const std::string& query) const;
};

struct Followed {
    std::string told;           ///< what was done, step by step
    std::vector<Finding> left;  ///< what is found still
};

/// Follows one advice after the other, the first that can be followed, until `look` finds nothing, or the same again. A
/// member that refuses may have led on all the same, which the next look shows.
Followed follow_to_the_end(const Desk& desk, const std::function<std::vector<Finding>()>& look);

}  // namespace cuvexa::tests
