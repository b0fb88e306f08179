// Who may: tokens, companies, rights.
#include <fstream>
#include <iterator>

#include "service/attempts.h"
#include "service/running_service.h"
#include "service/secrets.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

using Service_access = Running_service;

TEST_F(Service_access, without_a_good_token_the_answer_is_always_the_same) {
    start();
    httplib::Client client("127.0.0.1", running->port());
    const auto with = [&](const std::string& header) {
        return client.Post("/rpc", header.empty() ? httplib::Headers{} : httplib::Headers{{"Authorization", header}},
                           create(1).dump(), "application/json");
    };
    const std::string wrong_secret = bearer.substr(0, bearer.size() - 1) + (bearer.back() == '0' ? '1' : '0');
    for (const std::string& header :
         {std::string(), std::string("Bearer"), std::string("Bearer x"), "Basic " + bearer, "Bearer " + wrong_secret,
          "Bearer " + bearer + "0", "Bearer cvx_0123456789abcdef_" + std::string(64, '0')}) {
        const auto answered = with(header);
        ASSERT_TRUE(answered) << header;
        EXPECT_EQ(answered->status, 401) << header;
        EXPECT_EQ(answered->body, R"({"error":{"status":401,"message":"not authorized"}})") << header;
        EXPECT_EQ(answered->get_header_value("WWW-Authenticate"), "Bearer");
    }
    EXPECT_EQ(with("Bearer " + bearer)->status, 200);
}

TEST_F(Service_access, a_token_is_good_for_its_company_and_its_right_alone) {
    const Company_options company = options.companies[""];
    options.companies = {{"norte", company}, {"sur", company}};
    start();
    const std::string body = create(1).dump();
    const std::string north = token({"north", "norte"});
    const std::string reader = token({"reader", "", true});
    EXPECT_EQ(post_as(bearer, body, "/norte/rpc")->status, 200);
    EXPECT_EQ(post_as(bearer, body, "/sur/rpc")->status, 200);
    EXPECT_EQ(post_as(north, body, "/norte/rpc")->status, 200);
    for (const auto& refused : {post_as(north, body, "/sur/rpc"), post_as(bearer, body, "/oeste/rpc"),
                                post_as(reader, body, "/norte/rpc"), post_as(bearer, body, "/rpc")}) {
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->status, 403);
        EXPECT_EQ(refused->body, R"({"error":{"status":403,"message":"not authorized"}})");
    }
    EXPECT_EQ(post_as(bearer, body, "/norte/../sur/rpc")->status, 404) << "no path leads from one to the other";
    EXPECT_EQ(post_as(bearer, body, "/norte/nothing")->status, 404);
}

TEST_F(Service_access, the_description_for_machines_is_for_anybody_and_is_what_a_request_discovers) {
    start();
    httplib::Client client("127.0.0.1", running->port());
    const auto described = client.Get("/openrpc.json");
    ASSERT_TRUE(described);
    EXPECT_EQ(described->status, 200);
    EXPECT_EQ(described->get_header_value("Content-Type"), "application/json");
    const auto discovered = post(Json{{"jsonrpc", "2.0"}, {"id", 1}, {"method", "rpc.discover"}});
    EXPECT_EQ(Json::parse(discovered->body)["result"], Json::parse(described->body));
}

TEST_F(Service_access, a_service_that_runs_knows_new_and_removed_tokens_at_once) {
    start();
    const std::string body = create(1).dump();
    const std::string later = token({"later"});
    EXPECT_EQ(post_as(later, body)->status, 200);
    service::Token_file(options.tokens).remove("later");
    EXPECT_EQ(post_as(later, body)->status, 401);
    EXPECT_EQ(post_as(bearer, body)->status, 200);
}

