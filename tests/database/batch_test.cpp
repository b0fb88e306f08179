// A further statement is found without a `;` before it.
#include "database/dialect/batch.h"

#include <gtest/gtest.h>

#include "cuvexa/errors.h"

namespace cuvexa::tests {
using namespace dialect;
namespace {

std::string refusal_of(const std::string& text) {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    try {
        refuse_batch(text, tokens);
        return "";
    } catch (const Database_error& refusal) {
        return refusal.what();
    }
}

TEST(A_batch, is_refused_by_the_word_that_begins_its_second_statement) {
    EXPECT_EQ(
        refusal_of("SELECT * FROM Banco WHERE Bn_Cve_Banco = 'x' DELETE FROM Banco WHERE 'a'='a'"),
        "Solo se admite una instrucción a la vez: otra empieza en DELETE; la instrucción no se envió a la base de "
        "datos");
    for (const char* second :
         {"drop table Banco", "UPDATE Banco SET Bn_Saldo = 0", "EXEC xp", "INSERT INTO T VALUES(1)", "SELECT 1",
          "SET ROWCOUNT 1", "WAITFOR DELAY '1'", "DECLARE x int"}) {
        EXPECT_NE(refusal_of(std::string("SELECT 1 FROM T WHERE a = 'x' ") + second), "") << second;
    }
    EXPECT_NE(refusal_of("INSERT INTO T(a) VALUES('x') DELETE FROM T"), "");
    EXPECT_NE(refusal_of("INSERT INTO T(a) SELECT 'x' SELECT 1"), "");
    EXPECT_NE(refusal_of("UPDATE T SET a = 'x' DROP TABLE T"), "");
}

TEST(A_batch, may_not_begin_with_any_word_of_the_language) {
    for (const char* second : {"USE master",
                               "COMMIT",
                               "ROLLBACK TRAN",
                               "SAVE TRAN s",
                               "CHECKPOINT",
                               "THROW",
                               "REVERT",
                               "DISABLE TRIGGER t ON T",
                               "ENABLE TRIGGER t ON T",
                               "RETURN",
                               "OPEN c",
                               "CLOSE c",
                               "DEALLOCATE c",
                               "FETCH c",
                               "GOTO x",
                               "RECONFIGURE",
                               "DUMP DATABASE x",
                               "SETUSER",
                               "RAISERROR ('x', 1, 1)",
                               "END",
                               "RECEIVE * FROM q",
                               "SEND ON CONVERSATION 1"}) {
        for (const char* first : {"SELECT a FROM T WHERE b = 'x' ", "UPDATE T SET a = 1 WHERE b = 'x' ",
                                  "INSERT INTO T(a) VALUES('x') ", "DELETE FROM T WHERE a = 'x' "}) {
            EXPECT_NE(refusal_of(std::string(first) + second), "") << first << second;
        }
    }
    EXPECT_NE(refusal_of("UPDATE T SET a = 1 WHERE b = 2 SET NOCOUNT ON"), "");
    EXPECT_NE(refusal_of("CREATE TABLE T (a int) DROP TABLE U"), "");
    EXPECT_NE(refusal_of("CREATE TABLE T (a int) IF x"), "");
    EXPECT_NE(refusal_of("ALTER TABLE T ADD b int ADD c int"), "");
    EXPECT_NE(refusal_of("UPDATE T SET a = 1 VALUES (1)"), "");
}

TEST(A_batch, takes_no_select_behind_values_and_makes_no_table) {
    EXPECT_NE(refusal_of("INSERT INTO T(a) VALUES ('x', 1) SELECT 7 AS siete INTO Hackt FROM U"), "");
    EXPECT_NE(refusal_of("INSERT INTO T(a) VALUES ('x') SELECT 1"), "");
    EXPECT_NE(refusal_of("SELECT a INTO Hackt FROM T"), "");
    EXPECT_NE(refusal_of("INSERT INTO T(a) VALUES ('x') VALUES ('y')"), "");
    EXPECT_NE(refusal_of("INSERT INTO T(a) VALUES ('x') UNION SELECT 1 INTO Hackt"), "");
}

TEST(A_batch, is_not_what_one_statement_may_hold) {
    for (const char* one : {"SELECT a FROM T UNION ALL SELECT b FROM U",
                            "INSERT INTO T(a) SELECT 'x', 1",
                            "INSERT INTO T(a) SELECT 'x' UNION SELECT 'y'",
                            "UPDATE T SET a = (SELECT b FROM U)",
                            "SELECT T.Delete FROM T",
                            "SELECT [drop], 'delete from T' FROM T WHERE a IN (SELECT 1)",
                            "CREATE TABLE T (a int)",
                            "BEGIN TRANSACTION",
                            "DELETE FROM T WHERE a = 'update'",
                            "UPDATE T SET T.a = 'x' FROM T INNER JOIN U ON U.b = T.b WHERE T.c = 'set'",
                            "SELECT CASE WHEN a = 1 THEN 'end' ELSE 'x' END AS b, CASE b WHEN 1 THEN 2 END FROM T",
                            "ALTER TABLE T ADD b int",
                            "DROP TABLE IF EXISTS T",
                            "CREATE TABLE T (a int) ON PRIMARY",
                            "ALTER TABLE T DROP COLUMN b",
                            "SELECT a FROM T ORDER BY a OFFSET 0 ROWS FETCH NEXT 1 ROWS ONLY",
                            "COMMIT TRANSACTION",
                            "SET LOCK_TIMEOUT 100",
                            "CREATE TABLE T (a int) ON DELETE",
                            "DROP INDEX IF EXISTS i",
                            "ALTER TABLE T ALTER COLUMN b int"}) {
        EXPECT_EQ(refusal_of(one), "") << one;
    }
}

}  // namespace
}  // namespace cuvexa::tests
