// What a library holds for each apartment: one thing, which comes with the first that needs it and goes with the apartment.
#pragma once

#include <functional>
#include <memory>

namespace cuvexa::com {

/// What the current thread's apartment holds. The first call in an apartment makes it; it lives until the apartment ends or
/// `forget_held` is called, and as long as anybody else holds it. Throws what `make` throws; the next call then tries again.
std::shared_ptr<void> held_by_apartment(const std::function<std::shared_ptr<void>()>& make);

/// Lets go of what the current thread's apartment holds, when nobody else holds it. True when it holds nothing afterwards.
bool forget_held() noexcept;

/// Apartments that hold something.
long apartments_holding() noexcept;

}  // namespace cuvexa::com