TEST_F(Service_access, ten_thousand_wrong_tokens_are_refused_and_a_good_one_still_passes) {
    options.failed_attempts = 20;
    start();
    httplib::Client client("127.0.0.1", running->port());
    client.set_keep_alive(true);
    std::map<int, int> answers;
    for (int i = 0; i < 10'000; ++i) {
        const auto answered =
            client.Get("/metrics", {{"Authorization", "Bearer cvx_" + service::random_hex(8) + "_no"}});
        ASSERT_TRUE(answered) << i;
        ++answers[answered->status];
    }
    EXPECT_EQ(answers[401] + answers[429], 10'000);
    EXPECT_GE(answers[401], 20);
    EXPECT_GE(answers[429], 9'000) << "the first of each minute alone are told 401";
    EXPECT_EQ(get("/metrics")->status, 200);
}

TEST_F(Service_access, who_signed_in_by_a_browser_carries_a_cookie_that_no_other_page_can_use) {
    start();
    httplib::Client client("127.0.0.1", running->port());
    const auto signed_in = client.Post("/session", {{"Authorization", "Bearer " + bearer}}, "", "application/json");
    ASSERT_TRUE(signed_in);
    EXPECT_EQ(signed_in->status, 204);
    const std::string set = signed_in->get_header_value("Set-Cookie");
    EXPECT_THAT(set, HasSubstr("; HttpOnly; SameSite=Strict"));
    const httplib::Headers cookie{{"Cookie", "other=1; " + set.substr(0, set.find(';'))}};
    EXPECT_EQ(client.Get("/metrics", cookie)->status, 200);
    EXPECT_EQ(client.Post("/rpc", cookie, create(1).dump(), "application/json")->status, 200);
    EXPECT_EQ(client.Post("/rpc", cookie, create(1).dump(), "text/plain")->status, 401)
        << "a form of another site can send this";
    EXPECT_EQ(client.Post("/session", {}, "", "application/json")->status, 401);
    EXPECT_EQ(client.Post("/session", cookie, "", "application/json")->status, 400) << "a cookie makes no cookie";
    const auto longer = httplib::Headers{{"Cookie", "cuvexa_tokens=" + bearer + "; cuvexa_token"}};
    EXPECT_EQ(client.Get("/metrics", longer)->status, 401) << "another cookie";
    const auto left = client.Delete("/session", cookie, "", "application/json");
    EXPECT_EQ(left->status, 204);
    EXPECT_THAT(left->get_header_value("Set-Cookie"), HasSubstr("cuvexa_token=;"));
    EXPECT_THAT(left->get_header_value("Set-Cookie"), HasSubstr("; Max-Age=0"));
}

TEST_F(Service_access, two_headers_with_tokens_are_none) {
    start();
    const std::string one = "Authorization: Bearer " + bearer + "\r\n";
    EXPECT_THAT(said_to("GET /metrics HTTP/1.1\r\n" + one + "Connection: close\r\n\r\n"),
                testing::StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(said_to("GET /metrics HTTP/1.1\r\n" + one + one + "Connection: close\r\n\r\n"),
                testing::StartsWith("HTTP/1.1 401 "));
}

TEST(Service_attempts, are_counted_per_address_and_forgotten_after_their_span) {
    service::Attempts attempts(2, std::chrono::seconds(60));
    const auto begin = service::Clock::now();
    EXPECT_FALSE(attempts.fail("10.0.0.1", begin));
    EXPECT_FALSE(attempts.fail("10.0.0.1", begin));
    EXPECT_TRUE(attempts.fail("10.0.0.1", begin + std::chrono::seconds(59)));
    EXPECT_FALSE(attempts.fail("10.0.0.2", begin));
    EXPECT_FALSE(attempts.fail("10.0.0.1", begin + std::chrono::seconds(60)));
}

TEST(Service_attempts, of_many_addresses_those_whose_span_is_not_over_are_still_known) {
    service::Attempts attempts(1, std::chrono::seconds(60));
    const auto begin = service::Clock::now();
    for (int i = 1; i <= 10'000; ++i) {
        attempts.fail("10.0.0." + std::to_string(i), begin + std::chrono::seconds(i <= 5'000 ? 0 : 30));
    }
    const auto later = begin + std::chrono::seconds(60);
    EXPECT_FALSE(attempts.fail("192.168.0.1", later));
    EXPECT_FALSE(attempts.fail("10.0.0.1", later));
    EXPECT_TRUE(attempts.fail("10.0.0.10000", later));
}

TEST_F(Service_access, a_file_of_tokens_holds_no_token_and_is_its_owners_alone) {
    std::ifstream in(options.tokens);
    const std::string content{std::istreambuf_iterator<char>(in), {}};
    EXPECT_THAT(content, HasSubstr("\"ana\""));
    EXPECT_THAT(content, Not(HasSubstr(bearer.substr(21)))) << "the secret half";
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(options.tokens).permissions(), perms::owner_read | perms::owner_write);
}

TEST_F(Service_access, a_name_is_given_once_and_a_broken_file_is_refused) {
    EXPECT_THROW(token({"ana"}), service::Token_error);
    EXPECT_THROW(token({""}), service::Token_error);
    EXPECT_THROW(token({"two\nlines"}), service::Token_error);
    EXPECT_THROW(token({"deleted\x7F"}), service::Token_error);
    EXPECT_THROW(service::Token_file((folder / "nowhere" / "tokens.json").string()).add({"eva"}), service::Token_error);
    std::filesystem::create_directory(options.tokens + ".nuevo");
    EXPECT_THROW(token({"eva"}), service::Token_error) << "it is written beside, and put in place whole";
    std::filesystem::remove(options.tokens + ".nuevo");
    EXPECT_THROW(token({std::string(61, 'x')}), service::Token_error);
    EXPECT_THROW(service::Token_file(options.tokens).remove("nobody"), service::Token_error);
    EXPECT_THAT(service::Token_file(options.tokens).list(), ElementsAre(service::Token{"ana"}));
    for (const char* broken :
         {"", "[]", "{}", "{\"tokens\":[{}]}", "{\"tokens\":5}", "{\"tokens\":[5]}", "{\"tokens\":[{\"name\":5}]}",
          R"({"tokens":[{"name":"a"}]})", R"({"tokens":[{"name":"a","id":"b"}]})",
          R"({"tokens":[{"name":"a","id":"b","salt":"c"}]})"}) {
        std::ofstream(options.tokens) << broken;
        EXPECT_THROW(service::Tokens{options.tokens}, service::Token_error) << broken;
    }
}

}  // namespace
}  // namespace cuvexa::tests
