// The cases that the files of statements tell: for every member that speaks to the database its main path and each branch
// that sends another statement.
#pragma once

#include <string>
#include <vector>

#include "support/in_turn.h"

namespace cuvexa::tests {

struct Case {
    std::string title;
    Preparation given;  ///< what is there before; its statements are not told
    Call call;          ///< True when it came to the end that the title says
};

/// The cases of one file, which has the name of a member.
struct Member_cases {
    std::string member;
    std::vector<Case> cases;
};

std::vector<Member_cases> receipt_cases();
std::vector<Member_cases> bank_cases();
std::vector<Member_cases> deposit_cases();
std::vector<Member_cases> check_cases();
std::vector<Member_cases> application_cases();
std::vector<Member_cases> cancellation_cases();
std::vector<Member_cases> request_cases();
std::vector<Member_cases> dialog_cases();

/// The files of the reference suite: what its services send by themselves.
std::vector<Member_cases> suite_cases();

}  // namespace cuvexa::tests
