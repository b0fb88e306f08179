#include "suite/server_clock.h"

#include <algorithm>
#include <cmath>

namespace cuvexa::reference {
namespace {

constexpr double seconds_per_day = 86400;

template <class Clock>
double seconds_since(std::chrono::time_point<Clock> begun) {
    return std::fabs(std::chrono::duration<double>(Clock::now() - begun).count());
}

}  // namespace

void Stopwatch::begin() {
    begun_ = std::chrono::steady_clock::now();
    begun_by_date_ = std::chrono::system_clock::now();
}

double Stopwatch::seconds() const {
    return told_ ? told_() : std::max(seconds_since(begun_), seconds_since(begun_by_date_));
}

Date Server_clock::now(const Ask& ask) {
    constexpr double precision = 1;
    if (told_) {
        const double seconds = since_.seconds();
        if (seconds < precision) return Date{told_->days + seconds / seconds_per_day};
    }
    told(ask());
    return *told_;
}

void Server_clock::told(Date date) {
    told_ = date;
    since_.begin();
}

}  // namespace cuvexa::reference
