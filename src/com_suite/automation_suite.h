// The suite's services as automation objects give them.
#pragma once

#include <memory>

#include "com_suite/suite_objects.h"
#include "cuvexa/services.h"

namespace cuvexa::com_suite {

/// The suite behind those objects, called by name; which members they must have is told in docs/suite-automation.md. An
/// object is created when its service is first asked for: once for the services that a module shares, and anew for each
/// use of payables, receivables and accounting. What an object raises is thrown as `Automation_error` with its number
/// and description, from the connection as `Database_error`; another failing result code as `Result_error`. Used on the
/// thread that made it.
std::shared_ptr<Suite> make_automation_suite(const Suite_objects& objects);

}  // namespace cuvexa::com_suite
