// One connection of a client: its socket, and TLS on it where the service has a certificate.
#pragma once

#include <openssl/ssl.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace cuvexa::service {

using Clock = std::chrono::steady_clock;

struct Free_ssl {
    void operator()(SSL* ssl) const { SSL_free(ssl); }
};

/// Never waits by itself but in `receive` and `send` with a time to wait until.
class Peer {
public:
    /// What an attempt that does not wait came to.
    enum class Step { done, wants_read, wants_write, over };

    /// Takes the socket over; `context` is null without TLS.
    Peer(int socket, SSL_CTX* context);
    ~Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    int socket() const { return socket_; }
    const std::string& address() const { return address_; }

    /// Goes on with what has come so far: the handshake, then bytes, until `most` of them are held. `done`: there may be
    /// more at once.
    Step advance(std::size_t most);

    /// The bytes that have come and were not yet taken.
    std::string_view held() const { return std::string_view(received_).substr(taken_); }

    /// Takes bytes, those that have come first; waits for them until then. 0 at the end, -1 on failure or too late.
    long take(char* bytes, std::size_t size, Clock::time_point until);

    /// Sends all of them. False on failure or too late.
    bool send(const char* bytes, std::size_t size, Clock::time_point until);

    /// Says goodbye; the destructor closes.
    void finish();

private:
    Step shake_hands();
    Step result_of(int code);
    long read_some(char* bytes, std::size_t size, Step& step);
    bool wait_for(Step step, Clock::time_point until) const;

    int socket_;
    std::unique_ptr<SSL, Free_ssl> ssl_;
    bool shaken_ = false;
    std::string received_;
    std::size_t taken_ = 0;
    std::string address_;
};

}  // namespace cuvexa::service
