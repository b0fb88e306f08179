#include "com/registration.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "com/failures.h"
#include "com/registry.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace cuvexa::com {
namespace {

const std::wstring classes_root = L"Software\\Classes\\";
const std::wstring kept_root = classes_root + L"Cuvexa.Registro";

std::wstring guid_text(REFGUID guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return text;
}

/// What one library has registered for somebody.
class Registration {
public:
    Registration(Scope scope, HMODULE module)
        : hive_(scope == Scope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER), library_(wide(path_of(module))) {}

    void write(const Class_entry& entry) const {
        if (!is_own(entry)) {
            keep(class_key(entry), kept_class(library_, entry));
            keep(prog_id_key(entry), kept_prog_id(library_, entry));
        }
        remove(class_key(entry));
        write_class(entry);
        write_prog_id(entry);
    }

    /// Whether there is anything of this library's under the class.
    bool holds(const Class_entry& entry) const {
        return is_own(entry) || !keepers(entry).empty() || Key::existing(hive_, kept_class(library_, entry)) ||
               Key::existing(hive_, kept_prog_id(library_, entry));
    }

    void take_back(const Class_entry& entry) const {
        if (is_own(entry)) {
            take_back_own(entry);
        } else {
            for (const std::wstring& keeper : keepers(entry)) {
                hand_over(kept_class(library_, entry), kept_class(keeper, entry));
                hand_over(kept_prog_id(library_, entry), kept_prog_id(keeper, entry));
            }
        }
        remove(kept_class(library_, entry));
        remove(kept_prog_id(library_, entry));
    }

    void tidy_up() const {
        remove_empty(kept_by(library_));
        remove_empty(kept_root);
        remove_empty(classes_root + L"CLSID");
    }

private:
    static std::wstring class_key(const Class_entry& entry) {
        return classes_root + L"CLSID\\" + guid_text(entry.clsid);
    }
    static std::wstring prog_id_key(const Class_entry& entry) { return classes_root + entry.prog_id; }

    /// Each copy of the library keeps what it found under its own path.
    static std::wstring kept_by(std::wstring library) {
        std::replace(library.begin(), library.end(), L'\\', L'/');
        return kept_root + L"\\" + library;
    }
    static std::wstring kept_class(const std::wstring& library, const Class_entry& entry) {
        return kept_by(library) + L"\\" + guid_text(entry.clsid);
    }
    static std::wstring kept_prog_id(const std::wstring& library, const Class_entry& entry) {
        return kept_by(library) + L"\\" + entry.prog_id;
    }

    std::optional<std::wstring> server_of(const std::wstring& class_key, REGSAM view = 0) const {
        return Key::existing(hive_, class_key + L"\\InprocServer32", view).text();
    }

    bool is_own(const Class_entry& entry) const {
        return same_name(server_of(class_key(entry)).value_or(L""), library_);
    }

    bool leads_to(const Class_entry& entry) const {
        const auto clsid = Key::existing(hive_, prog_id_key(entry) + L"\\CLSID").text();
        return clsid && same_name(*clsid, guid_text(entry.clsid));
    }

    /// The copies that found the class as this one had registered it.
    std::vector<std::wstring> keepers(const Class_entry& entry) const {
        std::vector<std::wstring> found = Key::existing(hive_, kept_root).keys();
        std::erase_if(found, [&](const std::wstring& copy) {
            return !same_name(server_of(kept_class(copy, entry)).value_or(L""), library_);
        });
        return found;
    }

    void take_back_own(const Class_entry& entry) const {
        const auto other = other_copy(entry);
        remove(class_key(entry));
        restore(kept_class(library_, entry), class_key(entry));
        if (other) {
            hand_over(kept_prog_id(library_, entry), kept_prog_id(*other, entry));
        } else if (leads_to(entry)) {
            remove(prog_id_key(entry));
            restore(kept_prog_id(library_, entry), prog_id_key(entry));
        }
    }

    /// The copy of the library that has the class now, for the same bitness or the other one, which has a view of its
    /// own.
    std::optional<std::wstring> other_copy(const Class_entry& entry) const {
        for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
            const auto server = server_of(class_key(entry), view);
            if (server && !same_name(*server, library_)) return server;
        }
        return std::nullopt;
    }

