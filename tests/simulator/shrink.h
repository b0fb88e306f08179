// The shortest script, of one session or of several at once, that still shows a difference.
#pragma once

#include <optional>
#include <string>

#include <vector>

#include "simulator/crowd.h"
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

/// The same of several sessions at once.
struct Crowd_finding {
    Crowd_script script;  ///< up to the round that showed it
    std::vector<std::string> differences;
};

std::optional<Crowd_finding> play(const Crowd_options& options, const Crowd_script& script);

/// Takes out sessions, then steps, as long as some difference is still told in the same words. The statements of the steps
/// that are left are interleaved by the same lots.
Crowd_finding shrunk(const Crowd_options& options, Crowd_finding finding);

}  // namespace cuvexa::simulator
