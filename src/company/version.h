// Which version of the schema a database holds.
#pragma once

#include <optional>
#include <string>

#include "cuvexa/data_access.h"

namespace cuvexa::company {

/// Nothing when the database does not hold the schema.
std::optional<int> version_of(Connection& connection);

/// Throws `Company_error` when the database, shown by that name, is not of the version that this program works with.
void require_this_version(Connection& connection, const std::string& name);

}  // namespace cuvexa::company
