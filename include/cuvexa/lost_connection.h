// The connection with a server, lost in the middle of a statement.
#pragma once

#include "cuvexa/errors.h"

namespace cuvexa {

/// A statement whose connection was lost while it ran. Whether it was kept is not known.
class Lost_connection_error : public Database_error {
public:
    using Database_error::Database_error;
};

}  // namespace cuvexa
