// Where the members of a record stand in the memory that automation clients hand over: one after the other in the
// published order, each on a 4-byte boundary.
#pragma once

#include <cstddef>

#include "automation/record_table.h"

namespace cuvexa::com_server {

using namespace automation;

inline constexpr std::size_t record_alignment = 4;

/// Bytes of a value inside a record, without what fills up to the next boundary; `pointer_size` is 4 or 8.
std::size_t size_in_record(const Value_type& type, std::size_t pointer_size);

/// Bytes of the whole record.
std::size_t size_of_record(const Record_type& record, std::size_t pointer_size);

/// Where the member at that place of the published order begins.
std::size_t offset_in_record(const Record_type& record, std::size_t field, std::size_t pointer_size);

}  // namespace cuvexa::com_server
