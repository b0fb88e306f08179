// cuvexa serve and cuvexa token, run as their operator runs them.
#include "service/running_program.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;

/// What a command prints, with its failure.
std::string output_of(const std::string& arguments, int& code) {
    std::FILE* const pipe = popen((program + ' ' + arguments + " 2>&1").c_str(), "r");
    std::string output;
    std::array<char, 4096> part{};
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), pipe)) output.append(part.data(), size);
    const int status = pclose(pipe);
    code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return output;
}

TEST_F(Service_program, tells_when_it_is_ready_serves_and_ends_when_it_is_told_to) {
    launch();
    ASSERT_EQ(notification(), "READY=1");
    httplib::Client client("127.0.0.1", told_port());
    client.set_keep_alive(true);
    const auto kept =
        client.Post("/rpc", {{"Authorization", "Bearer " + bearer}}, receipt().dump(), "application/json");
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->get_header_value("Cuvexa-Outcome"), "kept");
    EXPECT_EQ(client.Get("/readyz")->status, 200);
    kill(process_, SIGTERM);
    EXPECT_EQ(notification(), "STOPPING=1");
    EXPECT_EQ(ended(), 0) << "a connection that is kept open does not hold it";
    EXPECT_THAT(log_text(), HasSubstr("\"resource\":\"rpc\",\"token\":\"ana\",\"status\":200"));
    EXPECT_EQ(count("Recibo_Pago"), 1);
}

TEST_F(Service_program, refuses_at_its_start_what_cannot_be_served) {
    const std::string tokens = " --tokens " + options.tokens;
    const std::string db = " --db " + (folder / "company.db").string();
    int code = 0;
    EXPECT_THAT(output_of("serve" + tokens, code), HasSubstr("--companies"));
    EXPECT_EQ(code, 1);
    EXPECT_THAT(output_of("serve --db nothing.db" + tokens, code), HasSubstr("No existe la base de datos"));
    EXPECT_EQ(code, 1);
    EXPECT_THAT(output_of("serve --tokens nothing.json" + db, code), HasSubstr("archivo de tokens"));
    EXPECT_EQ(code, 1);
    EXPECT_THAT(output_of("serve --listen 0.0.0.0:0" + db + tokens, code), HasSubstr("Sin TLS"));
    EXPECT_EQ(code, 1);
    for (const char* address :
         {"nonsense", "localhost:", "localhost:x", "localhost:123456", "localhost:65536", ":8080"}) {
        EXPECT_THAT(output_of("serve --listen " + std::string(address) + db + tokens, code),
                    HasSubstr("No es una dirección: " + std::string(address)));
        EXPECT_EQ(code, 1);
    }
    EXPECT_THAT(output_of("serve --listen [2001:db8::1]:80" + db + tokens, code), HasSubstr("no en 2001:db8::1"))
        << "the brackets are the address's, not the host's";
    EXPECT_EQ(code, 1);
    const std::string companies = (folder / "companies.json").string();
    std::ofstream(companies) << R"({"norte": "nowhere/norte.db"})";
    EXPECT_THAT(output_of("serve --companies " + companies + tokens, code), HasSubstr("nowhere/norte.db"));
    EXPECT_EQ(code, 1);
    EXPECT_THAT(output_of("serve --companies nowhere.json" + tokens, code), HasSubstr("archivo de empresas"));
    EXPECT_EQ(code, 1);
}

TEST_F(Service_program, makes_lists_and_removes_tokens) {
    const std::string tokens = " --tokens " + (folder / "new.json").string();
    int code = 0;
    const std::string added = output_of("token add eva --company norte --read" + tokens, code);
    ASSERT_EQ(code, 0) << added;
    const std::string text = added.substr(added.rfind(' ') + 1, added.find('\n') - added.rfind(' ') - 1);
    const auto owner = service::Tokens((folder / "new.json").string()).owner(text);
    ASSERT_TRUE(owner) << "the token is the last word";
    EXPECT_EQ(*owner, (service::Token{"eva", "norte", true}));
    EXPECT_EQ(Json::parse(output_of("token list --json" + tokens, code)),
              Json::parse(R"([{"name":"eva","company":"norte","right":"read"}])"));
    EXPECT_THAT(output_of("token list" + tokens, code), testing::ContainsRegex("eva +norte +read\n"));
    EXPECT_EQ(output_of("token remove eva" + tokens, code), "");
    EXPECT_EQ(code, 0);
    EXPECT_THAT(output_of("token remove eva" + tokens, code), HasSubstr("No existe el token: eva"));
    EXPECT_EQ(code, 1);
}

TEST_F(Service_program, a_file_of_companies_gives_each_its_paths) {
    const std::string file = (folder / "companies.json").string();
    std::ofstream(file) << Json{{"norte", (folder / "company.db").string()}};
    EXPECT_EQ(service::companies_in(file).at("norte"), (folder / "company.db").string());
    std::ofstream(file) << R"({"aZ-_09az": "x"})";
    EXPECT_EQ(service::companies_in(file).at("aZ-_09az"), "x");
    const std::string long_name = R"({")" + std::string(61, 'a') + R"(":"x"})";
    for (const std::string& broken :
         {std::string("[]"), std::string("{}"), std::string(R"({"a b":"x"})"), std::string(R"({"a":5})"),
          std::string(R"({"a/b":"x"})"), std::string("x"), std::string(R"({"":"x"})"), std::string(R"({"[":"x"})"),
          std::string(R"({"`":"x"})"), std::string(R"({"ñ":"x"})"), std::string(R"({":":"x"})"), long_name}) {
        std::ofstream(file) << broken;
        EXPECT_THROW(service::companies_in(file), Company_error) << broken;
    }
}

}  // namespace
}  // namespace cuvexa::tests
