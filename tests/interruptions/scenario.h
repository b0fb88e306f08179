// Every operation that writes, each in the circumstances in which it writes something else.
#pragma once

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "support/in_turn.h"

namespace cuvexa::tests {

struct Scenario {
    std::string name;  ///< of a test, too
    Preparation given;
    Call call;
    bool in_a_new_instance = false;  ///< repeated by a program that was started again

    /// How those statements begin at which an interruption, and the same call again, doubles what no rule can tell:
    /// docs/audit.md names the case.
    std::vector<std::string> doubles_unseen_at = {};

    bool doubles_unseen(const std::string& interrupted) const {
        return std::any_of(doubles_unseen_at.begin(), doubles_unseen_at.end(),
                           [&](const std::string& beginning) { return interrupted.starts_with(beginning); });
    }
};

inline void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.name;
}

/// Vouchers are written by themselves throughout.
const std::vector<Scenario>& scenarios();

}  // namespace cuvexa::tests
