// `cuvexa serve` as a process of its own, on the company of the test.
#pragma once

#include <signal.h>
#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "service/running_service.h"
#include "support/places.h"

namespace cuvexa::tests {

inline const std::string program = in_build("bin/cuvexa");

class Service_program : public Running_service {
protected:
    void SetUp() override {
        Running_service::SetUp();
        notified_ = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::snprintf(address.sun_path, sizeof address.sun_path, "%s", notify_path().c_str());
        ASSERT_EQ(bind(notified_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    void TearDown() override {
        if (process_ > 0) kill(process_, SIGKILL);
        close(notified_);
        Running_service::TearDown();
    }

    std::string notify_path() const { return (folder / "notify").string(); }
    std::string log_path() const { return (folder / "log").string(); }

    /// What the program tells its starter next.
    std::string notification() const {
        std::array<char, 100> text{};
        const ssize_t size = recv(notified_, text.data(), text.size(), 0);
        return {text.data(), static_cast<std::size_t>(size)};
    }

    void launch() {
        process_ = fork();
        if (process_ == 0) {
            setenv("NOTIFY_SOCKET", notify_path().c_str(), 1);
            if (std::freopen(log_path().c_str(), "w", stderr) == nullptr) _exit(127);
            execl(program.c_str(), "cuvexa", "serve", "--db", (folder / "company.db").c_str(), "--tokens",
                  options.tokens.c_str(), "--listen", ("127.0.0.1:" + std::to_string(port)).c_str(), "--server-date",
                  "2024-03-15", nullptr);
            _exit(127);
        }
    }

    std::string log_text() const {
        std::ifstream in(log_path());
        return {std::istreambuf_iterator<char>(in), {}};
    }

    int told_port() const {
        const std::string line = log_text();
        return std::stoi(line.substr(line.find(':', line.find("127.0.0.1")) + 1));
    }

    int ended() {
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int port = 0;  ///< to listen on; 0: one that is free
    int notified_ = -1;
    pid_t process_ = -1;
};

}  // namespace cuvexa::tests
