#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/unit_of_work.h"

#include <sqlite3.h>

#include <fstream>
#include <thread>

#include "fixture.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class Sqlite : public testing::Test {
protected:
    Sqlite() { db.execute("CREATE TABLE T (Id int PRIMARY KEY, Texto varchar(max), Numero float, Fecha datetime)"); }

    std::vector<std::string> v(std::string_view text) { return column(db, "v", text); }

    Sqlite_connection db{":memory:"};
};

// ---- values and rows

TEST_F(Sqlite, a_value_comes_back_with_the_type_of_its_column) {
    db.execute("INSERT INTO T VALUES (7, 'año', 100, '2024-03-15')");
    db.execute("INSERT INTO T(Id) VALUES (8)");
    const auto rows = db.execute("SELECT * FROM T ORDER BY Id");
    EXPECT_EQ(rows->field("Id"), Value(std::int64_t{7}));
    EXPECT_EQ(rows->field("Texto"), Value(std::string("año")));
    EXPECT_EQ(rows->field("Numero"), Value(100.0));
    EXPECT_EQ(rows->field("Fecha"), Value(std::string("2024-03-15")));
    rows->move_next();
    EXPECT_TRUE(is_null(rows->field("Texto")));
}

TEST_F(Sqlite, a_file_that_is_damaged_is_told_as_that) {
    const Database_file file;
    {
        Sqlite_connection whole = file.open();
        whole.execute("CREATE TABLE T (Id int PRIMARY KEY, Texto varchar(100))");
        for (int i = 0; i < 200; ++i) {
            whole.execute("INSERT INTO T VALUES (" + std::to_string(i) + ", '" + std::string(90, 'x') + "')");
        }
    }
    std::fstream damaged(file.path(), std::ios::in | std::ios::out | std::ios::binary);
    damaged.seekp(4096);  // the first page stays, and with it what tells a database
    damaged << std::string(3 * 4096, '\x7f') << std::flush;
    Sqlite_connection connection = file.open();
    EXPECT_THAT(failure(connection, "SELECT Texto FROM T"), StartsWith("El archivo de la base de datos está dañado ("));
}

TEST_F(Sqlite, a_column_is_found_whatever_the_case_and_the_first_of_several_wins) {
    db.execute("INSERT INTO T VALUES (1, 'a', 0, NULL)");
    db.execute("INSERT INTO T VALUES (2, 'b', 0, NULL)");
    const auto rows = db.execute("SELECT x.Texto, y.Texto FROM T x, T y WHERE x.Id = 1 AND y.Id = 2");
    EXPECT_EQ(rows->field("TEXTO"), Value(std::string("a")));
    EXPECT_THROW(rows->field("Nada"), Database_error);
}

TEST_F(Sqlite, a_recordset_at_its_end_has_no_row) {
    const auto rows = db.execute("SELECT * FROM T");
    EXPECT_TRUE(rows->eof());
    EXPECT_THROW(rows->field("Id"), Database_error);
    EXPECT_THROW(rows->move_next(), Database_error);
}

TEST_F(Sqlite, a_statement_without_rows_gives_a_recordset_at_its_end) {
    const auto rows = db.execute("INSERT INTO T(Id) VALUES (1)");
    EXPECT_TRUE(rows->eof());
    EXPECT_EQ(dynamic_cast<const database::Row_set&>(*rows).rows(), 1);
}

TEST_F(Sqlite, a_closed_recordset_is_at_its_end) {
    db.execute("INSERT INTO T(Id) VALUES (1)");
    const auto rows = db.execute("SELECT * FROM T");
    EXPECT_FALSE(rows->eof());
    rows->close();
    EXPECT_TRUE(rows->eof());
}

TEST_F(Sqlite, an_open_recordset_does_not_see_later_changes_and_hinders_none) {
    db.execute("INSERT INTO T(Id) VALUES (1)");
    db.execute("INSERT INTO T(Id) VALUES (2)");
    const auto rows = db.execute("SELECT Id FROM T ORDER BY Id");
    db.execute("DELETE FROM T");
    db.execute("DROP TABLE T");
    rows->move_next();
    EXPECT_EQ(rows->field("Id"), Value(std::int64_t{2}));
}

