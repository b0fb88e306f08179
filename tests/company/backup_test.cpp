// Copies of a company in a file: of one moment, sound, whole or not at all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "cuvexa/company.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/audit.h"
#include "database/sqlite/engine.h"
#include "support/snapshot.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;
using ::testing::Each;
using ::testing::Ge;
using ::testing::SizeIs;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

class Backups : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "cuvexa-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
        options = {.database = file("empresa.db"), .synchronous = "off"};
        Company::create(options, Contents::sample_company);
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string file(const std::string& name) const { return (folder_ / name).string(); }

    static void sql(const Company_options& company, const std::string& statement) {
        Sqlite_connection(company.database, {.synchronous = Synchronous::off}).execute(statement);
    }
    static Snapshot rows(const std::string& database) {
        const Sqlite_connection connection(database);
        return Snapshot(sqlite::handle_of(connection));
    }
    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder_)) all.push_back(entry.path().filename().string());
        return all;
    }

    /// Makes the company larger than what is copied at once.
    void grow() const {
        Sqlite_connection connection(options.database, {.synchronous = Synchronous::off});
        const std::string comment(8000, 'x');
        for (int i = 0; i < 400; ++i) {
            connection.execute("INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Comentario) VALUES ('R', '" +
                               std::to_string(i) + "', '" + comment + "')");
        }
    }

    template <class Work>
    static std::string refusal(Work work) {
        try {
            work();
        } catch (const Company_error& failure) {
            return failure.what();
        }
        return "none";
    }
    std::string refusal_to_copy(const std::string& copy) const {
        return refusal([&] { Company::back_up(options, copy); });
    }

    Company_options options;

private:
    fs::path folder_;
};

TEST_F(Backups, hold_every_row_and_are_companies) {
    Company::back_up(options, file("copia.db"));
    EXPECT_EQ(rows(file("copia.db")), rows(options.database));
    EXPECT_TRUE(audit(Company({.database = file("copia.db")}).connection()).empty());
    EXPECT_THAT(names(), UnorderedElementsAre("empresa.db", "copia.db"));
}

TEST_F(Backups, are_of_the_moment_at_which_they_begin) {
    grow();
    const Snapshot before = rows(options.database);
    std::vector<int> told;
    Company::back_up(options, file("copia.db"), [&](int per_cent) {
        told.push_back(per_cent);
        sql(options, "UPDATE Banco_Cuenta SET Bc_Saldo = Bc_Saldo + 1");
        EXPECT_FALSE(fs::exists(file("copia.db"))) << "nothing has its name before it is whole";
    });
    EXPECT_EQ(rows(file("copia.db")), before);
    EXPECT_NE(rows(options.database), before) << "others write meanwhile";
    EXPECT_THAT(told, SizeIs(Ge(3)));
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.front(), 0);
    EXPECT_EQ(told.back(), 100);
}

TEST_F(Backups, that_do_not_come_to_their_end_leave_nothing) {
    grow();
    for (const int end : {0, 1}) {
        const auto stop = [&](int per_cent) {
            if (per_cent >= end) throw std::runtime_error("basta");
        };
        EXPECT_EQ(refusal([&] { Company::back_up(options, file("copia.db"), stop); }), "basta");
    }
    EXPECT_THAT(names(), Each(StartsWith("empresa.db")));
    sql(options, "UPDATE Banco_Cuenta SET Bc_Saldo = 1");
}

TEST_F(Backups, are_not_put_over_what_stands_there) {
    std::ofstream(file("copia.db")) << "de alguien";
    EXPECT_EQ(refusal_to_copy(file("copia.db")), "Ya existe y no se toca: " + file("copia.db"));
    EXPECT_EQ(refusal_to_copy(options.database), "Ya existe y no se toca: " + options.database);
    EXPECT_EQ(refusal_to_copy(file("nada/copia.db")), "No existe la carpeta: " + file("nada"));
    EXPECT_EQ(fs::file_size(file("copia.db")), 10u);
}

TEST_F(Backups, of_what_is_no_company_are_refused) {
    std::ofstream(file("carta.txt")) << std::string(5000, 'x');
    options.database = file("carta.txt");
    EXPECT_THAT(refusal_to_copy(file("copia.db")), StartsWith("El archivo no es una base de datos ("));
    Sqlite_connection(file("otra.db"), {.create = true}).execute("CREATE TABLE x (y VARCHAR(10))");
    options.database = file("otra.db");
    EXPECT_EQ(refusal_to_copy(file("copia.db")), "No es una base de datos de Cuvexa: " + file("otra.db"));
}

// An index that lacks a row: the engine reads every page of it without complaint.
TEST_F(Backups, of_a_damaged_company_are_refused) {
    sql(options,
        "INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Folio_Deposito) VALUES ('R', '1', 'DAÑADO-EN-EL-DISCO')");
    const auto content = [&] {
        std::ifstream stream(options.database, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }();
    const auto in_index = content.find("DAÑADO-EN-EL-DISCO");
    ASSERT_NE(in_index, std::string::npos);
    std::fstream stream(options.database, std::ios::binary | std::ios::in | std::ios::out);
    stream.seekp(static_cast<std::streamoff>(in_index));
    stream << "X";
    stream.close();
    EXPECT_THAT(refusal_to_copy(file("copia.db")), StartsWith("La base de datos está dañada: "));
    EXPECT_THAT(names(), Each(StartsWith("empresa.db")));
}

TEST_F(Backups, become_companies_again) {
    Company::back_up(options, file("copia.db"));
    const Snapshot before = rows(options.database);
    sql(options, "DELETE FROM Banco_Cuenta");
    EXPECT_EQ(refusal([&] { Company::restore(options, file("copia.db")); }),
              "Ya existe y no se toca: " + options.database);
    fs::remove(options.database);
    Company::restore(options, file("copia.db"));
    EXPECT_EQ(rows(options.database), before);
    EXPECT_EQ(
        refusal([&] { Company::restore({.database = file("otra.db")}, file("nada.db")); }),
        "No existe la base de datos: " + file("nada.db") + " (se crea con: cuvexa init --db " + file("nada.db") + ")");
}

TEST(Backups_of_servers, are_made_with_the_servers_tools) {
    const Company_options server{.database = "Driver=X;Server=s;PWD=secreto"};
    const auto told = [](auto work) -> std::string {
        try {
            work();
        } catch (const Company_error& failure) {
            return failure.what();
        }
        return "none";
    };
#ifdef CUVEXA_WITH_ODBC
    EXPECT_EQ(told([&] { Company::back_up(server, "copia.db"); }),
              "La base de datos de un servidor se copia con la herramienta del servidor: pg_dump, en PostgreSQL; "
              "BACKUP DATABASE, en SQL Server");
    EXPECT_EQ(told([&] { Company::restore(server, "copia.db"); }),
              "La base de datos de un servidor se recupera con la herramienta del servidor: pg_restore, en PostgreSQL; "
              "RESTORE DATABASE, en SQL Server");
#else
    EXPECT_NE(told([&] { Company::back_up(server, "copia.db"); }), "none");
#endif
}

}  // namespace
}  // namespace cuvexa::tests
