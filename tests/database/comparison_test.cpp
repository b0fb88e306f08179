// How texts compare on the embedded engine: as on SQL Server, in statements and in indexes.
#include "database/sqlite/comparison.h"

#include <random>

#include "fixture.h"

namespace cuvexa::tests {
namespace {

using sqlite::compared;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(Comparison, a_capital_equals_its_small_letter_with_its_accent_and_blanks_at_the_end_do_not_count) {
    const std::pair<const char*, const char*> equal[] = {
        {"", ""},   {"a", "A"}, {"É", "é"}, {"Ñ", "ñ"}, {"Ü", "ü"},   {"Ÿ", "ÿ"},  {"Š", "š"},
        {"Ž", "ž"}, {"Œ", "œ"}, {"Ł", "ł"}, {"Ŀ", "ŀ"}, {"a  ", "A"}, {"   ", ""}, {"PEÑA NIÉTO ", "peña niéto"}};
    for (const auto& [a, b] : equal) EXPECT_EQ(compared(a, b), 0) << a << '|' << b;
    const std::pair<const char*, const char*> less[] = {{"E", "É"},  {"n", "Ñ"},   {"a", "b"}, {"a", "ab"},
                                                        {"×", "÷"},  {"Ä", "€"},   {"z", "á"}, {"", "a"},
                                                        {" a", "a"}, {"A1", "a2"}, {"é", "éa"}};
    for (const auto& [a, b] : less) {
        EXPECT_LT(compared(a, b), 0) << a << '|' << b;
        EXPECT_GT(compared(b, a), 0) << a << '|' << b;
    }
}

// An index is only as good as the order that it stands in.
TEST(Comparison, is_an_order_of_all_texts_broken_ones_included) {
    const std::string_view pieces[] = {"a",    "A",    " ",    "É", "é", "e", "Ñ",  "ñ",
                                       "\xC3", "\xC5", "\xA9", "ÿ", "Ÿ", "€", "\t", "ĿŁ"};
    std::mt19937 chance(1);
    const auto any = [&] {
        std::string text;
        for (auto length = chance() % 4; length > 0; --length) text += pieces[chance() % std::size(pieces)];
        return text;
    };
    for (int i = 0; i < 200'000; ++i) {
        const std::string a = any(), b = any(), c = any();
        const int ab = compared(a, b), bc = compared(b, c), ac = compared(a, c);
        ASSERT_EQ(ab, -compared(b, a)) << a << '|' << b;
        if (ab <= 0 && bc <= 0) {
            ASSERT_LE(ac, 0) << a << '|' << b << '|' << c;
            ASSERT_EQ(ac == 0, ab == 0 && bc == 0) << a << '|' << b << '|' << c;
        }
    }
}

class Comparison_in_statements : public testing::Test {
protected:
    Comparison_in_statements() {
        db.execute("CREATE TABLE T (Clave varchar(20) PRIMARY KEY, Grupo varchar(20))");
        db.execute("CREATE INDEX IX_Grupo ON T (Grupo)");
        db.execute("INSERT INTO T (Clave, Grupo) VALUES ('PEÑA', 'ÁREA 1'), ('Pena', 'área 1  '), ('x  ', 'AREA 1')");
    }
    std::vector<std::string> keys(const std::string& condition) {
        return column(db, "Clave", "SELECT Clave FROM T WHERE " + condition + " ORDER BY Clave");
    }

