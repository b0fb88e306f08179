#include "service/running_service.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

#include "core/rows.h"

namespace cuvexa::tests {

void Running_service::SetUp() {
    std::string name = (std::filesystem::temp_directory_path() / "cuvexa-service-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder = name;
    Company_options company;
    company.database = (folder / "company.db").string();
    company.synchronous = "off";
    company.wait_s = 5;
    Company::create(company, Contents::sample_company);
    options.companies[""] = company;
    options.tokens = (folder / "tokens.json").string();
    options.port = 0;
    options.server_date = parse_date("2024-03-15T10:20:30");
    options.http.workers = 24;
    bearer = token({"ana"});
}

void Running_service::TearDown() {
    stop();
    std::filesystem::remove_all(folder);
}

void Running_service::start() {
    running = std::make_unique<service::Service>(options, log);
    serving_ = std::thread([this] { running->serve(); });
}

void Running_service::stop() {
    if (running) running->stop();
    if (serving_.joinable()) serving_.join();
    running.reset();
}

std::string Running_service::token(const service::Token& token) const {
    return service::Token_file(options.tokens).add(token);
}

httplib::Result Running_service::post(const Json& body, const httplib::Headers& more) {
    httplib::Client client("127.0.0.1", running->port());
    client.set_read_timeout(60);
    httplib::Headers headers = more;
    headers.emplace("Authorization", "Bearer " + bearer);
    return client.Post("/rpc", headers, body.dump(), "application/json");
}

httplib::Result Running_service::post_as(const std::string& other, const std::string& body, const std::string& path) {
    httplib::Client client("127.0.0.1", running->port());
    return client.Post(path, {{"Authorization", "Bearer " + other}}, body, "application/json");
}

httplib::Result Running_service::get(const std::string& path, const httplib::Headers& more) {
    httplib::Client client("127.0.0.1", running->port());
    httplib::Headers headers = more;
    if (!headers.contains("Authorization")) headers.emplace("Authorization", "Bearer " + bearer);
    return client.Get(path, headers);
}

int Running_service::connected() const {
    const int handle = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(running->port()));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        throw std::runtime_error("no connection");
    }
    return handle;
}

std::string Running_service::said_to(const std::string& bytes) const {
    const int handle = connected();
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count = send(handle, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) break;  // it does not want more
        sent += static_cast<std::size_t>(count);
    }
    std::string said;
    char part[4096];
    for (ssize_t count; (count = recv(handle, part, sizeof part, 0)) > 0;) {
        said.append(part, static_cast<std::size_t>(count));
    }
    close(handle);
    return said;
}

double Running_service::count(const std::string& from_where) {
    const Company company(options.companies.begin()->second, Access::read);
    return Rows(company.connection().execute("SELECT COUNT(*) AS n FROM " + from_where)).number("n");
}

std::vector<Json> Running_service::log_lines() const {
    std::vector<Json> lines;
    std::istringstream in(log.str());
    for (std::string line; std::getline(in, line);) lines.push_back(Json::parse(line));
    return lines;
}

Json entry(int id, const std::string& method, const Json& params) {
    return {{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}};
}

Json create(int id) {
    return entry(id, "create", {{"class", "Tesoreria"}});
}

Json call(int id, const std::string& member, const Json& arguments) {
    return entry(id, "call", {{"object", 1}, {"member", member}, {"args", arguments}});
}

Json get_member(int id, const std::string& member) {
    return entry(id, "get", {{"object", 1}, {"member", member}});
}

Json let(int id, const std::string& member, const Json& value) {
    return entry(id, "let", {{"object", 1}, {"member", member}, {"value", value}});
}

Json result_of(int id, const std::string& path) {
    return {{"result", id}, {"path", path}};
}

Json receipt(double amount) {
    const Json header{{"Rp_Fecha", "2024-03-15"},
                      {"TipoReciboPago", {{"Trp_Cve_Tipo_Recibo_Pago", "01"}}},
                      {"Sucursal", {{"Sc_Cve_Sucursal", "MTY"}}},
                      {"Mn_Cve_Moneda", "MXN"},
                      {"Rp_Tipo_Cambio", 1}};
    const Json line{{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", "01"}}}, {"Rp_Importe", amount}};
    return Json::array({create(1), call(2, "NuevoReciboCaja"), let(3, "RpEncabezado", header),
                        let(4, "RpDetalle", line), call(5, "Add_Recibo_Caja_Detalle"), get_member(6, "RpEncabezado"),
                        call(7, "FinReciboCaja", Json::array({result_of(6, "/value/Rp_Folio")}))});
}

Json deposit(const std::string& account) {
    return call(8, "Genera_Deposito",
                Json::array({account, result_of(6, "/value/Rp_Folio"), "2024-03-15", true, "2024-03-15"}));
}

}  // namespace cuvexa::tests
