// Which version of the schema a database holds.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/company.h"

namespace cuvexa::company {

/// Nothing when the database does not hold the schema. Throws `Database_error` when that cannot be known: the user may not
/// read it, the connection is lost.
std::optional<int> version_of(Connection& connection);

/// The version of the database, which is shown by that name. Throws `Company_error` when it does not hold the schema, or
/// holds a newer one than this program knows, or cannot be read.
int known_version(Connection& connection, const std::string& name);

/// Throws `Company_error` when the database is not of the version that this program works with.
void require_this_version(Connection& connection, const std::string& name);

/// Runs what brings a database of a known version to that of this program. Of several that do it at once, each in a unit
/// of work, one does it and the others wait.
void run_upgrades(Connection& connection, const Work_progress& progress);

/// Runs them in order; `progress`, when given, is told the share of their bytes that has run.
void run_scripts(Connection& connection, const std::vector<std::string_view>& scripts, const Work_progress& progress);

}  // namespace cuvexa::company
