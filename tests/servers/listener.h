// What a test puts in a server's place on the loopback interface.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace cuvexa::tests {

/// A socket, closed in the end.
class Socket {
public:
    explicit Socket(int descriptor) : descriptor_(descriptor) {
        if (descriptor < 0) throw std::runtime_error("no socket");
    }
    Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    ~Socket() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    int get() const noexcept { return descriptor_; }

    /// Whether something is to be read, or the other side has gone, within that time.
    bool ready(int wait_ms) const {
        pollfd asked{descriptor_, POLLIN, 0};
        return poll(&asked, 1, wait_ms) > 0;
    }

private:
    int descriptor_;
};

inline sockaddr_in loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// Listens on a free port.
class Listener {
public:
    Listener() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address = loopback(0);
        socklen_t size = sizeof address;
        auto* const any = reinterpret_cast<sockaddr*>(&address);
        if (bind(socket_.get(), any, size) != 0 || listen(socket_.get(), 4) != 0 ||
            getsockname(socket_.get(), any, &size) != 0) {
            throw std::runtime_error("no port to listen on");
        }
        port_ = ntohs(address.sin_port);
    }

    int port() const noexcept { return port_; }
    bool ready(int wait_ms) const { return socket_.ready(wait_ms); }
    Socket accept() const { return Socket(::accept(socket_.get(), nullptr, nullptr)); }

private:
    Socket socket_;
    int port_ = 0;
};

/// Stands before a server and passes on what both sides say; frozen, it takes everything and passes nothing on, as a server
/// does that hangs; after 20 seconds it hangs up. One connection.
class Relay {
public:
    explicit Relay(int server_port) : thread_([this, server_port] { pass_on(server_port); }) {}
    ~Relay() {
        over_ = true;
        thread_.join();
    }
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    int port() const noexcept { return listener_.port(); }
    void freeze() noexcept { frozen_ = true; }

private:
    void pass_on(int server_port) {
        while (!listener_.ready(20)) {
            if (over_) return;
        }
        const Socket client = listener_.accept();
        const Socket server(socket(AF_INET, SOCK_STREAM, 0));
        const sockaddr_in address = loopback(server_port);
        if (connect(server.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return;
        int frozen_rounds = 0;
        while (!over_ && frozen_rounds < 1000) {
            if (frozen_) ++frozen_rounds;
            std::array<pollfd, 2> ends{pollfd{client.get(), POLLIN, 0}, pollfd{server.get(), POLLIN, 0}};
            poll(ends.data(), frozen_ ? 1 : 2, 20);
            if (ends[0].revents != 0 && !carry(client, server)) return;
            if (!frozen_ && ends[1].revents != 0 && !carry(server, client)) return;
        }
    }

    bool carry(const Socket& from, const Socket& to) {
        std::array<char, 65536> bytes;
        const auto size = recv(from.get(), bytes.data(), bytes.size(), 0);
        if (size <= 0) return false;
        return frozen_ || send(to.get(), bytes.data(), static_cast<std::size_t>(size), MSG_NOSIGNAL) == size;
    }

    Listener listener_;
    std::atomic<bool> frozen_ = false, over_ = false;
    std::thread thread_;
};

}  // namespace cuvexa::tests
