// Calls on objects that are known by name only.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

#include "com/values.h"

namespace cuvexa::com {

/// An object whose members are found when they are called. What the object raises comes out as `Automation_error` with
/// its number and description; any other failing result code as `Result_error`, in the system's words with the member's
/// name.
class Late_object {
public:
    Late_object() = default;
    explicit Late_object(Pointer<IDispatch> object) : object_(std::move(object)) {}

    /// A new object of the class with that programmatic identifier.
    static Late_object create(std::string_view prog_id);

    const Pointer<IDispatch>& object() const { return object_; }
    explicit operator bool() const { return static_cast<bool>(object_); }

    template <class... Arguments>
    Any call(std::string_view name, const Arguments&... arguments) {
        Any given[sizeof...(arguments) + 1] = {any(arguments)...};
        return invoke(name, DISPATCH_METHOD, {given, sizeof...(arguments)});
    }
    template <class... Arguments>
    Any get(std::string_view name, const Arguments&... arguments) {
        Any given[sizeof...(arguments) + 1] = {any(arguments)...};
        return invoke(name, DISPATCH_PROPERTYGET, {given, sizeof...(arguments)});
    }
    template <class Argument>
    void put(std::string_view name, const Argument& value) {
        Any given[] = {any(value)};
        invoke(name, DISPATCH_PROPERTYPUT, given);
    }

    /// One call with the arguments in their order; by-reference ones are changed where they point. `kind` is one
    /// of the DISPATCH_ flags or several.
    Any invoke(std::string_view name, WORD kind, std::span<Any> arguments);

    /// Whether the object knows the name.
    bool has(std::string_view name);

private:
    DISPID identifier(std::string_view name);

    Pointer<IDispatch> object_;
    std::map<std::string, DISPID, std::less<>> identifiers_;
};

}  // namespace cuvexa::com
