#include "com_server/record_memory.h"

#include <cstring>

#include "com_server/published_object.h"
#include "com_server/record_layout.h"

namespace cuvexa::com_server {
namespace {

template <class T>
T load(const void* memory) {
    T value;
    std::memcpy(&value, memory, sizeof value);  // an 8-byte member may stand on a 4-byte boundary
    return value;
}

template <class T>
void store(void* memory, T value) {
    std::memcpy(memory, &value, sizeof value);
}

void store_text(const std::string& text, void* memory, Before before) {
    BSTR fresh = new_string(text);
    if (before == Before::a_value) SysFreeString(load<BSTR>(memory));
    store(memory, fresh);
}

struct Reader {
    const void* memory;
    void operator()(bool* value) const { *value = load<VARIANT_BOOL>(memory) != VARIANT_FALSE; }
    void operator()(double* value) const { *value = load<double>(memory); }
    void operator()(Date* value) const { value->days = load<DATE>(memory); }
    void operator()(std::string* value) const { *value = text_of(load<BSTR>(memory)); }
    void operator()(Record_place record) const { read_record(memory, record); }
};

struct Writer {
    void* memory;
    Before before;
    void operator()(const bool* value) const { store(memory, *value ? VARIANT_TRUE : VARIANT_FALSE); }
    void operator()(const double* value) const { store(memory, *value); }
    void operator()(const Date* value) const { store(memory, value->days); }
    void operator()(const std::string* value) const { store_text(*value, memory, before); }
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
    switch (type.type) {
        case Type::boolean:
            return load<VARIANT_BOOL>(memory) != VARIANT_FALSE;
        case Type::integer16:
            return load<std::int16_t>(memory);
        case Type::real:
            return load<double>(memory);
        case Type::date:
            return Date{load<DATE>(memory)};
        case Type::text:
            return text_of(load<BSTR>(memory));
        case Type::record: {
            Record record = type.record->create();
            read_record(memory, place_of(record));
            return record;
        }
        case Type::object:
            return object_behind(load<IUnknown*>(memory));
        case Type::none:
            break;
    }
    return {};
}

void write_value(const Value_type& type, Variant& value, void* memory, Before before) {
    switch (type.type) {
        case Type::boolean:
            return store(memory, std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE);
        case Type::integer16:
            return store(memory, std::get<std::int16_t>(value));
        case Type::real:
            return store(memory, std::get<double>(value));
        case Type::date:
            return store(memory, std::get<Date>(value).days);
        case Type::text:
            return store_text(std::get<std::string>(value), memory, before);
        case Type::record:
            return write_record(place_of(std::get<Record>(value)), memory, before);
        case Type::object: {
            IUnknown* fresh = published(std::get<Object>(value)).release();
            if (IUnknown* old = before == Before::a_value ? load<IUnknown*>(memory) : nullptr) old->Release();
            return store(memory, fresh);
        }
        case Type::none:
            return;
    }
}

}  // namespace cuvexa::com_server