    void write_class(const Class_entry& entry) const {
        const std::wstring key = class_key(entry);
        Key::made(hive_, key).text({}, entry.description);
        Key server = Key::made(hive_, key + L"\\InprocServer32");
        server.text({}, library_);
        server.text(L"ThreadingModel", L"Apartment");
        Key::made(hive_, key + L"\\ProgID").text({}, entry.prog_id);
        Key::made(hive_, key + L"\\Programmable");
        if (!entry.type_library) return;
        Key::made(hive_, key + L"\\TypeLib").text({}, guid_text(*entry.type_library));
        if (entry.type_library_version) Key::made(hive_, key + L"\\Version").text({}, entry.type_library_version);
    }

    void write_prog_id(const Class_entry& entry) const {
        remove(prog_id_key(entry));
        Key::made(hive_, prog_id_key(entry)).text({}, entry.description);
        Key::made(hive_, prog_id_key(entry) + L"\\CLSID").text({}, guid_text(entry.clsid));
    }

    void copy(const std::wstring& from, const std::wstring& to) const {
        const Key target = Key::made(hive_, to);
        check_registry(RegCopyTreeW(hive_, from.c_str(), target.get()));
    }

    void keep(const std::wstring& key, const std::wstring& place) const {
        remove(place);
        if (Key::existing(hive_, key)) copy(key, place);
    }

    void restore(const std::wstring& place, const std::wstring& key) const {
        if (!Key::existing(hive_, place)) return;
        copy(place, key);
        remove(place);
    }

    /// What a copy kept that goes now is what the copy in its place found.
    void hand_over(const std::wstring& kept, const std::wstring& kept_by_other) const {
        remove(kept_by_other);
        restore(kept, kept_by_other);
    }

    void remove(const std::wstring& key) const {
        const LSTATUS answer = RegDeleteTreeW(hive_, key.c_str());
        if (answer != ERROR_FILE_NOT_FOUND) check_registry(answer);
    }

    void remove_empty(const std::wstring& key) const {
        const Key found = Key::existing(hive_, key);
        if (found && found.empty()) remove(key);
    }

    HKEY hive_;
    std::wstring library_;
};

void take_back(std::span<const Class_entry> classes, HMODULE module, Scope scope) {
    const Registration registration(scope, module);
    const auto held = [&](const Class_entry& entry) { return registration.holds(entry); };
    if (std::none_of(classes.begin(), classes.end(), held)) return;
    for (const Class_entry& entry : classes) registration.take_back(entry);
    registration.tidy_up();
}

}  // namespace

Scope writable_scope() {
    HKEY key = nullptr;
    const LSTATUS answer =
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID", 0, KEY_READ | KEY_WRITE, &key);
    if (answer != ERROR_SUCCESS) return Scope::user;
    RegCloseKey(key);
    return Scope::machine;
}

Scope named_scope(const wchar_t* name) {
    const std::wstring_view whom = name ? name : L"";
    if (whom.empty()) return writable_scope();
    if (whom == L"machine") return Scope::machine;
    if (whom != L"user") check(E_INVALIDARG);
    return Scope::user;
}

HMODULE this_module() noexcept {
    return reinterpret_cast<HMODULE>(&__ImageBase);
}

std::string path_of(HMODULE module) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return utf8(path);
}

HRESULT register_server(std::span<const Class_entry> classes, HMODULE module, std::optional<Scope> scope) noexcept {
    const HRESULT result = guarded("DllRegisterServer", [&] {
        const Registration registration(scope.value_or(writable_scope()), module);
        for (const Class_entry& entry : classes) registration.write(entry);
        return S_OK;
    });
    if (FAILED(result)) unregister_server(classes, module);
    return result;
}

HRESULT unregister_server(std::span<const Class_entry> classes, HMODULE module) noexcept {
    return guarded("DllUnregisterServer", [&] {
        take_back(classes, module, Scope::user);
        take_back(classes, module, Scope::machine);
        return S_OK;
    });
}

}  // namespace cuvexa::com
