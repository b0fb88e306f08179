// The type library inside this module.
#pragma once

#include <oaidl.h>

#include "com/pointers.h"

namespace cuvexa::com {

/// The library; null when there is none inside.
Pointer<ITypeLib> own_library();

/// The type of that identifier; null when the library or the type is not there.
Pointer<ITypeInfo> own_type(const GUID& id);

}  // namespace cuvexa::com