TEST_F(Sqlite, recordsets_of_one_statement_live_side_by_side) {
    db.execute("INSERT INTO T(Id) VALUES (1)");
    db.execute("INSERT INTO T(Id) VALUES (2)");
    const auto one = db.execute("SELECT Id FROM T WHERE Id = 1");
    const auto two = db.execute("SELECT Id FROM T WHERE Id = 2");
    EXPECT_EQ(one->field("Id"), Value(std::int64_t{1}));
    EXPECT_EQ(two->field("Id"), Value(std::int64_t{2}));
}

TEST_F(Sqlite, a_recordset_outlives_its_connection) {
    auto other = std::make_unique<Sqlite_connection>(":memory:");
    const auto rows = other->execute("SELECT 'a' AS v");
    other.reset();
    EXPECT_EQ(rows->field("v"), Value(std::string("a")));
}

TEST_F(Sqlite, numbers_are_taken_as_they_are_written) {
    EXPECT_THAT(v("SELECT 1E+15 AS v"), ElementsAre("1E+15"));
    for (const char* number :
         {"0.1", "1E+15", "123456789.123457", "1.7976931348623157E+308", "4.9406564584124654E-324", ".5", "5."}) {
        db.execute("DELETE FROM T");
        db.execute("INSERT INTO T(Id, Numero) VALUES (1, -" + std::string(number) + ")");
        EXPECT_EQ(db.execute("SELECT Numero FROM T")->field("Numero"), Value(-std::strtod(number, nullptr))) << number;
    }
    EXPECT_EQ(db.execute("SELECT 9223372036854775807 AS v")->field("v"), Value(std::int64_t{9223372036854775807}));
    EXPECT_EQ(db.execute("SELECT 9223372036854775808 AS v")->field("v"), Value(9223372036854775808.0));
    EXPECT_EQ(db.execute("SELECT -5 AS v")->field("v"), Value(std::int64_t{-5}));
}

TEST_F(Sqlite, texts_are_taken_byte_by_byte) {
    for (const std::string text : {"", "a", "ñandú €", "línea 1\r\nlínea 2", " blancos ", "-- /* ; ? @", "\t\x01"}) {
        db.execute("DELETE FROM T");
        db.execute("INSERT INTO T(Id, Texto) VALUES (1, '" + text + "')");
        EXPECT_EQ(db.execute("SELECT Texto FROM T")->field("Texto"), Value(text));
    }
    db.execute("UPDATE T SET Texto = 'O''Brien''' WHERE Id = 1");
    EXPECT_EQ(db.execute("SELECT Texto FROM T WHERE Texto = 'O''BRIEN'''")->field("Texto"),
              Value(std::string("O'Brien'")));
}

TEST_F(Sqlite, several_texts_with_quotes_keep_apart) {
    EXPECT_THAT(v("SELECT 'a''b' + 'c' + '''d''' + 'e''f' AS v"), ElementsAre("a'bc'd'e'f"));
}

TEST_F(Sqlite, a_text_of_ten_megabytes_goes_in_and_comes_out) {
    const std::string large(10'000'000, 'x');
    db.execute("INSERT INTO T(Id, Texto) VALUES (1, '" + large + "')");
    EXPECT_EQ(std::get<std::string>(db.execute("SELECT Texto FROM T")->field("Texto")).size(), large.size());
    const std::string quotes(10'000'000, '\'');
    db.execute("UPDATE T SET Texto = '" + quotes + "'");
    EXPECT_EQ(std::get<std::string>(db.execute("SELECT Texto FROM T")->field("Texto")).size(), quotes.size() / 2);
    EXPECT_NE(failure(db, "INSERT INTO T(Id, Texto) VALUES (2, '" + large), "");
    EXPECT_NE(failure(db, "SELECT " + large), "");
}

