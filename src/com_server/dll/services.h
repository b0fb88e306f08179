// Which suite the component works with.
#pragma once

#include <memory>

#include "cuvexa/module.h"

namespace cuvexa::com_server {

/// A module over the suite that is registered on this machine, or over the reference suite when there is none. Throws what
/// the services throw.
std::shared_ptr<Module> start_module();

}  // namespace cuvexa::com_server
