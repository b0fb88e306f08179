// What comes over the line: malformed, too long, too slow, two in one.
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>

#include "service/form.h"
#include "service/running_service.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Service_http : public Running_service {
protected:
    /// A POST to /rpc with these further headers.
    std::string head(const std::string& more) const {
        return "POST /rpc HTTP/1.1\r\nHost: x\r\nAuthorization: Bearer " + bearer + "\r\n" + more + "\r\n";
    }
};

TEST_F(Service_http, what_is_no_request_is_refused_and_the_connection_closed) {
    options.http.head = std::chrono::milliseconds(300);
    start();
    EXPECT_THAT(said_to("GARBAGE\r\n\r\n"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to("GET / HTTP/9.9\r\n\r\n"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to("GET /" + std::string(100'000, 'a') + " HTTP/1.1\r\n\r\n"), StartsWith("HTTP/1.1 4"));
    EXPECT_THAT(said_to("BREW /rpc HTTP/1.1\r\n\r\n"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to("PUT /rpc HTTP/1.1\r\nContent-Length: 2\r\n\r\n{}"), StartsWith("HTTP/1.1 405 "));
    EXPECT_THAT(said_to("GET /a%0ab HTTP/1.1\r\nConnection: close\r\n\r\n"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to("GET /a%7fb HTTP/1.1\r\nConnection: close\r\n\r\n"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to(std::string("\0\xff\r\n\r\n", 6)), StartsWith("HTTP/1.1 400 "));
    EXPECT_EQ(said_to("GET / HT"), "") << "a head that does not come whole is cut off";
    EXPECT_EQ(get("/healthz")->status, 200);
}

TEST_F(Service_http, a_body_whose_length_can_be_read_in_two_ways_is_refused) {
    start();
    const std::string smuggled = "GET /metrics HTTP/1.1\r\n\r\n";
    const std::string both =
        said_to(head("Content-Length: 5\r\nTransfer-Encoding: chunked\r\n") + "0\r\n\r\n" + smuggled);
    EXPECT_THAT(both, StartsWith("HTTP/1.1 400 "));
    EXPECT_EQ(both.find("HTTP/1.1", 1), std::string::npos) << "nothing behind it is read as a request";
    EXPECT_THAT(said_to(head("Content-Length: 2\r\nContent-Length: 3\r\n") + "{}"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to(head("Transfer-Encoding: chunked\r\nTransfer-Encoding: chunked\r\n") + "0\r\n\r\n"),
                StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to(head("Content-Length: x\r\n") + "{}"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to(head("Content-Length: 2x\r\n") + "{}"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to(head("Content-Length: -1\r\n") + "{}"), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to(head("Transfer-Encoding: gzip, chunked\r\n") + "{}"), StartsWith("HTTP/1.1 501 "));
    EXPECT_THAT(said_to("GET /healthz HTTP/1.1\r\nContent-Length: 26\r\n\r\n" + smuggled), StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to("GET /healthz HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n"),
                StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(said_to(head("Content-Length: 2\r\nContent-Type: multipart/form-data; boundary=x\r\n") + "{}"),
                StartsWith("HTTP/1.1 415 "));
    EXPECT_THAT(said_to(head("Content-Length: 2\r\nContent-Encoding: gzip\r\n") + "{}"), StartsWith("HTTP/1.1 415 "));
    EXPECT_THAT(said_to(head("Connection: close\r\n")), StartsWith("HTTP/1.1 411 "));
}

TEST_F(Service_http, bodies_are_taken_whole_or_in_chunks_up_to_their_limit) {
    options.body_bytes = 1000;
    start();
    const std::string body = create(1).dump();
    char size[16];
    std::snprintf(size, sizeof size, "%zx", body.size());
    const std::string chunked =
        head("Transfer-Encoding: chunked\r\nConnection: close\r\n") + size + "\r\n" + body + "\r\n0\r\n\r\n";
    EXPECT_THAT(said_to(chunked), HasSubstr("\"object\":1"));
    EXPECT_EQ(post_as(bearer, std::string(1001, ' '))->status, 413);
    EXPECT_THAT(said_to(head("Content-Length: 104857600\r\n")), StartsWith("HTTP/1.1 413 ")) << "before it is sent";
    EXPECT_THAT(said_to(head("Content-Length: 99999999999999999999999\r\n")), StartsWith("HTTP/1.1 413 "));
    std::string endless = head("Transfer-Encoding: chunked\r\n");
    for (int i = 0; i < 40; ++i) endless += "64\r\n" + std::string(100, ' ') + "\r\n";
    EXPECT_THAT(said_to(endless), StartsWith("HTTP/1.1 413 "));
    EXPECT_THAT(said_to(head("Transfer-Encoding: chunked\r\n") + "zz\r\n{}\r\n0\r\n\r\n"), StartsWith("HTTP/1.1 4"));
}

TEST_F(Service_http, requests_that_are_sent_ahead_are_answered_in_order) {
    start();
    const std::string body = create(1).dump();
    const std::string one = head("Content-Length: " + std::to_string(body.size()) + "\r\n") + body;
    const std::string last = "GET /healthz HTTP/1.1\r\nConnection: close\r\n\r\n";
    const std::string said = said_to(one + one + last);
    const std::size_t second = said.find("\"object\":1", said.find("\"object\":1") + 1);
    ASSERT_NE(second, std::string::npos) << said;
    EXPECT_NE(said.find("alive", second), std::string::npos);
}

TEST_F(Service_http, who_sends_slowly_or_nothing_keeps_nobody_waiting) {
    options.http.workers = 2;
    options.http.head = std::chrono::seconds(60);
    start();
    std::vector<int> slow;
    for (int i = 0; i < 300; ++i) {
        slow.push_back(connected());
        if (i % 2 == 0) {
            ASSERT_EQ(send(slow.back(), "GET /hea", 8, MSG_NOSIGNAL), 8);
        }
    }
    EXPECT_EQ(get("/healthz")->status, 200);
    EXPECT_EQ(post(create(1))->status, 200);
    EXPECT_THAT(get("/metrics")->body, HasSubstr("cuvexa_clients 30")) << "and those that are just being closed";
    for (const int handle : slow) close(handle);
}

TEST_F(Service_http, beyond_its_connections_the_longest_idle_is_closed) {
    options.http.connections = 10;
    start();
    std::vector<int> idle;
    for (int i = 0; i < 12; ++i) idle.push_back(connected());
    char byte = 0;
    EXPECT_EQ(recv(idle[0], &byte, 1, 0), 0) << "the first is closed";
    EXPECT_EQ(recv(idle[1], &byte, 1, 0), 0) << "and the second";
    EXPECT_EQ(recv(idle[11], &byte, 1, MSG_DONTWAIT), -1) << "the last is open";
    for (const int handle : idle) close(handle);
}

TEST_F(Service_http, a_body_that_does_not_come_is_not_waited_for_without_end) {
    options.http.body = std::chrono::milliseconds(200);
    start();
    EXPECT_THAT(said_to(head("Content-Length: 100\r\n") + "{"), StartsWith("HTTP/1.1 408 "));
}

TEST_F(Service_http, nobody_sends_a_body_before_it_is_known_who_it_is) {
    options.http.body = std::chrono::seconds(60);
    start();
    EXPECT_THAT(said_to("POST /rpc HTTP/1.1\r\nContent-Length: 100\r\n\r\n"), StartsWith("HTTP/1.1 401 "));
}

TEST_F(Service_http, no_value_of_a_request_becomes_a_header_of_its_answer) {
    start();
    const std::string said =
        said_to("GET /x%0d%0aSet-Cookie:%20a=b HTTP/1.1\r\nX: a\r\n Set-Cookie: a=b\r\nConnection: close\r\n\r\n");
    EXPECT_EQ(said.find("Set-Cookie"), std::string::npos) << said;
}

TEST_F(Service_http, without_tls_only_this_machine_is_listened_to) {
    options.host = "0.0.0.0";
    EXPECT_THROW(start(), std::runtime_error);
    options.host = "127.nonsense";
    EXPECT_THROW(start(), std::runtime_error);
    options.host = "127.0.0.1";
    options.certificate = options.key = (folder / "nothing.pem").string();
    EXPECT_THROW(start(), std::runtime_error);
}

TEST_F(Service_http, an_address_is_taken_once) {
    start();
    service::Service_options second = options;
    second.port = running->port();
    EXPECT_THROW(service::Service(second, log), std::runtime_error);
}

TEST(Service_form, steps_and_lists_are_read_as_they_stand) {
    using testing::ElementsAre;
    EXPECT_THAT(service::steps_of("/norte/rpc"), ElementsAre("norte", "rpc"));
    EXPECT_THAT(service::steps_of("//rpc"), ElementsAre("", "rpc"));
    EXPECT_THAT(service::steps_of("rpc"), ElementsAre("rpc"));
    EXPECT_THAT(service::steps_of(""), ElementsAre());
    EXPECT_TRUE(service::lists("return=minimal, Statement-by-Statement;x=1", "statement-by-statement"));
    EXPECT_FALSE(service::lists("statement-by-statements", "statement-by-statement"));
}

// ---- TLS ------------------------------------------------------------------------------------------------------------

/// Writes a certificate that this machine signs for itself, and its key.
void write_certificate(const std::string& certificate_file, const std::string& key_file) {
    EVP_PKEY* const key = EVP_EC_gen("P-256");
    X509* const certificate = X509_new();
    X509_set_version(certificate, 2);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate), 0);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 3600);
    X509_set_pubkey(certificate, key);
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char*>("localhost"), -1, -1, 0);
    X509_set_issuer_name(certificate, X509_get_subject_name(certificate));
    X509_sign(certificate, key, EVP_sha256());
    std::FILE* const out = std::fopen(certificate_file.c_str(), "w");
    PEM_write_X509(out, certificate);
    std::fclose(out);
    std::FILE* const secret = std::fopen(key_file.c_str(), "w");
    PEM_write_PrivateKey(secret, key, nullptr, nullptr, 0, nullptr, nullptr);
    std::fclose(secret);
    X509_free(certificate);
    EVP_PKEY_free(key);
}

class Service_tls : public Service_http {
protected:
    void SetUp() override {
        Service_http::SetUp();
        options.certificate = (folder / "cert.pem").string();
        options.key = (folder / "key.pem").string();
        write_certificate(options.certificate, options.key);
        start();
    }
};

TEST_F(Service_tls, a_certificate_and_a_key_that_are_not_of_one_another_do_not_serve) {
    stop();
    const service::Service_options good = options;
    options.key.clear();
    EXPECT_THROW(start(), std::runtime_error);
    options = good;
    options.certificate.clear();
    EXPECT_THROW(start(), std::runtime_error);
    options = good;
    options.key = (folder / "other.pem").string();
    write_certificate((folder / "other-cert.pem").string(), options.key);
    EXPECT_THROW(start(), std::runtime_error);
    options = good;
    start();
}

TEST_F(Service_tls, its_cookie_is_for_connections_like_it_alone) {
    httplib::SSLClient client("127.0.0.1", running->port());
    client.enable_server_certificate_verification(false);
    const auto signed_in = client.Post("/session", {{"Authorization", "Bearer " + bearer}}, "", "application/json");
    ASSERT_TRUE(signed_in);
    EXPECT_THAT(signed_in->get_header_value("Set-Cookie"), HasSubstr("; SameSite=Strict; Secure"));
}

TEST_F(Service_tls, requests_and_long_answers_go_through_it) {
    httplib::SSLClient client("127.0.0.1", running->port());
    client.set_ca_cert_path(options.certificate.c_str());
    client.enable_server_certificate_verification(false);
    client.set_keep_alive(true);
    const httplib::Headers headers{{"Authorization", "Bearer " + bearer}};
    Json batch = Json::array();
    for (int i = 1; i <= 90; ++i) batch.push_back(create(i));
    for (int turn = 0; turn < 3; ++turn) {
        const auto answered = client.Post("/rpc", headers, batch.dump(), "application/json");
        ASSERT_TRUE(answered);
        EXPECT_EQ(Json::parse(answered->body).size(), 90u);
    }
}

TEST_F(Service_tls, nothing_older_than_1_2_is_spoken_and_nothing_without_it) {
    httplib::SSLClient client("127.0.0.1", running->port());
    client.enable_server_certificate_verification(false);
    SSL_CTX_set_max_proto_version(client.ssl_context(), TLS1_1_VERSION);
    EXPECT_FALSE(client.Get("/healthz"));
    EXPECT_EQ(said_to("GET /healthz HTTP/1.1\r\n\r\n").find("HTTP"), std::string::npos);
}

}  // namespace
}  // namespace cuvexa::tests
