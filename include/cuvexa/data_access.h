// What the component needs of a database: run a text, walk the rows it gives.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "cuvexa/errors.h"
#include "cuvexa/value.h"

namespace cuvexa {

/// The rows of one executed text, read forward only. A statement that gives no rows gives a recordset at its end.
class Recordset {
public:
    virtual ~Recordset() = default;

    /// True when there is no current row.
    virtual bool eof() const = 0;

    /// The column of that name (without regard to case; the first of several) in the current row. Throws
    /// `Database_error` when there is no such column or no current row.
    virtual Value field(std::string_view name) const = 0;

    /// Goes to the next row. Throws `Database_error` at the end.
    virtual void move_next() = 0;

    /// Gives the rows back early; at its end from then on. Destruction does the same.
    virtual void close() = 0;
};

/// An open database that speaks the SQL Server dialect. Used by one thread.
class Connection {
public:
    virtual ~Connection() = default;

    /// Runs one statement and commits it. Throws `Database_error` with the engine's description; the text of a second
    /// statement or a comment is refused before it reaches the engine.
    virtual std::unique_ptr<Recordset> execute(std::string_view text) = 0;

    /// How many statements have failed with a `Conflict_error` so far. An operation tells its failure as text alone;
    /// this tells whether another session was in its way. 0 where the connection cannot tell.
    virtual std::uint64_t conflicts() const noexcept { return 0; }
};

}  // namespace cuvexa
