// Clients of a service, as many at once as wanted, that each capture and close receipts of two lines, a request with a key
// for each; and beside it the same operations through `cuvexa rpc`, a program for each client.
//
//   cuvexa_service_load service HOST:PORT TOKEN CLIENTS SECONDS [IDLE]    IDLE further connections send nothing
//   cuvexa_service_load balance HOST:PORT TOKEN CLIENTS SECONDS           each request asks for a balance, without a key
//   cuvexa_service_load rpc CLIENTS SECONDS PROGRAM [ARGUMENT…]
#include <arpa/inet.h>
#include <fcntl.h>
#include <httplib.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Json = nlohmann::json;
using Clock = std::chrono::steady_clock;

Json entry(int id, const char* method, const Json& params) {
    return {{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}};
}

Json member(const char* name) {
    return {{"object", 1}, {"member", name}};
}

Json with(Json params, const char* name, const Json& value) {
    params[name] = value;
    return params;
}

/// The entries before the closing, the last of which gives the header.
std::vector<Json> capture() {
    const Json header{{"Rp_Fecha", "2024-03-15"},
                      {"TipoReciboPago", {{"Trp_Cve_Tipo_Recibo_Pago", "01"}}},
                      {"Sucursal", {{"Sc_Cve_Sucursal", "MTY"}}},
                      {"Mn_Cve_Moneda", "MXN"},
                      {"Rp_Tipo_Cambio", 1}};
    const Json line{{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "01"}}}, {"Rp_Importe", 100}};
    return {entry(2, "call", member("NuevoReciboCaja")),
            entry(3, "let", with(member("RpEncabezado"), "value", header)),
            entry(4, "let", with(member("RpDetalle"), "value", line)),
            entry(5, "call", member("Add_Recibo_Caja_Detalle")),
            entry(6, "call", member("Add_Recibo_Caja_Detalle")),
            entry(7, "get", member("RpEncabezado"))};
}

const Json create = entry(1, "create", {{"class", "Tesoreria"}});

Json closing(const Json& folio) {
    return entry(8, "call", with(member("FinReciboCaja"), "args", Json::array({folio})));
}

// ---- Clients --------------------------------------------------------------------------------------------------------

/// Does the work once; throws when it is refused.
using Client = std::function<void()>;

std::string key(int client, int number) {
    return "load-" + std::to_string(getpid()) + '-' + std::to_string(client) + '-' + std::to_string(number);
}

/// The requests of a client of a service, each sent again while others are in its way.
class Service_client {
public:
    /// Without a key when `number` is negative.
    Service_client(const std::string& address, const std::string& token, const Json& body, int number)
        : http_("http://" + address), body_(body.dump()), token_(token), number_(number) {
        http_.set_keep_alive(true);
        http_.set_tcp_nodelay(true);
        http_.set_read_timeout(60);
    }

    void run() {
        httplib::Headers headers{{"Authorization", "Bearer " + token_}};
        if (number_ >= 0) headers.emplace("Idempotency-Key", key(number_, ++sent_));
        for (;;) {
            const auto answer = http_.Post("/rpc", headers, body_, "application/json");
            if (answer && answer->get_header_value("Cuvexa-Outcome") == "kept") return;
            if (!answer || answer->status != 503) throw std::runtime_error(answer ? answer->body : "no answer");
        }
    }

private:
    httplib::Client http_;
    std::string body_, token_;
    int number_;
    int sent_ = 0;
};

