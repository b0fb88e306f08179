#include "com/class_factory.h"

#include <algorithm>

#include "com/failures.h"
#include "com/object.h"

namespace cuvexa::com {
namespace {

class Class_factory final : public Counted_object<IClassFactory> {
public:
    explicit Class_factory(const Class_entry& entry) : entry_(entry) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return guarded("CreateInstance", [&] { return entry_.create()->QueryInterface(iid, object); });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        objects_alive += lock ? 1 : -1;
        return S_OK;
    }

protected:
    void* find(REFIID iid) override {
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory);
        return known ? static_cast<IClassFactory*>(this) : nullptr;
    }

private:
    const Class_entry& entry_;
};

}  // namespace

void Class_list::add(const CLSID& clsid, std::string_view prog_id, std::string_view description,
                     Pointer<IDispatch> (*create)(), const GUID* type_library, const wchar_t* type_library_version) {
    const wchar_t* const name = texts_.emplace_back(wide(prog_id)).c_str();
    const wchar_t* const shown = texts_.emplace_back(wide(description)).c_str();
    entries_.push_back({clsid, name, shown, create, type_library, type_library_version});
}

HRESULT get_class_object(std::span<const Class_entry> classes, REFCLSID clsid, REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    const auto entry = std::find_if(classes.begin(), classes.end(),
                                    [&](const Class_entry& known) { return IsEqualCLSID(known.clsid, clsid); });
    if (entry == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
    return guarded("DllGetClassObject", [&] {
        const auto factory = Pointer<IClassFactory>::owning(new Class_factory(*entry));
        return factory->QueryInterface(iid, object);
    });
}

HRESULT can_unload() noexcept {
    return objects_alive == 0 ? S_OK : S_FALSE;
}

}  // namespace cuvexa::com
