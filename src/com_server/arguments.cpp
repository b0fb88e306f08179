#include "com_server/arguments.h"

#include <new>

#include "com/failures.h"
#include "com/late.h"
#include "com/own_library.h"
#include "com_server/identifiers.h"
#include "com_server/published_object.h"
#include "com_server/record_memory.h"
#include "com_server/record_values.h"
#include "com_server/script_record.h"
#include "com_server/types.h"

namespace cuvexa::com_server {
namespace {

[[noreturn]] void refuse(const std::string& what) {
    throw Result_error(DISP_E_TYPEMISMATCH, what);
}

/// The variant itself, when the argument points to one.
const VARIANT& behind(const VARIANT& given) {
    return given.vt == (VT_VARIANT | VT_BYREF) ? *given.pvarVal : given;
}
VARIANT& behind(VARIANT& given) {
    return given.vt == (VT_VARIANT | VT_BYREF) ? *given.pvarVal : given;
}

bool is_object(const VARIANT& value) {
    const VARTYPE type = value.vt & ~VT_BYREF;
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

bool is_system_record(const VARIANT& value) {
    return (value.vt & ~VT_BYREF) == VT_RECORD;
}

/// How the system handles a record of this library.
Pointer<IRecordInfo> record_info(const Record_type& type) {
    const auto described = own_type(record_id(type));
    if (!described) {
        throw Result_error(TYPE_E_ELEMENTNOTFOUND, "no description of the record " + std::string(type.name));
    }
    Pointer<IRecordInfo> info;
    check(GetRecordInfoFromTypeInfo(described.get(), info.receive()));
    return info;
}

/// The memory of a system's record of that type.
void* record_memory(const VARIANT& value, const Record_type& type) {
    GUID id;
    if (!value.pRecInfo || !value.pvRecord || FAILED(value.pRecInfo->GetGuid(&id)) ||
        !IsEqualGUID(id, record_id(type))) {
        refuse("the record must be a " + std::string(type.name));
    }
    return value.pvRecord;
}

Variant record_argument(const VARIANT& given, const Record_type& type, LCID locale) {
    Record record = type.create();
    if (is_system_record(given)) {
        read_record(record_memory(given, type), place_of(record));
    } else if (is_object(given)) {
        read_properties(object_in(given), place_of(record), locale);
    } else {
        refuse("a record " + std::string(type.name) + " is expected");
    }
    return record;
}

Variant object_argument(const VARIANT& given, const Value_type& type) {
    if (given.vt != VT_EMPTY && !is_object(given)) refuse("an object " + std::string(type.class_name) + " is expected");
    return object_behind(object_in(given).get());
}

struct Put {
    Late_object& object;
    std::string_view name;
    template <class T>
    void operator()(const T* place) const {
        object.put(name, *place);
    }
    void operator()(Record_place nested) const;
};

Any property(Late_object& object, std::string_view name) {
    return object.invoke(name, DISPATCH_PROPERTYGET, {});
}

void Put::operator()(Record_place nested) const {
    const Any inner = property(object, name);
    if (is_object(*inner.get())) write_properties(object_in(*inner.get()), nested);
}

}  // namespace

Variant argument(const VARIANT& given, const Value_type& type, LCID locale) {
    if (is_missing(given)) return {};
    const VARIANT& value = behind(given);
    return with_type(type.type, [&](auto held) -> Variant {
        using T = typename decltype(held)::type;
        if constexpr (std::is_same_v<T, Missing>) {
            return {};
        } else if constexpr (std::is_same_v<T, Record>) {
            return record_argument(value, *type.record, locale);
        } else if constexpr (std::is_same_v<T, Object>) {
            return object_argument(value, type);
        } else {
            return value_of<T>(value, locale);
        }
    });
}

void give_back(Variant& value, const Value_type& type, VARIANT& given, LCID locale) {
    if (type.type != Type::record) return com::give_back(given, result_of(value, type), locale);
    VARIANT& target = behind(given);
    const Record_place record = place_of(std::get<Record>(value));
    if (is_object(target)) return write_properties(object_in(target), record);
    // A record that was passed by value belongs to the caller alone.
    if (&target == &given && !(target.vt & VT_BYREF)) return;
    write_record(record, record_memory(target, *type.record), Before::a_value);
}

Any result_of(Variant& value, const Value_type& type) {
    Any result;
    if (type.type == Type::none) return result;
    if (type.type == Type::record) {
        const auto info = record_info(*type.record);
        result->pvRecord = info->RecordCreate();
        if (!result->pvRecord) throw std::bad_alloc();
        result->pRecInfo = Pointer<IRecordInfo>(info).release();
        result->vt = VT_RECORD;
        write_record(place_of(std::get<Record>(value)), result->pvRecord, Before::nothing);
        return result;
    }
    write_value(type, value, &result->llVal, Before::nothing);
    result->vt = facts_of(type).number;
    return result;
}

void read_properties(const Pointer<IDispatch>& object, Record_place record, LCID locale) {
    if (const Record_place* own = script_record_behind(object.get()); own && own->type != record.type) {
        refuse("the record must be a " + std::string(record.type->name));
    }
    Late_object source(object);
    bool any_known = false;
    for (const Field& field : record.type->fields) {
        if (!source || !source.has(field.name)) continue;
        any_known = true;
        const Any value = property(source, field.name);
        const Place place = field.place(record.record);
        if (const auto* nested = std::get_if<Record_place>(&place)) {
            if (value->vt != VT_EMPTY) read_properties(object_in(*value.get()), *nested, locale);
            continue;
        }
        if (value->vt == VT_EMPTY) continue;
        assign(place, argument(*value.get(), field.type, locale));
    }
    if (!any_known) {
        refuse("an object with the members of the record " + std::string(record.type->name) + " is expected");
    }
}

void write_properties(const Pointer<IDispatch>& object, Record_place record) {
    Late_object target(object);
    for (const Field& field : record.type->fields) {
        if (target.has(field.name)) std::visit(Put{target, field.name}, field.place(record.record));
    }
}

}  // namespace cuvexa::com_server
