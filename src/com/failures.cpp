#include "com/failures.h"

#include <new>

namespace cuvexa::com {
namespace {

/// The system's words for a result code, without their line end.
std::string system_text(HRESULT result) {
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::string found = length ? utf8({text, length}) : std::string();
    LocalFree(text);
    while (!found.empty() && (found.back() == '\n' || found.back() == '\r' || found.back() == ' ')) found.pop_back();
    if (!found.empty()) return found;
    char code[32];
    wsprintfA(code, "0x%08X", static_cast<unsigned>(result));
    return std::string("automation failure ") + code;
}

}  // namespace

Failure current_failure() noexcept {
    try {
        try {
            throw;
        } catch (const Automation_error& failure) {
            return {result_of_number(failure.number()), failure.what()};
        } catch (const Result_error& failure) {
            return {failure.result(), failure.what()};
        } catch (const std::bad_alloc&) {
            return {E_OUTOFMEMORY, {}};
        } catch (const std::exception& failure) {
            return {result_of_number(error_automation), failure.what()};
        } catch (...) {
            return {E_UNEXPECTED, {}};
        }
    } catch (...) {  // the text of the failure found no memory
        return {E_OUTOFMEMORY, {}};
    }
}

HRESULT raise(const Failure& failure, const char* source) noexcept {
    try {
        Pointer<ICreateErrorInfo> created;
        if (FAILED(CreateErrorInfo(created.receive()))) return failure.result;
        const String description(failure.description);
        const String from(source);
        created->SetDescription(description.get());
        created->SetSource(from.get());
        if (const auto info = created.as<IErrorInfo>(IID_IErrorInfo)) SetErrorInfo(0, info.get());
    } catch (...) {
        // The result code still tells.
    }
    return failure.result;
}

HRESULT raise(const Failure& failure, const char* source, EXCEPINFO* record) noexcept {
    raise(failure, source);
    if (HRESULT_FACILITY(failure.result) != FACILITY_CONTROL) return failure.result;
    if (!record) return DISP_E_EXCEPTION;
    *record = {};
    record->scode = failure.result;
    try {
        String from(source);
        record->bstrDescription = new_string(failure.description);
        record->bstrSource = from.release();
    } catch (...) {
        // The number still tells.
    }
    return DISP_E_EXCEPTION;
}

void throw_failed(HRESULT result) {
    throw Result_error(result, system_text(result));
}

}  // namespace cuvexa::com
