#include "cuvexa/database/script.h"

#include "cuvexa/unit_of_work.h"
#include "fixture.h"
#include "support/recording_connection.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Script : public testing::Test {
protected:
    Script() { recording.execute("CREATE TABLE T (A varchar(99) PRIMARY KEY)"), recording.clear(); }

    std::vector<std::string> rows() { return column(db, "A", "SELECT A FROM T ORDER BY A"); }

    Sqlite_connection db{":memory:"};
    Recording_connection recording{db};
};

TEST_F(Script, statements_end_at_a_semicolon_at_the_end_of_a_line_at_go_and_at_the_end) {
    run_script(recording,
               "-- comment; no statement\r\n"
               "INSERT INTO T\r\n"
               "    -- within a statement\r\n"
               "    VALUES ('a');\r\n"
               "\n"
               "INSERT INTO T VALUES ('b')\n"
               "go\n"
               "GO\n"
               "INSERT INTO T VALUES ('c;d')  ;  \n"
               "INSERT INTO T VALUES ('e')");
    EXPECT_THAT(rows(), ElementsAre("a", "b", "c;d", "e"));
    EXPECT_EQ(recording.count(), 4u);
}

TEST_F(Script, within_a_text_nothing_ends_and_nothing_is_a_comment) {
    run_script(recording, "INSERT INTO T VALUES ('uno;\n-- dos\nGO\nit''s;\n');\nINSERT INTO T VALUES ('z');\n");
    EXPECT_THAT(rows(), ElementsAre("uno;\n-- dos\nGO\nit's;\n", "z"));
}

TEST_F(Script, who_asks_is_told_how_many_bytes_have_run) {
    std::vector<std::size_t> told;
    run_script(recording, "INSERT INTO T VALUES ('a');\n-- b\nINSERT INTO T VALUES ('b');\nINSERT INTO T VALUES ('c')",
               [&](std::size_t bytes) { told.push_back(bytes); });
    EXPECT_THAT(told, ElementsAre(28u, 61u, 87u));
}

TEST_F(Script, an_empty_script_runs_nothing) {
    run_script(recording, "");
    run_script(recording, "-- nada\n\n;\nGO\n");
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(Script, the_first_failure_ends_a_script_and_a_transaction_undoes_it) {
    const auto run = [&] {
        Unit_of_work whole(db);
        run_script(db, "INSERT INTO T VALUES ('a');\nINSERT INTO Nada VALUES ('b');\nINSERT INTO T VALUES ('c');\n");
        whole.commit();
    };
    EXPECT_THROW(run(), Database_error);
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_THROW(run_script(db, "INSERT INTO T VALUES ('a');\nINSERT INTO Nada VALUES ('b');\n"), Database_error);
    EXPECT_THAT(rows(), ElementsAre("a"));
}

TEST_F(Script, a_transaction_keeps_what_it_commits) {
    {
        Unit_of_work transaction(db);
        db.execute("INSERT INTO T VALUES ('a')");
        transaction.commit();
    }
    {
        const Unit_of_work undone(db);
        db.execute("INSERT INTO T VALUES ('b')");
    }
    EXPECT_THAT(rows(), ElementsAre("a"));
}

TEST_F(Script, a_commit_that_fails_undoes_the_transaction) {
    const auto run = [&] {
        Unit_of_work transaction(recording);
        recording.execute("INSERT INTO T VALUES ('a')");
        recording.fail_at(3);
        transaction.commit();
    };
    EXPECT_THROW(run(), Database_error);
    EXPECT_THAT(rows(), IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
