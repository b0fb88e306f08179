// Each construct of the SQL Server dialect: what it becomes, and that it then means the same.
#include "database/dialect/postgresql.h"
#include "database/dialect/sqlite.h"
#include "database/dialect/translation.h"
#include "fixture.h"
#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Dialect_on_sqlite : public testing::Test {
protected:
    Dialect_on_sqlite() {
        run("CREATE TABLE Cuenta (Clave varchar(10) PRIMARY KEY, Banco varchar(10), Tipo varchar(20) DEFAULT '', "
            "Saldo decimal(18,6) DEFAULT 0, Fecha datetime)");
        run("CREATE TABLE Banco (Banco varchar(10) PRIMARY KEY, Nombre nvarchar(40) DEFAULT N'')");
        run("INSERT INTO Cuenta(Clave, Banco, Tipo, Saldo, Fecha) VALUES "
            "('C1', 'BRISA', '01', 100, '2024-03-15'), ('C2', 'brisa', '02', 50.5, '2024-03-15T10:20:30'), "
            "('C3', 'Otro', '01', -1E+2, '20231231')");
        run("INSERT INTO Banco VALUES ('Brisa', 'Banco Uno'), ('OTRO', 'Otro banco')");
    }

    void run(std::string_view text) { db.execute(text); }
    std::vector<std::string> v(std::string_view text) { return column(db, "v", text); }

    Sqlite_connection db{":memory:"};
};

TEST_F(Dialect_on_sqlite, isnull_takes_the_second_value_for_null) {
    EXPECT_THAT(v("SELECT ISNULL(SUM(Saldo),0) AS v FROM Cuenta WHERE Clave = 'x'"), ElementsAre("0"));
    EXPECT_THAT(v("SELECT IsNull(MAX(Clave), '0000') AS v FROM Cuenta WHERE Clave = 'x'"), ElementsAre("0000"));
    EXPECT_THAT(v("SELECT ISNULL(SUM(Saldo * 2),0) / 2 AS v FROM Cuenta"), ElementsAre("50.5"));
    EXPECT_THAT(v("SELECT ISNULL(ISNULL(NULL, NULL), 'z') AS v"), ElementsAre("z"));
}

TEST_F(Dialect_on_sqlite, plus_joins_texts_and_adds_numbers) {
    EXPECT_THAT(v("SELECT Banco + ' - ' + Clave AS v FROM Cuenta ORDER BY Clave"),
                ElementsAre("BRISA - C1", "brisa - C2", "Otro - C3"));
    EXPECT_THAT(v("SELECT 'CHEQUE-CA:' + Clave AS v FROM Cuenta WHERE Saldo = 100"), ElementsAre("CHEQUE-CA:C1"));
    EXPECT_THAT(v("SELECT N'ñ' + 'x' AS v"), ElementsAre("ñx"));
    EXPECT_THAT(v("SELECT ('a' + Clave) + Banco AS v FROM Cuenta WHERE Clave = 'C1'"), ElementsAre("aC1BRISA"));
    EXPECT_THAT(v("SELECT ISNULL(Tipo, '') + ISNULL(Banco, '') AS v FROM Cuenta WHERE Clave = 'C1'"),
                ElementsAre("01BRISA"));
    EXPECT_THAT(v("SELECT CASE WHEN 1 = 1 THEN 'a' ELSE 'b' END + Clave AS v FROM Cuenta WHERE Clave = 'C1'"),
                ElementsAre("aC1"));
    EXPECT_THAT(v("SELECT +Saldo + +1 AS v FROM Cuenta WHERE Clave = 'C1'"), ElementsAre("101"));
    EXPECT_THAT(v("SELECT 'a' + Cuenta.Clave + Cuenta.Tipo AS v FROM Cuenta WHERE 'c1' = Clave"), ElementsAre("aC101"));
    EXPECT_THAT(v("SELECT Saldo + 1 + Saldo AS v FROM Cuenta WHERE Clave = 'C1' AND Tipo + 0 = 1"), ElementsAre("201"));
    EXPECT_THAT(v("SELECT 'a' + NULL AS v"), ElementsAre("NULL"));
}

