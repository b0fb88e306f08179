// What PostgreSQL is given for a statement in the SQL Server dialect. No server is needed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "database/dialect/postgresql.h"
#include "database/dialect/translation.h"
#include "support/statement_files.h"

namespace cuvexa::dialect {
namespace {

std::string on_postgresql(std::string_view text) {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    return translate(text, tokens, postgresql).with_literals();
}

std::string prepared_on_postgresql(std::string_view text) {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    return translate(text, tokens, postgresql).with_parameters('$');
}

TEST(Postgresql_dialect, functions_have_their_names) {
    EXPECT_EQ(on_postgresql("SELECT ISNULL(a, 0) FROM T"), "SELECT COALESCE( a , 0 ) FROM T");
    EXPECT_EQ(on_postgresql("SELECT MONTH(f) FROM T"),
              "SELECT CAST(EXTRACT(MONTH FROM CAST( f  AS timestamp)) AS integer) FROM T");
    EXPECT_EQ(on_postgresql("SELECT GETDATE()"), "SELECT LOCALTIMESTAMP(3)");
}

TEST(Postgresql_dialect, joined_texts_compare_without_regard_to_case) {
    EXPECT_EQ(on_postgresql("SELECT a + '-' + T.b AS x FROM T"), "SELECT ( a || '-' || T . b ) ::citext AS x FROM T");
    EXPECT_EQ(on_postgresql("SELECT a FROM T WHERE a LIKE '%' + b + '%' AND c = 1"),
              "SELECT a FROM T WHERE a LIKE ( '%' || b || '%' ) ::citext AND c = 1");
    EXPECT_EQ(on_postgresql("SELECT a + b FROM T"), "SELECT a + b FROM T");
}

TEST(Postgresql_dialect, a_case_of_texts_is_cast_and_one_of_numbers_is_not) {
    EXPECT_EQ(on_postgresql("SELECT CASE a WHEN 1 THEN 'x' ELSE b END FROM T"),
              "SELECT CASE a WHEN 1 THEN 'x' ELSE b END ::citext FROM T");
    EXPECT_EQ(on_postgresql("SELECT CASE a WHEN 1 THEN 2 ELSE b END FROM T"),
              "SELECT CASE a WHEN 1 THEN 2 ELSE b END FROM T");
}

TEST(Postgresql_dialect, a_literal_takes_the_type_of_what_it_stands_beside) {
    EXPECT_EQ(on_postgresql("SELECT a FROM T WHERE 'x' = a AND f >= '2024-03-15'"),
              "SELECT a FROM T WHERE 'x' = a AND f >= '2024-03-15'");
}

TEST(Postgresql_dialect, a_joined_update_names_its_target_once) {
    EXPECT_EQ(on_postgresql("UPDATE T SET T.a = X.b FROM T INNER JOIN X ON X.k = T.k WHERE T.c = 'z'"),
              "UPDATE T SET a = X . b FROM X WHERE ( X . k = T . k ) AND ( T . c = 'z' )");
}

// With two parameters the group would be another expression than the column.
TEST(Postgresql_dialect, what_tells_a_group_is_no_parameter) {
    EXPECT_EQ(prepared_on_postgresql("SELECT CASE a WHEN 1 THEN 'x' ELSE b END AS c, SUM(d) FROM T WHERE e = 'y' "
                                     "GROUP BY CASE a WHEN 1 THEN 'x' ELSE b END HAVING SUM(d) > 2 ORDER BY b"),
              "SELECT CASE a WHEN 1 THEN 'x' ELSE b END ::citext AS c , SUM ( d ) FROM T WHERE e = $3 "
              "GROUP BY CASE a WHEN 1 THEN 'x' ELSE b END ::citext HAVING SUM ( d ) > 2 ORDER BY b");
    EXPECT_EQ(prepared_on_postgresql("SELECT a, SUM(d * 3) FROM T GROUP BY a HAVING SUM(d) > 2"),
              "SELECT a , SUM ( d * $1 ) FROM T GROUP BY a HAVING SUM ( d ) > $2");
    EXPECT_EQ(prepared_on_postgresql("SELECT 7 UNION SELECT ISNULL(a, 1) FROM T GROUP BY ISNULL(a, 1) UNION SELECT 8"),
              "SELECT $1 UNION SELECT COALESCE( a , 1 ) FROM T GROUP BY COALESCE( a , 1 ) UNION SELECT $4");
    EXPECT_EQ(prepared_on_postgresql("SELECT 7 FROM T WHERE a IN (SELECT b + 1 FROM U GROUP BY b + 1)"),
              "SELECT $1 FROM T WHERE a IN ( SELECT b + 1 FROM U GROUP BY b + 1 )");
}

TEST(Postgresql_dialect, output_is_returning_and_top_is_limit) {
    EXPECT_EQ(on_postgresql("UPDATE T SET a = a + 1 OUTPUT inserted.a WHERE k = 1"),
              "UPDATE T SET a = a + 1 WHERE k = 1 RETURNING a");
    EXPECT_EQ(on_postgresql("SELECT TOP 3 a FROM T ORDER BY a"), "SELECT a FROM T ORDER BY a LIMIT 3");
}

TEST(Postgresql_dialect, columns_have_its_types) {
    EXPECT_EQ(
        on_postgresql("CREATE TABLE dbo.T (a varchar(60) NOT NULL, b datetime DEFAULT NULL, c float DEFAULT 0, d bit, "
                      "PRIMARY KEY CLUSTERED (a))"),
        "CREATE TABLE T ( a citext NOT NULL CONSTRAINT \"a: admite hasta 60 caracteres\" "
        "CHECK ( CHAR_LENGTH(RTRIM( a ))<= 60 ) , b timestamp(3) DEFAULT NULL "
        "CONSTRAINT \"b: admite de 1753-01-01 a 9999-12-31\" CHECK ( b >='1753-01-01' AND  b <'10000-01-01' ) , "
        "c double precision DEFAULT 0 CONSTRAINT \"c: admite números finitos\" CHECK ( ABS( c )<'Infinity' ) , "
        "d smallint , PRIMARY KEY ( a ) )");
}

std::string with_dates(std::string_view text) {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    return translate(text, tokens, postgresql, {"f", "fecha_alta"}).with_literals();
}

TEST(Postgresql_dialect, an_empty_text_put_into_a_date_is_its_first_day) {
    EXPECT_EQ(with_dates("INSERT INTO T (a, F, Fecha_Alta) VALUES ('', '', N''), ('', '2024-03-15', '')"),
              "INSERT INTO T ( a , F , Fecha_Alta ) VALUES ( '' , '1900-01-01' , '1900-01-01' ) , "
              "( '' , '2024-03-15' , '1900-01-01' )");
    EXPECT_EQ(with_dates("INSERT T (f, a) SELECT '', '' FROM X WHERE b IN ('', 'z')"),
              "INSERT INTO T ( f , a ) SELECT '1900-01-01' , '' FROM X WHERE b IN ( '' , 'z' )");
    EXPECT_EQ(with_dates("UPDATE T SET a = '', f = '' WHERE a = ''"),
              "UPDATE T SET a = '' , f = '1900-01-01' WHERE a = ''");
}

TEST(Postgresql_dialect, an_empty_text_compared_with_a_date_is_its_first_day) {
    EXPECT_EQ(with_dates("SELECT a FROM T WHERE T.[F] <> '' AND '' < T.f AND a <> ''"),
              "SELECT a FROM T WHERE T . \"f\" <> '1900-01-01' AND '1900-01-01' < T . f AND a <> ''");
    EXPECT_EQ(with_dates("SELECT ISNULL(T.f, '') FROM T WHERE ISNULL(a, '') = ''"),
              "SELECT COALESCE( T . f , '1900-01-01' ) FROM T WHERE COALESCE( a , '' ) ::citext = ''");
}

TEST(Postgresql_dialect, a_name_in_marks_is_written_as_the_engine_keeps_it) {
    EXPECT_EQ(on_postgresql("SELECT [Order].[Saldo_Año] AS \"Total\" FROM [dbo].[Order] WHERE [a]]b\"c] = '[x]'"),
              "SELECT \"order\" . \"saldo_año\" AS \"total\" FROM \"order\" WHERE \"a]b\"\"c\" = '[x]'");
    EXPECT_EQ(on_postgresql("CREATE TABLE [T] ([Primary] [varchar](60) NOT NULL)"),
              "CREATE TABLE \"t\" ( \"primary\" citext NOT NULL CONSTRAINT \"Primary: admite hasta 60 caracteres\" "
              "CHECK ( CHAR_LENGTH(RTRIM( \"primary\" ))<= 60 ) )");
}

TEST(Postgresql_dialect, no_word_of_the_other_dialect_is_left_in_the_product_s_statements_and_no_value_is_lost) {
    for (const tests::Told_statement& told : tests::told_statements()) {
        const std::string translation = on_postgresql(told.text);
        EXPECT_TRUE(tests::keeps_values(told.text, translation)) << told.file << ": " << told.text << "\n"
                                                                 << translation;
        const std::string form = tests::Statement_form(translation).form;
        for (const char* word : {"ISNULL(", "IsNull(", "GETDATE", " TOP ", " OUTPUT ", " YEAR(", " MONTH("}) {
            EXPECT_EQ(form.find(word), std::string::npos) << word << " in " << told.file << ": " << translation;
        }
    }
}

}  // namespace
}  // namespace cuvexa::dialect
