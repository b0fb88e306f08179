// How often an address has shown a token that is nobody's.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <unordered_map>

#include "service/peer.h"

namespace cuvexa::service {

/// Counts failed attempts per address in a span of time. Used by many threads.
class Attempts {
public:
    Attempts(std::size_t most, std::chrono::seconds span) : most_(most), span_(span) {}

    /// Notes a failure; true when there were too many.
    bool fail(const std::string& address, Clock::time_point now = Clock::now());

    std::chrono::seconds span() const { return span_; }

private:
    struct Count {
        std::size_t failures = 0;
        Clock::time_point since;
    };
    void forget_old(Clock::time_point now);

    std::size_t most_;
    std::chrono::seconds span_;
    std::mutex mutex_;
    std::unordered_map<std::string, Count> counts_;
};

}  // namespace cuvexa::service
