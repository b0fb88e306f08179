// How far behind its primary a server is that only repeats what another one keeps.
#pragma once

#include <cstdint>
#include <optional>

namespace cuvexa {

struct Replica {
    /// Seconds since the last change that it has applied, so at most so far behind; none when it has applied none since it
    /// started.
    std::optional<double> behind_s;

    std::int64_t unapplied_bytes = 0;  ///< that it has received
    bool receives = false;             ///< whether it is connected with its primary
};

}  // namespace cuvexa
