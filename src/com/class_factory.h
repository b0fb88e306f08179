// The classes that a library offers, and how the system gets at them.
//
// The entry points of a server are one line each:
//
//     const Class_entry classes[] = {…};
//     STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
//         return get_class_object(classes, clsid, iid, object);
//     }
//     STDAPI DllCanUnloadNow() { return can_unload(); }
//     STDAPI DllRegisterServer() { return register_server(classes, this_module()); }
//     STDAPI DllUnregisterServer() { return unregister_server(classes, this_module()); }
#pragma once

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "com/pointers.h"

namespace cuvexa::com {

/// A class that programs can create by its programmatic identifier.
struct Class_entry {
    CLSID clsid;
    const wchar_t* prog_id;      ///< "Cuvexa.Tesoreria"
    const wchar_t* description;  ///< of the class, as the registry shows it
    Pointer<IDispatch> (*create)();
    const GUID* type_library = nullptr;             ///< the library that describes the class
    const wchar_t* type_library_version = nullptr;  ///< "1.0", with `type_library`
};

/// Classes whose texts are put together when the library is loaded.
class Class_list {
public:
    void add(const CLSID& clsid, std::string_view prog_id, std::string_view description, Pointer<IDispatch> (*create)(),
             const GUID* type_library = nullptr, const wchar_t* type_library_version = nullptr);

    std::span<const Class_entry> entries() const { return entries_; }

private:
    std::vector<Class_entry> entries_;
    std::deque<std::wstring> texts_;
};

/// The factory of a class, for `DllGetClassObject`.
HRESULT get_class_object(std::span<const Class_entry> classes, REFCLSID clsid, REFIID iid, void** object) noexcept;

/// S_OK when no object and no lock is alive, S_FALSE otherwise: for `DllCanUnloadNow`.
HRESULT can_unload() noexcept;

}  // namespace cuvexa::com
