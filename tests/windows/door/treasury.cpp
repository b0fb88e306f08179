#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "automation/invoke.h"
#include "com/class_factory.h"
#include "com/failures.h"
#include "com_suite/published_service.h"
#include "com_suite/suite_objects.h"
#include "cuvexa/tesoreria.h"
#include "windows/replay/remote_objects.h"

namespace cuvexa::door {
namespace {

using namespace com;
using namespace com_suite;

/// The suite whose services are published, that of the module in use.
Suite* published_suite = nullptr;

std::shared_ptr<Session> session() {
    static const auto only = std::make_shared<Session>([]() -> Suite& { return *published_suite; });
    return only;
}

template <class Service>
Pointer<IDispatch> new_service() {
    return Published_service<Service>::made(session());
}

template <class Service>
Pointer<IDispatch> (*maker(const Named_service<Service>&))() {
    return &new_service<Service>;
}

/// Puts the classes of the suite's services, in this process, before those that are registered on the machine.
void publish_services() {
    static Class_list classes;
    for_each_service([](const auto& service) {
        CLSID clsid;
        check(CLSIDFromProgID(wide(Suite_objects().prog_id(service.name)).c_str(), &clsid));
        classes.add(clsid, service.name, service.subject, maker(service));
    });
    for (const Class_entry& entry : classes.entries()) {
        Pointer<IClassFactory> factory;
        check(get_class_object(classes.entries(), entry.clsid, IID_IClassFactory, factory.receive_void()));
        DWORD cookie;
        check(CoRegisterClassObject(entry.clsid, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
    }
}

class Apartment : public ::testing::Environment {
public:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        publish_services();
    }
};

const auto* const apartment = ::testing::AddGlobalTestEnvironment(new Apartment);

/// The objects alive, and the module whose services the library works with.
std::set<Treasury*> alive;
const Module* in_use = nullptr;

/// The library starts its module again with the next object.
void forget_library_module() {
    using Can_unload = HRESULT(STDAPICALLTYPE*)();
    if (const HMODULE library = GetModuleHandleW(L"Cuvexa.dll")) {
        reinterpret_cast<Can_unload>(reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")))();
    }
}

}  // namespace

Treasury::Treasury(Module& module) : module_(module) {
    alive.insert(this);
    connect();
}

Treasury::~Treasury() {
    disconnect();
    alive.erase(this);
    const auto uses_it = [](const Treasury* other) { return &other->module_ == in_use; };
    if (std::any_of(alive.begin(), alive.end(), uses_it)) return;
    in_use = nullptr;  // the next module may stand in the same place
    forget_library_module();
}

void Treasury::connect() {
    if (in_use != &module_) {
        // The apartment has one module, so the objects of another lose theirs, and what they held.
        for (Treasury* other : alive) other->disconnect();
        forget_library_module();
        in_use = &module_;
    }
    published_suite = &module_.suite();
    object_ = tests::new_remote_object("Tesoreria");
}

void Treasury::disconnect() {
    object_.reset();
    extras_object_.reset();
}

Automation_object& Treasury::object() const {
    if (!object_) const_cast<Treasury*>(this)->connect();
    return *object_;
}

Variant Treasury::get(std::string_view member) const {
    std::vector<Variant> none;
    return Invoke(object(), member, Member_kind::property_get, none);
}

void Treasury::let(std::string_view member, Variant value) {
    std::vector<Variant> values{std::move(value)};
    Invoke(object(), member, Member_kind::property_let, values);
}

void Treasury::hand_over() {
    let("FolioMovimiento", FolioMovimiento);
    if (!extras_) return;
    const std::pair<const char*, std::string clsRpDetalle::*> members[] = {
        {"Rp_Cve_Banco", &clsRpDetalle::Rp_Cve_Banco},
        {"Rp_Vendedor", &clsRpDetalle::Rp_Vendedor},
        {"Rp_Comisionista", &clsRpDetalle::Rp_Comisionista},
        {"Rp_Promotor", &clsRpDetalle::Rp_Promotor},
        {"Rp_Chofer", &clsRpDetalle::Rp_Chofer},
        {"Rp_Cobratario", &clsRpDetalle::Rp_Cobratario}};
    for (const auto& [name, place] : members) {
        std::vector<Variant> value{(*extras_).*place};
        Invoke(*extras_object_, name, Member_kind::property_let, value);
    }
}

Variant Treasury::call_with(std::string_view member, std::vector<Variant>& arguments) {
    hand_over();
    Variant result = Invoke(object(), member, Member_kind::method, arguments);
    FolioMovimiento = text("FolioMovimiento");
    return result;
}

bool Treasury::Registra_Movimiento_Banco(tBnMovimiento& movement) {
    std::vector<Variant> arguments{automation::Record(movement)};
    const bool done = std::get<bool>(call_with("Registra_Movimiento_Banco", arguments));
    movement = std::get<tBnMovimiento>(std::get<automation::Record>(arguments[0]));
    return done;
}

std::shared_ptr<clsRpDetalle> Treasury::RpDetalle2() const {
    get("RpDetalle2");
    return nullptr;
}

void Treasury::RpDetalle2(std::shared_ptr<clsRpDetalle> value) {
    extras_ = std::move(value);
    extras_object_ = extras_ ? tests::new_remote_object("clsRpDetalle") : nullptr;
    let("RpDetalle2", extras_object_);
}

}  // namespace cuvexa::door
