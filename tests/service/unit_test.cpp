// One request is one session and one unit of work.
#include <algorithm>

#include "core/rows.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/lost_connection.h"
#include "cuvexa/suite/audit.h"
#include "service/running_service.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

using Service_unit = Running_service;

Json batch_of(Json entries, const Json& last) {
    entries.push_back(last);
    return entries;
}

TEST_F(Service_unit, a_receipt_is_captured_closed_and_deposited_by_one_request) {
    start();
    Json batch = batch_of(receipt(), deposit());
    batch.push_back(get_member(9, "Dp_Folio"));
    const auto answered = post(batch);
    ASSERT_TRUE(answered);
    EXPECT_EQ(answered->status, 200);
    EXPECT_EQ(answered->get_header_value("Cuvexa-Outcome"), "kept");
    EXPECT_EQ(answered->get_header_value("Cuvexa-Repeats"), "0");
    const Json answers = Json::parse(answered->body);
    ASSERT_EQ(answers.size(), 9u);
    for (std::size_t i = 0; i < answers.size(); ++i) EXPECT_EQ(answers[i]["id"], i + 1);
    EXPECT_EQ(answers[7]["result"]["value"], true);
    EXPECT_EQ(answers[7]["result"]["args"][1], "RP-MTY-00000001") << "what the reference stood for";
    EXPECT_EQ(answers[8]["result"]["value"], "DP-MTY-00000001");
    EXPECT_EQ(count("Deposito_Pago WHERE Dp_Folio = 'DP-MTY-00000001' AND Oper_Alta = 'ana'"), 1)
        << "the token's name is the operator";
    const Company company(options.companies[""], Access::read);
    EXPECT_THAT(audit(company.connection()), IsEmpty());
}

TEST_F(Service_unit, a_refusal_undoes_what_came_before_it_and_the_rest_does_not_run) {
    start();
    Json batch = batch_of(receipt(), deposit("NO-SUCH"));
    batch.push_back(get_member(9, "Dp_Folio"));
    const auto answered = post(batch);
    ASSERT_TRUE(answered);
    EXPECT_EQ(answered->status, 200);
    EXPECT_EQ(answered->get_header_value("Cuvexa-Outcome"), "undone");
    EXPECT_EQ(answered->get_header_value("Cuvexa-Ended-By"), "8");
    const Json answers = Json::parse(answered->body);
    ASSERT_EQ(answers.size(), 9u);
    EXPECT_EQ(answers[6]["result"]["value"], true);
    EXPECT_EQ(answers[7]["result"]["value"], false);
    EXPECT_EQ(answers[7]["result"]["Error"],
              "Cuvexa.dll - Genera_Deposito()\r\nNo se encontró la información de la cuenta bancaria!");
    EXPECT_EQ(answers[8]["error"]["code"], -32001);
    EXPECT_EQ(answers[8]["error"]["data"]["ended_by"], 8);
    EXPECT_EQ(count("Recibo_Pago"), 0) << "the receipt is undone with its deposit";
}

TEST_F(Service_unit, an_entry_that_fails_ends_the_request_too_even_one_that_asks_for_no_answer) {
    start();
    Json batch = receipt();
    Json unknown = call(8, "NoSuchMember");
    unknown.erase("id");
    batch.push_back(unknown);
    batch.push_back(get_member(9, "Error"));
    const auto answered = post(batch);
    ASSERT_TRUE(answered);
    EXPECT_EQ(answered->get_header_value("Cuvexa-Outcome"), "undone");
    EXPECT_EQ(answered->get_header_value("Cuvexa-Ended-By"), "8");
    EXPECT_EQ(Json::parse(answered->body).size(), 8u) << "no answer to the notification";
    EXPECT_EQ(count("Recibo_Pago"), 0);
}

TEST_F(Service_unit, statement_by_statement_keeps_what_came_before_a_refusal_and_goes_on) {
    start();
    Json batch = batch_of(receipt(), deposit("NO-SUCH"));
    batch.push_back(get_member(9, "Error"));
    const auto answered = post(batch, {{"Prefer", "statement-by-statement"}});
    ASSERT_TRUE(answered);
    EXPECT_EQ(answered->get_header_value("Preference-Applied"), "statement-by-statement");
    EXPECT_EQ(answered->get_header_value("Cuvexa-Outcome"), "statement-by-statement");
    const Json answers = Json::parse(answered->body);
    EXPECT_EQ(answers[7]["result"], (Json{{"value", false}, {"args", answers[7]["result"]["args"]}}));
    EXPECT_THAT(answers[8]["result"]["value"].get<std::string>(), HasSubstr("cuenta bancaria"));
    EXPECT_EQ(count("Recibo_Pago WHERE Es_Cve_Estado <> 'BA'"), 1) << "the receipt stays";
}