TEST_F(Sqlite, a_list_of_many_literals_is_taken) {
    std::string list = "-1";
    for (int i = 0; i < 40'000; ++i) list += "," + std::to_string(i);
    db.execute("INSERT INTO T(Id) VALUES (39999)");
    EXPECT_THAT(v("SELECT Id AS v FROM T WHERE Id IN (" + list + ")"), ElementsAre("39999"));
}

// ---- statements kept by shape

TEST_F(Sqlite, statements_that_differ_in_literals_only_are_translated_once) {
    const auto before = sqlite::Engine::of(db).translations();
    for (int i = 0; i < 50; ++i) {
        db.execute("INSERT INTO T(Id, Texto) VALUES (" + std::to_string(i) + ", 'n" + std::to_string(i) + "')");
    }
    EXPECT_EQ(sqlite::Engine::of(db).translations(), before + 1);
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM T WHERE Texto = 'n' + CAST(Id AS varchar(5))"), ElementsAre("50"));
}

TEST_F(Sqlite, a_text_and_a_number_in_one_place_are_two_shapes) {
    EXPECT_THAT(v("SELECT 'a' + Texto AS v FROM T"), IsEmpty());
    EXPECT_EQ(db.execute("SELECT 2 + 3 AS v")->field("v"), Value(std::int64_t{5}));
    EXPECT_EQ(db.execute("SELECT '2' + '3' AS v")->field("v"), Value(std::string("23")));
    EXPECT_EQ(db.execute("SELECT 2 + 4 AS v")->field("v"), Value(std::int64_t{6}));
}

TEST_F(Sqlite, the_position_of_a_column_is_no_literal_that_may_vary) {
    db.execute("INSERT INTO T(Id, Texto) VALUES (1, 'b')");
    db.execute("INSERT INTO T(Id, Texto) VALUES (2, 'a')");
    EXPECT_THAT(v("SELECT Id AS v, Texto FROM T ORDER BY 1"), ElementsAre("1", "2"));
    EXPECT_THAT(v("SELECT Id AS v, Texto FROM T ORDER BY 2"), ElementsAre("2", "1"));
    EXPECT_THAT(v("SELECT Id AS v, Texto FROM T ORDER BY 1"), ElementsAre("1", "2"));
    EXPECT_THAT(v("SELECT TOP 1 Id AS v, Texto FROM T ORDER BY 2"), ElementsAre("2"));
    EXPECT_THAT(v("SELECT TOP 2 Id AS v, Texto FROM T ORDER BY 2, 1"), ElementsAre("2", "1"));
}

TEST_F(Sqlite, an_expression_with_literals_groups_as_it_is_selected) {
    for (int i = 0; i < 4; ++i) {
        db.execute("INSERT INTO T(Id, Texto, Numero) VALUES (" + std::to_string(i) + ", 'x', " + std::to_string(i % 2) +
                   ")");
    }
    EXPECT_THAT(v("SELECT CASE WHEN Numero = 1 THEN 'uno' ELSE 'otro' END AS v, COUNT(*) AS n FROM T "
                  "GROUP BY CASE WHEN Numero = 1 THEN 'uno' ELSE 'otro' END ORDER BY v"),
                ElementsAre("otro", "uno"));
    EXPECT_THAT(v("SELECT Texto AS v FROM T UNION SELECT 'z' ORDER BY v"), ElementsAre("x", "z"));
}

TEST_F(Sqlite, the_number_of_kept_statements_is_bounded) {
    Sqlite_options options;
    options.kept_statements = 10;
    Sqlite_connection small(":memory:", options);
    for (int i = 0; i < 100; ++i) {
        const std::string name = "c" + std::to_string(i);
        EXPECT_THAT(column(small, name, "SELECT 1 AS " + name), ElementsAre("1"));
    }
    EXPECT_EQ(sqlite::Engine::of(small).kept_statements(), 10u);
    const auto before = sqlite::Engine::of(small).translations();
    small.execute("SELECT 2 AS c99");
    EXPECT_EQ(sqlite::Engine::of(small).translations(), before);
    small.execute("SELECT 2 AS c0");
    EXPECT_EQ(sqlite::Engine::of(small).translations(), before + 1);
}

TEST_F(Sqlite, the_statement_used_last_is_forgotten_last) {
    Sqlite_options options;
    options.kept_statements = 2;
    Sqlite_connection small(":memory:", options);
    small.execute("SELECT 1 AS a");
    small.execute("SELECT 1 AS b");
    small.execute("SELECT 1 AS a");
    small.execute("SELECT 1 AS c");
    const auto before = sqlite::Engine::of(small).translations();
    small.execute("SELECT 1 AS a");
    EXPECT_EQ(sqlite::Engine::of(small).translations(), before);
}

TEST_F(Sqlite, a_statement_kept_since_before_a_change_of_its_table_gives_the_new_columns) {
    db.execute("INSERT INTO T(Id) VALUES (1)");
    const auto before = db.execute("SELECT * FROM T");
    db.execute("ALTER TABLE T ADD Nueva varchar(5) DEFAULT 'x'");
    EXPECT_EQ(db.execute("SELECT * FROM T")->field("Nueva"), Value(std::string("x")));
    EXPECT_THROW(before->field("Nueva"), Database_error);
}

TEST_F(Sqlite, memory_stays_flat_over_many_statements) {
    const auto work = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            db.execute("INSERT INTO T(Id, Texto) VALUES (1, '" + std::string(i % 300, 'x') + "')");
            db.execute("SELECT * FROM T WHERE Texto = 'x'");
            db.execute("DELETE FROM T");
        }
    };
    work(500);
    const auto before = sqlite3_memory_used();
    work(5000);
    EXPECT_LE(sqlite3_memory_used(), before + 4096);
}

