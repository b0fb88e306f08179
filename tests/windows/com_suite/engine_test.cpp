// The engine compiled for Windows is the one that the other systems have.
#include <sqlite3.h>

#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

std::string refusal(Connection& connection, const std::string& text) {
    try {
        connection.execute(text);
    } catch (const Database_error& failure) {
        return failure.what();
    }
    return "none";
}

TEST(Engine, is_the_release_that_the_distribution_has_with_the_options_that_matter) {
    EXPECT_STREQ(sqlite3_libversion(), "3.40.1");
    for (const char* option :
         {"THREADSAFE=1", "ENABLE_MATH_FUNCTIONS", "ENABLE_COLUMN_METADATA", "MAX_VARIABLE_NUMBER=250000",
          "SECURE_DELETE", "SOUNDEX", "LIKE_DOESNT_MATCH_BLOBS", "USE_URI", "HAVE_ISNAN"}) {
        EXPECT_TRUE(sqlite3_compileoption_used(option)) << option;
    }
}

TEST(Engine, a_text_in_double_quotes_is_a_name) {
    Sqlite_connection connection(":memory:");
    connection.execute("CREATE TABLE t (a VARCHAR(10))");
    EXPECT_EQ(refusal(connection, "SELECT \"b\" FROM t"), "no such column: b");
}

TEST(Engine, keeps_what_was_acknowledged_in_a_write_ahead_log) {
    const Folder folder;
    Sqlite_connection connection(folder / "ñandú.db", {.create = true});
    connection.execute("CREATE TABLE t (a VARCHAR(10))");
    connection.execute("INSERT INTO t (a) VALUES ('ñ')");
    EXPECT_TRUE(stands(folder / "ñandú.db-wal"));
    Sqlite_connection other(folder / "ñandú.db", {.read_only = true});
    EXPECT_EQ(to_text(other.execute("SELECT a FROM t")->field("a")), "ñ");
    EXPECT_EQ(to_text(other.execute("SELECT ROUND(2.345 * 100, 0) AS r")->field("r")), "235");
}

}  // namespace
}  // namespace cuvexa::tests
