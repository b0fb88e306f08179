// A session with a server, on the one that CUVEXA_TEST_DB names (tests/servers/with_postgresql starts one), by whichever way
// the text goes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

#include "cuvexa/errors.h"
#include "cuvexa/unit_of_work.h"
#include "servers/session.h"
#include "support/test_server.h"

namespace cuvexa::tests {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Session : public Session_with_table<Server_connection> {
protected:
    void SetUp() override {
        connection_string = server_text();
        if (connection_string.empty()) GTEST_SKIP() << "CUVEXA_TEST_DB names no server";
        begin(open_server(connection_string));
    }

    /// Two units of work that each add what the other one counts; what the second said.
    std::string failure_of_the_second(Connection& second) {
        Unit_of_work one(*session), two(second);
        session->execute("INSERT INTO Prueba (Llave, Numero) SELECT 1, COUNT(*) FROM Prueba");
        std::string said;
        try {
            second.execute("INSERT INTO Prueba (Llave, Numero) SELECT 2, COUNT(*) FROM Prueba");
            one.commit();
            two.commit();
        } catch (const Conflict_error& error) {
            said = error.what();
            EXPECT_TRUE(two.met_conflict());
            EXPECT_FALSE(one.met_conflict());
        }
        return said;
    }

    /// Another session ends this one's.
    void terminate() {
        const std::string id = text("SELECT pg_backend_pid() AS V");
        open_server(connection_string)->execute("SELECT pg_terminate_backend(" + id + ", 10000)");
    }

