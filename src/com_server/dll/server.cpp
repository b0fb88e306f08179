// Cuvexa.dll: the classes that programs create, and the entry points of an in-process server.
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "automation/members.h"
#include "com/apartment.h"
#include "com/class_factory.h"
#include "com/failures.h"
#include "com/registration.h"
#include "com/registry.h"
#include "com_server/dll/services.h"
#include "com_server/identifiers.h"
#include "com_server/published_object.h"
#include "com_server/script_record.h"

// In the system's library, and missing in the compiler's headers.
extern "C" {
WINOLEAUTAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_folder);
WINOLEAUTAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale, SYSKIND system);
}

namespace cuvexa::com_server {
namespace {

/// One set of services and cached parameters for each apartment.
std::shared_ptr<Module> module_of_apartment() {
    return std::static_pointer_cast<Module>(held_by_apartment(start_module));
}

template <std::size_t at>
Pointer<IDispatch> new_object() {
    auto module = module_of_apartment();
    Object object = automation_classes()[at].create(*module);
    return published(std::move(object), std::move(module));
}

template <std::size_t at>
Pointer<IDispatch> new_record() {
    return new_script_record(record_types[at]);
}

using Maker = Pointer<IDispatch> (*)();

template <std::size_t... at>
constexpr auto object_makers(std::index_sequence<at...>) {
    return std::array<Maker, sizeof...(at)>{&new_object<at>...};
}

template <std::size_t... at>
constexpr auto record_makers(std::index_sequence<at...>) {
    return std::array<Maker, sizeof...(at)>{&new_record<at>...};
}

std::span<const Class_entry> classes() {
    static const Class_list all = [] {
        Class_list list;
        const auto add = [&](const CLSID& clsid, std::string_view name, const std::string& description, Maker make) {
            list.add(clsid, "Cuvexa." + std::string(name), description, make, &library_id, L"1.0");
        };
        constexpr auto objects = object_makers(std::make_index_sequence<std::size(class_ids)>());
        for (std::size_t at = 0; at < objects.size(); ++at) {
            add(class_ids[at].class_id, class_ids[at].name, "Cuvexa - " + std::string(class_ids[at].name), objects[at]);
        }
        constexpr auto records = record_makers(std::make_index_sequence<std::size(record_types)>());
        for (std::size_t at = 0; at < records.size(); ++at) {
            const Record_type& type = record_types[at];
            add(script_record_id(type), type.name, "Cuvexa - registro " + std::string(type.name), records[at]);
        }
        return list;
    }();
    return all.entries();
}

// ---- The type library in the registry ------------------------------------------------------------------------------

#ifdef _WIN64
constexpr SYSKIND own_system = SYS_WIN64;
#else
constexpr SYSKIND own_system = SYS_WIN32;
#endif

/// Registers the library inside that copy of this module.
HRESULT register_type_library(std::wstring path, Scope scope) {
    Pointer<ITypeLib> library;
    const HRESULT loaded = LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.receive());
    if (FAILED(loaded)) return loaded;
    std::wstring folder = path.substr(0, path.rfind(L'\\'));
    if (scope == Scope::machine) return RegisterTypeLib(library.get(), path.data(), folder.data());
    return RegisterTypeLibForUser(library.get(), path.data(), folder.data());
}

/// Whether the registered library is the one inside this module.
bool is_registered_library() {
    String path;
    if (FAILED(QueryPathOfRegTypeLib(library_id, library_major, library_minor, LOCALE_NEUTRAL, path.receive()))) {
        return false;
    }
    const std::string registered = path.text().c_str();  // the system counts the null character in
    return same_name(wide(registered), wide(path_of(this_module())));
}

void unregister_type_library() {
    UnRegisterTypeLibForUser(library_id, library_major, library_minor, LOCALE_NEUTRAL, own_system);
    UnRegisterTypeLib(library_id, library_major, library_minor, LOCALE_NEUTRAL, own_system);
}

/// Describes the copy of this module that programs get, if one is registered.
void describe_registered_server() {
    wchar_t id[40];
    StringFromGUID2(class_ids[0].class_id, id, 40);
    const std::wstring key = L"Software\\Classes\\CLSID\\" + std::wstring(id) + L"\\InprocServer32";
    if (const auto of_user = Key::existing(HKEY_CURRENT_USER, key).text()) {
        register_type_library(*of_user, Scope::user);
    } else if (const auto of_all = Key::existing(HKEY_LOCAL_MACHINE, key).text()) {
        register_type_library(*of_all, Scope::machine);
    }
}

HRESULT register_all(Scope scope) {
    HRESULT result = register_server(classes(), this_module(), scope);
    if (SUCCEEDED(result)) result = register_type_library(wide(path_of(this_module())), scope);
    if (FAILED(result)) unregister_server(classes(), this_module());
    return result;
}

}  // namespace
}  // namespace cuvexa::com_server

using namespace cuvexa::com_server;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return get_class_object(classes(), clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    forget_held();
    return apartments_holding() == 0 ? can_unload() : S_FALSE;
}

STDAPI DllRegisterServer() {
    return guarded("DllRegisterServer", [] { return register_all(writable_scope()); });
}

STDAPI DllUnregisterServer() {
    return guarded("DllUnregisterServer", [] {
        const bool described = is_registered_library();
        if (described) unregister_type_library();
        const HRESULT result = unregister_server(classes(), this_module());
        // The copy that was there before is back, and its description with it.
        if (described) describe_registered_server();
        return result;
    });
}

STDAPI DllInstall(BOOL install, const wchar_t* whom) {
    if (!install) return DllUnregisterServer();
    return guarded("DllInstall", [whom] { return register_all(named_scope(whom)); });
}
