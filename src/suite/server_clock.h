// The date and time of the database server.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

#include "cuvexa/date.h"

namespace cuvexa::reference {

/// How long ago it was begun.
class Stopwatch {
public:
    using Seconds = std::function<double()>;

    void begin();

    /// By the clock that only goes on, and by the one that people set: whichever says more. A machine that slept, or whose
    /// time was put forward or back, has waited long.
    double seconds() const;

    /// Where it reads them, for tests.
    void read_from(Seconds seconds) { told_ = std::move(seconds); }

private:
    Seconds told_ = {};
    std::chrono::steady_clock::time_point begun_{};
    std::chrono::system_clock::time_point begun_by_date_{};
};

/// Asks the server, and goes on by itself from what it said for a second, the precision of the audit columns: one operation
/// stamps all that it writes, and asks once.
class Server_clock {
public:
    using Ask = std::function<Date()>;

    Date now(const Ask& ask);

    /// What the server said just now, unasked.
    void told(Date date);

    /// Where it reads how many seconds ago that was, for tests.
    void read_from(Stopwatch::Seconds seconds) { since_.read_from(std::move(seconds)); }

private:
    std::optional<Date> told_;
    Stopwatch since_;
};

}  // namespace cuvexa::reference
