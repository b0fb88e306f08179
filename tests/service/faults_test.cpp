// A disk that is full, and clients that mean no good: nothing is half kept, and the service goes on.
#include "cuvexa/suite/audit.h"
#include "service/running_service.h"
#include "support/failing_files.h"

namespace cuvexa::tests {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// Files of a database that fail when they are told to.
class Service_disk : public Running_service {
protected:
    void SetUp() override {
        Running_service::SetUp();
        start();
        post(receipt());  // a session is open
    }

    httplib::Result post_with(const std::string& key) { return post(receipt(), {{"Idempotency-Key", key}}); }

    void expect_sound() {
        const Company company(options.companies[""], Access::read);
        EXPECT_THAT(audit(company.connection()), IsEmpty());
    }

    Failing_files files;
};

TEST_F(Service_disk, when_it_is_full_that_is_told_nothing_is_kept_and_it_goes_on_when_there_is_room) {
    files.fail(1, Failing_files::Fails::from_then_on);
    for (int turn = 0; turn < 3; ++turn) {
        const auto full = post_with("k");
        ASSERT_TRUE(full);
        EXPECT_EQ(full->status, 507);
        EXPECT_EQ(Json::parse(full->body)["error"]["message"], "the database's disk is full; nothing was kept");
        EXPECT_EQ(full->get_header_value("Cuvexa-Outcome"), "undone");
        EXPECT_EQ(get("/healthz")->status, 200);
    }
    files.fail_none();
    EXPECT_EQ(count("Recibo_Pago"), 1);
    const auto kept = post_with("k");
    EXPECT_EQ(kept->get_header_value("Cuvexa-Outcome"), "kept");
    EXPECT_FALSE(kept->has_header("Idempotency-Replayed"));
    EXPECT_EQ(count("Recibo_Pago"), 2);
    expect_sound();
}

// A write that fails while the unit is being kept may leave it kept or not; the key settles which.
TEST_F(Service_disk, whatever_write_fails_a_key_has_its_document_once) {
    int number = 1;
    for (;; ++number) {
        SCOPED_TRACE("write " + std::to_string(number));
        const std::string key = "key " + std::to_string(number);
        files.fail(number, Failing_files::Fails::once);
        const auto answered = post_with(key);
        const bool failed = files.calls() >= number;
        files.fail_none();
        ASSERT_TRUE(answered);
        EXPECT_THAT(answered->status, AnyOf(200, 503, 507)) << answered->body;
        if (answered->status == 200) {
            EXPECT_EQ(answered->get_header_value("Cuvexa-Outcome"), "kept");
        }
        EXPECT_EQ(post_with(key)->get_header_value("Cuvexa-Outcome"), "kept");
        EXPECT_EQ(count("Recibo_Pago"), 1 + number);
        if (!failed) break;
    }
    EXPECT_GT(number, 5) << "no write failed";
    expect_sound();
}

// ---- What no client of good will sends ------------------------------------------------------------------------------

class Service_hostile : public Running_service {
protected:
    std::string head(const std::string& first, const std::string& more) const {
        return first + "\r\nHost: x\r\nAuthorization: Bearer " + bearer + "\r\n" + more + "\r\n";
    }
};

TEST_F(Service_hostile, no_way_of_writing_a_path_leads_past_its_steps) {
    const Company_options company = options.companies[""];
    options.companies = {{"norte", company}, {"sur", company}};
    start();
    const std::string north = token({"north", "norte"});
    for (const char* path :
         {"/sur/rpc", "/norte/../sur/rpc", "/norte/..%2Fsur%2Frpc", "/%2e%2e/sur/rpc", "//sur/rpc", "/./sur/rpc",
          "/norte//rpc", "/norte/rpc/x", "/norte%2Frpc/x", "/NORTE/rpc", "/norte;/rpc", "/norte\\rpc", "/norte/rpc%00",
          "/../../../../etc/passwd", "/%2e%2e%2f%2e%2e%2fetc%2fpasswd", "http://127.0.0.1/sur/rpc"}) {
        const auto answered = post_as(north, create(1).dump(), path);
        ASSERT_TRUE(answered) << path;
        EXPECT_THAT(answered->status, AnyOf(400, 403, 404)) << path;
    }
    EXPECT_EQ(post_as(north, create(1).dump(), "/norte/rpc")->status, 200);
}

TEST_F(Service_hostile, a_folded_or_doubled_header_gives_no_second_meaning) {
    start();
    const std::string body = create(1).dump();
    const std::string length = "Content-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n";
    const std::string folded =
        said_to(head("POST /rpc HTTP/1.1", length + "Idempotency-Key: a\r\n Set-Cookie: b=c\r\n") + body);
    EXPECT_EQ(folded.find("Set-Cookie"), std::string::npos) << folded;
    const std::string two_tokens =
        head("GET /metrics HTTP/1.1", "Authorization: Bearer other\r\nConnection: close\r\n");
    EXPECT_THAT(said_to(two_tokens), StartsWith("HTTP/1.1 401 "));
}

TEST_F(Service_hostile, a_million_brackets_are_refused_as_nesting) {
    start();
    const auto answered = post_as(bearer, std::string(1'000'000, '['));
    ASSERT_TRUE(answered);
    EXPECT_EQ(answered->status, 400);
    EXPECT_EQ(Json::parse(answered->body)["error"]["message"], "nested deeper than 64 levels");
}

TEST_F(Service_hostile, a_hundred_megabytes_are_cut_off_at_the_limit_however_they_are_announced) {
    start();
    const std::string size = "Content-Length: 104857600\r\n";
    EXPECT_THAT(said_to(head("POST /rpc HTTP/1.1", size) + std::string(100 << 20, ' ')), StartsWith("HTTP/1.1 413 "));
    std::string chunks = head("POST /rpc HTTP/1.1", "Transfer-Encoding: chunked\r\n");
    for (int i = 0; i < 20; ++i) chunks += "100000\r\n" + std::string(1 << 20, ' ') + "\r\n";
    EXPECT_THAT(said_to(chunks), StartsWith("HTTP/1.1 413 "));
    EXPECT_EQ(post(create(1))->status, 200);
}

}  // namespace
}  // namespace cuvexa::tests
