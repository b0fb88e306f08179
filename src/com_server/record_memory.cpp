#include "com_server/record_memory.h"

#include "com_server/published_object.h"
#include "com_server/record_layout.h"
#include "com_server/types.h"

namespace cuvexa::com_server {
namespace {

struct Reader {
    const void* memory;
    template <class T>
    void operator()(T* value) const {
        *value = load<T>(memory);
    }
    void operator()(Record_place record) const { read_record(memory, record); }
};

struct Writer {
    void* memory;
    Before before;
    template <class T>
    void operator()(const T* value) const {
        store(*value, memory, before);
    }
    void operator()(Record_place record) const { write_record(record, memory, before); }
};

}  // namespace

void read_record(const void* memory, Record_place record) {
    for (std::size_t at = 0; at < record.type->fields.size(); ++at) {
        const auto offset = offset_in_record(*record.type, at, sizeof(void*));
        std::visit(Reader{static_cast<const char*>(memory) + offset}, record.type->fields[at].place(record.record));
    }
}

void write_record(Record_place record, void* memory, Before before) {
    if (before == Before::nothing) std::memset(memory, 0, size_of_record(*record.type, sizeof(void*)));
    for (std::size_t at = 0; at < record.type->fields.size(); ++at) {
        const auto offset = offset_in_record(*record.type, at, sizeof(void*));
        std::visit(Writer{static_cast<char*>(memory) + offset, Before::a_value},
                   record.type->fields[at].place(record.record));
    }
}

Variant read_value(const Value_type& type, const void* memory) {
    return with_type(type.type, [&](auto held) -> Variant {
        using T = typename decltype(held)::type;
        if constexpr (std::is_same_v<T, Missing>) {
            return {};
        } else if constexpr (std::is_same_v<T, Record>) {
            Record record = type.record->create();
            read_record(memory, place_of(record));
            return record;
        } else if constexpr (std::is_same_v<T, Object>) {
            return object_behind(load<Pointer<IDispatch>>(memory).get());
        } else {
            return load<T>(memory);
        }
    });
}

void write_value(const Value_type& type, Variant& value, void* memory, Before before) {
    with_type(type.type, [&](auto held) {
        using T = typename decltype(held)::type;
        if constexpr (std::is_same_v<T, Record>) {
            write_record(place_of(std::get<Record>(value)), memory, before);
        } else if constexpr (std::is_same_v<T, Object>) {
            store(published(std::get<Object>(value)), memory, before);
        } else if constexpr (!std::is_same_v<T, Missing>) {
            store(std::get<T>(value), memory, before);
        }
    });
}

}  // namespace cuvexa::com_server