    std::string connection_string;
};

TEST_F(Session, units_of_work_are_serializable_and_a_bare_statement_is_as_the_server_has_it) {
    const auto second = open_server(connection_string);
    EXPECT_THAT(
        failure_of_the_second(*second),
        StartsWith("Otra sesión trabaja con los mismos datos; repita la operación (ERROR: could not serialize"));
    EXPECT_EQ(to_text(value("SELECT COUNT(*) AS V FROM Prueba")), "1") << "what the first one wrote";
    EXPECT_EQ(to_text(value("SELECT current_setting('transaction_isolation') AS V")), "read committed");
}

TEST_F(Session, rows_are_walked_forward_and_columns_named_without_regard_to_case) {
    session->execute("INSERT INTO Prueba (Llave, Texto) VALUES (1, 'uno'), (2, 'dos')");
    const auto rows = session->execute("SELECT Llave, Texto FROM Prueba ORDER BY Llave");
    ASSERT_FALSE(rows->eof());
    EXPECT_EQ(to_text(rows->field("LLAVE")), "1");
    EXPECT_EQ(to_text(rows->field("texto")), "uno");
    rows->move_next();
    EXPECT_EQ(to_text(rows->field("Texto")), "dos");
    EXPECT_THROW(rows->field("Otra"), Database_error);
    rows->move_next();
    EXPECT_TRUE(rows->eof());
    EXPECT_THROW(rows->move_next(), Database_error);
}

TEST_F(Session, a_recordset_outlives_later_statements) {
    session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
    const auto rows = session->execute("SELECT Llave AS V FROM Prueba");
    session->execute("DELETE FROM Prueba");
    ASSERT_FALSE(rows->eof());
    EXPECT_EQ(to_number(rows->field("V")), 1);
}

TEST_F(Session, a_double_comes_back_to_the_last_bit) {
    for (const double number : {0.1, 1.0 / 3, 123456789012345.67, -2.2250738585072014e-308, 1e300}) {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.17g", number);
        session->execute("DELETE FROM Prueba");
        session->execute("INSERT INTO Prueba (Llave, Numero) VALUES (1, " + std::string(digits) + ")");
        EXPECT_EQ(std::get<double>(value("SELECT Numero AS V FROM Prueba")), number);
    }
}

TEST_F(Session, a_result_that_is_not_finite_is_refused_as_on_the_embedded_engine) {
    const std::string no_number = "El resultado no cabe en un número";
    session->execute("INSERT INTO Prueba (Llave, Numero) VALUES (1, 1E308)");
    EXPECT_EQ(failure("UPDATE Prueba SET Numero = Numero + Numero"), no_number);
    EXPECT_EQ(failure("UPDATE Prueba SET Numero = 1E999"), no_number);
    EXPECT_EQ(failure("SELECT SUM(Numero * 10) AS V FROM Prueba"), no_number);
    EXPECT_EQ(std::get<double>(value("SELECT Numero AS V FROM Prueba")), 1e308);
    if (session->server_name() != "PostgreSQL") return;  // others know no such number
    for (const char* const number : {"NaN", "Infinity", "-Infinity"}) {
        EXPECT_EQ(failure(std::string("UPDATE Prueba SET Numero = '") + number + "'"), no_number) << number;
        EXPECT_EQ(failure(std::string("SELECT CAST('") + number + "' AS float) AS V"), no_number) << number;
    }
    EXPECT_EQ(failure("SELECT 1E308 * 10 AS V"), no_number) << "a decimal there";
}

TEST_F(Session, a_date_comes_back_as_a_date) {
    session->execute("INSERT INTO Prueba (Llave, Fecha) VALUES (1, '2024-03-15T10:20:30')");
    EXPECT_EQ(std::get<Date>(value("SELECT Fecha AS V FROM Prueba")), make_date(2024, 3, 15, 10, 20, 30));
    EXPECT_EQ(to_number(value("SELECT MONTH(Fecha) AS V FROM Prueba")), 3);
    session->execute("UPDATE Prueba SET Fecha = '20240229'");
    EXPECT_EQ(to_text(value("SELECT Fecha AS V FROM Prueba")), "2024-02-29");
}

TEST_F(Session, an_empty_text_in_a_column_of_dates_is_the_first_of_january_of_1900) {
    const Date first = make_date(1900, 1, 1);
    session->execute("INSERT INTO Prueba (Llave, Texto, Fecha) VALUES (1, '', '')");
    EXPECT_EQ(std::get<Date>(value("SELECT Fecha AS V FROM Prueba")), first);
    EXPECT_EQ(to_text(value("SELECT Texto AS V FROM Prueba")), "");
    session->execute("UPDATE Prueba SET Fecha = '20240229'");
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Fecha > '' AND Prueba.Fecha <> ''")), 1);
    session->execute("UPDATE Prueba SET Fecha = ''");
    EXPECT_EQ(std::get<Date>(value("SELECT Fecha AS V FROM Prueba")), first);
}

TEST_F(Session, a_table_made_by_the_session_has_its_dates_known) {
    session->execute("UPDATE Prueba SET Texto = ''");
    session->execute("DROP TABLE Prueba");
    session->execute("CREATE TABLE Prueba (Llave int, Texto datetime, Fecha varchar(10))");
    session->execute("INSERT INTO Prueba (Texto, Fecha) VALUES ('', '')");
    EXPECT_EQ(std::get<Date>(value("SELECT Texto AS V FROM Prueba")), make_date(1900, 1, 1));
    EXPECT_EQ(std::get<std::string>(value("SELECT Fecha AS V FROM Prueba")), "");
}

TEST_F(Session, a_name_in_brackets_may_be_a_word_of_the_language_in_any_case) {
    session->execute("DROP TABLE Prueba");
    session->execute("CREATE TABLE [Prueba] ([Order] int, [Group] varchar(10))");
    session->execute("INSERT INTO [PRUEBA] ([ORDER], [Group]) VALUES (1, '[x]')");
    const auto rows = session->execute("SELECT [prueba].[order] AS [User], Prueba.[GROUP] FROM Prueba");
    EXPECT_EQ(to_number(rows->field("USER")), 1);
    EXPECT_EQ(to_text(rows->field("Group")), "[x]");
}

TEST_F(Session, null_is_neither_empty_nor_zero) {
    session->execute("INSERT INTO Prueba (Llave, Texto) VALUES (1, NULL)");
    const auto rows = session->execute("SELECT Texto, Numero, Fecha FROM Prueba");
    EXPECT_TRUE(is_null(rows->field("Texto")));
    EXPECT_TRUE(is_null(rows->field("Numero")));
    EXPECT_TRUE(is_null(rows->field("Fecha")));
    session->execute("UPDATE Prueba SET Texto = ''");
    EXPECT_EQ(std::get<std::string>(value("SELECT Texto AS V FROM Prueba")), "");
}

TEST_F(Session, a_text_goes_and_comes_whole_whatever_stands_in_it) {
    // What drivers take for parameters and escapes, what needs two units of UTF-16, and both sides of a piece's end.
    for (const std::string& text : {std::string("¿Qué? {fn X} {d '2024'} \\n \\' $1 :a %s"), std::string("Ñandú €"),
                                    std::string("🏦 caja"), std::string(2046, 'x') + "ñ", std::string(2047, 'x') + "ñ",
                                    std::string(2047, 'x') + "🏦", std::string(100'000, 'y') + "€"}) {
        session->execute("DELETE FROM Prueba");
        std::string quoted;
        for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c);
        const std::string refused = failure("INSERT INTO Prueba (Llave, Texto) VALUES (1, '" + quoted + "')");
        if (refused.empty()) {
            EXPECT_EQ(to_text(value("SELECT Texto AS V FROM Prueba")), text);
        } else {
            EXPECT_THAT(refused, StartsWith("La base de datos no guarda estos caracteres: 🏦 ("));
        }
    }
}

TEST_F(Session, texts_compare_without_regard_to_case_and_take_like) {
    session->execute("INSERT INTO Prueba (Llave, Texto) VALUES (1, 'Recibo'), (2, 'RECIBO'), (3, 'otro')");
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Texto = 'rEcibo'")), 2);
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Texto IN ('RECIBO', 'OTRO')")), 3);
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Texto <> 'recibo'")), 1);
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Texto LIKE 'rec%'")), 2);
    EXPECT_EQ(to_number(value("SELECT COUNT(DISTINCT Texto) AS V FROM Prueba")), 2);
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE ISNULL(Texto, '') + '-X' = 'recibo-x'")), 2);
    EXPECT_EQ(
        to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE (CASE Llave WHEN 1 THEN 'Ab' ELSE 'Cd' END) = 'aB'")),
        1);
}

TEST_F(Session, a_column_filled_up_with_blanks_gives_what_was_written) {
    session->execute("ALTER TABLE Prueba ALTER COLUMN Texto TYPE char(10)");
    session->execute("INSERT INTO Prueba (Llave, Texto) VALUES (1, 'CA'), (2, ''), (3, ' a b'), (4, NULL)");
    EXPECT_EQ(std::get<std::string>(value("SELECT Texto AS V FROM Prueba WHERE Llave = 1")), "CA");
    EXPECT_EQ(std::get<std::string>(value("SELECT Texto AS V FROM Prueba WHERE Llave = 2")), "");
    EXPECT_EQ(std::get<std::string>(value("SELECT Texto AS V FROM Prueba WHERE Llave = 3")), " a b");
    EXPECT_TRUE(is_null(value("SELECT Texto AS V FROM Prueba WHERE Llave = 4")));
    EXPECT_EQ(std::get<std::string>(value("SELECT 'a ' AS V")), "a ") << "of other texts they belong to the value";
}

TEST_F(Session, capitals_equal_small_letters_with_their_accents_and_blanks_at_the_end_count_on_postgresql) {
    if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "PostgreSQL's own way";
    session->execute("INSERT INTO Prueba (Llave, Texto) VALUES (1, 'PEÑA'), (2, 'Pena'), (3, 'Él ')");
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Texto = 'peña'")), 1);
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Texto IN ('éL ', 'PENA')")), 2);
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba WHERE Texto = 'él'")), 0);
}

TEST_F(Session, one_statement_gives_the_next_number) {
    session->execute("INSERT INTO Prueba (Llave, Numero) VALUES (1, 7)");
    const auto rows = session->execute("UPDATE Prueba SET Numero = Numero + 1 OUTPUT inserted.Numero WHERE Llave = 1");
    ASSERT_FALSE(rows->eof());
    EXPECT_EQ(to_number(rows->field("Numero")), 8);
    EXPECT_TRUE(session->execute("UPDATE Prueba SET Numero = 0 OUTPUT inserted.Numero WHERE Llave = 2")->eof());
}

TEST_F(Session, a_second_statement_or_a_comment_never_reaches_the_server) {
    session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
    EXPECT_THAT(failure("SELECT 1; DELETE FROM Prueba"), HasSubstr("segunda instrucción"));
    EXPECT_THAT(failure("DELETE FROM Prueba -- todo"), HasSubstr("comentario"));
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba")), 1);
}

TEST_F(Session, a_failure_tells_state_native_code_and_message_and_leaves_the_session_usable) {
    EXPECT_THAT(failure("SELECT * FROM No_Existe"), AllOf(HasSubstr("o_existe"), HasSubstr("[42")));
    session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
    EXPECT_THAT(failure("INSERT INTO Prueba (Llave) VALUES (1)"), HasSubstr("[23"));
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba")), 1);
}

TEST_F(Session, a_scalar_sub_select_of_two_rows_fails) {
    session->execute("INSERT INTO Prueba (Llave) VALUES (1), (2)");
    EXPECT_NE(failure("SELECT (SELECT Llave FROM Prueba) AS V"), "");
}

TEST_F(Session, a_unit_of_work_is_kept_whole_or_not_at_all) {
    EXPECT_FALSE(unit_of_work(*session, [&] {
        session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
        return false;
    }));
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba")), 0);
    EXPECT_TRUE(unit_of_work(*session, [&] {
        session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
        return true;
    }));
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba")), 1);
}

TEST_F(Session, a_unit_of_work_of_which_a_statement_failed_is_not_kept_and_says_so) {
    if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "others go on after a failure";
    {
        Unit_of_work unit(*session);
        session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
        EXPECT_THAT(failure("INSERT INTO Prueba (Llave) VALUES (1)"), HasSubstr("[23505"));
        EXPECT_THAT(failure("INSERT INTO Prueba (Llave) VALUES (2)"), HasSubstr("[23505")) << "why the unit ended";
        EXPECT_THAT(failure_of([&] { unit.commit(); }),
                    StartsWith("La unidad de trabajo se deshizo, porque falló una de sus instrucciones"));
    }
    session->execute("INSERT INTO Prueba (Llave) VALUES (3)");
    EXPECT_EQ(to_text(value("SELECT MAX(Llave) AS V FROM Prueba")), "3");
    EXPECT_EQ(to_text(value("SELECT COUNT(*) AS V FROM Prueba")), "1");
}

TEST_F(Session, a_row_that_the_unit_looked_for_and_another_session_kept_meanwhile_is_a_conflict) {
    if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "others wait for what was looked for";
    const auto other = open_server(connection_string);
    const std::string missing = "INSERT INTO Prueba (Llave) SELECT 1 WHERE NOT EXISTS (SELECT Llave FROM Prueba)";
    Unit_of_work unit(*session);
    EXPECT_TRUE(session->execute("SELECT Llave FROM Prueba")->eof());
    other->execute(missing);
    EXPECT_THROW(session->execute(missing), Conflict_error);
    EXPECT_TRUE(unit.met_conflict());
}

TEST_F(Session, a_server_that_nobody_is_ahead_of_is_no_replica) {
    EXPECT_FALSE(session->replica().has_value());
}

TEST_F(Session, no_savepoint_stands_before_a_statement) {
    if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "in PostgreSQL's own words";
    Unit_of_work unit(*session);
    for (const char* const key : {"1", "2", "3"}) {
        session->execute(std::string("INSERT INTO Prueba (Llave) VALUES (") + key + ")");
    }
    // Each savepoint would give the rows behind it another transaction.
    EXPECT_EQ(to_text(value("SELECT COUNT(DISTINCT CAST(xmin AS varchar(20))) AS V FROM Prueba")), "1");
}

TEST_F(Session, a_statement_waits_for_another_user_only_so_long) {
    session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
    const auto other = open_server(connection_string, {.lock_timeout_ms = 100});
    const Unit_of_work held(*session);
    session->execute("UPDATE Prueba SET Texto = 'mío'");
    EXPECT_THAT(tests::failure(*other, "UPDATE Prueba SET Texto = 'tuyo'"), HasSubstr("lock"));
}

TEST_F(Session, a_statement_that_never_ends_is_cut_off) {
    if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "in PostgreSQL's own words";
    const auto brief = open_server(connection_string, {.statement_timeout_s = 1});
    EXPECT_THROW(brief->execute("SELECT pg_sleep(60)"), Database_error);
    EXPECT_FALSE(brief->execute("SELECT 1 AS V")->eof());
}

TEST_F(Session, a_lost_connection_ends_one_statement_and_the_next_has_another_session) {
    if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "in PostgreSQL's own words";
    terminate();
    // The server says it before it hangs up, or has hung up already.
    EXPECT_THAT(failure("SELECT 1 AS V"), StartsWith("Se perdió la conexión con el servidor de base de datos ("));
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba")), 0);
    EXPECT_EQ(to_text(value("SELECT current_setting('lock_timeout') AS V")), "10s") << "it begins as the first did";
}

TEST_F(Session, a_lost_connection_ends_the_unit_of_work_which_says_so) {
    if (session->server_name() != "PostgreSQL") GTEST_SKIP() << "in PostgreSQL's own words";
    const std::string over =
        "La unidad de trabajo terminó cuando se perdió la conexión con el servidor de base de datos; no se conservó "
        "nada de ella";
    {
        Unit_of_work unit(*session);
        session->execute("INSERT INTO Prueba (Llave) VALUES (1)");
        terminate();
        EXPECT_THAT(failure("INSERT INTO Prueba (Llave) VALUES (2)"), StartsWith("Se perdió la conexión"));
        EXPECT_EQ(failure("INSERT INTO Prueba (Llave) VALUES (3)"), over);
        EXPECT_THROW(unit.commit(), Database_error);
    }
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba")), 0);
    EXPECT_TRUE(unit_of_work(*session, [&] {
        session->execute("INSERT INTO Prueba (Llave) VALUES (4)");
        return true;
    }));
    EXPECT_EQ(to_number(value("SELECT COUNT(*) AS V FROM Prueba")), 1);
}

TEST_F(Session, no_failure_shows_the_password) {
    const std::string without = without_its_password(connection_string).text;
    EXPECT_THAT(failure_of([&] { open_server(without, {.password = "secreto-77"}); }),
                AllOf(StartsWith("No es posible abrir la sesión"), HasSubstr("["), Not(HasSubstr("secreto-77"))));
}

TEST_F(Session, the_password_may_be_given_apart) {
    const auto [without, password] = without_its_password(connection_string);
    EXPECT_FALSE(open_server(without, {.password = password})->execute("SELECT 1 AS V")->eof());
    EXPECT_THROW(open_server(without, {.password = "otra"}), Database_error);
    EXPECT_FALSE(open_server(connection_string, {.password = "otra"})->execute("SELECT 1 AS V")->eof());
}

}  // namespace
}  // namespace cuvexa::tests
