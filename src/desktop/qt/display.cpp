#include "desktop/qt/display.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

#ifdef __unix__
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

namespace cuvexa::qt {

#ifdef __unix__
namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Whether somebody listens at the socket of that path; `abstract`: in the name space of Linux without files.
bool answers(const std::string& path, bool abstract) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() + 2 > sizeof address.sun_path) return false;
    std::memcpy(address.sun_path + (abstract ? 1 : 0), path.data(), path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0) return false;
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() + (abstract ? 1 : 0));
    const bool connected = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), length) == 0;
    ::close(socket);
    return connected;
}

/// A display of another machine (before the colon stands its name) is believed; one of this machine is tried.
bool x_display_answers(const std::string& display) {
    const auto colon = display.rfind(':');
    if (colon == std::string::npos) return false;
    if (colon != 0 && display.compare(0, colon, "unix") != 0) return true;
    const std::string number = display.substr(colon + 1, display.find('.', colon) - colon - 1);
    const std::string path = "/tmp/.X11-unix/X" + number;
    return answers(path, true) || answers(path, false);
}

bool wayland_answers(const std::string& display) {
    return answers(display.front() == '/' ? display : variable("XDG_RUNTIME_DIR") + "/" + display, false);
}

}  // namespace

std::string missing_display() {
    const std::string platform = variable("QT_QPA_PLATFORM");
    if (!platform.empty() && !platform.starts_with("xcb") && !platform.starts_with("wayland")) return "";
    const std::string x = variable("DISPLAY");
    const std::string wayland = variable("WAYLAND_DISPLAY");
    if (x.empty() && wayland.empty()) return "no hay pantalla (DISPLAY y WAYLAND_DISPLAY están vacías).";
    if (!wayland.empty() && wayland_answers(wayland)) return "";
    if (!x.empty() && x_display_answers(x)) return "";
    return "la pantalla " + (x.empty() ? wayland : x) + " no responde.";
}

#else

std::string missing_display() {
    return "";
}

#endif

}  // namespace cuvexa::qt