// ---- failures

TEST_F(Sqlite, a_failure_leaves_the_connection_usable) {
    db.execute("INSERT INTO T(Id) VALUES (1)");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(failure(db, "INSERT INTO T(Id) VALUES (1)"), "UNIQUE constraint failed: T.Id");
        EXPECT_NE(failure(db, "INSERT INTO T(Id) VALUES ('"), "");
        EXPECT_NE(failure(db, "SELECT * FROM Nada"), "");
        EXPECT_NE(failure(db, "SELECT (SELECT Id FROM (SELECT 1 AS Id UNION SELECT 2)) AS v"), "");
    }
    EXPECT_THAT(v("SELECT COUNT(*) AS v FROM T"), ElementsAre("1"));
    db.execute("INSERT INTO T(Id) VALUES (2)");
}

TEST_F(Sqlite, a_refused_text_never_reaches_the_engine) {
    const auto before = sqlite::Engine::of(db).translations();
    EXPECT_THAT(failure(db, "DELETE FROM T; SELECT 1"), HasSubstr("segunda instrucción"));
    EXPECT_THAT(failure(db, "DELETE FROM T -- x"), HasSubstr("comentario"));
    EXPECT_THAT(failure(db, "SELECT '\xFF'"), HasSubstr("UTF-8"));
    EXPECT_EQ(sqlite::Engine::of(db).translations(), before);
}

TEST_F(Sqlite, an_empty_statement_is_refused) {
    EXPECT_EQ(failure(db, ""), "La instrucción está vacía");
    EXPECT_EQ(failure(db, " \r\n;"), "La instrucción está vacía");
    EXPECT_EQ(failure(db, "dbo."), "La instrucción está vacía");
}

TEST_F(Sqlite, a_closed_connection_says_so) {
    db.close();
    EXPECT_EQ(failure(db, "SELECT 1"), "La conexión está cerrada");
    db.close();
}

TEST(Sqlite_file, a_missing_file_is_made_only_when_asked) {
    const Database_file file;
    EXPECT_THROW(Sqlite_connection{file.path()}, Database_error);
    EXPECT_FALSE(std::filesystem::exists(file.path()));
    file.open().execute("CREATE TABLE T (A int)");
    Sqlite_connection again(file.path());
    EXPECT_THAT(column(again, "v", "SELECT COUNT(*) AS v FROM T"), ElementsAre("0"));
}

std::string opening_failure(const std::string& path, const Sqlite_options& options = {}) {
    try {
        Sqlite_connection connection(path, options);
    } catch (const Database_error& error) {
        return error.what();
    }
    return {};
}

TEST(Sqlite_file, a_file_that_is_no_database_is_said_to_be_none_and_is_left_as_it_was) {
    const Database_file file;
    const std::string content = std::string(5000, 'x');
    std::ofstream(file.path()) << content;
    EXPECT_EQ(opening_failure(file.path()),
              "El archivo no es una base de datos (file is not a database): " + file.path());
    std::ifstream in(file.path());
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), content);
}

TEST(Sqlite_file, a_folder_and_a_missing_folder_cannot_be_opened) {
    EXPECT_THAT(opening_failure("/"), StartsWith("No es posible abrir el archivo de la base de datos"));
    Sqlite_options options;
    options.create = true;
    EXPECT_THAT(opening_failure("/no/existe/x.db", options),
                StartsWith("No es posible abrir el archivo de la base de datos"));
}

TEST(Sqlite_file, a_file_opened_for_reading_is_not_written) {
    const Database_file file;
    file.open().execute("CREATE TABLE T (A int)");
    Sqlite_options options;
    options.read_only = true;
    Sqlite_connection reader(file.path(), options);
    EXPECT_THAT(failure(reader, "INSERT INTO T VALUES (1)"), StartsWith("La base de datos es de solo lectura"));
    EXPECT_THAT(column(reader, "v", "SELECT COUNT(*) AS v FROM T"), ElementsAre("0"));
}

