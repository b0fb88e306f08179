// What the service counts, for Prometheus.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace cuvexa::service {

/// One answered request, as the log and the metrics tell it.
struct Told_request {
    std::string resource;  ///< "rpc", "accounts", …: of a known list, whatever the client asked for
    std::string company;
    std::string token;
    int status = 0;
    std::string fate;
    std::string failure = {};  ///< of the service itself, for its operator
    double milliseconds = 0;
    std::uint64_t statements = 0;
    std::size_t repeats = 0;
    std::vector<std::string> members;
    std::vector<std::string> refusals;
};

/// Used by many threads.
class Metrics {
public:
    void count(const Told_request& request);

    /// All of them in the text form of Prometheus.
    std::string text() const;

private:
    static constexpr std::array upper_bounds_ms{1.0, 2.5, 5.0, 10.0, 25.0, 50.0, 100.0, 250.0, 500.0, 1000.0, 5000.0};

    mutable std::mutex mutex_;
    std::map<std::pair<std::string, int>, std::uint64_t> requests_;  ///< by resource and status
    std::map<std::string, std::uint64_t> calls_;
    std::map<std::string, std::uint64_t> refusals_;
    std::array<std::uint64_t, upper_bounds_ms.size() + 1> durations_{};
    double total_ms_ = 0;
    std::uint64_t statements_ = 0;
    std::uint64_t repeats_ = 0;
};

/// The line of the log that tells a request: a JSON object without values of the request, and without tokens.
std::string log_line(const Told_request& request);

}  // namespace cuvexa::service
