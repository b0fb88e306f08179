#include "com/apartment.h"

#include <objidl.h>

#include <atomic>

#include "com/failures.h"

namespace cuvexa::com {
namespace {

std::atomic<long> holding{0};

/// What is held may hold objects of the apartment, so it must go before the apartment does: a spy tells when. It belongs to
/// the thread's holder and is never destroyed by itself.
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

    const std::shared_ptr<void>& held() const { return held_; }

    void hold(std::shared_ptr<void> held) {
        check(CoRegisterInitializeSpy(this, &cookie_));
        held_ = std::move(held);
        ++holding;
    }

    void let_go() noexcept {
        if (!held_) return;
        held_.reset();
        --holding;
        CoRevokeInitializeSpy(cookie_);
    }

private:
    std::shared_ptr<void> held_;
    ULARGE_INTEGER cookie_{};
};

/// A thread that ends without ending its apartment keeps what it holds: its objects may not be called any more.
Holder& holder() {
    thread_local Holder* const of_thread = new Holder;
    return *of_thread;
}

}  // namespace

std::shared_ptr<void> held_by_apartment(const std::function<std::shared_ptr<void>()>& make) {
    if (!holder().held()) holder().hold(make());
    return holder().held();
}

bool forget_held() noexcept {
    if (holder().held() && holder().held().use_count() == 1) holder().let_go();
    return !holder().held();
}

long apartments_holding() noexcept {
    return holding;
}

}  // namespace cuvexa::com
