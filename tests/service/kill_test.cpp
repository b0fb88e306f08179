// The service is killed in the middle of its work, again and again, while its clients repeat: each document is there once.
#include <atomic>
#include <set>

#include "cuvexa/suite/audit.h"
#include "service/running_program.h"

namespace cuvexa::tests {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr int clients = 16;
constexpr int documents = 4;  ///< of each client
constexpr int kills = 4;

class Service_kill : public Service_program {
protected:
    /// Begins to serve, on the port of the first time.
    void launch_again() {
        launch();
        while (notification() != "READY=1") {
        }
        port = told_port();
    }

    /// Sends a deposit with this key until it is answered; its folio.
    std::string deposited(const std::string& key) const {
        Json batch = receipt(10);
        batch.push_back(deposit());
        batch.push_back(get_member(9, "Dp_Folio"));
        for (;;) {
            httplib::Client client("127.0.0.1", port);
            client.set_read_timeout(60);
            const httplib::Headers headers{{"Authorization", "Bearer " + bearer}, {"Idempotency-Key", key}};
            const auto answered = client.Post("/rpc", headers, batch.dump(), "application/json");
            if (answered && answered->get_header_value("Cuvexa-Outcome") == "kept") {
                return Json::parse(answered->body)[8]["result"]["value"];
            }
            std::this_thread::yield();
        }
    }
};

TEST_F(Service_kill, each_key_has_its_document_exactly_once_whatever_is_killed) {
    launch_again();
    std::atomic<int> answered = 0;
    std::vector<std::vector<std::string>> folios(clients);
    std::vector<std::thread> threads;
    for (int client = 0; client < clients; ++client) {
        threads.emplace_back([&, client] {
            for (int i = 0; i < documents; ++i) {
                folios[static_cast<std::size_t>(client)].push_back(
                    deposited(std::to_string(client) + '-' + std::to_string(i)));
                ++answered;
            }
        });
    }
    for (int kill_number = 1; kill_number <= kills; ++kill_number) {
        while (answered < kill_number * clients * documents / (kills + 1)) std::this_thread::yield();
        kill(process_, SIGKILL);
        EXPECT_EQ(ended(), -1);
        launch_again();
    }
    for (std::thread& thread : threads) thread.join();

    std::set<std::string> different;
    for (const auto& of_client : folios) different.insert(of_client.begin(), of_client.end());
    EXPECT_THAT(different, SizeIs(clients * documents));
    EXPECT_EQ(count("(SELECT DISTINCT Dp_Folio FROM Deposito_Pago) AS Folios"), clients * documents);
    EXPECT_EQ(count("Recibo_Pago"), clients * documents);
    const Company company(options.companies[""], Access::read);
    EXPECT_THAT(audit(company.connection()), IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
