// The database that several sessions work on at once: a file, or the server that CUVEXA_TEST_DB names.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <memory>
#include <set>
#include <string>

#include "cuvexa/data_access.h"

namespace cuvexa::simulator {

class Shared_database {
public:
    virtual ~Shared_database() = default;

    /// A new session; they are numbered from 0.
    virtual std::unique_ptr<Connection> open() = 0;

    /// Past all sessions, statements as people send them to the embedded engine, a semicolon between two.
    virtual void run(const std::string& statements) = 0;

    /// The rows as they are now, in an embedded database that is always the same one.
    virtual sqlite3* look() = 0;

    /// One unit of work writes at a time, and no other statement waits for it.
    virtual bool units_exclude() const = 0;

    /// Dates are kept as such, and keys that differ in blanks at the end are two.
    virtual bool has_types() const = 0;

    /// The sessions whose statement stands before another one's lock.
    virtual std::set<std::size_t> locked_out() = 0;
};

/// With the rows of the sample company. One at a time where it is a server's.
std::unique_ptr<Shared_database> new_shared_database();

}  // namespace cuvexa::simulator
