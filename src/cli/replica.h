// What was read of a replica may be behind its primary: whoever prints it says so.
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string_view>

#include "cuvexa/database/replica.h"

namespace cuvexa::cli {

/// One line for a person; nothing of what was not read from a replica.
void print_replica(std::ostream& out, const std::optional<Replica>& replica);

/// For programs: what `print` prints, or, of a replica, an object with the member `replica` and that as the member `name`.
void print_json_read(std::ostream& out, const std::optional<Replica>& replica, std::string_view name,
                     const std::function<void()>& print);

}  // namespace cuvexa::cli