TEST_F(Dialect_on_sqlite, a_signed_number_is_added_and_taken_away) {
    run("UPDATE Cuenta SET Saldo = Saldo + -100 WHERE Clave = 'C1'");
    EXPECT_THAT(v("SELECT Saldo AS v FROM Cuenta WHERE Clave = 'C1'"), ElementsAre("0"));
    run("UPDATE Cuenta SET Saldo = Saldo - -100.25 WHERE Clave = 'C1'");
    EXPECT_THAT(v("SELECT Saldo AS v FROM Cuenta WHERE Clave = 'C1'"), ElementsAre("100.25"));
}

TEST_F(Dialect_on_sqlite, parts_of_a_date_are_read_from_every_form_of_date_text) {
    EXPECT_THAT(v("SELECT YEAR(Fecha) * 10000 + MONTH(Fecha) * 100 + DAY(Fecha) AS v FROM Cuenta ORDER BY Clave"),
                ElementsAre("20240315", "20240315", "20231231"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE MONTH(Cuenta.Fecha) = 3 AND YEAR(Cuenta.Fecha) = 2024"),
                ElementsAre("2"));
    EXPECT_THAT(v("SELECT MONTH(NULL) AS v"), ElementsAre("NULL"));
    EXPECT_THAT(v("SELECT YEAR('') AS v"), ElementsAre("1900"));
    EXPECT_THAT(failure(db, "SELECT YEAR('mañana') AS v"), HasSubstr("convertir un texto en fecha"));
}

TEST_F(Dialect_on_sqlite, an_update_joins_its_target_with_other_tables) {
    run("UPDATE Cuenta SET Cuenta.Tipo = 'XX', Cuenta.Saldo = Cuenta.Saldo + 1 FROM Cuenta "
        "INNER JOIN Banco ON Banco.Banco = Cuenta.Banco WHERE Banco.Nombre = 'BANCO UNO' AND Clave IN ('C1', 'C3')");
    EXPECT_THAT(v("SELECT Tipo + '/' + Clave AS v FROM Cuenta ORDER BY Clave"), ElementsAre("XX/C1", "02/C2", "01/C3"));
    EXPECT_THAT(v("SELECT Saldo AS v FROM Cuenta WHERE Clave = 'C1'"), ElementsAre("101"));
}

TEST_F(Dialect_on_sqlite, a_condition_with_or_keeps_its_meaning_beside_the_joins) {
    run("UPDATE Cuenta SET Tipo = 'XX' FROM Cuenta INNER JOIN Banco ON Banco.Banco = Cuenta.Banco OR 1 = 0 "
        "WHERE Clave = 'C3' OR Clave = 'C9'");
    EXPECT_THAT(v("SELECT Clave AS v FROM Cuenta WHERE Tipo = 'XX'"), ElementsAre("C3"));
}

TEST_F(Dialect_on_sqlite, the_target_of_an_update_may_stand_anywhere_in_from_and_by_its_alias) {
    run("UPDATE c SET c.Tipo = b.Nombre FROM Banco b INNER JOIN Cuenta AS c ON c.Banco = b.Banco "
        "INNER JOIN Cuenta otra ON otra.Clave = c.Clave WHERE otra.Saldo < 0");
    EXPECT_THAT(v("SELECT Tipo AS v FROM Cuenta ORDER BY Clave"), ElementsAre("01", "02", "Otro banco"));
    run("UPDATE Cuenta SET Cuenta.Tipo = 'Z' FROM Cuenta WHERE Clave = 'c1'");
    EXPECT_THAT(v("SELECT Tipo AS v FROM Cuenta WHERE Clave = 'C1'"), ElementsAre("Z"));
    run("UPDATE [Cuenta] SET [Cuenta].[Tipo] = 'Y' FROM Cuenta x, Banco WHERE Banco.Banco = x.Banco AND x.Clave = "
        "'C2'");
    EXPECT_THAT(v("SELECT Tipo AS v FROM Cuenta WHERE Clave = 'C2'"), ElementsAre("Y"));
}

TEST_F(Dialect_on_sqlite, a_joined_update_finds_its_rows_by_their_index) {
    const auto steps =
        plan(db,
             "UPDATE Cuenta SET Cuenta.Tipo = 'X' FROM Cuenta INNER JOIN Banco ON Banco.Banco = Cuenta.Banco "
             "WHERE Cuenta.Clave IN ('C1', 'C2')");
    EXPECT_THAT(steps, testing::Contains(HasSubstr("SEARCH Cuenta USING INDEX")));
    EXPECT_THAT(steps, Not(testing::Contains(HasSubstr("SCAN"))));
}

TEST_F(Dialect_on_sqlite, an_outer_join_of_the_target_is_left_to_the_engine_to_refuse) {
    EXPECT_NE(failure(db, "UPDATE Cuenta SET Tipo = 'X' FROM Cuenta LEFT JOIN Banco ON Banco.Banco = Cuenta.Banco"),
              "");
}

TEST_F(Dialect_on_sqlite, a_scalar_sub_select_of_two_values_is_an_error_and_changes_nothing) {
    EXPECT_THAT(failure(db, "UPDATE Cuenta SET Tipo = (SELECT Tipo FROM Cuenta a WHERE a.Banco = Cuenta.Banco)"),
                HasSubstr("más de un valor"));
    EXPECT_THAT(failure(db,
                        "UPDATE Cuenta SET Tipo = (SELECT DISTINCT CASE Tipo WHEN '01' THEN 'A' WHEN '02' THEN 'B' END "
                        "FROM Cuenta a WHERE a.Banco = Cuenta.Banco)"),
                HasSubstr("más de un valor"));
    EXPECT_THAT(failure(db, "SELECT 1 FROM Banco WHERE Banco = (SELECT Banco FROM Cuenta)"),
                HasSubstr("más de un valor"));
    EXPECT_THAT(failure(db, "SELECT (SELECT TOP 2 Clave FROM Cuenta ORDER BY Clave) AS v"),
                HasSubstr("más de un valor"));
    EXPECT_THAT(failure(db, "SELECT (SELECT Clave FROM Cuenta UNION SELECT Banco FROM Banco) AS v"),
                HasSubstr("más de un valor"));
    EXPECT_THAT(failure(db, "SELECT ISNULL((SELECT Clave FROM Cuenta), '') AS v"), HasSubstr("más de un valor"));
    EXPECT_THAT(failure(db, "SELECT (SELECT MAX(Clave) FROM Cuenta GROUP BY Tipo) AS v"), HasSubstr("más de un valor"));
    EXPECT_THAT(v("SELECT Tipo AS v FROM Cuenta ORDER BY Clave"), ElementsAre("01", "02", "01"));
}

TEST_F(Dialect_on_sqlite, two_rows_are_two_values_even_when_they_are_null_or_equal) {
    EXPECT_THAT(failure(db, "SELECT (SELECT NULL FROM Cuenta) AS v"), HasSubstr("más de un valor"));
    EXPECT_THAT(failure(db, "SELECT (SELECT 'x' FROM Cuenta) AS v"), HasSubstr("más de un valor"));
}

TEST_F(Dialect_on_sqlite, a_scalar_sub_select_of_one_value_or_none_is_that_value_or_null) {
    run("UPDATE Cuenta SET Tipo = (SELECT DISTINCT CASE Tipo WHEN '01' THEN 'A' WHEN '02' THEN 'B' END "
        "FROM Cuenta a WHERE a.Clave = Cuenta.Clave)");
    EXPECT_THAT(v("SELECT Tipo AS v FROM Cuenta ORDER BY Clave"), ElementsAre("A", "B", "A"));
    EXPECT_THAT(v("SELECT (SELECT Clave FROM Cuenta WHERE Saldo = 7) AS v"), ElementsAre("NULL"));
    EXPECT_THAT(v("SELECT (SELECT Clave AS x FROM Cuenta WHERE Saldo = 100) AS v"), ElementsAre("C1"));
    EXPECT_THAT(v("SELECT (SELECT MAX(Saldo) FROM Cuenta) AS v"), ElementsAre("100"));
    EXPECT_THAT(v("SELECT (SELECT TOP 1 Clave FROM Cuenta ORDER BY Clave DESC) AS v"), ElementsAre("C3"));
    EXPECT_THAT(v("SELECT Banco AS v FROM Banco WHERE Banco = (SELECT Banco FROM Cuenta WHERE Clave = 'C2')"),
                ElementsAre("Brisa"));
    run("INSERT INTO Banco(Banco, Nombre) SELECT 'N', (SELECT Clave FROM Cuenta WHERE Clave = 'C1')");
    EXPECT_THAT(v("SELECT Nombre AS v FROM Banco WHERE Banco = 'N'"), ElementsAre("C1"));
}

TEST_F(Dialect_on_sqlite, a_sub_select_of_the_updated_table_is_asked_once_for_each_key) {
    EXPECT_EQ(db.translate("UPDATE Cuenta SET Saldo = (SELECT SUM(Saldo) FROM Cuenta a WHERE a.Banco = Cuenta.Banco), "
                           "Tipo = '' WHERE Tipo <> 'z'"),
              "UPDATE Cuenta SET Saldo = COALESCE ( cuvexa_recall ( 5 , Cuenta . Banco ) , cuvexa_remember ( 5 , "
              "Cuenta . Banco , ( SELECT SUM ( Saldo ) FROM Cuenta a WHERE a . Banco = Cuenta . Banco ) COLLATE NOCASE "
              ") ) COLLATE NOCASE , Tipo = '' WHERE Tipo <> 'z'");
    run("UPDATE Cuenta SET Banco = 'BRISA' WHERE Clave = 'C2'");
    run("UPDATE Cuenta SET Banco = NULL, Saldo = 7 WHERE Clave = 'C3'");
    run("UPDATE Cuenta SET Saldo = (SELECT SUM(Saldo) FROM Cuenta a WHERE a.Banco = Cuenta.Banco), "
        "Tipo = (SELECT DISTINCT CASE a.Banco WHEN 'BRISA' THEN 'b' END FROM Cuenta a WHERE a.Banco = Cuenta.Banco)");
    EXPECT_THAT(v("SELECT Saldo AS v FROM Cuenta ORDER BY Clave"), ElementsAre("150.5", "150.5", "NULL"));
    EXPECT_THAT(v("SELECT Tipo AS v FROM Cuenta ORDER BY Clave"), ElementsAre("b", "b", "NULL"));
    run("UPDATE Cuenta SET Saldo = (SELECT COUNT(*) FROM Cuenta a WHERE a.Banco = Cuenta.Banco)");
    EXPECT_THAT(v("SELECT Saldo AS v FROM Cuenta ORDER BY Clave"), ElementsAre("2", "2", "0"))
        << "nothing is left over";
}

TEST_F(Dialect_on_sqlite, a_sub_select_whose_answer_depends_on_more_than_one_column_is_asked_for_every_row) {
    for (const std::string query :
         {"SELECT MAX(Saldo) FROM Cuenta a WHERE a.Banco = Cuenta.Banco AND a.Tipo = Cuenta.Tipo",
          "SELECT MAX(Saldo) FROM Cuenta a WHERE a.Tipo = '01'",
          "SELECT MAX(Nombre) FROM Banco a WHERE a.Banco = Cuenta.Banco",
          "SELECT MAX(Saldo) FROM Cuenta a INNER JOIN Banco b ON b.Banco = a.Banco WHERE a.Banco = Cuenta.Banco",
          "SELECT MAX(Saldo) FROM Cuenta a WHERE a.Banco = Cuenta.Banco AND a.Tipo IN (SELECT Banco FROM Banco)"}) {
        EXPECT_THAT(db.translate("UPDATE Cuenta SET Saldo = (" + query + ")"), Not(HasSubstr("cuvexa_recall")))
            << query;
    }
}

TEST_F(Dialect_on_sqlite, a_sub_select_that_may_yield_many_rows_is_left_alone) {
    EXPECT_THAT(v("SELECT Clave AS v FROM Cuenta WHERE Banco IN (SELECT Banco FROM Banco) ORDER BY 1"),
                ElementsAre("C1", "C2", "C3"));
    EXPECT_THAT(v("SELECT Clave AS v FROM Cuenta WHERE Banco NOT IN (SELECT Banco FROM Banco)"), IsEmpty());
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE EXISTS (SELECT Banco FROM Banco)"), ElementsAre("3"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM (SELECT Clave FROM Cuenta) t, (SELECT Banco FROM Banco) u"),
                ElementsAre("6"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta INNER JOIN (SELECT Banco FROM Banco) b ON b.Banco = Cuenta.Banco"),
                ElementsAre("3"));
    run("INSERT INTO Banco(Banco) SELECT Clave FROM Cuenta");
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Banco"), ElementsAre("5"));
    run("INSERT INTO Banco(Banco) (SELECT Clave + 'x' FROM Cuenta)");
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Banco"), ElementsAre("8"));
}

