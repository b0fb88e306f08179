// Which program this is.
#pragma once

#include <string>

namespace cuvexa::cli {

/// Version, commit and engines, a line each.
std::string version_text();

}  // namespace cuvexa::cli
