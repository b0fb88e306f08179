#include "service/notify.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace cuvexa::service {

void notify(std::string_view state) {
    const char* const name = std::getenv("NOTIFY_SOCKET");
    sockaddr_un address{};
    if (name == nullptr || std::strlen(name) >= sizeof address.sun_path) return;
    address.sun_family = AF_UNIX;
    std::strcpy(address.sun_path, name);
    if (name[0] == '@') address.sun_path[0] = '\0';  // a name that is no file
    const int handle = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (handle < 0) return;
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + std::strlen(name));
    sendto(handle, state.data(), state.size(), MSG_NOSIGNAL, reinterpret_cast<sockaddr*>(&address), size);
    close(handle);
}

}  // namespace cuvexa::service
