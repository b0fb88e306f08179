#include "com/named_object.h"

#include "com/failures.h"

namespace cuvexa::com {
void Call_arguments::expect(std::size_t least, std::size_t most) const {
    if (given_ && given_->cNamedArgs > 0 && given_->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
        check(DISP_E_NONAMEDARGS);
    }
    if (count() < least || count() > most) check(DISP_E_BADPARAMCOUNT);
}

VARIANT& Call_arguments::required(std::size_t place) const {
    if (!has(place)) check(DISP_E_PARAMNOTOPTIONAL);
    return (*this)[place];
}

DISPID Named_object::identifier(std::wstring_view name) const {
    const auto names = member_names();
    for (std::size_t place = 0; place < names.size(); ++place) {
        if (same_name(wide(names[place]), name)) return static_cast<DISPID>(place + 1);
    }
    return DISPID_UNKNOWN;
}

HRESULT STDMETHODCALLTYPE Named_object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0) return E_POINTER;
    return guarded(source(), [&] {
        ids[0] = identifier(names[0]);
        for (UINT i = 1; i < count; ++i) ids[i] = DISPID_UNKNOWN;  // arguments have no names
        return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    });
}

HRESULT STDMETHODCALLTYPE Named_object::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result,
                                               EXCEPINFO* record, UINT*) {
    try {
        if (id == DISPID_VALUE) id = identifier(wide(default_member()));
        if (id < 1 || static_cast<std::size_t>(id) > member_names().size()) return DISP_E_MEMBERNOTFOUND;
        const auto keep = Pointer<IDispatch>::sharing(this);  // the caller's last reference may go during the call
        Any answer = perform(static_cast<std::size_t>(id - 1), kind, Call_arguments(given));
        if (result) *result = answer.release();
        return S_OK;
    } catch (...) {
        return raise(current_failure(), source(), record);
    }
}

}  // namespace cuvexa::com
