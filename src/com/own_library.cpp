#include "com/own_library.h"

#include "com/registration.h"

namespace cuvexa::com {

Pointer<ITypeLib> own_library() {
    Pointer<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(wide(path_of(this_module())).c_str(), REGKIND_NONE, library.receive()))) return nullptr;
    return library;
}

Pointer<ITypeInfo> own_type(const GUID& id) {
    Pointer<ITypeInfo> type;
    const auto library = own_library();
    if (!library || FAILED(library->GetTypeInfoOfGuid(id, type.receive()))) return nullptr;
    return type;
}

}  // namespace cuvexa::com
