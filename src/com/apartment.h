// What the component holds for each apartment: one module, that is one set of services and cached parameters.
#pragma once

#include <functional>
#include <memory>

#include "cuvexa/module.h"

namespace cuvexa::com {

/// The module of the current thread's apartment. The first call in an apartment makes it; it lives until the apartment
/// ends or `forget_module` is called, and as long as anybody holds it. Throws what `make` throws; the next call then tries
/// again.
std::shared_ptr<Module> module_of_apartment(const std::function<std::shared_ptr<Module>()>& make);

/// Lets go of the current thread's module, when nobody else holds it. True when the thread has none afterwards.
bool forget_module() noexcept;

/// Modules that apartments hold.
long modules_alive() noexcept;

}  // namespace cuvexa::com
