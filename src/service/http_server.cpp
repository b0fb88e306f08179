#include "service/http_server.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <functional>
#include <iterator>
#include <stdexcept>

namespace cuvexa::service {

namespace {

// How often those that wait too long are looked for.
constexpr std::chrono::milliseconds rest{250};
constexpr std::string_view end_of_head = "\r\n\r\n";

bool holds_head(const Peer& peer) {
    return peer.held().find(end_of_head) != std::string_view::npos;
}

/// Runs what the accepting thread is given at once: it only puts the connection into line.
class At_once final : public httplib::TaskQueue {
public:
    void enqueue(std::function<void()> task) override { task(); }
    void shutdown() override {}
};

/// What is known of the request that this thread answers.
struct Exchange {
    bool understood = false;  ///< it is a request
    bool has_body = false;
    bool body_read = false;
};
thread_local Exchange exchange;

/// A connection as cpp-httplib sees it during one request.
class Peer_stream final : public httplib::Stream {
public:
    Peer_stream(Peer& peer, const Http_limits& limits)
        : peer_(peer), limits_(limits), read_until_(Clock::now() + limits.body) {}

    bool is_readable() const override { return true; }
    bool is_writable() const override { return true; }

    ssize_t read(char* bytes, std::size_t size) override { return peer_.take(bytes, size, read_until_); }

    ssize_t write(const char* bytes, std::size_t size) override {
        return peer_.send(bytes, size, Clock::now() + limits_.answer) ? static_cast<ssize_t>(size) : -1;
    }

    void get_remote_ip_and_port(std::string& ip, int& port) const override {
        ip = peer_.address();
        port = 0;
    }
    void get_local_ip_and_port(std::string&, int&) const override {}

    // The library refuses a number that `select` could not take; nothing here calls it.
    socket_t socket() const override { return 0; }

private:
    Peer& peer_;
    const Http_limits& limits_;
    Clock::time_point read_until_;
};

bool announces_body(const httplib::Request& request) {
    return request.has_header("Content-Length") || request.has_header("Transfer-Encoding");
}

// What the library would do by itself and a service of money has no use for: parts of an answer, compression (which
// tells secrets by their length).
void prepare(httplib::Request& request) {
    exchange.understood = true;
    exchange.has_body = announces_body(request);
    request.headers.erase("Accept-Encoding");
    request.headers.erase("Range");
    request.ranges.clear();
}

}  // namespace

Http_server::Http_server(const Http_limits& limits, SSL_CTX* tls)
    : limits_(limits), tls_(tls), events_(epoll_create1(EPOLL_CLOEXEC)), bell_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (events_ < 0 || bell_ < 0) throw std::runtime_error("No es posible esperar conexiones");
    epoll_event event{EPOLLIN, {.fd = bell_}};
    epoll_ctl(events_, EPOLL_CTL_ADD, bell_, &event);
    new_task_queue = [] { return new At_once; };
    set_keep_alive_timeout(limits.idle.count());
    set_keep_alive_max_count(1'000'000);
    // Two services on one port would share its connections without a word.
    set_socket_options([](int socket) {
        const int on = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    });
}

Http_server::~Http_server() {
    ::close(bell_);
    ::close(events_);
}

int Http_server::bind(const std::string& host, int port) {
    const int bound = port == 0 ? bind_to_any_port(host) : bind_to_port(host, port) ? port : -1;
    if (bound <= 0) throw std::runtime_error("No es posible escuchar en " + host + ':' + std::to_string(port));
    ::listen(svr_sock_, SOMAXCONN);  // the library's own queue holds five
    return bound;
}

void Http_server::serve() {
    std::thread watcher([this] { watch(); });
    std::vector<std::thread> workers;
    for (std::size_t i = 0; i < limits_.workers; ++i) workers.emplace_back([this] { work(); });
    serving_ = true;
    if (!stopping_) listen_after_bind();
    serving_ = false;
    stopping_ = true;
    wake();
    watcher.join();
    {
        const std::lock_guard lock(mutex_);
        over_ = true;
    }
    ready_.notify_all();
    for (std::thread& worker : workers) worker.join();
}

void Http_server::end() {
    stopping_ = true;
    while (serving_ && !is_running()) std::this_thread::yield();  // it is about to accept
    stop();
}

void Http_server::body_was_read() {
    exchange.body_read = true;
}

// ---- Those that wait ------------------------------------------------------------------------------------------------

bool Http_server::process_and_close_socket(int socket) {
    ++open_;
    wait_again(std::make_unique<Peer>(socket, tls_));
    return true;
}

