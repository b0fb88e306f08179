#include "cuvexa/database/trace.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "fixture.h"
#include "support/recording_connection.h"

namespace cuvexa::tests {
namespace {

using nlohmann::json;
using testing::ElementsAre;

class Trace : public testing::Test {
protected:
    Trace() { db.execute("CREATE TABLE T (A varchar(20) PRIMARY KEY)"); }

    std::vector<json> lines() const {
        std::vector<json> result;
        std::istringstream in(out.str());
        for (std::string line; std::getline(in, line);) result.push_back(json::parse(line));
        return result;
    }

    Sqlite_connection db{":memory:"};
    std::ostringstream out;
    Traced_connection traced{db, out};
};

TEST_F(Trace, every_statement_is_one_line_with_its_text_time_and_rows) {
    traced.execute("INSERT INTO T VALUES ('a'), ('b')");
    traced.execute("SELECT * FROM T WHERE A = 'nada'");
    traced.execute("SELECT * FROM T");
    const auto written = lines();
    ASSERT_EQ(written.size(), 3u);
    EXPECT_EQ(written[0]["seq"], 1);
    EXPECT_EQ(written[0]["text"], "INSERT INTO T VALUES ('a'), ('b')");
    EXPECT_TRUE(written[0]["us"].is_number_unsigned());
    EXPECT_EQ(written[0]["rows"], 2);
    EXPECT_TRUE(written[0]["error"].is_null());
    EXPECT_EQ(written[1]["rows"], 0);
    EXPECT_EQ(written[2]["seq"], 3);
    EXPECT_EQ(written[2]["rows"], 2);
    EXPECT_EQ(written[2].size(), 5u);
}

TEST_F(Trace, a_failure_is_written_and_passed_on) {
    EXPECT_EQ(failure(traced, "SELECT * FROM Nada"), "no such table: Nada");
    const auto written = lines();
    ASSERT_EQ(written.size(), 1u);
    EXPECT_EQ(written[0]["error"], "no such table: Nada");
    EXPECT_TRUE(written[0]["rows"].is_null());
}

TEST_F(Trace, the_text_survives_whatever_it_holds) {
    const std::string text = "SELECT 'ñ€ \" \\ \r\n\t\x01\x7F' AS v";
    traced.execute(text);
    EXPECT_EQ(lines().at(0)["text"], text);
    EXPECT_NE(failure(traced, std::string("SELECT '\xFF\0'", 11)), "");
    EXPECT_EQ(lines().at(1)["text"], std::string("SELECT '\xEF\xBF\xBD\0'", 13));
}

TEST_F(Trace, rows_are_unknown_where_the_connection_cannot_tell) {
    struct Silent : Connection {
        std::unique_ptr<Recordset> execute(std::string_view) override { return nullptr; }
    } silent;
    Traced_connection(silent, out).execute("SELECT 1");
    EXPECT_TRUE(lines().at(0)["rows"].is_null());
}

TEST_F(Trace, each_line_is_out_before_the_next_statement_runs) {
    struct Buffer : std::stringbuf {
        int syncs = 0;
        int sync() override { return ++syncs, 0; }
    } buffer;
    std::ostream stream(&buffer);
    Traced_connection connection(db, stream);
    connection.execute("SELECT 1");
    EXPECT_EQ(buffer.syncs, 1);
    connection.execute("SELECT 1");
    EXPECT_EQ(buffer.syncs, 2);
}

TEST_F(Trace, a_recording_connection_remembers_texts_and_fails_the_one_it_is_told_to) {
    Recording_connection recording(db);
    recording.execute("INSERT INTO T VALUES ('a')");
    recording.fail_at(3, "se cayó");
    recording.execute("INSERT INTO T VALUES ('b')");
    EXPECT_EQ(failure(recording, "INSERT INTO T VALUES ('c')"), "se cayó");
    recording.execute("INSERT INTO T VALUES ('d')");
    EXPECT_EQ(recording.count(), 4u);
    EXPECT_EQ(recording.texts().at(2), "INSERT INTO T VALUES ('c')");
    EXPECT_THAT(column(db, "A", "SELECT A FROM T ORDER BY A"), ElementsAre("a", "b", "d"));
    recording.clear();
    recording.execute("DELETE FROM T");
    EXPECT_THAT(recording.texts(), ElementsAre("DELETE FROM T"));
}

}  // namespace
}  // namespace cuvexa::tests
