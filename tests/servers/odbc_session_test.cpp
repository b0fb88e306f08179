// What only a session through ODBC has: connection strings, drivers that never come back, code pages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include "cuvexa/database/odbc_connection.h"
#include "cuvexa/errors.h"
#include "database/connection_string.h"
#include "database/conninfo.h"
#include "servers/listener.h"

namespace cuvexa::tests {
namespace {

class Odbc : public ::testing::Test {
protected:
    void SetUp() override {
        const char* const text = std::getenv("CUVEXA_TEST_DB");
        if (text == nullptr || database::is_conninfo(text)) GTEST_SKIP() << "CUVEXA_TEST_DB names no server for ODBC";
        connection_string = text;
        session = std::make_unique<Odbc_connection>(connection_string);
        if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "in PostgreSQL's own words";
    }

    std::string connection_string;
    std::unique_ptr<Odbc_connection> session;
};

/// The connection string with other values for some keys; an empty one leaves the key out.
std::string changed(const std::string& connection_string, const std::map<std::string, std::string>& changes) {
    std::string text;
    for (const auto& [key, value] : database::connection_attributes(connection_string)) {
        const auto change = changes.find(std::string(key));
        const std::string now = change == changes.end() ? std::string(value) : change->second;
        if (!now.empty()) text.append(key).append("=").append(now).append(";");
    }
    return text;
}

// A literal carries no N: what the database's code page lacks would become a question mark on SQL Server.
TEST_F(Odbc, characters_that_the_database_does_not_keep_are_refused_by_name_and_nothing_is_sent) {
    const auto without = [&] {
        try {
            session->execute("DROP DATABASE occidental");
        } catch (const Database_error&) {
            // It was not there.
        }
    };
    without();
    session->execute("CREATE DATABASE occidental ENCODING 'WIN1252' LOCALE 'C' TEMPLATE template0");
    {
        Odbc_connection western(changed(connection_string, {{"Database", "occidental"}}));
        EXPECT_EQ(to_text(western.execute("SELECT '¡Año de la Peña, 5 €!' AS V")->field("V")), "¡Año de la Peña, 5 €!");
        try {
            western.execute("SELECT 'Łódź 日本' AS V");
            ADD_FAILURE() << "it was sent";
        } catch (const Database_error& error) {
            EXPECT_STREQ(error.what(),
                         "La base de datos no guarda estos caracteres: Łź日本 (su página de códigos es la "
                         "1252); la instrucción no se envió a la base de datos");
        }
        EXPECT_FALSE(western.execute("SELECT 1 AS V")->eof());
    }
    without();
}

TEST_F(Odbc, a_password_logs_in_whatever_stands_in_it) {
    try {
        session->execute("CREATE ROLE otra_caja LOGIN");
    } catch (const Database_error&) {
        // A test that failed left it.
    }
    const std::string apart = changed(connection_string, {{"UID", "otra_caja"}, {"PWD", ""}});
    for (const std::string password :
         {"a b", " ab", "ab ", "a;b", "a{b", "{ab", "a}b", "ab}", "{ab}", "a=b", "[]()?*!@", "a};b", "%41+b", "ñ;€"}) {
        session->execute("ALTER ROLE otra_caja PASSWORD '" + password + "'");
        EXPECT_NO_THROW(Odbc_connection(apart, {.password = password})) << password;
        EXPECT_THROW(Odbc_connection(apart, {.password = password + "x"}), Database_error) << password;
    }
    session->execute("DROP ROLE otra_caja");
}

TEST_F(Odbc, a_server_that_hears_nothing_any_more_is_given_up) {
    std::string port;
    for (const auto& [key, text] : database::connection_attributes(connection_string)) {
        if (key == "Port") port = text;
    }
    Relay relay(std::stoi(port));
    Odbc_connection through(changed(connection_string, {{"Port", std::to_string(relay.port())}}),
                            {.statement_timeout_s = 1});
    EXPECT_FALSE(through.execute("SELECT 1 AS V")->eof());
    relay.freeze();
    const auto failure = [&] {
        try {
            through.execute("SELECT 1 AS V");
        } catch (const Database_error& error) {
            return std::string(error.what());
        }
        return std::string("none");
    };
    EXPECT_EQ(failure(),
              "Se perdió la conexión con el servidor de base de datos (el servidor no respondió en 1 segundos)");
}

}  // namespace
}  // namespace cuvexa::tests
