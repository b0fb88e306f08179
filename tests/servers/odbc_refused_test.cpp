// What ODBC says where no server answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "cuvexa/database/odbc_connection.h"
#include "cuvexa/errors.h"
#include "database/utf16.h"
#include "servers/listener.h"
#include "servers/session.h"

namespace cuvexa::tests {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// A server that takes a login and goes: the password that the driver sent, which every byte hides as the protocol says.
std::string password_of_login(const Listener& listener) {
    if (!listener.ready(10000)) return "nobody came";
    const Socket client = listener.accept();
    std::vector<unsigned char> packet(4096);
    if (!client.ready(10000)) return "nothing was said";
    const auto size = recv(client.get(), packet.data(), packet.size(), 0);
    if (size < 8 + 52 || packet[0] != 0x10) return "no login";
    const auto number = [&](std::size_t at) { return static_cast<std::size_t>(packet[8 + at] | packet[9 + at] << 8); };
    std::u16string password;
    for (std::size_t i = 0; i < number(46); ++i) {
        const auto plain = [&](std::size_t at) {
            const unsigned hidden = packet.at(8 + number(44) + at) ^ 0xA5u;
            return (hidden >> 4 | hidden << 4) & 0xFFu;
        };
        password += static_cast<char16_t>(plain(2 * i) | plain(2 * i + 1) << 8);
    }
    return database::utf8_from(password);
}

TEST(Odbc_without_a_server, the_driver_for_sql_server_sends_the_password_that_was_given) {
    for (const std::string password :
         {"plain", "a b", "ab ", " ab", "a;b", "a{b", "{ab", "a}b", "ab}", "a=b", "[]()?*!@", "%41+b", "ñ;€"}) {
        const Listener listener;
        std::string sent;
        std::thread server([&] { sent = password_of_login(listener); });
        EXPECT_THROW(Odbc_connection("Driver=FreeTDS;Server=127.0.0.1;Port=" + std::to_string(listener.port()) +
                                         ";TDS_Version=7.0;UID=x",
                                     {.login_timeout_s = 5, .password = password}),
                     Database_error);
        server.join();
        EXPECT_EQ(sent, password);
    }
}

TEST(Odbc_without_a_server, a_driver_that_is_not_there_is_told_by_all_its_records) {
    EXPECT_THAT(failure_of([] { Odbc_connection("Driver=No Existe;Server=127.0.0.1;PWD=secreto-78"); }),
                AllOf(HasSubstr("[01000, 0]"), Not(HasSubstr("secreto-78"))));
}

TEST(Odbc_without_a_server, a_port_where_nobody_listens_is_told) {
    for (const std::string driver : {"PostgreSQL Unicode", "FreeTDS"}) {
        const std::string text = "Driver=" + driver + ";Server=127.0.0.1;Port=1;UID=x;PWD=secreto-79";
        EXPECT_THAT(failure_of([&] { Odbc_connection{text}; }),
                    AllOf(StartsWith("No es posible abrir la sesión"), HasSubstr("["), Not(HasSubstr("secreto-79"))));
    }
}

}  // namespace
}  // namespace cuvexa::tests
