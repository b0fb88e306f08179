// CuvexaSuite.dll: the reference suite for programs that reach a suite through automation.
#include "com/class_factory.h"
#include "com/failures.h"
#include "com/registration.h"
#include "com_suite/published_service.h"
#include "com_suite/suite_objects.h"

namespace cuvexa::com_suite {
namespace {

constexpr CLSID class_id(unsigned long number) {
    return {0x3e9c7a10 + number, 0x5d24, 0x4b6b, {0xa7, 0x31, 0x0f, 0x86, 0x2c, 0xd9, 0x54, 0xe8}};
}

template <class Service>
Pointer<IDispatch> new_service() {
    return Published_service<Service>::made(Session::of_this_thread());
}

template <class Service>
Pointer<IDispatch> (*maker(const Named_service<Service>&))() {
    return &new_service<Service>;
}

std::span<const Class_entry> classes() {
    static const Class_list all = [] {
        Class_list list;
        unsigned long number = 0;
        for_each_service([&](const auto& service) {
            list.add(class_id(++number), Suite_objects().prog_id(service.name),
                     std::string("Cuvexa reference suite: ").append(service.subject), maker(service));
        });
        return list;
    }();
    return all.entries();
}

}  // namespace
}  // namespace cuvexa::com_suite

using namespace cuvexa;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return com::get_class_object(com_suite::classes(), clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    return com::can_unload();
}

STDAPI DllRegisterServer() {
    return com::register_server(com_suite::classes(), com::this_module());
}

STDAPI DllUnregisterServer() {
    return com::unregister_server(com_suite::classes(), com::this_module());
}

STDAPI DllInstall(BOOL install, const wchar_t* whom) {
    if (!install) return DllUnregisterServer();
    return com::guarded("DllInstall", [whom] {
        return com::register_server(com_suite::classes(), com::this_module(), com::named_scope(whom));
    });
}
