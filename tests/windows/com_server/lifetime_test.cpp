// How long things live: objects and locks keep the library, apartments keep their modules.
#include "windows/com_server/server.h"

#include <atomic>
#include <thread>

#include "com/apartment.h"
#include "com_server/identifiers.h"
#include "cuvexa/database/sqlite_connection.h"
#include "support/plain_suite.h"
#include "windows/com_server/probe.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

// ---- The library ---------------------------------------------------------------------------------------------------

struct Lifetime : ::testing::Test {
    Server server;

    HRESULT can_unload() const { return server.library.can_unload(); }
    Pointer<IClassFactory> factory() const {
        Pointer<IClassFactory> found;
        EXPECT_EQ(server.library.factory(class_id("Tesoreria"), IID_IClassFactory, found.receive_void()), S_OK);
        return found;
    }
};

TEST_F(Lifetime, a_library_that_gave_nothing_can_go) {
    EXPECT_EQ(can_unload(), S_OK);
}

TEST_F(Lifetime, an_object_of_any_kind_keeps_the_library) {
    for (const char* name : {"Tesoreria", "clsRpDetalle", "tRpEncabezado"}) {
        auto object = server.create(name);
        EXPECT_EQ(can_unload(), S_FALSE) << name;
        object = nullptr;
        EXPECT_EQ(can_unload(), S_OK) << name;
    }
}

TEST_F(Lifetime, what_an_object_gave_keeps_the_library_when_the_object_is_gone) {
    auto record = server.create("tRpEncabezado");
    Outcome inside = get(record, L"Sucursal");
    record = nullptr;
    EXPECT_EQ(can_unload(), S_FALSE);
    inside = {};
    EXPECT_EQ(can_unload(), S_OK);

    auto treasury = server.create("Tesoreria");
    auto extras = server.create("clsRpDetalle");
    ASSERT_EQ(put(treasury, L"RpDetalle2", any(extras)).result, S_OK);
    auto support = treasury.as<ISupportErrorInfo>(IID_ISupportErrorInfo);
    extras = nullptr;
    treasury = nullptr;
    EXPECT_EQ(can_unload(), S_FALSE);
    support = nullptr;
    EXPECT_EQ(can_unload(), S_OK);
}

TEST_F(Lifetime, a_factory_and_its_locks_keep_the_library) {
    auto maker = factory();
    EXPECT_EQ(can_unload(), S_FALSE);
    ASSERT_EQ(maker->LockServer(TRUE), S_OK);
    ASSERT_EQ(maker->LockServer(TRUE), S_OK);
    ASSERT_EQ(maker->LockServer(FALSE), S_OK);
    maker = nullptr;
    EXPECT_EQ(can_unload(), S_FALSE);
    ASSERT_EQ(factory()->LockServer(FALSE), S_OK);
    EXPECT_EQ(can_unload(), S_OK);
}

TEST_F(Lifetime, an_object_counts_its_references) {
    auto treasury = server.create("Tesoreria");
    EXPECT_EQ(treasury->AddRef(), 2u);
    EXPECT_EQ(treasury->Release(), 1u);
}

