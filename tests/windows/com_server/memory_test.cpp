// What comes out belongs to the caller, once: after any number of rounds there is as much of the system's memory in use
// as before.
#include <Cuvexa.h>

#include <atomic>
#include <utility>

#include "windows/com_server/probe.h"
#include "windows/com_server/server.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

/// Strings that are given back are kept by the system for the next one, unless it is told not to.
void keep_no_strings() {
    const auto function = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache");
    ASSERT_TRUE(function);
    reinterpret_cast<void(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(function))();
}

/// Counts the blocks of the system's task memory, where strings live. The system asks it about every block that it saw
/// made, so it is there until the program ends.
class Block_count final : public IMallocSpy {
public:
    static const Block_count& of_process() {
        static Block_count* const count = [] {
            keep_no_strings();
            auto* made = new Block_count;
            EXPECT_EQ(CoRegisterMallocSpy(made), S_OK);
            return made;
        }();
        return *count;
    }

    long alive() const { return alive_; }
    long ever() const { return ever_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IMallocSpy) ? this : nullptr;
        return *object ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override {
        if (block) ++alive_, ++ever_;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, WINBOOL spied) override {
        if (block && spied) --alive_;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(WINBOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** fresh, WINBOOL) override {
        *fresh = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, WINBOOL) override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, WINBOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, WINBOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, WINBOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, WINBOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

private:
    Block_count() = default;
    virtual ~Block_count() = default;

    std::atomic<long> alive_{0}, ever_{0};
};

constexpr int rounds = 10000;

struct Memory : ::testing::Test {
    Server server;
    Pointer<IDispatch> treasury = server.create("Tesoreria");
    Pointer<Cuvexa::_Tesoreria> table = treasury.as<Cuvexa::_Tesoreria>(Cuvexa::iid__Tesoreria);

    /// Blocks that stay behind after many rounds, beyond those of the first, and how many there were in all.
    template <class Round>
    std::pair<long, long> left_behind(const Round& round) {
        const Block_count& count = Block_count::of_process();
        for (int warm_up = 0; warm_up < 10; ++warm_up) round();
        const long before = count.alive(), ever = count.ever();
        for (int at = 0; at < rounds; ++at) round();
        return {count.alive() - before, count.ever() - ever};
    }
};

TEST_F(Memory, of_records_through_the_virtual_table_is_given_back) {
    const auto [left, ever] = left_behind([&] {
        ASSERT_EQ(table->put_RpDetalle2(nullptr), E_POINTER);
        Client_record<Cuvexa::tRpDetalle> line;
        line->Rp_Cuenta_Bancaria = new_string("cuenta");
        ASSERT_EQ(table->put_RpDetalle(line.get()), S_OK);
        Client_record<Cuvexa::tRpDetalle> back;
        ASSERT_EQ(table->get_RpDetalle(back.get()), S_OK);
    });
    EXPECT_EQ(left, 0);
    EXPECT_GT(ever, 5 * rounds);
}

TEST_F(Memory, of_texts_through_dispatch_is_given_back) {
    const auto [left, ever] = left_behind([&] {
        ASSERT_EQ(put(treasury, L"Ch_Banco_Destino", any("cuenta")).result, S_OK);
        ASSERT_EQ(text(get(treasury, L"Ch_Banco_Destino")), "cuenta");
        ASSERT_EQ(call(treasury, L"Crear_Cheque", arguments(any("C1"))).result, S_OK);
        ASSERT_EQ(put(treasury, L"RpDetalle", any("no record")).result, DISP_E_TYPEMISMATCH);
        ASSERT_EQ(get(treasury, L"RpDetalle2").result, DISP_E_EXCEPTION);
    });
    EXPECT_EQ(left, 0);
    EXPECT_GT(ever, 5 * rounds);
}

TEST_F(Memory, of_changed_arguments_is_given_back_and_what_stood_there_with_it) {
    const auto client = published(std::make_shared<Probe>());
    const auto info = server.record_info("tBnMovimiento");
    const auto [left, ever] = left_behind([&] {
        std::int16_t whole = 1;
        double real = 2;
        VARIANT_BOOL boolean = VARIANT_FALSE;
        DATE date = 3;
        Any text = any("antes");
        ASSERT_TRUE(truth(call(client, L"Change_all",
                               arguments(reference(whole), reference(real), reference_bool(boolean),
                                         reference_date(date), reference(text)))));
        BSTR string = new_string("antes");
        call(client, L"Change_all",
             arguments(any(std::int16_t{1}), any(2.0), any(true), any(Date{3}), reference(string)));
        SysFreeString(string);
        Client_record<Cuvexa::tBnMovimiento> movement;
        movement->Bm_Folio = new_string("antes");
        movement->Cuenta.Bn_Cve_Banco = new_string("antes");
        ASSERT_TRUE(truth(call(client, L"Take_movement", arguments(movement.reference(info)))));
    });
    EXPECT_EQ(left, 0);
    EXPECT_GT(ever, 5 * rounds);
}

// The system's clearing of a record variant is left out of it: under Wine it forgets what stands in records inside.
TEST_F(Memory, of_records_through_dispatch_is_the_caller_s_to_give_back) {
    const auto [left, ever] = left_behind([&] {
        Outcome outcome = get(treasury, L"RpEncabezado");
        ASSERT_EQ(outcome.value->vt, VT_RECORD);
        clear(*static_cast<Cuvexa::tRpEncabezado*>(outcome.value->pvRecord));
        outcome.value->pRecInfo->RecordDestroy(outcome.value->pvRecord);
        outcome.value->pRecInfo->Release();
        VariantInit(outcome.value.get());
    });
    EXPECT_EQ(left, 0);
    EXPECT_GT(ever, 5 * rounds);
}

TEST_F(Memory, of_objects_is_given_back) {
    const auto [left, ever] = left_behind([&] {
        const auto extras = server.create("clsRpDetalle");
        ASSERT_EQ(put(extras, L"Rp_Chofer", any("C1")).result, S_OK);
        ASSERT_EQ(put(treasury, L"RpDetalle2", any(extras)).result, S_OK);
        const auto record = server.create("tRpDetalle");
        ASSERT_EQ(put(inside(record, L"Fp_Cve_Forma_Pago"), L"Fp_Cve_Forma_Pago", any("01")).result, S_OK);
        ASSERT_EQ(put(treasury, L"RpDetalle", any(record)).result, S_OK);
    });
    EXPECT_EQ(left, 0);
    EXPECT_GT(ever, 5 * rounds);
}

}  // namespace
}  // namespace cuvexa::tests