TEST_F(Dialect_on_sqlite, a_select_to_insert_may_end_in_a_sub_select) {
    const std::string once =
        "INSERT INTO Banco(Banco) SELECT 'U' WHERE NOT EXISTS (SELECT Banco FROM Banco WHERE Banco = 'U')";
    run(once);
    run(once);
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Banco WHERE Banco = 'U'"), ElementsAre("1"));
    run("INSERT INTO Banco(Banco, Nombre) SELECT 'W', (SELECT Clave FROM Cuenta WHERE Saldo = 100)");
    EXPECT_THAT(v("SELECT Nombre AS v FROM Banco WHERE Banco = 'W'"), ElementsAre("C1"));
}

TEST_F(Dialect_on_sqlite, stored_texts_compare_group_and_sort_without_regard_to_case) {
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE BANCO = 'bRiSa'"), ElementsAre("2"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE Banco IN ('bRiSa', 'OTRO')"), ElementsAre("3"));
    EXPECT_THAT(v("SELECT COUNT(DISTINCT Banco) AS v FROM Cuenta"), ElementsAre("2"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta GROUP BY Banco ORDER BY Banco"), ElementsAre("2", "1"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta INNER JOIN Banco ON Cuenta.Banco = Banco.Banco"), ElementsAre("3"));
    EXPECT_THAT(v("SELECT Banco AS v FROM Banco WHERE Nombre LIKE 'BANC%'"), ElementsAre("Brisa"));
    EXPECT_THAT(failure(db, "INSERT INTO Banco(Banco) VALUES ('brisa')"), HasSubstr("UNIQUE constraint failed"));
}