TEST_F(Lifetime, a_factory_makes_objects_by_any_of_their_interfaces_and_refuses_the_rest) {
    const auto maker = factory();
    Pointer<IDispatch> object;
    EXPECT_EQ(maker->CreateInstance(nullptr, ids_of("Tesoreria").interface_id, object.receive_void()), S_OK);
    Pointer<IUnknown> other;
    EXPECT_EQ(maker->CreateInstance(nullptr, IID_IPersist, other.receive_void()), E_NOINTERFACE);
    EXPECT_FALSE(other);
    EXPECT_EQ(maker->CreateInstance(object.get(), IID_IUnknown, other.receive_void()), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(maker->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_FALSE(maker.as<IUnknown>(IID_IPersist));
    EXPECT_EQ(server.library.factory(IID_IPersist, IID_IClassFactory, other.receive_void()), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(server.library.factory(class_id("Tesoreria"), IID_IPersist, other.receive_void()), E_NOINTERFACE);
    object = nullptr;
    EXPECT_EQ(can_unload(), S_FALSE);  // the factory
}

TEST_F(Lifetime, services_that_do_not_start_are_told_and_the_next_try_works) {
    const std::wstring good = wide(server.company.path());
    SetEnvironmentVariableW(L"CUVEXA_DB", L"C:\\no\\hay\\nada.db");
    _wputenv_s(L"CUVEXA_DB", L"C:\\no\\hay\\nada.db");
    Pointer<IDispatch> object;
    SetErrorInfo(0, nullptr);
    EXPECT_TRUE(FAILED(server.create(class_id("Tesoreria"), IID_IDispatch, object.receive_void())));
    EXPECT_FALSE(object);
    Pointer<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.receive()), S_OK);
    String description;
    info->GetDescription(description.receive());
    EXPECT_THAT(description.text(), HasSubstr("nada.db"));
    EXPECT_EQ(can_unload(), S_OK);

    SetEnvironmentVariableW(L"CUVEXA_DB", good.c_str());
    _wputenv_s(L"CUVEXA_DB", good.c_str());
    EXPECT_EQ(server.create(class_id("Tesoreria"), IID_IDispatch, object.receive_void()), S_OK);
}

TEST_F(Lifetime, a_module_ends_with_its_apartment_and_lets_go_of_the_database) {
    auto treasury = server.create("Tesoreria");
    ASSERT_EQ(number(call(treasury, L"GetSaldo", arguments(any("SRR-MXN")))), 0);
    treasury = nullptr;
    server.apartment.end();
    EXPECT_EQ(can_unload(), S_OK);
    // Nobody holds the file any more.
    EXPECT_TRUE(MoveFileW(wide(server.company.path()).c_str(), (wide(server.company.path()) + L".moved").c_str()));
    EXPECT_TRUE(MoveFileW((wide(server.company.path()) + L".moved").c_str(), wide(server.company.path()).c_str()));
}

TEST_F(Lifetime, an_apartment_that_ends_before_its_objects_leaves_them_safe_to_let_go) {
    auto treasury = server.create("Tesoreria");
    server.apartment.end();
    EXPECT_EQ(can_unload(), S_FALSE);
    treasury = nullptr;
    EXPECT_EQ(can_unload(), S_OK);
}

TEST_F(Lifetime, an_apartment_that_begins_again_has_a_module_again) {
    auto treasury = server.create("Tesoreria");
    treasury = nullptr;
    server.apartment.end();
    const Apartment again;
    treasury = server.create("Tesoreria");
    EXPECT_EQ(number(call(treasury, L"GetSaldo", arguments(any("SRR-MXN")))), 0);
}

TEST_F(Lifetime, an_apartment_entered_twice_keeps_its_module_until_it_was_left_twice) {
    auto treasury = server.create("Tesoreria");
    { const Apartment inner; }
    EXPECT_EQ(text(get(treasury, L"Error")), "");
    EXPECT_TRUE(SUCCEEDED(call(treasury, L"NuevoReciboCaja").result));
    EXPECT_EQ(number(call(treasury, L"GetSaldo", arguments(any("SRR-MXN")))), 0);
}

TEST_F(Lifetime, every_apartment_works_with_the_parameters_that_it_read_itself) {
    const auto treasury = server.create("Tesoreria");
    // From now on documents must carry today's date, which those of `capture` do not.
    server.company.sql("DELETE FROM Parametro_Sistema WHERE Ps_Nombre = 'GEN_FORZAR_TIEMPO_REAL'");
    server.company.sql("INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor) VALUES ('GEN_FORZAR_TIEMPO_REAL', '1')");
    bool taken = true;
    std::thread([&] {
        const Apartment apartment;
        taken = capture(server, server.create("Tesoreria"));
    }).join();
    EXPECT_FALSE(taken);
    EXPECT_TRUE(capture(server, treasury)) << text(get(treasury, L"Error"));
}

TEST_F(Lifetime, the_objects_of_all_apartments_keep_the_library) {
    auto treasury = server.create("Tesoreria");
    HRESULT with_both = S_OK, with_one = S_OK;
    std::thread([&] {
        const Apartment apartment;
        auto other = server.create("Tesoreria");
        with_both = can_unload();
        other = nullptr;
        with_one = can_unload();
    }).join();
    EXPECT_EQ(with_both, S_FALSE);
    EXPECT_EQ(with_one, S_FALSE);
    treasury = nullptr;
    EXPECT_EQ(can_unload(), S_OK);
}

// ---- Modules of apartments, made here ------------------------------------------------------------------------------

/// Makes modules over databases in memory and counts what became of them.
struct Modules : ::testing::Test {
    std::atomic<int> made{0}, ended{0};
    bool broken = false;

    struct Held {
        explicit Held(Modules& counts) : counts(counts) {}
        ~Held() { ++counts.ended; }
        Modules& counts;
        Sqlite_connection connection{":memory:", {.synchronous = Synchronous::off}};
        Module module{std::make_shared<cuvexa::tests::Plain_suite>(connection)};
    };

    std::shared_ptr<Module> of_apartment() {
        return std::static_pointer_cast<Module>(held_by_apartment([this]() -> std::shared_ptr<Module> {
            if (broken) throw Automation_error(1000, "no services");
            ++made;
            auto held = std::make_shared<Held>(*this);
            return {held, &held->module};
        }));
    }
};

TEST_F(Modules, are_one_for_an_apartment) {
    const Apartment apartment;
    const auto first = of_apartment(), second = of_apartment();
    EXPECT_EQ(first, second);
    EXPECT_EQ(made, 1);
    EXPECT_EQ(apartments_holding(), 1);
}

TEST_F(Modules, are_two_for_two_apartments) {
    const Apartment apartment;
    const auto first = of_apartment();
    const Module* second = nullptr;
    std::thread([&] {
        const Apartment other;
        second = of_apartment().get();
        EXPECT_EQ(apartments_holding(), 2);
    }).join();
    EXPECT_NE(first.get(), second);
    EXPECT_EQ(made, 2);
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(apartments_holding(), 1);
}

TEST_F(Modules, end_with_the_last_leaving_of_the_apartment) {
    Apartment outer;
    {
        const Apartment inner;
        of_apartment();
    }
    EXPECT_EQ(ended, 0);
    outer.end();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(apartments_holding(), 0);
}

TEST_F(Modules, that_somebody_holds_outlive_the_apartment) {
    Apartment apartment;
    auto held = of_apartment();
    apartment.end();
    EXPECT_EQ(apartments_holding(), 0);
    EXPECT_EQ(ended, 0);
    held = nullptr;
    EXPECT_EQ(ended, 1);
}

TEST_F(Modules, are_forgotten_on_demand_unless_somebody_holds_them) {
    const Apartment apartment;
    EXPECT_TRUE(forget_held());
    auto held = of_apartment();
    EXPECT_FALSE(forget_held());
    EXPECT_EQ(ended, 0);
    held = nullptr;
    EXPECT_TRUE(forget_held());
    EXPECT_EQ(ended, 1);
    of_apartment();
    EXPECT_EQ(made, 2);
}

TEST_F(Modules, whose_services_do_not_start_are_tried_again) {
    const Apartment apartment;
    broken = true;
    EXPECT_THROW(of_apartment(), Automation_error);
    EXPECT_EQ(apartments_holding(), 0);
    broken = false;
    EXPECT_TRUE(of_apartment());
}

TEST_F(Modules, come_and_go_with_apartments_many_times) {
    for (int round = 1; round <= 50; ++round) {
        {
            const Apartment apartment;
            of_apartment();
        }
        EXPECT_EQ(ended, round);
    }
    EXPECT_EQ(apartments_holding(), 0);
}

}  // namespace
}  // namespace cuvexa::tests
