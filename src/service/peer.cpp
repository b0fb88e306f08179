#include "service/peer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/err.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace cuvexa::service {

namespace {

std::string address_of(int socket) {
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    if (getpeername(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) return {};
    std::array<char, INET6_ADDRSTRLEN> text{};
    const void* bytes = address.ss_family == AF_INET6
                            ? static_cast<const void*>(&reinterpret_cast<sockaddr_in6*>(&address)->sin6_addr)
                            : static_cast<const void*>(&reinterpret_cast<sockaddr_in*>(&address)->sin_addr);
    return inet_ntop(address.ss_family, bytes, text.data(), text.size()) == nullptr ? std::string() : text.data();
}

}  // namespace

Peer::Peer(int socket, SSL_CTX* context) : socket_(socket), shaken_(context == nullptr), address_(address_of(socket)) {
    fcntl(socket_, F_SETFL, fcntl(socket_, F_GETFL) | O_NONBLOCK);
    const int on = 1;
    setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    if (context == nullptr) return;
    ssl_.reset(SSL_new(context));
    if (ssl_) {
        SSL_set_fd(ssl_.get(), socket_);
        SSL_set_accept_state(ssl_.get());
    }
}

Peer::~Peer() {
    ssl_.reset();
    close(socket_);
}

Peer::Step Peer::result_of(int code) {
    switch (SSL_get_error(ssl_.get(), code)) {
        case SSL_ERROR_WANT_READ:
            return Step::wants_read;
        case SSL_ERROR_WANT_WRITE:
            return Step::wants_write;
        default:
            return Step::over;
    }
}

Peer::Step Peer::shake_hands() {
    if (shaken_) return Step::done;
    if (!ssl_) return Step::over;
    ERR_clear_error();
    const int code = SSL_do_handshake(ssl_.get());
    if (code != 1) return result_of(code);
    shaken_ = true;
    return Step::done;
}

long Peer::read_some(char* bytes, std::size_t size, Step& step) {
    step = Step::done;
    if (ssl_) {
        ERR_clear_error();
        const int count = SSL_read(ssl_.get(), bytes, static_cast<int>(size));
        if (count <= 0) step = result_of(count);
        return count;
    }
    const ssize_t count = recv(socket_, bytes, size, 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
        step = Step::wants_read;
    } else if (count <= 0) {
        step = Step::over;
    }
    return count;
}

Peer::Step Peer::advance(std::size_t most) {
    if (const Step step = shake_hands(); step != Step::done) return step;
    std::array<char, 16'384> bytes;
    received_.erase(0, taken_);
    taken_ = 0;
    while (received_.size() < most) {
        Step step = Step::done;
        const long count = read_some(bytes.data(), std::min(bytes.size(), most - received_.size()), step);
        if (step != Step::done) return step;
        received_.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return Step::done;
}

bool Peer::wait_for(Step step, Clock::time_point until) const {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now()).count();
    if (step == Step::over || left <= 0) return false;
    pollfd wanted{socket_, static_cast<short>(step == Step::wants_write ? POLLOUT : POLLIN), 0};
    const int ready = poll(&wanted, 1, static_cast<int>(left));
    return ready > 0 || (ready < 0 && errno == EINTR);
}

long Peer::take(char* bytes, std::size_t size, Clock::time_point until) {
    if (taken_ < received_.size()) {
        const std::size_t count = received_.copy(bytes, size, taken_);
        taken_ += count;
        return static_cast<long>(count);
    }
    for (;;) {
        Step step = Step::done;
        const long count = read_some(bytes, size, step);
        if (step == Step::done) return count;
        if (!wait_for(step, until)) return -1;
    }
}

bool Peer::send(const char* bytes, std::size_t size, Clock::time_point until) {
    while (size > 0) {
        Step step = Step::done;
        long count = 0;
        if (ssl_) {
            ERR_clear_error();
            count = SSL_write(ssl_.get(), bytes, static_cast<int>(std::min<std::size_t>(size, 1 << 30)));
            if (count <= 0) step = result_of(static_cast<int>(count));
        } else {
            count = ::send(socket_, bytes, size, MSG_NOSIGNAL);
            if (count < 0) step = errno == EAGAIN || errno == EINTR ? Step::wants_write : Step::over;
        }
        if (step != Step::done) {
            if (!wait_for(step, until)) return false;
            continue;
        }
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

void Peer::finish() {
    if (ssl_ && shaken_) {
        ERR_clear_error();
        SSL_shutdown(ssl_.get());
    }
    shutdown(socket_, SHUT_WR);
}

}  // namespace cuvexa::service
