// What a library writes into the registry so that programs find its classes, and how it takes that back.
//
// For every class: `CLSID\{…}` with `InprocServer32` (path and threading model), `ProgID` and, where there is one, the
// type library; and the programmatic identifier with its `CLSID`. What stood in these places before is kept under
// `Software\Classes\Cuvexa.Registro` and comes back when the library is unregistered. Libraries of both bitnesses share
// the programmatic identifiers; the last one to go takes them along.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "com/class_factory.h"

namespace cuvexa::com {

/// For whom classes are registered.
enum class Scope {
    machine,  ///< for everybody, which takes an administrator
    user,     ///< for the current user
};

/// Everybody when this process may write there, otherwise the current user.
Scope writable_scope();

/// Whom an installer names when it calls `DllInstall`: "machine" or "user"; when nobody, `writable_scope`. Throws
/// `Result_error` on anything else.
Scope named_scope(const wchar_t* name);

/// The library or program that this code is part of.
HMODULE this_module() noexcept;

/// The full path of a library or program, in UTF-8.
std::string path_of(HMODULE module);

/// Writes the classes of the library `module`; all of them or, after a failure, none.
HRESULT register_server(std::span<const Class_entry> classes, HMODULE module,
                        std::optional<Scope> scope = std::nullopt) noexcept;

/// Takes back what `register_server` wrote for this library, for this user and, where that can be written, for
/// everybody. What another copy of the library has registered since stays. Fails when something of this library had to
/// stay.
HRESULT unregister_server(std::span<const Class_entry> classes, HMODULE module) noexcept;

}  // namespace cuvexa::com