TEST(Sqlite_file, a_long_statement_is_interrupted_from_outside) {
    std::atomic<bool> interrupt = false;
    Sqlite_options options;
    options.create = true;
    options.statement_timeout_s = 0;
    options.interrupt = &interrupt;
    Sqlite_connection db(":memory:", options);
    db.execute("CREATE TABLE T (A int)");
    for (int i = 0; i < 60; ++i) db.execute("INSERT INTO T VALUES (" + std::to_string(i) + ")");
    const std::string counting = "SELECT COUNT(*) AS v FROM T a, T b, T c";
    EXPECT_THAT(column(db, "v", counting), ElementsAre("216000"));
    interrupt = true;
    EXPECT_EQ(failure(db, counting), "La instrucción se interrumpió");
    EXPECT_THAT(column(db, "v", "SELECT COUNT(*) AS v FROM T"), ElementsAre("60")) << "short ones still run";
}

TEST(Sqlite_file, a_statement_without_end_is_ended_and_others_go_on) {
    const Database_file file;
    file.open().execute("CREATE TABLE T (A int)");
    Sqlite_options options;
    EXPECT_EQ(options.statement_timeout_s, 60);
    options.statement_timeout_s = 1;
    Sqlite_connection db(file.path(), options), other(file.path());
    for (int i = 0; i < 60; ++i) db.execute("INSERT INTO T VALUES (" + std::to_string(i) + ")");
    const std::string ended = "La instrucción tardó más de 1 segundos y se interrumpió (interrupted)";
    EXPECT_EQ(failure(db,
                      "SELECT COUNT(*) AS v FROM T a, T b, T c, T d, T e, T f, T g, T h WHERE a.A + b.A + c.A + d.A "
                      "+ e.A + f.A + g.A + h.A < 0"),
              ended);
    {
        Unit_of_work whole(db);
        db.execute("INSERT INTO T VALUES (100)");
        EXPECT_EQ(failure(db,
                          "INSERT INTO T SELECT a.A FROM T a, T b, T c, T d, T e, T f, T g, T h WHERE a.A + b.A + c.A "
                          "+ d.A + e.A + f.A + g.A + h.A < 0"),
                  ended);
    }
    other.execute("INSERT INTO T VALUES (200)");
    EXPECT_THAT(column(db, "v", "SELECT A AS v FROM T WHERE A >= 100"), ElementsAre("200"));
}

