#include "com/late.h"

#include <dispex.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "com/failures.h"

namespace cuvexa::com {
namespace {

/// Number of a run-time error that an object raised; other codes keep their value.
int number_of(const EXCEPINFO& record) {
    if (record.wCode) return record.wCode;
    const auto code = static_cast<HRESULT>(record.scode);
    return HRESULT_FACILITY(code) == FACILITY_CONTROL ? HRESULT_CODE(code) : static_cast<int>(code);
}

[[noreturn]] void throw_raised(EXCEPINFO& record, std::string_view name) {
    if (record.pfnDeferredFillIn) record.pfnDeferredFillIn(&record);
    std::string description = text_of(record.bstrDescription);
    if (description.empty()) description = std::string(name) + ": failure " + std::to_string(number_of(record));
    const int number = number_of(record);
    SysFreeString(record.bstrDescription);
    SysFreeString(record.bstrSource);
    SysFreeString(record.bstrHelpFile);
    throw Automation_error(number, description);
}

[[noreturn]] void throw_refused(HRESULT result, std::string_view name) {
    try {
        throw_failed(result);
    } catch (const Result_error& failure) {
        throw Result_error(result, std::string(name) + ": " + failure.what());
    }
}

/// The objects of Wine's script languages answer to names in this way only.
HRESULT identifier_by_extension(const Pointer<IDispatch>& object, const wchar_t* name, DISPID& found) {
    const auto extended = object.as<IDispatchEx>(__uuidof(IDispatchEx));
    if (!extended) return E_NOTIMPL;
    const std::unique_ptr<OLECHAR, decltype(&SysFreeString)> string(SysAllocString(name), &SysFreeString);
    return string ? extended->GetDispID(string.get(), fdexNameCaseInsensitive, &found) : E_OUTOFMEMORY;
}

}  // namespace

Late_object Late_object::create(std::string_view prog_id) {
    CLSID clsid;
    Pointer<IDispatch> object;
    HRESULT result = CLSIDFromProgID(wide(prog_id).c_str(), &clsid);
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                  object.receive_void());
    }
    if (FAILED(result)) throw_refused(result, prog_id);
    return Late_object(std::move(object));
}

DISPID Late_object::identifier(std::string_view name) {
    if (const auto known = identifiers_.find(name); known != identifiers_.end()) return known->second;
    if (!object_) throw Automation_error(error_object_not_set, "Object variable not set: " + std::string(name));
    std::wstring characters = wide(name);
    LPOLESTR names[] = {characters.data()};
    DISPID found = DISPID_UNKNOWN;
    HRESULT result = object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &found);
    if (result == E_NOTIMPL) result = identifier_by_extension(object_, names[0], found);
    if (FAILED(result)) throw_refused(result, name);
    identifiers_.emplace(name, found);
    return found;
}

bool Late_object::has(std::string_view name) {
    try {
        identifier(name);
        return true;
    } catch (const Result_error&) {
        return false;
    }
}

Any Late_object::invoke(std::string_view name, WORD kind, std::span<Any> arguments) {
    const DISPID id = identifier(name);
    std::vector<VARIANT> reversed(arguments.size());
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(),
                   [](Any& argument) { return *argument.get(); });
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    DISPPARAMS parameters{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()), puts ? 1u : 0u};
    Any result;
    EXCEPINFO record{};
    UINT wrong = 0;
    const HRESULT outcome = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                            puts ? nullptr : result.get(), &record, &wrong);
    if (outcome == DISP_E_EXCEPTION) throw_raised(record, name);
    if (FAILED(outcome)) throw_refused(outcome, name);
    return result;
}

}  // namespace cuvexa::com
