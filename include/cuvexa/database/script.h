// Several statements at once.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// Runs the statements of a script in order. A statement ends with a `;` at the end of a line, with a line that holds
/// only GO, or with the script; a line that starts with `--` is a comment. Throws at the first statement that fails;
/// those before it have run, so a caller that wants all or nothing holds a `Unit_of_work`.
/// `progress`, when given, is told behind each statement how many bytes of the script have run.
void run_script(Connection& connection, std::string_view script,
                const std::function<void(std::size_t bytes)>& progress = {});

}  // namespace cuvexa
