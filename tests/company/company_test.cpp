// Opening and making a company: what is refused, in which words, and that nothing half made is left.
#include "cuvexa/company.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>
#include <vector>

#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/tesoreria.h"
#include "cuvexa/unit_of_work.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

std::string text_of(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string scalar(const Company& company, const std::string& statement) {
    return to_text(company.connection().execute(statement)->field("value"));
}

constexpr const char* name_of_company = "SELECT Em_Descripcion AS value FROM Empresa";
constexpr const char* sample_name = "Comercializadora Río Claro, S.A. de C.V.";

class Companies : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "cuvexa-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string file(const std::string& name) const { return (folder_ / name).string(); }
    void write(const std::string& name, const std::string& content) const { std::ofstream(file(name)) << content; }

    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder_)) all.push_back(entry.path().filename().string());
        return all;
    }

    Company_options made(const std::string& name, Contents contents = Contents::sample_company) const {
        Company_options options{.database = file(name), .synchronous = "off"};
        Company::create(options, contents);
        return options;
    }

    /// Why the options' company is not opened.
    static std::string refusal(const Company_options& options) {
        return refusal_of([&] { Company opened(options); });
    }
    /// Why it is not made.
    static std::string refusal_to_make(const Company_options& options) {
        return refusal_of([&] { Company::create(options, Contents::schema); });
    }

private:
    template <class Work>
    static std::string refusal_of(Work work) {
        try {
            work();
        } catch (const Company_error& failure) {
            return failure.what();
        }
        return "none";
    }

    fs::path folder_;
};

// ---- Making --------------------------------------------------------------------------------------------------------

TEST_F(Companies, begin_with_the_schema_or_with_the_sample_company) {
    const Company bare(made("vacía.db", Contents::schema)), sample(made("muestra.db"));
    EXPECT_EQ(scalar(bare, "SELECT COUNT(*) AS value FROM Empresa"), "0");
    EXPECT_EQ(scalar(sample, name_of_company), sample_name);
}

TEST_F(Companies, are_made_without_leaving_anything_beside_them) {
    made("empresa.db");
    EXPECT_THAT(names(), ElementsAre("empresa.db"));
}

TEST_F(Companies, are_not_made_over_what_stands_there) {
    write("empresa.db", "de alguien");
    fs::create_symlink("nada", file("enlace.db"));
    for (const std::string name : {"empresa.db", "enlace.db"}) {
        EXPECT_EQ(refusal_to_make({.database = file(name)}), "Ya existe y no se toca: " + file(name));
    }
    EXPECT_EQ(text_of(file("empresa.db")), "de alguien");
}

TEST_F(Companies, are_not_made_beside_what_a_deleted_one_left) {
    for (const std::string rest : {"empresa.db-wal", "empresa.db-journal"}) {
        write(rest, "x");
        EXPECT_EQ(refusal_to_make({.database = file("empresa.db")}),
                  "Quedan restos de otra base de datos: " + file(rest));
        fs::remove(file(rest));
    }
}

TEST_F(Companies, are_not_made_where_there_is_no_folder) {
    EXPECT_EQ(refusal_to_make({.database = file("nada/empresa.db")}), "No existe la carpeta: " + file("nada"));
}

