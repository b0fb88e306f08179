// A request with a key is done once, however often it is sent.

#include <atomic>

#include "core/rows.h"
#include "cuvexa/suite/audit.h"
#include "service/kept_answers.h"
#include "service/running_service.h"

namespace cuvexa::tests {
namespace {

using testing::IsEmpty;

using Service_keys = Running_service;

httplib::Headers with_key(const std::string& key) {
    return {{"Idempotency-Key", key}};
}

TEST_F(Service_keys, sent_again_it_gives_the_same_answer_to_the_byte_and_does_nothing) {
    start();
    const auto first = post(receipt(), with_key("it's 1"));
    const auto second = post(receipt(), with_key("it's 1"));
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->get_header_value("Cuvexa-Outcome"), "kept");
    EXPECT_FALSE(first->has_header("Idempotency-Replayed"));
    EXPECT_EQ(second->get_header_value("Idempotency-Replayed"), "true");
    EXPECT_EQ(second->get_header_value("Cuvexa-Outcome"), "kept");
    EXPECT_EQ(second->body, first->body);
    EXPECT_EQ(second->status, first->status);
    EXPECT_EQ(count("Recibo_Pago"), 1);
}

TEST_F(Service_keys, outlive_the_service) {
    start();
    const std::string first = post(receipt(), with_key("k"))->body;
    stop();
    start();
    EXPECT_EQ(post(receipt(), with_key("k"))->body, first);
    EXPECT_EQ(count("Recibo_Pago"), 1);
}

TEST_F(Service_keys, another_body_under_the_same_key_is_refused) {
    start();
    post(receipt(150), with_key("k"));
    const auto other = post(receipt(151), with_key("k"));
    EXPECT_EQ(other->status, 422);
    EXPECT_EQ(Json::parse(other->body)["error"]["message"], "this key was used for another request");
    EXPECT_EQ(count("Recibo_Pago"), 1);
}

TEST_F(Service_keys, each_token_has_keys_of_its_own_and_case_matters) {
    start();
    post(receipt(), with_key("k"));
    EXPECT_FALSE(post(receipt(), with_key("K"))->has_header("Idempotency-Replayed"));
    bearer = token({"bea"});
    EXPECT_FALSE(post(receipt(), with_key("k"))->has_header("Idempotency-Replayed"));
    EXPECT_EQ(count("Recibo_Pago"), 3);
}

TEST_F(Service_keys, what_was_refused_left_nothing_and_may_be_tried_again) {
    start();
    Json batch = receipt();
    batch.push_back(deposit("NO-SUCH"));
    EXPECT_EQ(post(batch, with_key("k"))->get_header_value("Cuvexa-Outcome"), "undone");
    EXPECT_EQ(count("Peticion_Servicio"), 0);
    EXPECT_EQ(post(receipt(), with_key("k"))->get_header_value("Cuvexa-Outcome"), "kept");
}

TEST_F(Service_keys, are_for_whole_requests_and_of_a_certain_length) {
    start();
    EXPECT_EQ(post(receipt(), {{"Idempotency-Key", "k"}, {"Prefer", "statement-by-statement"}})->status, 400);
    EXPECT_EQ(post(receipt(), with_key(std::string(201, 'k')))->status, 400);
    EXPECT_EQ(count("Recibo_Pago"), 0);
}

TEST_F(Service_keys, who_lost_the_answer_may_ask_for_it) {
    start();
    const std::string answered = post(receipt(), with_key("k-1"))->body;
    EXPECT_EQ(get("/requests-done/k-1")->body, answered);
    EXPECT_EQ(get("/requests-done/k-2")->status, 404);
    const std::string with_a_slash = post(receipt(), with_key("order/1 a"))->body;
    EXPECT_EQ(get("/requests-done/order%2F1%20a")->body, with_a_slash);
    EXPECT_EQ(get("/requests-done/order")->status, 404);
    EXPECT_EQ(get("/requests-done/k-1", {{"Authorization", "Bearer " + token({"bea"})}})->status, 404)
        << "it is nobody else's";
}

TEST_F(Service_keys, two_at_once_are_done_once) {
    start();
    std::vector<std::thread> clients;
    std::vector<std::string> bodies(8);
    for (std::string& body : bodies) clients.emplace_back([&] { body = post(receipt(), with_key("k"))->body; });
    for (std::thread& client : clients) client.join();
    for (const std::string& body : bodies) EXPECT_EQ(body, bodies[0]);
    EXPECT_EQ(count("Recibo_Pago"), 1);
}

TEST_F(Service_keys, are_forgotten_after_their_days) {
    start();
    post(receipt(), with_key("old"));
    const Company company(options.companies[""]);
    company.connection().execute("UPDATE Peticion_Servicio SET Fecha_Alta = '2001-01-01'");
    post(receipt(), with_key("new"));
    EXPECT_EQ(count("Peticion_Servicio"), 2) << "not at every request";
    service::forget_answers(company.connection(), *company.suite()->data(), 30);
    EXPECT_EQ(count("Peticion_Servicio"), 1);
}

}  // namespace
}  // namespace cuvexa::tests
