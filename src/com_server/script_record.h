// Records for languages that know none: an object whose properties are the members of the record.
#pragma once

#include <memory>

#include "automation/record_table.h"
#include "com/pointers.h"

namespace cuvexa::com_server {

using namespace automation;
using namespace com;

/// An object over an empty record of that type. Besides the members it has
/// - `Leer(object, property)`: takes the values of a record property of another object ("RpEncabezado"), which such
///   languages cannot read by themselves;
/// - `Vaciar()`: empties all members.
Pointer<IDispatch> new_script_record(const Record_type& type);

/// The record behind an object of that kind; null for any other object. It lives as long as the object.
const Record_place* script_record_behind(IUnknown* object);

}  // namespace cuvexa::com_server