TEST(Sqlite_file, a_full_disk_is_said_to_be_full_and_what_was_there_stays) {
    const Database_file file;
    Sqlite_connection db = file.open();
    db.execute("CREATE TABLE T (A varchar(max))");
    db.execute("INSERT INTO T VALUES ('uno')");
    sqlite3_exec(sqlite::handle_of(db), "PRAGMA max_page_count = 3", nullptr, nullptr, nullptr);
    EXPECT_THAT(failure(db, "INSERT INTO T VALUES ('" + std::string(100'000, 'x') + "')"),
                StartsWith("No hay espacio en el disco para la base de datos"));
    EXPECT_THAT(column(db, "v", "SELECT A AS v FROM T"), ElementsAre("uno"));
}

TEST(Sqlite_file, two_connections_on_one_file_see_each_others_rows_at_once) {
    const Database_file file;
    Sqlite_connection one = file.open(), two = file.open();
    one.execute("CREATE TABLE T (A int)");
    const auto open_rows = two.execute("SELECT * FROM T");
    one.execute("INSERT INTO T VALUES (1)");
    two.execute("INSERT INTO T VALUES (2)");
    EXPECT_THAT(column(one, "v", "SELECT A AS v FROM T ORDER BY A"), ElementsAre("1", "2"));
    one.execute("ALTER TABLE T ADD B int DEFAULT 5");
    EXPECT_THAT(column(two, "B", "SELECT * FROM T ORDER BY A"), ElementsAre("5", "5"));
}

TEST(Sqlite_file, a_file_held_by_another_program_is_waited_for_and_then_said_to_be_held) {
    const Database_file file;
    Sqlite_connection holder = file.open(), other = file.open(1);
    holder.execute("CREATE TABLE T (A int)");
    holder.execute("BEGIN TRANSACTION");
    EXPECT_THAT(failure(other, "INSERT INTO T VALUES (1)"),
                StartsWith("La base de datos está ocupada por otro programa"));
    EXPECT_THAT(column(other, "v", "SELECT COUNT(*) AS v FROM T"), ElementsAre("0"));
    EXPECT_THROW(other.execute("INSERT INTO T VALUES (1)"), Conflict_error);
    EXPECT_EQ(other.conflicts(), 2u);
    EXPECT_NE(failure(other, "INSERT INTO Nada VALUES (1)"), "");
    EXPECT_EQ(other.conflicts(), 2u) << "only another session counts";
    holder.execute("COMMIT");
    other.execute("INSERT INTO T VALUES (1)");
    EXPECT_THAT(column(holder, "v", "SELECT COUNT(*) AS v FROM T"), ElementsAre("1"));
}

TEST(Sqlite_file, writers_at_once_lose_no_update_and_see_no_number_twice) {
    const Database_file file;
    file.open().execute("CREATE TABLE Folio (Serie varchar(5) PRIMARY KEY, Siguiente int)");
    file.open().execute("INSERT INTO Folio VALUES ('A', 0)");
    std::vector<std::string> taken[2];
    const auto take = [&](std::vector<std::string>& into) {
        Sqlite_connection db = file.open(60000);
        for (int i = 0; i < 100; ++i) {
            const auto rows =
                db.execute("UPDATE Folio SET Siguiente = Siguiente + 1 OUTPUT inserted.Siguiente WHERE Serie = 'A'");
            into.push_back(to_text(rows->field("Siguiente")));
        }
    };
    std::thread other(take, std::ref(taken[0]));
    take(taken[1]);
    other.join();
    std::vector<std::string> all = taken[0];
    all.insert(all.end(), taken[1].begin(), taken[1].end());
    std::sort(all.begin(), all.end());
    EXPECT_EQ(std::unique(all.begin(), all.end()), all.end());
    Sqlite_connection db = file.open();
    EXPECT_THAT(column(db, "v", "SELECT Siguiente AS v FROM Folio"), ElementsAre("200"));
}

TEST(Sqlite_file, an_acknowledged_statement_is_durable_unless_another_setting_is_named) {
    const Database_file file;
    Sqlite_options options;
    options.create = true;
    const auto setting = [&](Synchronous value) {
        options.synchronous = value;
        Sqlite_connection db(file.path(), options);
        return column(db, "synchronous", "PRAGMA synchronous").at(0);
    };
    EXPECT_EQ(Sqlite_options{}.synchronous, Synchronous::full);
    EXPECT_EQ(setting(Synchronous::full), "2");
    EXPECT_EQ(setting(Synchronous::normal), "1");
    EXPECT_EQ(setting(Synchronous::off), "0");
    Sqlite_connection db(file.path());
    EXPECT_THAT(column(db, "journal_mode", "PRAGMA journal_mode"), ElementsAre("wal"));
    EXPECT_EQ(synchronous_named("Normal"), Synchronous::normal);
    EXPECT_EQ(synchronous_named("FULL"), Synchronous::full);
    EXPECT_EQ(synchronous_named("off"), Synchronous::off);
    EXPECT_THROW(synchronous_named("rápido"), Database_error);
}

TEST(Sqlite_file, any_sqlite_program_reads_and_indexes_the_file) {
    const Database_file file;
    {
        Sqlite_connection db = file.open();
        db.execute("CREATE TABLE T (A varchar(10) PRIMARY KEY, B datetime DEFAULT GETDATE())");
        db.execute("CREATE INDEX IX_T ON T (B)");
        db.execute("INSERT INTO T(A) VALUES ('Uno')");
    }
    sqlite3* bare = nullptr;
    ASSERT_EQ(sqlite3_open(file.path().c_str(), &bare), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(bare, "INSERT INTO T(A) VALUES ('dos'); REINDEX; SELECT * FROM T WHERE A = 'UNO'", nullptr,
                           nullptr, nullptr),
              SQLITE_OK)
        << sqlite3_errmsg(bare);
    sqlite3_close(bare);
}

TEST(Sqlite_file, a_bare_handle_runs_the_translated_text_on_equal_terms) {
    const Database_file file;
    Sqlite_connection db = file.open();
    db.execute("CREATE TABLE T (A varchar(10), B datetime)");
    db.execute("INSERT INTO T VALUES ('x', '2024-03-15')");
    const sqlite::Database bare = sqlite::open_database(file.path(), {});
    const std::string text =
        db.translate("UPDATE T SET A = (SELECT A + 'y' FROM T t WHERE t.A = T.A) WHERE MONTH(B) = 3");
    EXPECT_EQ(sqlite3_exec(bare.get(), text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(bare.get());
    EXPECT_THAT(column(db, "A", "SELECT A FROM T"), ElementsAre("xy"));
}

}  // namespace
}  // namespace cuvexa::tests