TEST_F(Dialect_on_sqlite, computed_texts_compare_group_and_sort_without_regard_to_case) {
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE (CASE WHEN Tipo = '09' THEN '' ELSE Banco END) = 'BRISA'"),
                ElementsAre("2"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE CASE WHEN Tipo = '09' THEN '' ELSE Banco END IN ('BRISA')"),
                ElementsAre("2"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta GROUP BY CASE WHEN Tipo = '09' THEN '' ELSE Banco END ORDER BY 1"),
                ElementsAre("1", "2"));
    EXPECT_THAT(v("SELECT DISTINCT CASE WHEN Tipo = '09' THEN '' ELSE Banco END AS v FROM Cuenta"), testing::SizeIs(2));
    EXPECT_THAT(v("SELECT Clave AS v, ISNULL(Banco, '') AS b FROM Cuenta ORDER BY b, Clave"),
                ElementsAre("C1", "C2", "C3"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE ISNULL(Banco, '') = 'BRISA'"), ElementsAre("2"));
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta WHERE Banco + 'x' = 'BRISAX'"), ElementsAre("2"));
    EXPECT_THAT(v("SELECT 1 AS v WHERE 'a' = 'A' AND 'a' IN ('A') AND N'b' BETWEEN 'A' AND 'C'"), ElementsAre("1"));
    EXPECT_THAT(v("SELECT 1 AS v WHERE (SELECT Clave FROM Cuenta WHERE Clave = 'C1') = 'c1'"), ElementsAre("1"));
    EXPECT_THAT(
        v("SELECT CASE ISNULL(Banco, '') WHEN 'BRISA' THEN 'SI' ELSE 'NO' END AS v FROM Cuenta WHERE Clave = 'C2'"),
        ElementsAre("SI"));
}

TEST_F(Dialect_on_sqlite, top_gives_the_first_rows) {
    EXPECT_THAT(v("SELECT TOP 2 Clave AS v FROM Cuenta ORDER BY Clave DESC"), ElementsAre("C3", "C2"));
    EXPECT_THAT(v("SELECT DISTINCT TOP (1) Tipo AS v FROM Cuenta ORDER BY Tipo"), ElementsAre("01"));
    EXPECT_THAT(v("SELECT Clave AS v FROM Cuenta WHERE Clave IN (SELECT TOP 1 Clave FROM Cuenta ORDER BY Saldo)"),
                ElementsAre("C3"));
}

TEST_F(Dialect_on_sqlite, top_counts_behind_all_and_is_a_name_elsewhere) {
    EXPECT_THAT(v("SELECT ALL TOP 1 Clave AS v FROM Cuenta ORDER BY Clave"), ElementsAre("C1"));
    EXPECT_EQ(db.translate("SELECT Top FROM T"), "SELECT Top FROM T");
    EXPECT_EQ(db.translate("SELECT a AS Top FROM T"), "SELECT a AS Top FROM T");
}

TEST_F(Dialect_on_sqlite, output_gives_back_what_was_written) {
    EXPECT_THAT(column(db, "Saldo", "UPDATE Cuenta SET Saldo = Saldo + 1 OUTPUT inserted.Saldo WHERE Clave = 'C1'"),
                ElementsAre("101"));
    EXPECT_THAT(v("INSERT INTO Banco(Banco, Nombre) OUTPUT inserted.Nombre AS v VALUES ('Z', 'zeta')"),
                ElementsAre("zeta"));
    EXPECT_THAT(v("INSERT INTO Banco(Banco, Nombre) OUTPUT inserted.Banco AS v SELECT Clave, Banco FROM Cuenta WHERE "
                  "Clave = 'C1'"),
                ElementsAre("C1"));
    EXPECT_THAT(v("DELETE FROM Banco OUTPUT deleted.Nombre AS v WHERE Banco = 'Z'"), ElementsAre("zeta"));
    EXPECT_THAT(column(db, "Saldo", "UPDATE Cuenta SET Saldo = 0 OUTPUT inserted.Saldo WHERE Clave = 'no'"), IsEmpty());
    EXPECT_THAT(v("UPDATE Cuenta SET Cuenta.Saldo = 5 OUTPUT inserted.Clave AS v FROM Cuenta INNER JOIN Banco "
                  "ON Banco.Banco = Cuenta.Banco WHERE Nombre = 'Banco Uno'"),
                testing::UnorderedElementsAre("C1", "C2"));
    EXPECT_THAT(column(db, "Saldo", "UPDATE Cuenta SET Saldo = 7 OUTPUT inserted.Saldo"), ElementsAre("7", "7", "7"));
    EXPECT_NE(failure(db, "UPDATE Cuenta SET Saldo = 0 OUTPUT deleted.Saldo WHERE Clave = 'C1'"), "");
    EXPECT_NE(failure(db, "UPDATE Cuenta SET Saldo = 0 OUTPUT inserted.Clave INTO Banco"), "") << "into a table";
}

TEST_F(Dialect_on_sqlite, further_functions_have_their_sql_server_meaning) {
    EXPECT_THAT(v("SELECT LEN('año  ') AS v"), ElementsAre("3"));
    EXPECT_THAT(v("SELECT LEFT('abcdef', 2) + RIGHT('abcdef', 2) + SUBSTRING('abcdef', 3, 2) AS v"),
                ElementsAre("abefcd"));
    EXPECT_THAT(v("SELECT CHARINDEX('B', 'abc') AS v"), ElementsAre("2"));
    EXPECT_THAT(v("SELECT CAST('12' AS int) + CONVERT(float, '0.5') AS v"), ElementsAre("12.5"));
    EXPECT_THAT(v("SELECT CAST(5 AS varchar(10)) + 'x' AS v"), ElementsAre("5x"));
    EXPECT_THAT(v("SELECT CASE WHEN GETDATE() > '2020-01-01' THEN 1 ELSE 0 END AS v"), ElementsAre("1"));
}

TEST_F(Dialect_on_sqlite, owners_hints_and_words_left_out_are_taken) {
    EXPECT_THAT(v("SELECT Clave AS v FROM [dbo].[Cuenta] WITH (NOLOCK) WHERE dbo.Cuenta.Clave = 'C1'"),
                ElementsAre("C1"));
    run("INSERT Banco(Banco) VALUES ('Q')");
    run("DELETE Banco WHERE Banco = 'Q'");
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Banco"), ElementsAre("2"));
}

TEST_F(Dialect_on_sqlite, what_has_no_counterpart_is_passed_on_as_it_stands) {
    EXPECT_EQ(db.translate("SELECT TOP 10 PERCENT a FROM T"), "SELECT TOP 10 PERCENT a FROM T");
    EXPECT_EQ(db.translate("SELECT TOP 1 WITH TIES a FROM T"), "SELECT TOP 1 WITH TIES a FROM T");
    EXPECT_EQ(db.translate("SELECT CONVERT(varchar(10), a, 112) FROM T"),
              "SELECT CONVERT ( varchar ( 10 ) , a , 112 ) FROM T");
    EXPECT_EQ(db.translate("SELECT (SELECT 1) FROM T"), "SELECT ( SELECT 1 ) COLLATE NOCASE FROM T");
}

TEST_F(Dialect_on_sqlite, tables_and_indexes_are_created_with_built_in_types_and_collations_only) {
    run("CREATE TABLE [dbo].[T] (Id int IDENTITY(1,1) NOT NULL, A varchar(max) NOT NULL DEFAULT 'x', B [nvarchar](10) "
        "DEFAULT (N'y'), "
        "C money DEFAULT 0, D bit, E datetime2(3) DEFAULT GETDATE(), CONSTRAINT PK_T PRIMARY KEY CLUSTERED (A, B)) ON "
        "[PRIMARY]");
    run("CREATE UNIQUE NONCLUSTERED INDEX IX_T ON dbo.T (C DESC, D) INCLUDE (E)");
    EXPECT_THAT(column(db, "sql", "SELECT sql FROM sqlite_master WHERE name = 'T' OR name = 'IX_T' ORDER BY name"),
                ElementsAre("CREATE UNIQUE INDEX IX_T ON T ( C DESC , D )",
                            "CREATE TABLE [T] ( Id INTEGER NOT NULL , A TEXT COLLATE NOCASE NOT NULL DEFAULT 'x' , "
                            "B TEXT COLLATE NOCASE DEFAULT ( 'y' ) CONSTRAINT \"B: admite hasta 10 caracteres\" "
                            "CHECK ( LENGTH(RTRIM( B ))<= 10 ) , C REAL DEFAULT 0 "
                            "CONSTRAINT \"C: admite números finitos\" CHECK ( ABS( C )<9E999 ) , D INTEGER , "
                            "E TEXT DEFAULT ( strftime('%Y-%m-%dT%H:%M:%S','now','localtime') ) , "
                            "CONSTRAINT PK_T PRIMARY KEY ( A , B ) )"));
    run("INSERT INTO T(Id, C) VALUES (1, 2)");
    run("ALTER TABLE T ADD F varchar(5) DEFAULT 'z'");
    EXPECT_THAT(v("SELECT A + '' + B + F AS v FROM T WHERE F = 'Z'"), ElementsAre("xyz"));
    run("DROP INDEX IX_T ON dbo.T");
    EXPECT_THAT(column(db, "name", "SELECT name FROM sqlite_master WHERE name = 'IX_T'"), testing::IsEmpty());
    run("DROP TABLE T");
}

TEST_F(Dialect_on_sqlite, what_is_malformed_fails_with_the_words_of_the_engine) {
    EXPECT_EQ(failure(db, "SELECT SUM(Saldo) as Saldo FROM Cuenta WHERE Clave = 'C1' AND Tipo <> 'CA' Tipo = 'FI'"),
              "near \"Tipo\": syntax error");
    EXPECT_EQ(failure(db, "SELEC 1"), "near \"SELEC\": syntax error");
    EXPECT_EQ(failure(db, "SELECT * FROM Nada"), "no such table: Nada");
    EXPECT_EQ(failure(db, "SELECT Nada FROM Cuenta"), "no such column: Nada");
    EXPECT_EQ(failure(db, "SELECT \"Nada\" FROM Cuenta"), "no such column: Nada");
    EXPECT_EQ(failure(db, "INSERT INTO Banco VALUES ('a' 'b')"), "near \"'b'\": syntax error");
    EXPECT_NE(failure(db, "SELECT (1"), "");
    EXPECT_NE(failure(db, "SELECT 1)"), "");
    EXPECT_NE(failure(db, "SELECT CASE WHEN 1 = 1 THEN 2"), "");
    EXPECT_NE(failure(db, "UPDATE Cuenta"), "");
    EXPECT_NE(failure(db, "UPDATE Cuenta SET"), "");
    EXPECT_NE(failure(db, "SELECT TOP"), "");
    EXPECT_NE(failure(db, "SELECT 12abc"), "");
    EXPECT_NE(failure(db, "SELECT {}"), "");
    EXPECT_NE(failure(db, " "), "");
    EXPECT_NE(failure(db, "SELECT " + std::string(100000, '(')), "");
    EXPECT_NE(failure(db, "SELECT " + std::string(100000, '(') + "1" + std::string(100000, ')')), "");
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Cuenta"), ElementsAre("3"));
}

/// The text as that engine gets it; empty when it is refused.
std::string translated(std::string_view text, const dialect::Dialect& dialect) {
    std::vector<dialect::Token> tokens;
    try {
        dialect::tokenize(text, tokens);
    } catch (const Database_error&) {
        return {};
    }
    return tokens.empty() ? std::string() : dialect::translate(text, tokens, dialect).with_literals();
}

// What the rules look for may be the last that stands there.
TEST_F(Dialect_on_sqlite, a_statement_that_is_cut_off_anywhere_is_passed_on_and_begins_as_it_began) {
    for (
        const std::string whole : {
            "SELECT DISTINCT TOP (5) WITH TIES a + 'x' + dbo.T.b AS c, ISNULL(-d, 0) FROM dbo.T AS t WITH (NOLOCK) "
            "INNER JOIN U ON U.a = t.a AND 'x' <> t.b WHERE EXISTS (SELECT MAX(b) FROM V WHERE b > t.b) AND CAST(c AS "
            "varchar(10)) = 'x' GROUP BY a HAVING COUNT(*) > 1 ORDER BY 1, b DESC",
            "SELECT (SELECT TOP 1 a FROM T ORDER BY 1), (SELECT SUM(a) FROM T), (SELECT a, b FROM T), (SELECT 1) UNION "
            "ALL SELECT CASE a WHEN 1 THEN 'x' ELSE b END, CONVERT(datetime, '2024-03-15') FROM T",
            "INSERT dbo.T (a, b) OUTPUT inserted.a VALUES ('x' + 'y', (SELECT a FROM T WHERE b = 1))",
            "INSERT INTO T (f) (SELECT '' UNION SELECT f FROM U)",
            "INSERT INTO T OUTPUT inserted.a INTO U SELECT a FROM V",
            "UPDATE t SET t.a = (SELECT s.a FROM U s WHERE s.k = t.k), T.f = '' OUTPUT inserted.a FROM T t LEFT JOIN U "
            "AS u ON u.k = t.k, V WHERE t.b = -1",
            "DELETE dbo.T OUTPUT deleted.a WHERE a = 'x'",
            "CREATE TABLE [dbo].[a\"b] ([c\"d] varchar(3) NOT NULL DEFAULT ('x'), e datetime, f [money], g float, PRIMARY "
            "KEY CLUSTERED (e)) ON [PRIMARY]",
            "CREATE UNIQUE NONCLUSTERED INDEX i ON dbo.T (a) INCLUDE (b)",
            "ALTER TABLE T ADD COLUMN a nvarchar(max) DEFAULT N'x'",
            "DROP INDEX i ON dbo.T",
            "BEGIN TRANSACTION",
        }) {
        for (std::size_t size = 1; size <= whole.size(); ++size) {
            const std::string_view text = std::string_view(whole).substr(0, size);
            for (const dialect::Dialect* each : {&dialect::sqlite, &dialect::postgresql}) {
                const std::string begun = translated(text, *each);
                EXPECT_EQ(begun.substr(0, 2), begun.empty() ? "" : text.substr(0, 2)) << text << "\n" << begun;
            }
        }
    }
}

TEST_F(Dialect_on_sqlite, a_name_may_hold_the_mark_in_which_the_engine_writes_names) {
    run("CREATE TABLE T ([a\"b] varchar(3))");
    EXPECT_THAT(failure(db, "INSERT INTO T VALUES ('abcd')"), HasSubstr("admite hasta 3 caracteres"));
    run("INSERT INTO T VALUES ('abc')");
    EXPECT_THAT(column(db, "a\"b", "SELECT [a\"b] FROM T"), ElementsAre("abc"));
}

TEST_F(Dialect_on_sqlite, a_quote_in_a_value_breaks_the_statement_and_smuggles_nothing_in) {
    for (const std::string value :
         {"O'Brien", "x'; DROP TABLE Banco; --", "x' DELETE FROM Banco WHERE 'a'='a", "x'--", "'"}) {
        EXPECT_NE(failure(db, "INSERT INTO Banco(Banco) VALUES ('" + value + "')"), "") << value;
        EXPECT_NE(failure(db, "SELECT * FROM Banco WHERE Banco = '" + value + "'"), "") << value;
    }
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM Banco"), ElementsAre("2"));
}

TEST_F(Dialect_on_sqlite, no_value_of_the_product_s_statements_is_lost) {
    for (const Told_statement& told : told_statements()) {
        const std::string translation = db.translate(told.text);
        EXPECT_TRUE(keeps_values(told.text, translation)) << told.file << ": " << told.text << "\n" << translation;
    }
}

}  // namespace
}  // namespace cuvexa::tests
