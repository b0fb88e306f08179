// What a PostgreSQL server refuses, each told in a clear text with its SQLSTATE and without the password; and what is large.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "cuvexa/company.h"
#include "cuvexa/database/postgresql_connection.h"
#include "cuvexa/errors.h"
#include "cuvexa/unit_of_work.h"
#include "servers/session.h"

namespace cuvexa::tests {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr auto no_session = "No es posible abrir la sesión con el servidor de base de datos (";

class Refusals : public ::testing::Test {
protected:
    void SetUp() override {
        uri = postgresql_text();
        if (uri.empty()) GTEST_SKIP() << "CUVEXA_TEST_DB is no text of PostgreSQL";
        session = std::make_unique<Postgresql_connection>(uri);
        session->prepare_database();
        clean();
    }
    void TearDown() override {
        if (session) clean();
    }

    void clean() {
        for (const char* const text : {"DROP TABLE Prueba", "DROP DATABASE otra", "DROP ROLE nadie"})
            failure(*session, text);
    }

    /// What opening fails with; the session then works, when it opens after all.
    std::string refusal(const std::string& text) const {
        const std::string said = failure_of([&] { Postgresql_connection(text).execute("SELECT 1 AS V"); });
        EXPECT_THAT(said, Not(HasSubstr(password())));
        return said;
    }

    std::string password() const {
        const auto colon = uri.find(':', uri.find("://") + 3);
        return uri.substr(colon + 1, uri.find('@') - colon - 1);
    }
    std::string of_database(const std::string& name) const { return uri.substr(0, uri.rfind('/') + 1) + name; }
    std::string of_user(const std::string& name, const std::string& password) const {
        return "postgresql://" + name + ":" + password + uri.substr(uri.find('@'));
    }

    std::string uri;
    std::unique_ptr<Postgresql_connection> session;
};

TEST_F(Refusals, of_a_session_say_why) {
    EXPECT_THAT(refusal(of_user("cuvexa", "falsa")),
                AllOf(StartsWith(no_session), HasSubstr("password authentication failed"), HasSubstr("[08001]")));
    EXPECT_THAT(refusal(of_database("no_existe")),
                AllOf(StartsWith(no_session), HasSubstr("\"no_existe\" does not exist"), HasSubstr("[08001]")));
    EXPECT_THAT(refusal(uri + "?sslmode=verify-full"),
                AllOf(StartsWith(no_session), HasSubstr("SSL"), HasSubstr("[08001]")));
    session->execute("CREATE DATABASE otra TEMPLATE template0");
    session->execute("ALTER DATABASE otra ALLOW_CONNECTIONS false");
    EXPECT_THAT(refusal(of_database("otra")),
                AllOf(StartsWith(no_session), HasSubstr("not currently accepting connections"), HasSubstr("[08001]")));
    EXPECT_EQ(refusal(uri), "");
}

TEST_F(Refusals, a_database_of_another_encoding_is_not_used) {
    session->execute("CREATE DATABASE otra TEMPLATE template0 ENCODING LATIN1 LC_COLLATE 'C' LC_CTYPE 'C'");
    EXPECT_EQ(refusal(of_database("otra")),
              "La base de datos guarda sus textos en LATIN1; créela con la codificación UTF8 [22021]");
}

TEST_F(Refusals, a_user_without_rights_is_told_and_nothing_is_half_done) {
    session->execute("CREATE ROLE nadie LOGIN PASSWORD 'nada'");
    session->execute("CREATE TABLE Prueba (Llave int)");
    session->execute("GRANT INSERT ON Prueba TO nadie");
    Postgresql_connection other(of_user("nadie", "nada"));
    EXPECT_FALSE(unit_of_work(other, [&] {
        EXPECT_EQ(failure(other, "INSERT INTO Prueba (Llave) VALUES (1)"), "");
        EXPECT_THAT(failure(other, "SELECT Llave FROM Prueba"),
                    HasSubstr("permission denied for table prueba [42501]"));
        return false;
    }));
    EXPECT_EQ(to_text(session->execute("SELECT COUNT(*) AS V FROM Prueba")->field("V")), "0");
    failure(other, "SELECT 1 AS V");
}

TEST_F(Refusals, a_statement_that_takes_too_long_is_told_with_its_state) {
    Postgresql_connection brief(uri, {.statement_timeout_s = 1});
    EXPECT_THAT(failure(brief, "SELECT pg_sleep(60)"), HasSubstr("[57014]"));
    EXPECT_EQ(failure(brief, "SELECT 1 AS V"), "");
}

TEST_F(Refusals, a_value_of_a_hundred_megabytes_is_kept_and_one_with_a_nul_is_not_sent) {
    session->execute("CREATE TABLE Prueba (Llave int, Texto text)");
    const std::string large(100'000'000, 'x');
    session->execute("INSERT INTO Prueba (Llave, Texto) VALUES (1, '" + large + "')");
    EXPECT_EQ(to_text(session->execute("SELECT LEN(Texto) AS V FROM Prueba")->field("V")), "100000000");
    EXPECT_THAT(failure(*session, std::string("SELECT 'a\0b' AS V", 17)), HasSubstr("carácter nulo"));
}

}  // namespace
}  // namespace cuvexa::tests
