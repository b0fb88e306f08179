#include "service/attempts.h"

namespace cuvexa::service {

namespace {

// Beyond that many addresses, those whose span is over are forgotten; beyond twice as many, all.
constexpr std::size_t most_addresses = 10'000;

}  // namespace

bool Attempts::fail(const std::string& address, Clock::time_point now) {
    const std::lock_guard lock(mutex_);
    if (counts_.size() >= most_addresses) forget_old(now);
    Count& count = counts_[address];
    if (count.failures == 0 || now - count.since >= span_) count = {0, now};
    return ++count.failures > most_;
}

void Attempts::forget_old(Clock::time_point now) {
    std::erase_if(counts_, [&](const auto& entry) { return now - entry.second.since >= span_; });
    if (counts_.size() >= 2 * most_addresses) counts_.clear();
}

}  // namespace cuvexa::service