/// A program that is asked line by line.
class Program {
public:
    explicit Program(std::vector<char*> words) {
        int to[2], from[2];
        if (pipe2(to, O_CLOEXEC) != 0 || pipe2(from, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
        process_ = fork();
        if (process_ == 0) {
            dup2(to[0], STDIN_FILENO);
            dup2(from[1], STDOUT_FILENO);
            execvp(words[0], words.data());
            _exit(127);
        }
        close(to[0]);
        close(from[1]);
        to_ = fdopen(to[1], "w");
        from_ = fdopen(from[0], "r");
        ask(create);
    }
    ~Program() {
        std::fclose(to_);
        std::fclose(from_);
        waitpid(process_, nullptr, 0);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void run() {
        Json header;
        for (const Json& each : capture_) header = ask(each);
        ask(closing(header["value"]["Rp_Folio"]));
    }

private:
    /// Again while it is refused: another user's call was in its way, and nothing of it was kept.
    Json ask(const Json& request) {
        const std::string line = request.dump() + '\n';
        Json answer;
        for (int attempt = 0; attempt < 1000; ++attempt) {
            std::fwrite(line.data(), 1, line.size(), to_);
            std::fflush(to_);
            answer = Json::parse(read_line());
            if (answer.contains("result") && answer["result"].value("value", Json()) != false) return answer["result"];
        }
        throw std::runtime_error(answer.dump());
    }

    std::string read_line() {
        std::string line;
        for (int c; (c = std::getc(from_)) != EOF && c != '\n';) line += static_cast<char>(c);
        return line;
    }

    std::vector<Json> capture_ = capture();
    pid_t process_;
    std::FILE* to_;
    std::FILE* from_;
};

// ---- The run --------------------------------------------------------------------------------------------------------

/// What one client did: the milliseconds of each time, sorted later.
void work(const Client& client, Clock::time_point until, std::vector<double>& durations) {
    while (Clock::now() < until) {
        const auto begin = Clock::now();
        client();
        durations.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
}

void tell(const std::vector<std::vector<double>>& of_clients, double seconds) {
    std::vector<double> all;
    for (const auto& durations : of_clients) all.insert(all.end(), durations.begin(), durations.end());
    std::sort(all.begin(), all.end());
    if (all.empty()) throw std::runtime_error("nothing was done in time");
    const auto at = [&](double share) {
        return all[static_cast<std::size_t>(share * static_cast<double>(all.size()))];
    };
    std::printf("%3zu clients %8.1f per second, median %7.2f ms, 99th %8.2f ms (%zu)\n", of_clients.size(),
                static_cast<double>(all.size()) / seconds, at(0.5), at(0.99), all.size());
}

void run(const std::vector<Client>& clients, double seconds) {
    for (const Client& client : clients) client();  // connections are open, statements known
    std::vector<std::vector<double>> durations(clients.size());
    std::vector<std::thread> threads;
    std::atomic<bool> failed = false;
    const auto begin = Clock::now();
    const auto until = begin + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    for (std::size_t i = 0; i < clients.size(); ++i) {
        threads.emplace_back([&, i] {
            try {
                work(clients[i], until, durations[i]);
            } catch (const std::exception& failure) {
                std::fprintf(stderr, "%s\n", failure.what());
                failed = true;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    tell(durations, std::chrono::duration<double>(Clock::now() - begin).count());
    if (failed) throw std::runtime_error("a client failed");
}

/// Opens connections that send nothing until the program ends.
void open_idle(const std::string& address, int count) {
    sockaddr_in server{};
    server.sin_family = AF_INET;
    server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    server.sin_port = htons(static_cast<std::uint16_t>(std::stoi(address.substr(address.find(':') + 1))));
    for (int i = 0; i < count; ++i) {
        const int handle = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (connect(handle, reinterpret_cast<const sockaddr*>(&server), sizeof server) != 0) {
            throw std::runtime_error("only " + std::to_string(i) + " connections could be opened");
        }
    }
}

void run_service(const std::vector<std::string>& words, const Json& body, bool keyed) {
    std::vector<Client> clients;
    for (int i = 0; i < std::stoi(words[4]); ++i) {
        const auto client = std::make_shared<Service_client>(words[2], words[3], body, keyed ? i : -1);
        clients.emplace_back([client] { client->run(); });
    }
    if (words.size() > 6) open_idle(words[2], std::stoi(words[6]));
    run(clients, std::stod(words[5]));
}

void run_programs(char** words, int count) {
    std::vector<char*> command(words + 4, words + count);
    command.push_back(nullptr);
    std::vector<Client> clients;
    for (int i = 0; i < std::stoi(words[2]); ++i) {
        const auto program = std::make_shared<Program>(command);
        clients.emplace_back([program] { program->run(); });
    }
    run(clients, std::stod(words[3]));
}

Json receipt() {
    Json batch = Json::array({create});
    for (const Json& each : capture()) batch.push_back(each);
    batch.push_back(closing({{"result", 7}, {"path", "/value/Rp_Folio"}}));
    return batch;
}

Json balance() {
    return Json::array({create, entry(2, "call", with(member("GetSaldo"), "args", Json::array({"SRR-MXN"})))});
}

}  // namespace

int main(int count, char** words) {
    const std::vector<std::string> given(words, words + count);
    const std::string what = count > 1 ? given[1] : "";
    try {
        if (what == "service" && count >= 6) {
            run_service(given, receipt(), true);
        } else if (what == "balance" && count == 6) {
            run_service(given, balance(), false);
        } else if (what == "rpc" && count >= 5) {
            run_programs(words, count);
        } else {
            std::fprintf(stderr, "cuvexa_service_load: see the beginning of bench/service/main.cpp\n");
            return 2;
        }
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
