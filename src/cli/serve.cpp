// cuvexa serve: the component for programs on other machines.
#include <sys/resource.h>

#include <csignal>
#include <iostream>
#include <memory>
#include <thread>

#include "cli/command.h"
#include "cli/session.h"
#include "paper/statement_form.h"
#include "service/notify.h"
#include "service/service.h"

namespace cuvexa::cli {

namespace {

struct Serve_options {
    service::Service_options service;
    Company_options company;
    std::string listen = "127.0.0.1:8470";
    std::string companies;
    std::string server_date;
    double time_s = 30;
};

/// The last colon ends the host; that of an address with colons stands in brackets.
void set_address(service::Service_options& options, const std::string& text) {
    const std::size_t colon = text.rfind(':');
    std::string host = text.substr(0, colon);
    if (host.size() > 2 && host.front() == '[' && host.back() == ']') host = host.substr(1, host.size() - 2);
    const std::string port = colon == std::string::npos ? "" : text.substr(colon + 1);
    const bool is_port = !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == std::string::npos;
    if (host.empty() || !is_port || std::stoi(port) > 65535) throw Refused("No es una dirección: " + text);
    options.host = host;
    options.port = std::stoi(port);
}

std::map<std::string, Company_options> companies_of(const Serve_options& options) {
    if (options.companies.empty() == options.company.database.empty()) {
        throw Refused("Se sirve una base de datos (--db) o las de un archivo de empresas (--companies)");
    }
    std::map<std::string, Company_options> companies;
    if (options.companies.empty()) {
        companies[""] = options.company;
    } else {
        for (const auto& [name, database] : service::companies_in(options.companies)) {
            companies[name] = options.company;
            companies[name].database = database;
        }
    }
    for (const auto& [name, company] : companies) Company(company, Access::read);  // refuses what is no company
    return companies;
}

/// As many connections as the system lets this program have.
void raise_open_files() {
    rlimit files{};
    if (getrlimit(RLIMIT_NOFILE, &files) != 0) return;
    files.rlim_cur = files.rlim_max;
    setrlimit(RLIMIT_NOFILE, &files);
}

/// The signals that end the service; no thread is interrupted by them, one waits for them.
sigset_t hold_back_ends() {
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGTERM);
    sigaddset(&ends, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);
    return ends;
}

void serve(Serve_options options) {
    set_address(options.service, options.listen);
    options.service.companies = companies_of(options);
    options.service.time = std::chrono::milliseconds(static_cast<std::int64_t>(options.time_s * 1000));
    if (!options.server_date.empty()) options.service.server_date = parse_date(options.server_date);
    const sigset_t ends = hold_back_ends();
    raise_open_files();
    paper::prepare_pdf();

    service::Service service(options.service, std::cerr);
    std::thread waiting([&] {
        int signal = 0;
        sigwait(&ends, &signal);
        service::notify("STOPPING=1");
        service.stop();
    });
    std::cerr << R"({"listening":")" << options.service.host << ':' << service.port() << "\"}" << std::endl;
    service::notify("READY=1");
    service.serve();
    waiting.join();
}

}  // namespace

void add_serve(CLI::App& program) {
    auto options = std::make_shared<Serve_options>();
    service::Service_options& service = options->service;
    CLI::App* command = program.add_subcommand("serve", "Drive the component by HTTP, from other machines");
    add_company_options(*command, options->company, false);
    command->add_option("--companies", options->companies, R"(Databases by name: {"norte": "norte.db", …})")
        ->type_name("FILE");
    command->add_option("--tokens", service.tokens, "Who may; see cuvexa token")->required()->type_name("FILE");
    command->add_option("--listen", options->listen, "Address and port; port 0: one that is free")
        ->type_name("HOST:PORT")
        ->capture_default_str();
    CLI::Option* certificate =
        command->add_option("--tls-cert", service.certificate, "Certificate and its chain, PEM")->type_name("FILE");
    command->add_option("--tls-key", service.key, "Its key, PEM")->type_name("FILE")->needs(certificate);
    command->add_option("--connections", service.connections, "Sessions of each database, at most")
        ->check(CLI::Range(1, 1000))
        ->capture_default_str();
    command->add_option("--requests", service.requests, "Requests at once, at most; further ones get 503")
        ->check(CLI::Range(1, 10000))
        ->capture_default_str();
    command->add_option("--body", service.body_bytes, "Bytes of a body, at most")->capture_default_str();
    command->add_option("--time", options->time_s, "Seconds of a request, at most")
        ->check(CLI::Range(0.1, 3600.0))
        ->capture_default_str();
    command
        ->add_option("--server-date", options->server_date, "Fix the server's date: 2024-03-15 or 2024-03-15T10:20:30")
        ->type_name("ISO")
        ->check(date_problem);
    command->callback([options] { serve(*options); });
}

}  // namespace cuvexa::cli
