// Companies of earlier versions of the schema: refused, and brought to this program's version with all that is in them.
// tests/company/versions keeps one of each earlier version.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>
#include <vector>

#include "cuvexa/company.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/audit.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/tesoreria.h"
#include "cuvexa/unit_of_work.h"
#include "database/sqlite/engine.h"
#include "support/places.h"
#include "support/snapshot.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string text_of_version(int version) {
    std::ifstream stream(in_source("tests/company/versions/" + std::to_string(version) + ".sql"));
    return {std::istreambuf_iterator<char>(stream), {}};
}

sqlite3* handle_of(const Company& company) {
    return sqlite::handle_of(dynamic_cast<Sqlite_connection&>(company.connection()));
}

std::vector<std::string> lines(sqlite3* database, const std::string& query) {
    std::vector<std::string> all;
    read_bare(database, query, [&](const Snapshot::Row& row) {
        std::string line;
        for (const auto& [name, value] : row) line += value + '|';
        all.push_back(line);
    });
    return all;
}

/// What a database is made of: its columns in their order with type, collation and default, its keys and its indexes.
std::vector<std::string> structure(sqlite3* database) {
    std::vector<std::string> all =
        lines(database,
              "SELECT t.name, c.cid, c.name, c.type, c.\"notnull\", c.dflt_value, c.pk FROM sqlite_master t, "
              "pragma_table_info(t.name) c WHERE t.type = 'table' ORDER BY t.name, c.cid");
    const auto indexes =
        lines(database,
              "SELECT t.name, i.name, i.\"unique\", c.seqno, c.name, c.coll, c.\"desc\" FROM sqlite_master t, "
              "pragma_index_list(t.name) i, pragma_index_xinfo(i.name) c WHERE t.type = 'table' "
              "ORDER BY t.name, i.name, c.seqno");
    all.insert(all.end(), indexes.begin(), indexes.end());
    read_bare(database,
              "SELECT t.name, c.name FROM sqlite_master t, pragma_table_info(t.name) c WHERE t.type = 'table' "
              "ORDER BY t.name, c.cid",
              [&](const Snapshot::Row& row) {
                  const char* collation = "";
                  sqlite3_table_column_metadata(database, "main", row[0].second.c_str(), row[1].second.c_str(), nullptr,
                                                &collation, nullptr, nullptr, nullptr);
                  all.push_back(row[0].second + '.' + row[1].second + ' ' + collation);
              });
    return all;
}

class Upgrades : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "cuvexa-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
        options.database = (folder_ / "empresa.db").string();
        options.synchronous = "off";
        const std::string text = text_of_version(GetParam());
        ASSERT_FALSE(text.empty()) << "tests/company/versions lacks a company of version " << GetParam();
        Sqlite_connection database(options.database, {.synchronous = Synchronous::off, .create = true});
        Unit_of_work whole(database);
        run_script(database, text);
        whole.commit();
    }
    void TearDown() override { fs::remove_all(folder_); }

    void sql(const std::string& statement) const { Sqlite_connection(options.database).execute(statement); }

    Snapshot rows() const {
        const Sqlite_connection database(options.database);
        return Snapshot(sqlite::handle_of(database));
    }
    std::vector<std::string> structure_now() const {
        const Sqlite_connection database(options.database);
        return structure(sqlite::handle_of(database));
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
    std::string refusal_to_open() const {
        return refusal([&] { Company company(options); });
    }
    std::string refusal_to_upgrade(Upgrade_mode mode = Upgrade_mode::keep) const {
        return refusal([&] { Company::upgrade(options, mode); });
    }

    Company_options options;

private:
    fs::path folder_;
};

// Every version before this program's has its company there, and steps that begin at it.
INSTANTIATE_TEST_SUITE_P(From_version, Upgrades, ::testing::Range(1, schema_version),
                         ::testing::PrintToStringParamName());

TEST_P(Upgrades, are_asked_for_where_a_company_is_of_an_earlier_version) {
    EXPECT_EQ(refusal_to_open(), "La versión del esquema de la base de datos es " + std::to_string(GetParam()) +
                                     " y la de este programa es " + std::to_string(schema_version) + ": " +
                                     options.database + " (se actualiza con: cuvexa upgrade --db " + options.database +
                                     ")");
}

TEST_P(Upgrades, make_of_it_what_a_new_company_is) {
    const Upgrade done = Company::upgrade(options);
    EXPECT_EQ(done.from, GetParam());
    EXPECT_EQ(done.to, schema_version);
    const Company upgraded(options), made = Company::in_memory(Contents::schema);
    EXPECT_EQ(structure(handle_of(upgraded)), structure(handle_of(made)));
    const std::string version = "SELECT * FROM Esquema_Suite";
    EXPECT_EQ(lines(handle_of(upgraded), version), lines(handle_of(made), version));
}