TEST_F(Service_unit, objects_are_numbered_from_one_and_die_with_their_request) {
    start();
    for (int turn = 0; turn < 2; ++turn) {
        const auto created = post(create(1));
        ASSERT_TRUE(created);
        EXPECT_EQ(Json::parse(created->body)["result"]["object"], 1);
    }
    const auto later = post(get_member(1, "Error"));
    ASSERT_TRUE(later);
    EXPECT_EQ(Json::parse(later->body)["error"]["message"], "no object 1");
}

TEST_F(Service_unit, a_reference_to_what_is_not_there_is_refused) {
    start();
    const auto message = [&](const Json& argument) {
        const auto answered = post(Json::array({create(1), call(2, "FinReciboCaja", Json::array({argument}))}));
        return answered ? Json::parse(answered->body)[1]["error"] : Json();
    };
    EXPECT_EQ(message(result_of(2, "/value"))["message"], "no result of an entry 2");
    EXPECT_EQ(message(result_of(1, "/value"))["message"], "nothing at that path in the result of entry 1");
    EXPECT_EQ(message(result_of(1, "no pointer"))["code"], -32602);
    EXPECT_EQ(message(Json{{"result", 1}, {"path", 5}})["code"], -32602);
}

TEST_F(Service_unit, what_is_no_request_is_told_so) {
    start();
    EXPECT_EQ(post_as(bearer, "{")->status, 400);
    EXPECT_EQ(Json::parse(post_as(bearer, "{")->body)["error"]["code"], -32700);
    EXPECT_EQ(Json::parse(post_as(bearer, "[]")->body)["error"]["code"], -32600);
    EXPECT_EQ(post_as(bearer, "[]")->status, 400);
    EXPECT_EQ(Json::parse(post_as(bearer, "5")->body)["error"]["code"], -32600);
    EXPECT_EQ(Json::parse(
                  post_as(bearer, R"({"jsonrpc":"2.0","id":1,"method":"x","params":[1e999]})")->body)["error"]["code"],
              -32700);
    Json quiet = create(1);
    quiet.erase("id");
    const auto answered = post(quiet);
    EXPECT_EQ(answered->status, 204);
    EXPECT_EQ(answered->body, "");
}

TEST_F(Service_unit, the_limits_of_one_request_have_clear_answers) {
    options.batch.entries = 4;
    options.batch.session.objects = 2;
    options.batch.session.depth = 10;
    start();
    const auto error = [&](const std::string& body) { return Json::parse(post_as(bearer, body)->body)["error"]; };
    EXPECT_EQ(error(std::string(11, '[') + std::string(11, ']'))["message"], "nested deeper than 10 levels");
    EXPECT_EQ(error(Json(5, create(1)).dump())["message"], "more than 4 entries in one request");
    const auto objects = post(Json::array({create(1), create(2), create(3)}));
    EXPECT_EQ(Json::parse(objects->body)[2]["error"]["message"], "no more than 2 objects at a time: release some");
    EXPECT_EQ(Json::parse(post_as(bearer, "[\"[[[[[[[[[[[[\"]")->body)[0]["error"]["code"], -32600)
        << "brackets in a text are no nesting";
}

TEST_F(Service_unit, who_is_in_the_way_for_too_long_makes_the_request_fail_after_its_repeats) {
    options.companies[""].wait_s = 0.001;
    start();
    Sqlite_connection other(options.companies[""].database);
    other.execute("BEGIN TRANSACTION");
    const auto busy = post(receipt());
    ASSERT_TRUE(busy);
    EXPECT_EQ(busy->status, 503);
    EXPECT_EQ(busy->get_header_value("Cuvexa-Repeats"), "8");
    EXPECT_EQ(busy->get_header_value("Retry-After"), "1");
    other.execute("ROLLBACK TRANSACTION");
    EXPECT_EQ(post(receipt())->get_header_value("Cuvexa-Outcome"), "kept") << "it goes on";
}

TEST_F(Service_unit, what_is_not_done_in_time_is_undone) {
    options.time = std::chrono::milliseconds(0);
    start();
    const auto late = post(receipt());
    ASSERT_TRUE(late);
    EXPECT_THAT(late->status, testing::AnyOf(503, 504)) << "no session, or no statement, in no time";
    EXPECT_EQ(count("Recibo_Pago"), 0);
}

TEST_F(Service_unit, many_at_once_are_all_kept_once) {
    start();
    std::vector<std::thread> clients;
    std::atomic<int> kept = 0;
    for (int i = 0; i < 8; ++i) {
        clients.emplace_back([&] {
            for (int turn = 0; turn < 5; ++turn) {
                const auto answered = post(receipt());
                if (answered && answered->get_header_value("Cuvexa-Outcome") == "kept") ++kept;
            }
        });
    }
    for (std::thread& client : clients) client.join();
    EXPECT_EQ(kept, 40);
    EXPECT_EQ(count("Recibo_Pago"), 40);
    EXPECT_EQ(count("(SELECT DISTINCT Rp_Folio FROM Recibo_Pago) AS Folios"), 40);
}

