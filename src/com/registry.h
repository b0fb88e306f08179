// Keys and texts of the registry.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "com/pointers.h"

namespace cuvexa::com {

/// An open key, or none.
class Key {
public:
    Key() = default;
    Key(Key&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    Key& operator=(Key&& other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }
    ~Key() {
        if (key_) RegCloseKey(key_);
    }

    /// An existing key for reading; none when there is none. `view`: KEY_WOW64_64KEY or KEY_WOW64_32KEY, or 0 for the
    /// view of this process.
    static Key existing(HKEY parent, const std::wstring& path, REGSAM view = 0);

    /// The key for writing, made when it was not there. Throws `Result_error`.
    static Key made(HKEY parent, const std::wstring& path, REGSAM view = 0);

    HKEY get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

    /// The text under that name; the key's own under the empty one. Nothing when there is none or it is empty.
    std::optional<std::wstring> text(const std::wstring& name = {}) const;

    /// Throws `Result_error`.
    void text(const std::wstring& name, const std::wstring& value);

    /// The names of the keys in it; of no key, none.
    std::vector<std::wstring> keys() const;

    /// Whether nothing is in it, neither values nor keys.
    bool empty() const;

private:
    HKEY key_ = nullptr;
};

/// Throws `Result_error` unless the answer of a registry function is success.
void check_registry(LSTATUS answer);

}  // namespace cuvexa::com
