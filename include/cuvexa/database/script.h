// Several statements at once.
#pragma once

#include <string_view>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// Runs the statements of a script in order. A statement ends with a `;` at the end of a line, with a line that holds
/// only GO, or with the script; a line that starts with `--` is a comment. Throws at the first statement that fails;
/// those before it have run, so a caller that wants all or nothing holds a `Unit_of_work`.
void run_script(Connection& connection, std::string_view script);

}  // namespace cuvexa
