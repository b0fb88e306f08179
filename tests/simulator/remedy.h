// Following the audit's advice, to see whether it leads where it should.
#pragma once

#include <sqlite3.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "cuvexa/date.h"

namespace cuvexa::simulator {

/// A rule of the audit, and the document that it names.
using Named = std::pair<std::string, std::string>;

/// Follows the advice of every finding that is not among those of `before`, on a copy of the database in which nothing
/// that an administrator may lift stands in the way: closed periods, another server, posted documents. What is left of
/// them then, a text each; empty when all is well.
std::vector<std::string> follow_all_advice(sqlite3* database, Date now, const std::set<Named>& before);

}  // namespace cuvexa::simulator
