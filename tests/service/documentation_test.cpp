// The examples of docs/service.md, run as they stand.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <regex>

#include "service/running_service.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;

std::string content_of(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// What a page tells a shell to do, from its beginning to its end.
std::string script_of(const std::string& page) {
    constexpr std::string_view begin = "\n```sh\n";
    std::string script;
    for (std::size_t at = page.find(begin); at != std::string::npos; at = page.find(begin, at)) {
        at += begin.size();
        const std::size_t end = page.find("\n```\n", at);
        script += page.substr(at, end - at) + '\n';
        at = end;
    }
    return script;
}

/// A port that nobody listens on, below those that the system gives to who asks for any: nobody is given it meanwhile.
int free_port() {
    std::random_device any;
    for (;;) {
        const auto port = std::uniform_int_distribution<std::uint16_t>(20'000, 32'000)(any);
        const int handle = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(port);
        const bool is_free = bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        close(handle);
        if (is_free) return port;
    }
}

/// The example's company and tokens are its own.
class Service_documentation : public testing::Test {
protected:
    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "cuvexa-service-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    std::filesystem::path folder;
};

TEST_F(Service_documentation, the_examples_of_the_page_run_as_they_stand) {
    const std::string port = std::to_string(free_port());
    std::string script =
        std::regex_replace(script_of(content_of(in_source("docs/service.md"))), std::regex("8470"), port);
    script = std::regex_replace(script, std::regex("cuvexa serve "), "cuvexa serve --listen 127.0.0.1:" + port + " ");
    std::ofstream(folder / "script") << "set -e\nPATH='" << in_build("bin") << "':$PATH\n" << script;
    const int status = std::system(("cd '" + folder.string() + "' && sh script >out 2>err </dev/null").c_str());
    const std::string out = content_of(folder / "out");
    ASSERT_EQ(status, 0) << out << content_of(folder / "err") << content_of(folder / "service.log");

    const std::string body =
        R"("result":{"value":true,"args":["SRR-MXN","RP-MTY-00000001","2024-03-15",true,"2024-03-15"]})";
    EXPECT_THAT(out, HasSubstr("{\"status\":\"ready\"}"));
    EXPECT_NE(out.find(body, out.find(body) + 1), std::string::npos) << "both answers: " << out;
    EXPECT_LT(out.find(body), out.find("Idempotency-Replayed: true"));
    EXPECT_THAT(out, HasSubstr("DP-MTY-00000001"));
    EXPECT_EQ(out.find("DP-MTY-00000002"), std::string::npos) << "done once";
    EXPECT_THAT(out, HasSubstr(R"("rows":[{"Rp_Folio":"RP-MTY-00000001")")) << "the list";
    EXPECT_THAT(out,
                HasSubstr(R"({"kind":"receipts","folio":"RP-MTY-00000001","title":"Recibo de caja","state":"DP")"));
    EXPECT_THAT(out, HasSubstr(R"("closing":{"balance":1500.0,"firm":1500.0}})"));
    EXPECT_THAT(content_of(folder / "movements.csv"), HasSubstr("\r\nBM-00000001,2024-03-15,SRR-MXN,DEP,1500,"));
}

}  // namespace
}  // namespace cuvexa::tests
