#include "com/apartment.h"

#include <objidl.h>

#include <atomic>

#include "com/failures.h"

namespace cuvexa::com {
namespace {

std::atomic<long> held{0};

/// The services are objects of the apartment, so the module must go before the apartment does: a spy tells when. It
/// belongs to the thread's holder and is never destroyed by itself.
class Holder final : public IInitializeSpy {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IInitializeSpy);
        *object = known ? static_cast<IInitializeSpy*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE PreInitialize(DWORD, DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PostInitialize(HRESULT result, DWORD, DWORD) override { return result; }
    HRESULT STDMETHODCALLTYPE PreUninitialize(DWORD references) override {
        if (references <= 1) let_go();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE PostUninitialize(DWORD) override { return S_OK; }

    const std::shared_ptr<Module>& module() const { return module_; }

    void hold(std::shared_ptr<Module> module) {
        check(CoRegisterInitializeSpy(this, &cookie_));
        module_ = std::move(module);
        ++held;
    }

    void let_go() noexcept {
        if (!module_) return;
        module_.reset();
        --held;
        CoRevokeInitializeSpy(cookie_);
    }

private:
    std::shared_ptr<Module> module_;
    ULARGE_INTEGER cookie_{};
};

/// A thread that ends without ending its apartment keeps its module: its objects may not be called any more.
Holder& holder() {
    thread_local Holder* const of_thread = new Holder;
    return *of_thread;
}

}  // namespace

std::shared_ptr<Module> module_of_apartment(const std::function<std::shared_ptr<Module>()>& make) {
    if (!holder().module()) holder().hold(make());
    return holder().module();
}

bool forget_module() noexcept {
    if (holder().module() && holder().module().use_count() == 1) holder().let_go();
    return !holder().module();
}

long modules_alive() noexcept {
    return held;
}

}  // namespace cuvexa::com
