// The published classes as they are met from outside: objects whose members are late-bound calls on Cuvexa.dll.
#pragma once

#include "automation/members.h"
#include "com/pointers.h"

namespace cuvexa::tests {

using namespace automation;

/// A new object of the class with that name, created by the system as a program of another language creates it; null
/// when there is no such class.
Object new_remote_object(std::string_view class_name);

/// The class's members by name and identifier, each passed on to an object behind `IDispatch`.
Object remote(com::Pointer<IDispatch> object, std::string_view class_name);

}  // namespace cuvexa::tests
