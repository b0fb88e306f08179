#include "database/odbc/calls.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace cuvexa::odbc {

/// Where a call is laid down and what came of it is picked up; it lives until both sides have left.
struct Calls::Desk {
    std::mutex mutex;
    std::condition_variable laid_down, picked_up;
    std::function<void()> call;
    std::exception_ptr failure;
    bool under_way = false;
    bool left = false;  ///< nobody waits for the outcome, nor comes with another call

    // The call is destroyed where it ran, also when nobody waits any more: only there may it still use the driver.
    void work() {
        std::unique_lock lock(mutex);
        for (;;) {
            laid_down.wait(lock, [&] { return left || call; });
            if (left) return;
            auto now = std::exchange(call, nullptr);
            lock.unlock();
            std::exception_ptr thrown;
            try {
                now();
            } catch (...) {
                thrown = std::current_exception();
            }
            now = nullptr;
            lock.lock();
            failure = thrown;
            under_way = false;
            picked_up.notify_one();
        }
    }
};

Calls::Calls() : desk_(std::make_shared<Desk>()) {
    std::thread([desk = desk_] { desk->work(); }).detach();
}

Calls::~Calls() {
    const std::lock_guard lock(desk_->mutex);
    desk_->left = true;
    desk_->laid_down.notify_one();
}

bool Calls::run(std::function<void()> call, std::chrono::milliseconds limit) {
    std::unique_lock lock(desk_->mutex);
    if (desk_->left) return false;
    desk_->call = std::move(call);
    desk_->under_way = true;
    desk_->laid_down.notify_one();
    if (!desk_->picked_up.wait_for(lock, limit, [&] { return !desk_->under_way; })) {
        desk_->left = true;
        return false;
    }
    if (const auto failure = std::exchange(desk_->failure, nullptr)) std::rethrow_exception(failure);
    return true;
}

}  // namespace cuvexa::odbc
