// An object of one of the published classes, as automation clients hold it: its virtual table and its dispatch are made
// from the class's table of members.
#pragma once

#include <memory>

#include "automation/members.h"
#include "com/pointers.h"

namespace cuvexa::com_server {

using namespace automation;
using namespace com;

/// The object as clients hold it; null for a null one. `keeps` lives as long as any reference to it.
Pointer<IDispatch> published(Object object, std::shared_ptr<void> keeps = {});

/// The object behind what a client hands over; null for a null one. Throws `Result_error` (DISP_E_TYPEMISMATCH) when it
/// was not published by this library.
Object object_behind(IUnknown* client_object);

}  // namespace cuvexa::com_server
