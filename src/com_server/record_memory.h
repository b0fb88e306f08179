// Values and records in the memory of a client, in the layout that the type library publishes. Texts are copied, at any
// depth: what is read here is independent of the memory, what is written there belongs to it.
#pragma once

#include "automation/variant.h"
#include "com/memory.h"

namespace cuvexa::com_server {

using namespace automation;
using namespace com;

/// Reads the record at `memory` into one of the same type.
void read_record(const void* memory, Record_place record);

/// Writes the record to `memory`.
void write_record(Record_place record, void* memory, Before before);

/// The value of that type at `memory`; an object must be of this library, or null. Throws `Result_error`
/// (DISP_E_TYPEMISMATCH) for an object of another.
Variant read_value(const Value_type& type, const void* memory);

/// Writes a value of that type to `memory`; an object is written as a reference that the memory owns.
void write_value(const Value_type& type, Variant& value, void* memory, Before before);

}  // namespace cuvexa::com_server
