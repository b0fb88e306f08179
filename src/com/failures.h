// Failures on their way across the border: C++ exceptions inside, result codes with a description outside.
#pragma once

#include <exception>
#include <string>

#include "com/pointers.h"
#include "cuvexa/errors.h"

namespace cuvexa::com {

/// A failure that has a result code of its own.
class Result_error : public std::runtime_error {
public:
    Result_error(HRESULT result, const std::string& description) : std::runtime_error(description), result_(result) {}
    HRESULT result() const noexcept { return result_; }

private:
    HRESULT result_;
};

/// The result code under which the callers of an automation object see a run-time error.
constexpr HRESULT result_of_number(int number) {
    return static_cast<HRESULT>(0x800A0000u + static_cast<unsigned>(number));
}

struct Failure {
    HRESULT result;
    std::string description;
};

/// The exception that is being handled, as callers are to see it.
Failure current_failure() noexcept;

/// Leaves the description where clients of a virtual table look for it, and gives the result code.
HRESULT raise(const Failure& failure, const char* source) noexcept;

/// What a client of `Invoke` gets: the exception record filled, when there is one, and the result code.
HRESULT raise(const Failure& failure, const char* source, EXCEPINFO* record) noexcept;

/// Runs the body of a function that clients call: nothing that it throws leaves it.
template <class Body>
HRESULT guarded(const char* source, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return raise(current_failure(), source);
    }
}

/// Throws the failure of a call that one made, in the system's words.
[[noreturn]] void throw_failed(HRESULT result);

inline void check(HRESULT result) {
    if (FAILED(result)) throw_failed(result);
}

}  // namespace cuvexa::com
