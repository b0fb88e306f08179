#include "com_server/record_layout.h"

#include "com_server/types.h"

namespace cuvexa::com_server {
namespace {

std::size_t aligned(std::size_t size) {
    return (size + record_alignment - 1) / record_alignment * record_alignment;
}

}  // namespace

std::size_t size_in_record(const Value_type& type, std::size_t pointer_size) {
    return type.type == Type::record ? size_of_record(*type.record, pointer_size) : facts_of(type).bytes(pointer_size);
}

std::size_t size_of_record(const Record_type& record, std::size_t pointer_size) {
    return offset_in_record(record, record.fields.size(), pointer_size);
}

std::size_t offset_in_record(const Record_type& record, std::size_t field, std::size_t pointer_size) {
    std::size_t offset = 0;
    for (const Field& before : record.fields.first(field)) offset += aligned(size_in_record(before.type, pointer_size));
    return offset;
}

}  // namespace cuvexa::com_server
