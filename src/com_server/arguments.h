// Arguments and results of late-bound calls.
//
// Numbers, dates and texts convert as automation converts. A record comes as the system's record variant or as any
// object that has properties named like the members of the record, nested records being such objects again: script
// languages, which know no records, pass those. What a member changes by reference goes back to where the argument
// points, and into the properties of a script's object.
#pragma once

#include "automation/members.h"
#include "com/values.h"

namespace cuvexa::com_server {

using namespace automation;
using namespace com;

/// The argument in the parameter's exact type; `Missing` when it was left out. Throws `Result_error`.
Variant argument(const VARIANT& given, const Value_type& type, LCID locale);

/// Puts a changed value back to where a by-reference argument, or a script's object, is.
void give_back(Variant& value, const Value_type& type, VARIANT& given, LCID locale);

/// A result as a variant of its own.
Any result_of(Variant& value, const Value_type& type);

/// Fills a record from the properties of an object. A property that the object lacks leaves the member empty; one that
/// lacks them all is refused. Throws `Result_error` (DISP_E_TYPEMISMATCH).
void read_properties(const Pointer<IDispatch>& object, Record_place record, LCID locale);

/// Lets the properties that the object has.
void write_properties(const Pointer<IDispatch>& object, Record_place record);

}  // namespace cuvexa::com_server
