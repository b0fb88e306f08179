// The shortest script that still shows a difference.
#pragma once

#include <optional>
#include <string>

#include <vector>

#include "simulator/step.h"

namespace cuvexa::simulator {

/// What a script showed, and where.
struct Finding {
    Script script;  ///< up to the step that showed it
    std::vector<std::string> differences;
    std::map<int, Made> made;
};

/// Does the script until a step differs; nothing when none does.
std::optional<Finding> play(const Script& script);

/// Takes out steps, then parts of arguments, as long as the same member still differs.
Finding shrunk(Finding finding);

}  // namespace cuvexa::simulator
