#include "com_server/record_values.h"

namespace cuvexa::com_server {
namespace {

struct Value_at {
    template <class T>
    Variant operator()(const T* place) const {
        return Variant(std::in_place_type<T>, *place);
    }
    Variant operator()(Record_place place) const {
        Record record = place.type->create();
        copy_record(place, place_of(record));
        return record;
    }
};

struct Assign {
    const Variant& value;
    template <class T>
    void operator()(T* place) const {
        *place = std::get<T>(value);
    }
    void operator()(Record_place place) const {
        Record record = std::get<Record>(value);
        copy_record(place_of(record), place);
    }
};

}  // namespace

Variant value_at(const Place& place) {
    return std::visit(Value_at(), place);
}

void assign(const Place& place, const Variant& value) {
    std::visit(Assign{value}, place);
}

void copy_record(Record_place from, Record_place to) {
    for (const Field& field : from.type->fields) assign(field.place(to.record), value_at(field.place(from.record)));
}

}  // namespace cuvexa::com_server
