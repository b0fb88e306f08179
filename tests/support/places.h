// Where the sources and the programs under test are.
#pragma once

#include <string>

namespace cuvexa::tests {

/// A file of the source tree: `in_source("schema/schema.sql")`.
std::string in_source(const std::string& path);

/// A file of the build tree: `in_build("bin/cuvexa")`.
std::string in_build(const std::string& path);

}  // namespace cuvexa::tests
