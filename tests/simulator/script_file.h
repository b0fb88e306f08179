// Scripts on disk: one JSON object per step, to be played again, and a shell program that shows the same with `cuvexa rpc`.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "simulator/crowd.h"
#include "simulator/step.h"

namespace cuvexa::simulator {

void write_script(const Script& script, std::ostream& out);
Script read_script(std::istream& in);

/// The same of several sessions at once.
void write_crowd_script(const Crowd_script& script, std::ostream& out);
Crowd_script read_crowd_script(std::istream& in);

/// A program for bash that does the script on a database of its own: the sample company, the statements beside the
/// component, and each session as JSON-RPC requests to `cuvexa rpc`. `made` holds what the steps made when they last ran;
/// `differences` is what the last step showed. A server date that moves within a session, and what goes wrong with
/// a call, cannot be told to `cuvexa rpc` and stand as comments.
void write_session(const Script& script, const std::map<int, Made>& made, const std::vector<std::string>& differences,
                   std::ostream& out);

}  // namespace cuvexa::simulator
