// Tells who started the service that it is ready, or about to end (the protocol of systemd).
#pragma once

#include <string_view>

namespace cuvexa::service {

/// Sends "READY=1" or the like to the socket that NOTIFY_SOCKET names; nothing when there is none.
void notify(std::string_view state);

}  // namespace cuvexa::service