void Http_server::wait_again(std::unique_ptr<Peer> peer) {
    {
        const std::lock_guard lock(door_);
        newcomers_.push_back(std::move(peer));
    }
    wake();
}

void Http_server::wake() const {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(bell_, &one, sizeof one);
}

void Http_server::watch() {
    std::array<epoll_event, 256> events;
    while (!stopping_) {
        const int count =
            epoll_wait(events_, events.data(), static_cast<int>(events.size()), static_cast<int>(rest.count()));
        for (int i = 0; i < count; ++i) {
            const auto found = by_socket_.find(events[static_cast<std::size_t>(i)].data.fd);
            if (found != by_socket_.end()) look_at(found->second);
        }
        std::uint64_t rung = 0;
        [[maybe_unused]] const auto taken = ::read(bell_, &rung, sizeof rung);
        std::vector<std::unique_ptr<Peer>> newcomers;
        {
            const std::lock_guard lock(door_);
            newcomers.swap(newcomers_);
        }
        for (auto& peer : newcomers) take_in(std::move(peer));
        drop_late();
    }
    while (!line_.empty()) drop(line_.begin());
}

void Http_server::take_in(std::unique_ptr<Peer> peer) {
    const int socket = peer->socket();
    line_.push_back({std::move(peer), Clock::now() + limits_.idle});
    const auto waiting = std::prev(line_.end());
    by_socket_[socket] = waiting;
    if (!arm(waiting, Peer::Step::wants_read, EPOLL_CTL_ADD)) return drop(waiting);
    look_at(waiting);
    while (line_.size() > limits_.connections) drop(line_.begin());
}

bool Http_server::arm(Line::iterator waiting, Peer::Step step, int operation) {
    const int socket = waiting->peer->socket();
    epoll_event event{step == Peer::Step::wants_write ? EPOLLOUT : EPOLLIN, {.fd = socket}};
    event.events |= EPOLLONESHOT | EPOLLRDHUP;
    return epoll_ctl(events_, operation, socket, &event) == 0;
}

void Http_server::look_at(Line::iterator waiting) {
    Peer& peer = *waiting->peer;
    const Peer::Step step = peer.advance(limits_.head_bytes);
    if (holds_head(peer) || peer.held().size() >= limits_.head_bytes) return hand_over(leave(waiting));
    if (step == Peer::Step::over) return drop(waiting);
    if (!waiting->begun && !peer.held().empty()) {
        waiting->begun = true;
        waiting->until = Clock::now() + limits_.head;
    }
    if (!arm(waiting, step, EPOLL_CTL_MOD)) drop(waiting);
}

std::unique_ptr<Peer> Http_server::leave(Line::iterator waiting) {
    std::unique_ptr<Peer> peer = std::move(waiting->peer);
    epoll_ctl(events_, EPOLL_CTL_DEL, peer->socket(), nullptr);
    by_socket_.erase(peer->socket());
    line_.erase(waiting);
    return peer;
}

void Http_server::drop(Line::iterator waiting) {
    close(leave(waiting));
}

void Http_server::drop_late() {
    const auto now = Clock::now();
    if (now < next_look_) return;
    next_look_ = now + rest;
    for (auto waiting = line_.begin(); waiting != line_.end();) {
        const auto next = std::next(waiting);
        if (waiting->until <= now) drop(waiting);
        waiting = next;
    }
}

void Http_server::close(std::unique_ptr<Peer> peer) {
    peer->finish();
    peer.reset();
    --open_;
}

// ---- Those that are answered ----------------------------------------------------------------------------------------

void Http_server::hand_over(std::unique_ptr<Peer> peer) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(peer));
    }
    ready_.notify_one();
}

void Http_server::work() {
    for (;;) {
        std::unique_ptr<Peer> peer;
        {
            std::unique_lock lock(mutex_);
            ready_.wait(lock, [&] { return over_ || !jobs_.empty(); });
            if (jobs_.empty()) return;
            peer = std::move(jobs_.front());
            jobs_.pop_front();
        }
        bool goes_on = answer(*peer);
        // What a client sent ahead is there already.
        while (goes_on && !stopping_ && holds_head(*peer)) goes_on = answer(*peer);
        if (goes_on && !stopping_) {
            wait_again(std::move(peer));
        } else {
            close(std::move(peer));
        }
    }
}

bool Http_server::answer(Peer& peer) {
    exchange = {};
    Peer_stream stream(peer, limits_);
    bool closed = false;
    const bool written = process_request(stream, stopping_, closed, prepare);
    return written && !closed && exchange.understood && (!exchange.has_body || exchange.body_read);
}

}  // namespace cuvexa::service
