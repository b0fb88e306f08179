// Objects whose members are known by name and number only: what scripts call, and what this component hands to a suite.
#pragma once

#include <span>
#include <string_view>

#include "com/object.h"
#include "com/values.h"

namespace cuvexa::com {

/// The arguments of one call in their order.
class Call_arguments {
public:
    explicit Call_arguments(DISPPARAMS* given) : given_(given) {}

    std::size_t count() const { return given_ ? given_->cArgs : 0; }
    VARIANT& operator[](std::size_t place) const { return given_->rgvarg[count() - 1 - place]; }

    /// Throws `Result_error` unless there are so many and none has a name.
    void expect(std::size_t least, std::size_t most) const;
    void expect(std::size_t exactly) const { expect(exactly, exactly); }

    /// Whether the argument stands there and is not left out.
    bool has(std::size_t place) const { return place < count() && !is_missing((*this)[place]); }

    /// The argument, which must not be left out. Throws `Result_error`.
    VARIANT& required(std::size_t place) const;

private:
    DISPPARAMS* given_;
};

/// A member's number is its place in the list, from 1; the member `default_member`, if any, also answers to 0.
class Named_object : public Dispatch_object<> {
public:
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result,
                                     EXCEPINFO* record, UINT* wrong) override;

protected:
    virtual std::span<const std::string_view> member_names() const = 0;
    virtual std::string_view default_member() const { return {}; }

    /// Runs the member of that place in the list, from 0. `kind` is as in IDispatch::Invoke.
    virtual Any perform(std::size_t member, WORD kind, const Call_arguments& given) = 0;

    /// Under which name failures are reported.
    virtual const char* source() const = 0;

private:
    DISPID identifier(std::wstring_view name) const;
};

constexpr bool gets(WORD kind) {
    return kind & (DISPATCH_METHOD | DISPATCH_PROPERTYGET);
}

}  // namespace cuvexa::com
