// What differs between servers, and the interpreter between them and the component; without a server.
#include "database/servers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cuvexa/errors.h"
#include "database/interpreter.h"
#include "database/row_set.h"

namespace cuvexa::tests {
namespace {

using database::Interpreter;
using database::Server;
using database::server_called;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Server& sql_server = server_called("Microsoft SQL Server");
const Server& postgresql = server_called("PostgreSQL");

/// Answers the question for columns of dates, and keeps what was asked.
class Asked {
public:
    explicit Asked(std::vector<std::string> dates) : dates_(std::move(dates)) {}

    Interpreter::Ask ask() {
        return [this](std::string_view text) {
            texts.emplace_back(text);
            auto rows = std::make_unique<database::Row_set>(
                std::make_shared<std::vector<std::string>>(std::vector<std::string>{"column_name"}));
            for (const std::string& date : dates_) rows->add(std::string_view(date));
            return rows;
        };
    }

    std::vector<std::string> texts;

private:
    std::vector<std::string> dates_;
};

std::string failure(Interpreter& interpreter, std::string_view text) {
    try {
        return "sent: " + interpreter.to_send(text);
    } catch (const Database_error& error) {
        return error.what();
    }
}

/// A row as a replica gives it.
std::unique_ptr<Recordset> row_of_replica(const std::optional<double>& behind_s) {
    auto rows = std::make_unique<database::Row_set>(std::make_shared<std::vector<std::string>>(
        std::vector<std::string>{"behind_s", "unapplied_bytes", "receives"}));
    if (behind_s) {
        rows->add(*behind_s);
    } else {
        rows->add_null();
    }
    rows->add(std::int64_t{512});
    rows->add(std::int64_t{0});
    return rows;
}

TEST(Servers, a_replica_says_how_far_behind_it_is) {
    const auto told = [](std::optional<double> behind_s) {
        return postgresql.replica_told([&](std::string_view) { return row_of_replica(behind_s); });
    };
    EXPECT_EQ(told(2.5)->behind_s, 2.5);
    EXPECT_EQ(told(-0.1)->behind_s, 0) << "a clock that is behind the primary's";
    EXPECT_EQ(told(std::nullopt)->behind_s, std::nullopt) << "nothing was applied yet";
    EXPECT_EQ(told(2.5)->unapplied_bytes, 512);
    EXPECT_FALSE(told(2.5)->receives);
    EXPECT_FALSE(sql_server.replica_told(
        [](std::string_view) -> std::unique_ptr<Recordset> { throw Database_error("it was asked"); }));
}

TEST(Servers, a_session_begins_with_its_servers_statements_and_the_waits_asked_for) {
    EXPECT_THAT(sql_server.session_statements({.lock_ms = 250, .statement_s = 60}),
                ElementsAre("SET LOCK_TIMEOUT 250"));
    EXPECT_THAT(postgresql.session_statements({.lock_ms = 250, .statement_s = 60}),
                ElementsAre("SET lock_timeout = 250", "SET statement_timeout = 60000",
                            "SET standard_conforming_strings = on", "SET client_min_messages = warning"));
}

TEST(Servers, only_postgresql_ends_a_statement_that_runs_too_long_by_itself) {
    EXPECT_TRUE(postgresql.ends_statements());
    EXPECT_FALSE(sql_server.ends_statements());
}

TEST(Servers, a_server_that_no_row_names_is_spoken_to_as_sql_server) {
    EXPECT_EQ(&server_called("Adaptive Server"), &sql_server);
    EXPECT_EQ(&server_called(""), &sql_server);
    EXPECT_EQ(&server_called("PostgreSQL 15.4"), &postgresql);
    EXPECT_NE(&postgresql, &sql_server);
}

TEST(Servers, a_result_that_is_no_number_shows_in_the_state) {
    EXPECT_TRUE(postgresql.says_no_number("22003")) << "value out of range: overflow";
    EXPECT_TRUE(sql_server.says_no_number("22003")) << "Arithmetic overflow error converting expression";
    EXPECT_FALSE(postgresql.says_no_number("22012")) << "division by zero";
    EXPECT_FALSE(sql_server.says_no_number("22001")) << "a text that is too long";
}

TEST(Servers, a_lost_connection_shows_in_the_state) {
    EXPECT_TRUE(sql_server.says_lost("08S01"));
    EXPECT_TRUE(postgresql.says_lost("08006"));
    EXPECT_TRUE(postgresql.says_lost("57P01")) << "the administrator stops the server";
    EXPECT_FALSE(postgresql.says_lost("57014")) << "only the statement was given up";
    EXPECT_FALSE(sql_server.says_lost("42000"));
}

TEST(Servers, another_session_in_the_way_shows_in_the_state) {
    EXPECT_TRUE(sql_server.says_conflict("40001")) << "the victim of a deadlock";
    EXPECT_TRUE(postgresql.says_conflict("40001")) << "not serializable";
    EXPECT_TRUE(postgresql.says_conflict("40P01")) << "a deadlock";
    EXPECT_TRUE(postgresql.says_conflict("55P03")) << "a lock that was waited for too long";
    EXPECT_FALSE(postgresql.says_conflict("23505")) << "it may be the caller's own";
    EXPECT_TRUE(postgresql.says_repeated_key("23505"));
    EXPECT_FALSE(sql_server.says_repeated_key("23000")) << "of any constraint";
    EXPECT_FALSE(sql_server.says_repeated_key(""));
    EXPECT_FALSE(sql_server.says_conflict("23000"));
}

TEST(The_interpreter, makes_transactions_and_nothing_else_serializable) {
    Asked asked({});
    Interpreter to_sql_server(sql_server, asked.ask());
    Interpreter to_postgresql(postgresql, asked.ask());
    EXPECT_EQ(to_postgresql.to_send("BEGIN TRANSACTION"), "BEGIN TRANSACTION ISOLATION LEVEL SERIALIZABLE");
    EXPECT_EQ(to_postgresql.around_last().before, "");

    EXPECT_EQ(to_sql_server.to_send("BEGIN TRANSACTION"), "BEGIN TRANSACTION");
    EXPECT_EQ(to_sql_server.around_last().before, "SET TRANSACTION ISOLATION LEVEL SERIALIZABLE");
    EXPECT_EQ(to_sql_server.around_last().after, "");
    for (const char* end : {"COMMIT TRANSACTION", "rollback transaction"}) {
        to_sql_server.to_send(end);
        EXPECT_EQ(to_sql_server.around_last().before, "") << end;
        EXPECT_EQ(to_sql_server.around_last().after, "SET TRANSACTION ISOLATION LEVEL READ COMMITTED") << end;
    }
    to_sql_server.to_send("SELECT 1");
    EXPECT_EQ(to_sql_server.around_last().after, "");
}

TEST(Servers, sql_server_reads_the_neutral_dates_under_every_language) {
    EXPECT_EQ(sql_server.date_style, Date_style::neutral);
    EXPECT_EQ(postgresql.date_style, Date_style::iso);
}

TEST(The_interpreter, passes_a_statement_to_sql_server_as_it_stands) {
    Asked asked({"fecha"});
    Interpreter interpreter(sql_server, asked.ask());
    const std::string text = "SELECT  ISNULL(a, '')\r\nFROM [T] WHERE Fecha = ''";
    EXPECT_EQ(interpreter.to_send(text), text);
    EXPECT_EQ(interpreter.translate(text), text);
    EXPECT_THAT(asked.texts, IsEmpty());
}

TEST(The_interpreter, lets_no_second_statement_through) {
    Asked asked({});
    Interpreter to_sql_server(sql_server, asked.ask());
    Interpreter to_postgresql(postgresql, asked.ask());
    EXPECT_THAT(failure(to_sql_server, "SELECT 1; DELETE FROM T"), HasSubstr("segunda instrucción"));
    EXPECT_THAT(failure(to_postgresql, "SELECT 1; DELETE FROM T"), HasSubstr("segunda instrucción"));
    EXPECT_THAT(failure(to_sql_server, "SELECT 1 DELETE FROM T"), HasSubstr("otra empieza en DELETE"));
    EXPECT_EQ(failure(to_sql_server, " ;"), "La instrucción está vacía");
    EXPECT_EQ(failure(to_postgresql, ""), "La instrucción está vacía");
}

TEST(The_interpreter, asks_postgresql_for_columns_of_dates_when_an_empty_text_first_needs_it) {
    Asked asked({"fecha", "alta"});
    Interpreter interpreter(postgresql, asked.ask());
    EXPECT_EQ(interpreter.to_send("SELECT a FROM T WHERE a = 'x'"), "SELECT a FROM T WHERE a = 'x'");
    EXPECT_THAT(asked.texts, IsEmpty());
    EXPECT_EQ(interpreter.to_send("SELECT a FROM T WHERE Fecha = ''"), "SELECT a FROM T WHERE Fecha = '1900-01-01'");
    EXPECT_EQ(interpreter.to_send("SELECT a FROM T WHERE a = N''"), "SELECT a FROM T WHERE a = ''");
    EXPECT_EQ(interpreter.translate("SELECT a FROM T WHERE Alta = ''"), "SELECT a FROM T WHERE Alta = '1900-01-01'");
    EXPECT_THAT(asked.texts, ElementsAre(postgresql.date_columns));
}

TEST(The_interpreter, asks_again_after_a_definition) {
    Asked asked({"fecha"});
    Interpreter interpreter(postgresql, asked.ask());
    interpreter.to_send("SELECT a FROM T WHERE Fecha = ''");
    EXPECT_EQ(interpreter.to_send("ALTER TABLE T ADD b varchar(max) DEFAULT ''"),
              "ALTER TABLE T ADD b citext DEFAULT ''");
    EXPECT_EQ(asked.texts.size(), 1u);
    interpreter.to_send("SELECT a FROM T WHERE Fecha = ''");
    EXPECT_EQ(asked.texts.size(), 2u);
}

}  // namespace
}  // namespace cuvexa::tests
