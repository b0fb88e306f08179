// The members of records as variants.
#pragma once

#include "automation/variant.h"

namespace cuvexa::com_server {

using namespace automation;

/// The value at a place; of a record, a copy.
Variant value_at(const Place& place);

/// Lets a place take a value of its exact type. A record is taken member by member, so that what refers to a part of it
/// stays valid.
void assign(const Place& place, const Variant& value);

/// Lets a record take the members of another of the same type.
void copy_record(Record_place from, Record_place to);

}  // namespace cuvexa::com_server