TEST(Service_turns, are_taken_on_a_file_and_on_a_server_for_a_while_after_a_conflict) {
    service::Turns file(true);
    EXPECT_TRUE(file.are_taken());
    service::Turns server(false);
    EXPECT_FALSE(server.are_taken());
    server.met_conflict();
    for (int i = 0; i < service::Turns::after_a_conflict; ++i) EXPECT_TRUE(server.are_taken()) << i;
    EXPECT_FALSE(server.are_taken()) << "it may have been the only one";
}

TEST_F(Service_unit, more_than_may_be_at_work_are_told_to_come_again) {
    options.requests = 0;
    start();
    const auto refused = post(receipt());
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->status, 503);
    EXPECT_EQ(refused->get_header_value("Retry-After"), "1");
    EXPECT_EQ(get("/healthz")->status, 200) << "whether it is alive is told all the same";
}

TEST_F(Service_unit, who_finds_no_session_in_time_is_told_to_come_again_and_the_service_is_not_ready) {
    options.connections = 0;
    options.time = std::chrono::milliseconds(1);
    start();
    for (const auto& refused : {get("/accounts"), get("/requests-done/k"), post(receipt())}) {
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->status, 503);
        EXPECT_EQ(refused->get_header_value("Retry-After"), "1");
        EXPECT_THAT(refused->body, HasSubstr("too many requests at once; nothing was done"));
    }
    EXPECT_EQ(get("/readyz")->status, 503);
}

TEST_F(Service_unit, a_database_that_is_gone_is_told_and_found_again) {
    start();
    const std::filesystem::path file = folder / "company.db";
    std::filesystem::rename(file, folder / "elsewhere.db");
    for (const auto& refused : {get("/accounts"), post(receipt())}) {
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->status, 503);
        EXPECT_THAT(refused->body, HasSubstr("the database does not open; nothing was done"));
        EXPECT_THAT(refused->body, Not(HasSubstr("company.db"))) << "the log tells where it is looked for";
    }
    EXPECT_EQ(get("/readyz")->status, 503);
    std::filesystem::rename(folder / "elsewhere.db", file);
    EXPECT_EQ(get("/accounts")->status, 200);
    EXPECT_EQ(get("/readyz")->status, 200);
    stop();
    EXPECT_THAT(log.str(), HasSubstr("company.db"));
}

TEST_F(Service_unit, the_log_and_the_metrics_tell_what_was_called_and_no_values) {
    start();
    post(batch_of(receipt(4711.25), deposit("NO-SUCH")));
    const std::string metrics = get("/metrics")->body;
    EXPECT_THAT(metrics, HasSubstr("cuvexa_requests_total{resource=\"rpc\",status=\"200\"} 1\n"));
    EXPECT_THAT(metrics, HasSubstr("cuvexa_calls_total{member=\"FinReciboCaja\"} 1\n"));
    EXPECT_THAT(metrics, HasSubstr("cuvexa_refusals_total{member=\"Genera_Deposito\"} 1\n"));
    EXPECT_THAT(metrics, HasSubstr("cuvexa_request_milliseconds_bucket{le=\"+Inf\"} 1\n"));
    stop();
    const Json line = log_lines().at(0);
    EXPECT_EQ(line["resource"], "rpc");
    EXPECT_EQ(line["token"], "ana");
    EXPECT_EQ(line["fate"], "undone");
    EXPECT_EQ(line["refused"], Json::array({"Genera_Deposito"}));
    EXPECT_GT(line["statements"], 10);
    EXPECT_THAT(log.str(), testing::Not(HasSubstr("4711")));
    EXPECT_THAT(log.str(), testing::Not(HasSubstr(bearer)));
}

// ---- What a session remembers of its failures -----------------------------------------------------------------------

/// Fails every statement in one way.
template <class Failure>
class Failing final : public Connection {
public:
    std::unique_ptr<Recordset> execute(std::string_view) override { throw Failure("No hay espacio en el disco: x"); }
};

TEST(Service_watched_connection, knows_a_lost_connection_from_a_full_disk_and_from_the_end_of_its_time) {
    Failing<Lost_connection_error> losing;
    service::Watched_connection lost(losing);
    EXPECT_THROW(lost.execute("SELECT 1"), Lost_connection_error);
    EXPECT_TRUE(lost.was_lost());
    EXPECT_FALSE(lost.found_disk_full());
    lost.watch(service::Clock::time_point::max());
    EXPECT_FALSE(lost.was_lost()) << "each request begins anew";
    EXPECT_FALSE(lost.is_alive());

    Failing<Database_error> failing;
    service::Watched_connection full(failing);
    EXPECT_THROW(full.execute("INSERT"), Database_error);
    EXPECT_TRUE(full.found_disk_full());
    EXPECT_FALSE(full.was_lost());
    EXPECT_EQ(full.statements(), 1u);

    full.watch(service::Clock::now());
    EXPECT_THROW(full.execute("INSERT"), Database_error);
    EXPECT_TRUE(full.was_late());
    EXPECT_EQ(full.statements(), 0u) << "it did not reach the database";
}

}  // namespace
}  // namespace cuvexa::tests
