// What the engine writes fails when a test says so: a file system shim between the engine and the system's own.
#pragma once

#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace cuvexa::tests {

/// While it lives, the writes, truncations and syncs of every file that the engine opens are counted, and one or all from
/// one on fail. One at a time.
class Failing_files {
public:
    enum class Fails { once, from_then_on };

    Failing_files() {
        if (registered_++ > 0) throw std::logic_error("one at a time");
        system_ = sqlite3_vfs_find(nullptr);
        shim_ = *system_;
        shim_.zName = "failing";
        shim_.xOpen = open;
        sqlite3_vfs_register(&shim_, 1);
    }
    ~Failing_files() {
        sqlite3_vfs_unregister(&shim_);
        sqlite3_vfs_register(system_, 1);
        --registered_;
    }
    Failing_files(const Failing_files&) = delete;
    Failing_files& operator=(const Failing_files&) = delete;

    /// The call of that number from now on fails; none when it is 0.
    void fail(int number, Fails fails) {
        calls_ = 0;
        failing_ = number;
        how_ = fails;
    }
    void fail_none() { fail(0, Fails::once); }

    /// Calls since the last `fail`.
    int calls() const { return calls_; }

private:
    static bool is_to_fail() {
        ++calls_;
        return failing_ > 0 && (calls_ == failing_ || (calls_ > failing_ && how_ == Fails::from_then_on));
    }

    /// The system's methods with the failing ones in their places. Those of a database and of its log differ in other
    /// methods.
    static const sqlite3_io_methods* failing(const sqlite3_io_methods* methods) {
        for (const auto& [of_system, ours] : kinds_) {
            if (of_system == methods) return ours.get();
        }
        auto ours = std::make_unique<sqlite3_io_methods>(*methods);
        ours->xWrite = [](sqlite3_file* to, const void* bytes, int size, sqlite3_int64 at) {
            return is_to_fail() ? SQLITE_FULL : kinds_.front().first->xWrite(to, bytes, size, at);
        };
        ours->xTruncate = [](sqlite3_file* to, sqlite3_int64 size) {
            return is_to_fail() ? SQLITE_IOERR_TRUNCATE : kinds_.front().first->xTruncate(to, size);
        };
        ours->xSync = [](sqlite3_file* to, int how) {
            return is_to_fail() ? SQLITE_IOERR_FSYNC : kinds_.front().first->xSync(to, how);
        };
        kinds_.emplace_back(methods, std::move(ours));
        const auto& first = *kinds_.front().first;
        if (first.xWrite != methods->xWrite || first.xTruncate != methods->xTruncate || first.xSync != methods->xSync) {
            throw std::logic_error("files that are written in two ways");
        }
        return kinds_.back().second.get();
    }

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* opened) {
        const int code = system_->xOpen(system_, name, file, flags, opened);
        if (file->pMethods != nullptr) file->pMethods = failing(file->pMethods);
        return code;
    }

    inline static int registered_ = 0;
    inline static sqlite3_vfs* system_ = nullptr;
    inline static std::vector<std::pair<const sqlite3_io_methods*, std::unique_ptr<sqlite3_io_methods>>> kinds_;
    inline static int calls_ = 0;
    inline static int failing_ = 0;
    inline static Fails how_ = Fails::once;

    sqlite3_vfs shim_{};
};

/// How far a long walk goes on at a time: 1, every step, when the environment asks for it (CUVEXA_WALK=whole), else by the
/// strides that a common run of the tests can afford.
inline int stride(int sampled) {
    const char* const walk = std::getenv("CUVEXA_WALK");
    return walk != nullptr && std::string_view(walk) == "whole" ? 1 : sampled;
}

}  // namespace cuvexa::tests