TEST_F(Companies, that_cannot_be_made_leave_nothing_behind) {
    const std::string nowhere = file("nada/rastro.jsonl");
    EXPECT_EQ(refusal_to_make({.database = file("empresa.db"), .trace = nowhere}),
              "No se puede escribir el rastro: " + nowhere);
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(Companies, are_not_put_over_what_appears_while_they_are_made) {
    // The trace appears first, and takes the company's name.
    const std::string taken = file("empresa.db");
    EXPECT_EQ(refusal_to_make({.database = taken, .trace = taken}), "Ya existe y no se toca: " + taken);
    EXPECT_THAT(text_of(taken), StartsWith("{\"seq\":1,"));
    EXPECT_THAT(names(), ElementsAre("empresa.db"));
}

TEST_F(Companies, are_made_once_however_many_find_none) {
    const Company_options options{.database = file("empresa.db"), .synchronous = "off"};
    std::atomic<int> made = 0, opened = 0;
    std::vector<std::thread> programs;
    for (int i = 0; i < 6; ++i) {
        programs.emplace_back([&] {
            made += Company::create_if_missing(options, Contents::sample_company) ? 1 : 0;
            opened += scalar(Company(options), name_of_company) == sample_name ? 1 : 0;
        });
    }
    for (std::thread& program : programs) program.join();
    EXPECT_EQ(made, 1);
    EXPECT_EQ(opened, 6);
    EXPECT_FALSE(Company::create_if_missing(options, Contents::schema));
}

TEST_F(Companies, remove_the_drafts_of_killed_programs_and_no_others) {
    const std::string abandoned = "empresa.db.nueva-00112233445566ff", worked_in = "empresa.db.nueva-0011223344556677";
    for (const std::string& name : {abandoned, worked_in, std::string("otra.db.nueva-00112233445566ff")}) {
        fs::create_directory(file(name));
        write(name + "/empresa.db", "a medias");
        write(name + "/empresa.db-wal", "a medias");
    }
    write("empresa.db.nueva-2024", "de alguien");
    const int held = open(file(worked_in).c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    made("empresa.db");
    EXPECT_THAT(names(), UnorderedElementsAre("empresa.db", worked_in, "otra.db.nueva-00112233445566ff",
                                              "empresa.db.nueva-2024"));
    EXPECT_EQ(text_of(file(worked_in + "/empresa.db-wal")), "a medias");
    close(held);
    made("empresa.db-2");
    EXPECT_TRUE(fs::exists(file(worked_in))) << "of another file";
    fs::remove(file("empresa.db"));
    made("empresa.db");
    EXPECT_FALSE(fs::exists(file(worked_in)));
}

TEST_F(Companies, that_are_missing_and_cannot_be_made_are_refused_all_the_same) {
    EXPECT_THROW(Company::create_if_missing({.database = file("nada/empresa.db")}, Contents::schema), Company_error);
}

TEST_F(Companies, live_in_memory_when_they_are_not_to_last) {
    const Company company = Company::in_memory(Contents::sample_company);
    EXPECT_EQ(scalar(company, name_of_company), sample_name);
    EXPECT_THAT(names(), IsEmpty());
}

// ---- Opening -------------------------------------------------------------------------------------------------------

TEST_F(Companies, that_are_missing_are_refused_and_not_made) {
    const std::string name = file("empresa.db");
    EXPECT_FALSE(Company::stands({.database = name}));
    EXPECT_EQ(refusal({.database = name}),
              "No existe la base de datos: " + name + " (se crea con: cuvexa init --db " + name + ")");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(Companies, are_not_folders_other_files_or_other_databases) {
    EXPECT_EQ(refusal({.database = file("")}), "No es una base de datos sino una carpeta: " + file(""));
    write("carta.txt", std::string(5000, 'x'));
    EXPECT_TRUE(Company::stands({.database = file("carta.txt")}));
    EXPECT_THAT(refusal({.database = file("carta.txt")}), StartsWith("El archivo no es una base de datos ("));
    Sqlite_connection(file("otra.db"), {.create = true}).execute("CREATE TABLE x (y VARCHAR(10))");
    EXPECT_EQ(refusal({.database = file("otra.db")}), "No es una base de datos de Cuvexa: " + file("otra.db"));
    const Company_options other = made("sin versión.db");
    Company(other).connection().execute("DELETE FROM Esquema_Suite");
    EXPECT_EQ(refusal(other), "No es una base de datos de Cuvexa: " + other.database);
}

TEST_F(Companies, of_another_version_are_refused) {
    const Company_options options = made("empresa.db");
    Company(options).connection().execute("UPDATE Esquema_Suite SET Eq_Version = 77, Eq_Programa = '9.1.0'");
    EXPECT_EQ(refusal(options), "La versión del esquema de la base de datos es 77 y la de este programa es 2: " +
                                    options.database + " (se trabaja con cuvexa 9.1.0 o posterior)");
}

TEST_F(Companies, that_are_refused_are_left_as_they_were) {
    Sqlite_connection(file("con diario.db"), {.create = true}).execute("CREATE TABLE x (y VARCHAR(10))");
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file("sin diario.db").c_str(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "CREATE TABLE x (y)", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(raw);
    write("vacía.db", "");
    const Company_options newer = made("nueva.db");
    Company(newer).connection().execute("UPDATE Esquema_Suite SET Eq_Version = 77");
    const auto all = names();
    for (const std::string& name : all) {
        const std::string before = text_of(file(name));
        for (const Access access : {Access::read, Access::write}) {
            EXPECT_THROW(Company({.database = file(name)}, access), Company_error) << name;
            EXPECT_THROW(Company::upgrade({.database = file(name)}), Company_error) << name;
        }
        EXPECT_TRUE(text_of(file(name)) == before) << name;
        EXPECT_THAT(names(), UnorderedElementsAreArray(all)) << name;
    }
}

TEST_F(Companies, with_a_log_that_a_killed_program_left_are_not_changed_by_readers) {
    const Company_options options = made("empresa.db");
    {
        const Company writer(options);
        writer.connection().execute("UPDATE Empresa SET Em_Descripcion = 'Otra'");
        fs::copy(file("empresa.db"), file("copia.db"));
        fs::copy(file("empresa.db-wal"), file("copia.db-wal"));
    }
    const std::string before = text_of(file("copia.db")), log = text_of(file("copia.db-wal"));
    EXPECT_EQ(scalar(Company({.database = file("copia.db")}, Access::read), name_of_company), "Otra");
    EXPECT_TRUE(text_of(file("copia.db")) == before);
    EXPECT_TRUE(text_of(file("copia.db-wal")) == log);
    EXPECT_EQ(scalar(Company({.database = file("copia.db")}), name_of_company), "Otra");
    EXPECT_FALSE(fs::exists(file("copia.db-wal"))) << "a writer takes the log in";
}

TEST_F(Companies, are_neither_devices_nor_pipes) {
    ASSERT_EQ(mkfifo(file("conducto").c_str(), 0600), 0);
    for (const std::string& name : {file("conducto"), std::string("/dev/null")}) {
        EXPECT_EQ(refusal({.database = name}), "No es una base de datos sino un dispositivo o un conducto: " + name);
    }
}

TEST_F(Companies, have_whatever_name_is_given) {
    const fs::path before = fs::current_path();
    fs::current_path(file(""));
    for (const std::string name : {":memory:", "file:empresa.db?mode=memory", "-x", "a b%20ñ?.db"}) {
        Company::create({.database = name}, Contents::schema);
        EXPECT_TRUE(fs::is_regular_file(name)) << name;
        EXPECT_EQ(scalar(Company({.database = name}, Access::read), "SELECT COUNT(*) AS value FROM Empresa"), "0");
    }
    fs::current_path(before);
}

TEST_F(Companies, are_not_waited_for_by_what_is_no_number) {
    Company_options options = made("empresa.db");
    for (const double wait : {std::nan(""), -1.0, 3601.0, HUGE_VAL}) {
        options.wait_s = wait;
        EXPECT_THAT(refusal(options), StartsWith("La espera no es un número de segundos de 0 a 3600: "));
    }
}

TEST_F(Companies, read_by_others_have_nothing_left_beside_them) {
    const Company_options options = made("empresa.db");
    {
        const Company reader(options, Access::read);
        EXPECT_EQ(scalar(reader, name_of_company), sample_name);
        EXPECT_EQ(reader.notice(), "");
        Company(options).connection().execute("UPDATE Empresa SET Em_Descripcion = 'Otra'");
        EXPECT_EQ(scalar(reader, name_of_company), "Otra");
    }
    EXPECT_THAT(names(), ElementsAre("empresa.db"));
}

TEST_F(Companies, whose_trace_cannot_be_written_say_so) {
    Company_options options = made("empresa.db");
    options.trace = "/dev/full";
    const Company company(options);
    EXPECT_THROW(scalar(company, name_of_company), Database_error);
}

TEST_F(Companies, opened_for_reading_are_not_written) {
    const Company company(made("empresa.db"), Access::read);
    EXPECT_EQ(scalar(company, name_of_company), sample_name);
    EXPECT_THROW(company.connection().execute("DELETE FROM Banco"), Database_error);
}

TEST_F(Companies, wait_for_others_as_long_as_told) {
    Company_options options = made("empresa.db");
    options.wait_s = 0;
    const Company one(options), other(options);
    const Unit_of_work holding(one.connection());
    try {
        other.connection().execute("DELETE FROM Banco");
        ADD_FAILURE();
    } catch (const Database_error& failure) {
        EXPECT_THAT(failure.what(), StartsWith("La base de datos está ocupada por otro programa"));
    }
}

TEST_F(Companies, are_as_durable_as_told) {
    Company_options options = made("empresa.db");
    const auto durability = [&] {
        return to_text(Company(options).connection().execute("PRAGMA synchronous")->field("synchronous"));
    };
    EXPECT_EQ(durability(), "0");
    options.synchronous = "FULL";
    EXPECT_EQ(durability(), "2");
    options.synchronous = "quizá";
    EXPECT_EQ(refusal(options), "No existe la sincronización: quizá (full, normal, off)");
}

// ---- At work -------------------------------------------------------------------------------------------------------

TEST_F(Companies, give_the_component_its_suite) {
    const Company company(made("empresa.db"));
    Module module(company.suite({.user = "PEÑA", .server_date = make_date(2024, 3, 15)}));
    EXPECT_EQ(module.session().GetUserName(), "PEÑA");
    EXPECT_EQ(module.data().GetServerDate(), make_date(2024, 3, 15));
    EXPECT_EQ(module.data().SqlDate(make_date(2024, 3, 15)), "2024-03-15");
    Tesoreria treasury(module);
    EXPECT_EQ(treasury.GetSaldo("SRR-MXN"), 0);
    EXPECT_EQ(treasury.Error(), "");
}

TEST_F(Companies, stay_open_for_their_suite) {
    Module module(Company(made("empresa.db")).suite());
    EXPECT_EQ(module.data().LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "USD", "Moneda"), "Dólar estadounidense");
}

TEST_F(Companies, keep_their_connection_when_they_are_moved) {
    Company company = Company::in_memory(Contents::sample_company);
    Connection& connection = company.connection();
    const Company moved = std::move(company);
    EXPECT_EQ(&moved.connection(), &connection);
    EXPECT_EQ(scalar(moved, name_of_company), sample_name);
}

TEST_F(Companies, write_their_statements_down_each_in_its_own_place) {
    Company_options first = made("uno.db"), second = made("dos.db");
    first.trace = file("rastro ñ.jsonl");
    second.trace = file("otro.jsonl");
    for (int run = 1; run <= 2; ++run) {
        const Company one(first), two(second);
        scalar(one, "SELECT 'uno' AS value");
        scalar(two, "SELECT 'dos' AS value");
    }
    const std::string trace = text_of(first.trace);
    EXPECT_THAT(trace, StartsWith("{\"seq\":1,\"text\":\"SELECT 'uno' AS value\"")) << "only what the company is asked";
    EXPECT_THAT(trace, HasSubstr("}\n{\"seq\":1,\"text\":\"SELECT 'uno' AS value\"")) << "the second time behind it";
    EXPECT_THAT(trace, Not(HasSubstr("dos")));
    EXPECT_THAT(text_of(second.trace), HasSubstr("SELECT 'dos' AS value"));
}

TEST_F(Companies, are_not_overwritten_by_their_trace) {
    Company_options options = made("empresa.db");
    fs::create_hard_link(options.database, file("la misma.db"));
    for (const std::string& over : {options.database, file("la misma.db")}) {
        options.trace = over;
        EXPECT_EQ(refusal(options), "El rastro no puede escribirse en la base de datos: " + over);
    }
    options.trace = file("");
    EXPECT_EQ(refusal(options), "No se puede escribir el rastro: " + options.trace);
}

// ---- Servers -------------------------------------------------------------------------------------------------------

TEST(Company_names, with_a_driver_are_servers_and_are_shown_without_their_password) {
    const Company_options server{.database = "Driver=X;Server=s;PWD=secreto"};
    EXPECT_TRUE(server.is_server());
    EXPECT_EQ(server.shown(), "Driver=X;Server=s;PWD=***");
    EXPECT_TRUE(Company_options{.database = "DSN=caja"}.is_server());
    const Company_options file{.database = "año=2024.db"};
    EXPECT_FALSE(file.is_server());
    EXPECT_EQ(file.shown(), "año=2024.db");
}

TEST(Company_names, of_servers_that_do_not_answer_are_refused_without_their_password) {
    const Company_options options{.database = "Driver=No Existe;Server=127.0.0.1;PWD=secreto-80"};
    for (const bool opening : {true, false}) {
        try {
            if (opening) {
                Company company(options);
            } else {
                Company::create(options, Contents::schema);
            }
            ADD_FAILURE() << "it was let in";
        } catch (const Company_error& failure) {
#ifdef CUVEXA_WITH_ODBC
            EXPECT_THAT(failure.what(), StartsWith("No es posible abrir la sesión con el servidor de base de datos ("));
#else
            EXPECT_THAT(failure.what(), StartsWith("Este programa se construyó sin estos servidores de base de datos"));
#endif
            EXPECT_THAT(failure.what(), Not(HasSubstr("secreto-80")));
        }
    }
}

}  // namespace
}  // namespace cuvexa::tests
