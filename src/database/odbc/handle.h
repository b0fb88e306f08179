// The driver manager's handles, and what they say when something fails.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <string>
#include <vector>

namespace cuvexa::odbc {

/// A handle, given back in the end.
class Handle {
public:
    /// Throws `Database_error` when there is no memory for it.
    Handle(SQLSMALLINT kind, SQLHANDLE parent);
    ~Handle() { SQLFreeHandle(kind_, handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    operator SQLHANDLE() const noexcept { return handle_; }
    SQLSMALLINT kind() const noexcept { return kind_; }

private:
    SQLSMALLINT kind_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

inline SQLWCHAR* wide(std::u16string& text) noexcept {
    static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
    return reinterpret_cast<SQLWCHAR*>(text.data());
}

inline SQLPOINTER number_attribute(std::uintptr_t value) noexcept {
    return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr): ODBC takes numbers so
}

/// One record of what a handle says about the last call.
struct Diagnostic {
    std::string state;
    int native = 0;
    std::string message;
};

std::vector<Diagnostic> diagnostics(const Handle& handle);

/// Every record on a line of its own: "message [SQLSTATE, native code]".
std::string description(const std::vector<Diagnostic>& records);

}  // namespace cuvexa::odbc
