// Calls of a driver, made one after the other on a thread of their own, so that one that never comes back can be given up:
// a driver waits for its server without end, whatever time it was given, when the server answers a cancellation neither.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace cuvexa::odbc {

class Calls {
public:
    Calls();
    ~Calls();
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    /// Runs `call`, and throws what it throws. False when it has not come back in that time: then it is given up, with the
    /// thread, and so is every later call. What a call uses must be its own, for it may outlive whoever asked for it.
    bool run(std::function<void()> call, std::chrono::milliseconds limit);

private:
    struct Desk;
    std::shared_ptr<Desk> desk_;
};

}  // namespace cuvexa::odbc
