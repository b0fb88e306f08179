// The documents that benchmarks and loads make, on the sample company.
#pragma once

#include <functional>
#include <string>

#include "cuvexa/tesoreria.h"

namespace cuvexa::bench {

/// Where somebody works.
struct Desk {
    std::string account = "SRR-MXN";
    std::string branch = "MTY";
};

/// Has a call done: once, or again while somebody is in its way. Throws when it is refused.
using Have_done = std::function<void(const std::function<bool()>& call)>;

/// Captured and closed; gives its folio.
std::string receipt_of_two_lines(Tesoreria& treasury, const Desk& desk, const Have_done& done);

/// Of receipts of the desk, whose folios stand side by side with commas between them.
void deposit(Tesoreria& treasury, const Desk& desk, const std::string& receipts, const Have_done& done);

/// Created, without a payable that it would pay, and applied; gives its folio.
std::string applied_check(Tesoreria& treasury, const Desk& desk, int lines, const Have_done& done);

}  // namespace cuvexa::bench
