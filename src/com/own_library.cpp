#include "com/own_library.h"

#include "com/failures.h"
#include "com/registration.h"
#include "com_server/identifiers.h"

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

Pointer<IRecordInfo> record_info(const Record_type& type) {
    const auto described = own_type(record_id(type));
    if (!described)
        throw Result_error(TYPE_E_ELEMENTNOTFOUND, "no description of the record " + std::string(type.name));
    Pointer<IRecordInfo> info;
    check(GetRecordInfoFromTypeInfo(described.get(), info.receive()));
    return info;
}

}  // namespace cuvexa::com