    Sqlite_connection db{":memory:"};
};

TEST_F(Comparison_in_statements, a_key_is_found_by_every_text_that_equals_it_and_an_index_serves) {
    EXPECT_THAT(keys("Clave = 'peña '"), ElementsAre("PEÑA"));
    EXPECT_THAT(keys("Clave = 'PENA'"), ElementsAre("Pena"));
    EXPECT_THAT(keys("Clave = 'X'"), ElementsAre("x  "));
    EXPECT_THAT(keys("Grupo = 'Área 1'"), ElementsAre("Pena", "PEÑA"));
    EXPECT_THAT(keys("Grupo IN ('área 1', 'z') AND Clave <> 'PEÑA  '"), ElementsAre("Pena"));
    EXPECT_THAT(plan(db, "SELECT Clave FROM T WHERE Grupo = 'Área 1'"), Contains(HasSubstr("USING INDEX IX_Grupo")));
    EXPECT_THAT(plan(db, "SELECT * FROM T WHERE Clave = 'peña'"), Contains(HasSubstr("sqlite_autoindex_T_1")));
}

TEST_F(Comparison_in_statements, a_key_that_equals_another_is_the_same_key) {
    for (const char* const key : {"peña", "PEÑA  ", "PENA", "X"}) {
        EXPECT_EQ(failure(db, std::string("INSERT INTO T (Clave) VALUES ('") + key + "')"),
                  "UNIQUE constraint failed: T.Clave");
    }
    EXPECT_EQ(failure(db, "INSERT INTO T (Clave) VALUES ('péna')"), "");
}

TEST_F(Comparison_in_statements, groups_distinct_rows_joins_and_computed_texts_compare_alike) {
    EXPECT_THAT(column(db, "n", "SELECT COUNT(*) AS n FROM T GROUP BY Grupo ORDER BY n"), ElementsAre("1", "2"));
    EXPECT_THAT(column(db, "n", "SELECT COUNT(DISTINCT Grupo) AS n FROM T"), ElementsAre("2"));
    EXPECT_THAT(column(db, "Clave",
                       "SELECT B.Clave FROM T A INNER JOIN T B ON B.Grupo = A.Grupo WHERE A.Clave = 'peña' "
                       "ORDER BY B.Clave"),
                ElementsAre("Pena", "PEÑA"));
    EXPECT_THAT(keys("'peña ' = Clave"), ElementsAre("PEÑA"));
    EXPECT_THAT(keys("Clave + 'Ñ' = 'peñañ'"), ElementsAre("PEÑA"));
    EXPECT_THAT(keys("ISNULL(Clave, '') = 'peña'"), ElementsAre("PEÑA"));
}

TEST_F(Comparison_in_statements, a_pattern_tells_no_capitals_and_does_tell_accents) {
    EXPECT_THAT(keys("Clave LIKE '%ñ%'"), ElementsAre("PEÑA"));
    EXPECT_THAT(keys("Clave LIKE 'p%'"), ElementsAre("Pena", "PEÑA"));
    EXPECT_THAT(keys("Clave LIKE 'PE_A'"), ElementsAre("Pena", "PEÑA"));
    EXPECT_THAT(keys("Grupo LIKE 'Á%1'"), ElementsAre("PEÑA"));
    EXPECT_THAT(keys("Clave NOT LIKE '%Ñ%' AND Grupo LIKE NULL"), ElementsAre());
    EXPECT_THAT(keys("Clave LIKE 'PX%Ñ%' ESCAPE 'X'"), ElementsAre());
    EXPECT_THAT(keys("'100% ñ' LIKE '100x%_Ñ' ESCAPE 'X' AND Clave = 'X'"), ElementsAre("x  "));
    EXPECT_EQ(failure(db, "SELECT 1 WHERE 'a' LIKE 'a' ESCAPE 'ab'"), "ESCAPE expression must be a single character");
}

std::string integrity(Connection& connection) {
    return column(connection, "integrity_check", "PRAGMA integrity_check").at(0);
}

TEST(Comparison_in_a_file, a_new_one_is_read_alike_by_every_later_connection) {
    const Database_file file;
    file.open().execute("CREATE TABLE T (Clave varchar(20) PRIMARY KEY)");
    file.open().execute("INSERT INTO T (Clave) VALUES ('ÑU'), ('nu'), ('ñandú '), ('Z')");
    Sqlite_options options;
    options.read_only = true;
    Sqlite_connection reader(file.path(), options);
    EXPECT_THAT(column(reader, "Clave", "SELECT Clave FROM T WHERE Clave = 'ÑANDú'"), ElementsAre("ñandú "));
    EXPECT_EQ(integrity(reader), "ok");
}

// The indexes of such a file stand in the old order: under the new one its rows would be lost to every look-up.
TEST(Comparison_in_a_file, one_of_an_earlier_release_compares_as_it_did) {
    const Database_file file;
    sqlite3* bare = nullptr;
    ASSERT_EQ(sqlite3_open(file.path().c_str(), &bare), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(bare,
                           "CREATE TABLE T (Clave TEXT COLLATE NOCASE PRIMARY KEY);"
                           "INSERT INTO T VALUES ('É'), ('é'), ('a'), ('a '), ('ñ'), ('Z')",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(bare);
    Sqlite_connection db = file.open();
    EXPECT_EQ(integrity(db), "ok");
    EXPECT_THAT(column(db, "Clave", "SELECT Clave FROM T WHERE Clave = 'é' OR Clave = 'A'"), ElementsAre("a", "é"));
    EXPECT_EQ(failure(db, "INSERT INTO T VALUES ('Ñ'), ('Á'), ('á')"), "");
    EXPECT_EQ(integrity(db), "ok");
    EXPECT_EQ(failure(db, "INSERT INTO T VALUES ('z')"), "UNIQUE constraint failed: T.Clave");
}

}  // namespace
}  // namespace cuvexa::tests
