// Run-time failures, as an automation client sees them: a number and a description.
#pragma once

#include <stdexcept>
#include <string>

namespace cuvexa {

/// A failure that is not a business refusal: a database error, a value that does not convert, an overflow.
/// Inside an operation it becomes text in `Error`; from an accessor without a trap it reaches the caller as it is.
class Automation_error : public std::runtime_error {
public:
    Automation_error(int number, const std::string& description) : std::runtime_error(description), number_(number) {}

    /// Number of the run-time error (6 overflow, 13 type mismatch, 91 object variable not set, …).
    int number() const noexcept { return number_; }

private:
    int number_;
};

inline constexpr int error_overflow = 6;
inline constexpr int error_type_mismatch = 13;
inline constexpr int error_object_not_set = 91;
inline constexpr int error_invalid_use_of_null = 94;
inline constexpr int error_automation = 440;  ///< of a run-time error that has none of its own

/// A statement that the database did not take. The description is the engine's own.
class Database_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A statement, or the keeping of a unit of work, that failed because another session works with the same rows: it holds
/// them for longer than was to be waited, or the two cannot both be as if one had run after the other. What stood open is
/// to be undone, and may be tried again.
class Conflict_error : public Database_error {
public:
    using Database_error::Database_error;
};

}  // namespace cuvexa
