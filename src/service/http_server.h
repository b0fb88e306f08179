// The HTTP server: cpp-httplib reads requests and writes answers; here stands who waits, for how long, and for whom.
//
// A connection waits in one thread, with all others, until the head of a request is there. Only then is a worker given to
// it. So neither ten thousand idle connections nor those that send a head byte by byte keep anybody else waiting.
#pragma once

#include <httplib.h>
#include <openssl/ssl.h>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "service/peer.h"

namespace cuvexa::service {

struct Http_limits {
    std::size_t workers = 144;                ///< requests that are read or answered at once
    std::size_t connections = 12000;          ///< beyond it the longest idle one is closed
    std::size_t head_bytes = 32'768;          ///< of a request's line and headers together
    std::chrono::seconds idle{75};            ///< between two requests
    std::chrono::milliseconds head{10000};    ///< from a head's first byte to its last
    std::chrono::milliseconds body{30000};    ///< for the whole of a body
    std::chrono::milliseconds answer{30000};  ///< for the client to take an answer
};

/// A server of cpp-httplib on which handlers are set as usual. What is no request ends its connection, and so does one
/// whose body a handler leaves unread.
class Http_server final : public httplib::Server {
public:
    /// `tls` is null without TLS.
    Http_server(const Http_limits& limits, SSL_CTX* tls);
    ~Http_server() override;

    /// Binds the address and gives the port, of the service's choice when `port` is 0. Nothing is accepted yet. Throws
    /// `std::runtime_error`.
    int bind(const std::string& host, int port);

    /// Serves until `end`, which another thread may call at any time; then nothing new is accepted, what runs is
    /// finished, and it returns.
    void serve();
    void end();

    /// Connections that are open now.
    std::size_t connections() const { return open_; }

    /// The handler of this thread's request has read its body.
    static void body_was_read();

private:
    struct Waiting {
        std::unique_ptr<Peer> peer;
        Clock::time_point until;  ///< closed then
        bool begun = false;       ///< part of a head has come
    };
    using Line = std::list<Waiting>;  ///< those that came last at the end

    bool process_and_close_socket(int socket) override;

    void watch();
    void wait_again(std::unique_ptr<Peer> peer);
    void take_in(std::unique_ptr<Peer> peer);
    void look_at(Line::iterator waiting);
    bool arm(Line::iterator waiting, Peer::Step step, int operation);
    void drop(Line::iterator waiting);
    std::unique_ptr<Peer> leave(Line::iterator waiting);
    void drop_late();
    void hand_over(std::unique_ptr<Peer> peer);
    void work();
    bool answer(Peer& peer);
    void close(std::unique_ptr<Peer> peer);
    void wake() const;

    Http_limits limits_;
    SSL_CTX* tls_;
    int events_ = -1;
    int bell_ = -1;  ///< tells the watching thread of newcomers and of the end

    std::mutex door_;
    std::vector<std::unique_ptr<Peer>> newcomers_;

    Line line_;  ///< of the watching thread
    std::unordered_map<int, Line::iterator> by_socket_;
    Clock::time_point next_look_{};

    std::mutex mutex_;
    std::condition_variable ready_;
    std::deque<std::unique_ptr<Peer>> jobs_;
    bool over_ = false;
    std::atomic<bool> stopping_ = false;
    std::atomic<bool> serving_ = false;
    std::atomic<std::size_t> open_ = 0;
};

}  // namespace cuvexa::service
