// What every object of the servers shares: counting, finding its interfaces, and keeping the library loaded.
#pragma once

#include <objbase.h>

#include <atomic>

#include "com/pointers.h"

namespace cuvexa::com {

/// Objects alive and locks held in this library; while there are any it stays loaded.
inline std::atomic<long> objects_alive{0};

/// An identifier by which objects of this library know each other. It is made anew whenever the library is loaded, so that an
/// object of another copy, whose memory may be another, stays a stranger.
template <class Interface>
const IID& own_iid() {
    static const IID id = [] {
        IID made{};
        CoCreateGuid(&made);
        return made;
    }();
    return id;
}

/// A counted object with one interface. Born with one reference.
template <class Interface>
class Counted_object : public Interface {
public:
    Counted_object() { ++objects_alive; }
    Counted_object(const Counted_object&) = delete;
    Counted_object& operator=(const Counted_object&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = find(iid);
        if (!*object) return E_NOINTERFACE;
        this->AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

protected:
    virtual ~Counted_object() { --objects_alive; }

    /// The interface, not counted; null when there is none.
    virtual void* find(REFIID iid) = 0;

private:
    std::atomic<long> references_{1};
};

/// An object whose members clients call by number.
template <class Interface = IDispatch>
class Dispatch_object : public Counted_object<Interface> {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        if (info) *info = nullptr;
        return DISP_E_BADINDEX;
    }

protected:
    void* find(REFIID iid) override {
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
        return known ? static_cast<IDispatch*>(this) : nullptr;
    }
};

}  // namespace cuvexa::com
