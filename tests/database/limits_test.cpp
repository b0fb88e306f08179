// What fits into a column, on the embedded engine as on SQL Server; and how an engine's words become the operator's.
#include "database/dialect/limits.h"

#include "cuvexa/database/script.h"
#include "fixture.h"
#include "support/limits.h"

namespace cuvexa::tests {
namespace {

using dialect::limit_refusal;
using testing::ElementsAre;

constexpr const char* too_long = "El valor no cabe en la columna Texto: admite hasta 10 caracteres";
constexpr const char* no_number = "El resultado no cabe en un número";
constexpr const char* no_date = "El valor no cabe en la columna Fecha: admite de 1753-01-01 a 9999-12-31";

class Limits : public testing::Test {
protected:
    Limits() {
        db.execute(
            "CREATE TABLE T (Id int PRIMARY KEY, Texto varchar(10) NOT NULL DEFAULT '', Fecha datetime, "
            "Numero float)");
    }

    std::string text(const std::string& value) { return put("Texto", value); }
    std::string date(const std::string& value) { return put("Fecha", value); }
    std::string put(const std::string& name, const std::string& value) {
        db.execute("DELETE FROM T");
        return failure(db, "INSERT INTO T (Id, " + name + ") VALUES (1, '" + value + "')");
    }