TEST_P(Upgrades, leave_every_row_as_it_was) {
    // The columns of today that the earlier version lacks are not looked at.
    const auto of_documents = [&] {
        const Sqlite_connection database(options.database);
        std::vector<std::string> all;
        for (const char* table : {"Recibo_Pago", "Deposito_Pago", "Banco_Movimiento", "Cheque", "Banco_Cuenta",
                                  "Cuenta_x_Cobrar", "Cuenta_x_Pagar", "Poliza_Detalle", "Folio_Serie"}) {
            const auto found = lines(sqlite::handle_of(database), std::string("SELECT * FROM ") + table);
            EXPECT_THAT(found, testing::Not(IsEmpty())) << table;
            all.insert(all.end(), found.begin(), found.end());
        }
        return all;
    };
    const auto before = of_documents();
    Company::upgrade(options);
    EXPECT_EQ(of_documents(), before);
}

TEST_P(Upgrades, leave_a_company_that_adds_up_and_that_the_component_works_on) {
    Company::upgrade(options);
    const Company company(options);
    EXPECT_TRUE(audit(company.connection()).empty());
    Module module(company.suite({.user = "CAJA1", .server_date = make_date(2024, 3, 15)}));
    Tesoreria treasury(module);
    EXPECT_TRUE(treasury.Cancelar_Deposito("DP-MTY-00000002")) << treasury.Error();
    EXPECT_TRUE(audit(company.connection()).empty());
}

TEST_P(Upgrades, that_are_tried_out_change_nothing) {
    const Snapshot before = rows();
    const auto made_of = structure_now();
    EXPECT_EQ(Company::upgrade(options, Upgrade_mode::try_out).from, GetParam());
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(structure_now(), made_of);
}

TEST_P(Upgrades, that_meet_an_obstacle_change_nothing) {
    sql("CREATE INDEX Ix_Peticion_Servicio_Fecha_Alta ON Banco (Bn_Saldo)");
    const Snapshot before = rows();
    const auto made_of = structure_now();
    for (const Upgrade_mode mode : {Upgrade_mode::try_out, Upgrade_mode::keep}) {
        EXPECT_EQ(refusal_to_upgrade(mode), "index Ix_Peticion_Servicio_Fecha_Alta already exists");
    }
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(structure_now(), made_of);
}

TEST_P(Upgrades, are_made_once_however_many_begin_them) {
    std::atomic<int> upgraded = 0, opened = 0;
    std::vector<std::thread> programs;
    for (int i = 0; i < 6; ++i) {
        programs.emplace_back([&] {
            upgraded += Company::upgrade(options).from == GetParam() ? 1 : 0;
            opened += Company::stands(options) && refusal_to_open() == "none" ? 1 : 0;
        });
    }
    for (std::thread& program : programs) program.join();
    EXPECT_EQ(upgraded, 1);
    EXPECT_EQ(opened, 6);
}

TEST_P(Upgrades, have_nothing_to_do_a_second_time) {
    Company::upgrade(options);
    const Snapshot before = rows();
    EXPECT_EQ(Company::upgrade(options).from, schema_version);
    EXPECT_EQ(rows(), before);
}

TEST_P(Upgrades, of_a_newer_company_or_of_what_is_none_are_refused) {
    Company::upgrade(options);
    sql("UPDATE Esquema_Suite SET Eq_Version = 77, Eq_Programa = '9.1.0'");
    const std::string newer = "La versión del esquema de la base de datos es 77 y la de este programa es " +
                              std::to_string(schema_version) + ": " + options.database +
                              " (se trabaja con cuvexa 9.1.0 o posterior)";
    EXPECT_EQ(refusal_to_upgrade(), newer);
    EXPECT_EQ(refusal_to_open(), newer);
    sql("DELETE FROM Esquema_Suite");
    EXPECT_EQ(refusal_to_upgrade(), "No es una base de datos de Cuvexa: " + options.database);
    options.database += "-otra";
    EXPECT_EQ(refusal_to_upgrade(), "No existe la base de datos: " + options.database +
                                        " (se crea con: cuvexa init --db " + options.database + ")");
}

TEST(Schema_upgrades, lead_from_the_first_version_to_this_one) {
    std::vector<int> versions;
    for (const Schema_upgrade& upgrade : schema_upgrades()) versions.push_back(upgrade.version);
    ASSERT_EQ(versions.size(), static_cast<std::size_t>(schema_version - 1));
    for (std::size_t i = 0; i < versions.size(); ++i) EXPECT_EQ(versions[i], static_cast<int>(i) + 2);
}

}  // namespace
}  // namespace cuvexa::tests
