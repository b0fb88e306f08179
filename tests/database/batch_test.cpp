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

TEST(A_batch, is_not_what_one_statement_may_hold) {
    for (const char* one : {"SELECT a FROM T UNION ALL SELECT b FROM U", "INSERT INTO T(a) SELECT 'x', 1",
                            "INSERT INTO T(a) SELECT 'x' UNION SELECT 'y'", "UPDATE T SET a = (SELECT b FROM U)",
                            "SELECT T.Delete FROM T", "SELECT [drop], 'delete from T' FROM T WHERE a IN (SELECT 1)",
                            "CREATE TABLE T (a int)", "BEGIN TRANSACTION", "DELETE FROM T WHERE a = 'update'",
                            "UPDATE T SET T.a = 'x' FROM T INNER JOIN U ON U.b = T.b WHERE T.c = 'set'"}) {
        EXPECT_EQ(refusal_of(one), "") << one;
    }
}

}  // namespace
}  // namespace cuvexa::tests
