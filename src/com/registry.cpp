#include "com/registry.h"

#include "com/failures.h"

namespace cuvexa::com {

void check_registry(LSTATUS answer) {
    check(HRESULT_FROM_WIN32(answer));
}

Key Key::existing(HKEY parent, const std::wstring& path, REGSAM view) {
    Key found;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ | view, &found.key_) != ERROR_SUCCESS) found.key_ = nullptr;
    return found;
}

Key Key::made(HKEY parent, const std::wstring& path, REGSAM view) {
    Key made;
    check_registry(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE | view, nullptr,
                                   &made.key_, nullptr));
    return made;
}

std::optional<std::wstring> Key::text(const std::wstring& name) const {
    if (!key_) return std::nullopt;
    DWORD bytes = 0;
    constexpr DWORD kinds = RRF_RT_REG_SZ;  // one with variables in it comes expanded
    if (RegGetValueW(key_, nullptr, name.c_str(), kinds, nullptr, nullptr, &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring value(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (RegGetValueW(key_, nullptr, name.c_str(), kinds, nullptr, value.data(), &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.resize(value.find(L'\0'));
    if (value.empty()) return std::nullopt;
    return value;
}

void Key::text(const std::wstring& name, const std::wstring& value) {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    const auto* data = reinterpret_cast<const BYTE*>(value.c_str());
    check_registry(RegSetValueExW(key_, name.empty() ? nullptr : name.c_str(), 0, REG_SZ, data, bytes));
}

std::vector<std::wstring> Key::keys() const {
    std::vector<std::wstring> names;
    wchar_t name[256];
    for (DWORD length = 256; key_ && RegEnumKeyExW(key_, static_cast<DWORD>(names.size()), name, &length, nullptr,
                                                   nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         length = 256) {
        names.emplace_back(name, length);
    }
    return names;
}

bool Key::empty() const {
    DWORD keys = 0, values = 0;
    RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
    return keys == 0 && values == 0;
}

}  // namespace cuvexa::com
