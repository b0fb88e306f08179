// What the tests of a session with a server share: which server, a table to write in, and what something failed with.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "cuvexa/data_access.h"
#include "cuvexa/errors.h"
#include "cuvexa/value.h"
#include "database/conninfo.h"

namespace cuvexa::tests {

/// The server that CUVEXA_TEST_DB names; empty when it names none.
inline std::string server_text() {
    const char* const text = std::getenv("CUVEXA_TEST_DB");
    return text == nullptr ? "" : text;
}

/// The same where sessions go by PostgreSQL's own protocol; else empty.
inline std::string postgresql_text() {
    const std::string text = server_text();
    return database::is_conninfo(text) ? text : "";
}

/// What an action fails with; empty when it does not.
template <class Action>
std::string failure_of(const Action& action) {
    try {
        action();
    } catch (const Database_error& error) {
        return error.what();
    }
    return "";
}

inline std::string failure(Connection& connection, const std::string& statement) {
    return failure_of([&] { connection.execute(statement); });
}

/// A session with the table `Prueba`, made for one test and dropped behind it.
template <class Opened>
class Session_with_table : public ::testing::Test {
protected:
    /// For `SetUp`, once it is known that there is a server.
    void begin(std::unique_ptr<Opened> opened) {
        session = std::move(opened);
        session->prepare_database();
        drop();
        session->execute(
            "CREATE TABLE Prueba (Llave int NOT NULL, Texto varchar(max) DEFAULT '', Numero float, Fecha datetime, "
            "PRIMARY KEY (Llave))");
    }
    void TearDown() override {
        if (session) drop();
    }

    /// The column V of the first row.
    Value value(const std::string& query) { return session->execute(query)->field("V"); }
    std::string text(const std::string& query) { return to_text(value(query)); }

    std::string failure(const std::string& statement) { return tests::failure(*session, statement); }

    std::unique_ptr<Opened> session;

private:
    // It may not be there.
    void drop() { failure("DROP TABLE Prueba"); }
};

}  // namespace cuvexa::tests
