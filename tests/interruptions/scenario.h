// Every operation that writes, each in the circumstances in which it writes something else.
#pragma once

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
};

inline void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.name;
}

/// Vouchers are written by themselves throughout.
const std::vector<Scenario>& scenarios();

/// What an operator does who follows the advice of a finding. Gives "" or why it could not be followed.
std::string follow(Company& company, const std::string& rule, const std::string& document);

}  // namespace cuvexa::tests
