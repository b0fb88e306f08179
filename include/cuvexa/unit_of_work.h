// All or nothing, by the caller's choice. The component itself never opens a transaction.
#pragma once

#include <cstdint>
#include <utility>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// Everything that runs on the connection while the object lives is kept by `commit`, or undone by its absence. One at a
/// time per connection. Units are serializable on every engine: of those that work with the same rows, what is kept is
/// as if they had run one after the other. On the embedded engine they do, other writers wait from the construction on;
/// on a server one of two that cannot both be so fails with a `Conflict_error`, at a statement or at `commit`.
class Unit_of_work {
public:
    /// Throws `Database_error` when the database does not begin a transaction.
    explicit Unit_of_work(Connection& connection);
    ~Unit_of_work();

    Unit_of_work(const Unit_of_work&) = delete;
    Unit_of_work& operator=(const Unit_of_work&) = delete;

    /// Throws `Database_error` when the database does not keep the work; it is undone then.
    void commit();

    /// Whether another session was in the way of a statement since the construction: the call that gave False may be
    /// tried again, in another unit.
    bool met_conflict() const noexcept { return connection_.conflicts() != conflicts_before_; }

private:
    Connection& connection_;
    std::uint64_t conflicts_before_;
    bool open_ = true;
};

/// Runs a Boolean call as a whole: kept when it gives True, undone when it gives False or throws. What changes for the
/// members of `Tesoreria`: nothing stays half done, and a refused call gives its folio back too. Only the database is
/// put back: the folio in a header, the line counter and `FolioMovimiento` stay as the call left them, so after a
/// refusal of a first line, start the document anew.
///
///     unit_of_work(connection, [&] { return treasury.Genera_Deposito("SRR-MXN", folios, today, true, today); });
template <class Call>
bool unit_of_work(Connection& connection, Call&& call) {
    Unit_of_work work(connection);
    const bool done = std::forward<Call>(call)();
    if (done) work.commit();
    return done;
}

}  // namespace cuvexa