    Sqlite_connection db{":memory:"};
};

TEST_F(Limits, a_text_longer_than_its_column_is_refused_with_the_columns_name) {
    EXPECT_EQ(text("12345678901"), too_long);
    EXPECT_EQ(text("1234567890"), "");
    EXPECT_EQ(failure(db, "UPDATE T SET Texto = Texto + 'x'"), too_long);
    EXPECT_EQ(failure(db, "INSERT INTO T (Id, Texto) SELECT 2, Texto + '' + Texto FROM T"), too_long);
    EXPECT_THAT(column(db, "v", "SELECT Texto AS v FROM T"), ElementsAre("1234567890"));
}

TEST_F(Limits, letters_are_counted_and_not_bytes_and_blanks_at_the_end_need_no_room) {
    EXPECT_EQ(text("ñññññññññ€"), "");
    EXPECT_EQ(text("ñññññññññ€x"), too_long);
    EXPECT_EQ(text("1234567890     "), "");
    EXPECT_EQ(text(" 1234567890"), too_long);
}

TEST_F(Limits, a_date_outside_of_the_calendar_of_the_server_is_refused_in_every_form) {
    for (const char* const early : {"1752-12-31", "17521231", "1752-12-31T10:20:30", "1752-12-31 10:20:30",
                                    "31/12/1752", "0100-01-01", "10000-01-01"}) {
        EXPECT_EQ(date(early), no_date) << early;
    }
    for (const char* const fit : {"1753-01-01", "17530101", "1753-01-01T00:00:00", "01/01/1753", "31/12/9999",
                                  "9999-12-31 23:59:59", "1899-12-30", ""}) {
        EXPECT_EQ(date(fit), "") << fit;
    }
    EXPECT_EQ(failure(db, "UPDATE T SET Fecha = '1752-12-31'"), no_date);
    EXPECT_EQ(failure(db, "UPDATE T SET Fecha = NULL"), "");
}

TEST_F(Limits, a_result_that_is_not_finite_is_refused_wherever_it_would_go) {
    for (const char* const number : {"1E999", "-1E999", "1E308 * 10", "1E308 * 10 * Id"}) {
        db.execute("DELETE FROM T");
        db.execute("INSERT INTO T (Id, Numero) VALUES (1, -1E308)");
        const std::string value = number;
        EXPECT_EQ(failure(db, "UPDATE T SET Numero = " + value), no_number) << value;
        EXPECT_EQ(failure(db, "INSERT INTO T (Id, Numero) SELECT 2, " + value + " FROM T"), no_number) << value;
        EXPECT_EQ(failure(db, "SELECT " + value + " AS v FROM T"), no_number) << value;
    }
    EXPECT_EQ(failure(db, "UPDATE T SET Numero = Numero + Numero"), no_number);
    EXPECT_EQ(failure(db, "SELECT SUM(Numero * 10) AS v FROM T"), no_number);
    EXPECT_EQ(put("Numero", "1E999"), no_number) << "a text that is one";
    EXPECT_EQ(put("Numero", "-1.7E308"), "");
    EXPECT_EQ(failure(db, "UPDATE T SET Numero = NULL"), "");
    EXPECT_THAT(column(db, "v", "SELECT 1E-999 AS v"), ElementsAre("0")) << "what is too small is zero";
}

TEST_F(Limits, a_number_that_is_not_finite_in_a_file_of_another_program_is_not_read) {
    sqlite3_exec(sqlite::handle_of(db), "CREATE TABLE A (Numero); INSERT INTO A VALUES (9E999)", nullptr, nullptr,
                 nullptr);
    EXPECT_EQ(failure(db, "SELECT Numero FROM A"), no_number);
    EXPECT_EQ(failure(db, "SELECT Id FROM T"), "") << "the connection goes on";
}

TEST_F(Limits, a_column_without_a_length_and_one_that_is_added_later) {
    db.execute("CREATE TABLE L (A varchar(max), B text, C nvarchar(3), D char(2))");
    const std::string text(9000, 'x');
    EXPECT_EQ(failure(db, "INSERT INTO L (A, B, C, D) VALUES ('" + text + "', '" + text + "', 'abc', 'ab')"), "");
    EXPECT_EQ(failure(db, "INSERT INTO L (C) VALUES (N'abcd')"),
              "El valor no cabe en la columna C: admite hasta 3 caracteres");
    EXPECT_EQ(failure(db, "INSERT INTO L (D) VALUES ('abc')"),
              "El valor no cabe en la columna D: admite hasta 2 caracteres");
    db.execute("ALTER TABLE L ADD [Más o menos] varchar(4) DEFAULT ''");
    EXPECT_EQ(failure(db, "INSERT INTO L ([Más o menos]) VALUES ('abcde')"),
              "El valor no cabe en la columna Más o menos: admite hasta 4 caracteres");
}

TEST_F(Limits, hold_for_every_column_of_the_schema) {
    Sqlite_connection schema(":memory:");
    run_script(schema, schema_sql());
    expect_limits_of_the_schema(schema);
}

TEST(Limit_refusal, is_read_from_what_an_engine_says) {
    EXPECT_EQ(limit_refusal("CHECK constraint failed: Texto: admite hasta 10 caracteres"), too_long);
    EXPECT_EQ(limit_refusal("ERROR: new row for relation \"t\" violates check constraint \"Texto: admite hasta 10 "
                            "caracteres\";\nError while executing the query [23514, 1]"),
              too_long);
    EXPECT_EQ(limit_refusal("la relación «t» viola la restricción «check» «Texto: admite hasta 10 caracteres»"),
              too_long);
    EXPECT_EQ(limit_refusal("violates check constraint \"Fecha: admite de 1753-01-01 a 9999-12-31\""), no_date);
    EXPECT_EQ(limit_refusal("CHECK constraint failed: Bc_Saldo: admite números finitos"), no_number);
    EXPECT_EQ(limit_refusal("la relación «t» viola la restricción «check» «Bc_Saldo: admite números finitos»"),
              no_number);
    EXPECT_EQ(
        limit_refusal("String or binary data would be truncated in table 'c.dbo.T', column 'Texto'. Truncated "
                      "value: '123'. [22001, 2628]"),
        "El valor no cabe en la columna Texto (String or binary data would be truncated in table 'c.dbo.T', column "
        "'Texto'. Truncated value: '123'. [22001, 2628])");
}

TEST(Limit_refusal, is_none_of_other_failures) {
    for (const char* const other :
         {"", "CHECK constraint failed: Saldo", "UNIQUE constraint failed: T.Id", ": admite ",
          "La sucursal: admite poco", "no such column: admite hasta 10 caracteres",
          "CHECK constraint failed: : admite hasta 10 caracteres", "CHECK constraint failed: Texto: admite poco",
          "String or binary data would be truncated.", "String or binary data would be truncated in table 'T'."}) {
        EXPECT_EQ(limit_refusal(other), std::nullopt) << other;
    }
}

}  // namespace
}  // namespace cuvexa::tests
