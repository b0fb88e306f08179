// Which suite and which database: the rules.
#include <atomic>
#include <fstream>
#include <sstream>
#include <thread>

#include "com/registry.h"
#include "database/sqlite/engine.h"
#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

/// A value of the registry for as long as the test runs; the key below `Software\Cuvexa` goes with it.
class Setting {
public:
    Setting(HKEY hive, const std::wstring& key, const std::wstring& name, const std::string& value) : hive_(hive) {
        Key::made(hive_, L"Software\\" + key).text(name, wide(value));
    }
    ~Setting() { RegDeleteTreeW(hive_, L"Software\\Cuvexa"); }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

private:
    HKEY hive_;
};

class Settings : public ::testing::Test {
protected:
    Folder folder;
    Variable db{"CUVEXA_DB", ""}, local{"LOCALAPPDATA", folder / "local"}, date{"CUVEXA_SERVER_DATE", ""},
        user{"CUVEXA_USER", ""}, trace{"CUVEXA_TRACE", ""}, wait{"CUVEXA_WAIT", ""};

    static std::string refusal() {
        try {
            make_embedded_suite({});
        } catch (const Company_error& failure) {
            return failure.what();
        }
        return "none";
    }
};

TEST_F(Settings, objects_have_default_names_that_the_registry_replaces_one_by_one) {
    EXPECT_EQ(suite_objects_from_registry().prog_id<SessionServices>(), "CuvexaSuite.SessionServices");
    const Setting everybody(HKEY_LOCAL_MACHINE, L"Cuvexa\\Servicios", L"SessionServices", "Real.Sesion");
    const Setting payables(HKEY_LOCAL_MACHINE, L"Cuvexa\\Servicios", L"AccountsPayableService", "Real.Cxp");
    const Setting mine(HKEY_CURRENT_USER, L"Cuvexa\\Servicios", L"SessionServices", "Mia.Sesion");
    const Suite_objects names = suite_objects_from_registry();
    EXPECT_EQ(names.prog_id<SessionServices>(), "Mia.Sesion");
    EXPECT_EQ(names.prog_id<AccountsPayableService>(), "Real.Cxp");
    EXPECT_EQ(names.prog_id<DataServices>(), "CuvexaSuite.DataServices");
}

TEST_F(Settings, every_service_can_be_named) {
    for (const char* service : {"SessionServices", "DataServices", "PaymentMethodService", "DocumentPaymentsService",
                                "AccountsPayableService", "AccountsReceivableService", "AccountingService"}) {
        const std::string prog_id = "Otra." + std::string(service);
        const Setting named(HKEY_CURRENT_USER, L"Cuvexa\\Servicios", wide(service), prog_id);
        EXPECT_EQ(suite_objects_from_registry().prog_id(service), prog_id);
    }
}

TEST_F(Settings, a_suite_is_there_when_the_class_of_its_session_is_registered) {
    EXPECT_FALSE(is_registered({}));
    const Library library;
    ASSERT_EQ(library.call("DllRegisterServer"), S_OK);
    EXPECT_TRUE(is_registered({}));
    EXPECT_FALSE(is_registered(Suite_objects().set("SessionServices", "NoHay.Sesion")));
    ASSERT_EQ(library.call("DllUnregisterServer"), S_OK);
    EXPECT_FALSE(is_registered({}));
    Key::made(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CuvexaSuite.SessionServices\\CLSID")
        .text({}, L"{0A5CF1F0-7D0E-4F0B-8D52-7E3B112A4499}");
    EXPECT_FALSE(is_registered({})) << "a name without its class";
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CuvexaSuite.SessionServices");
}

TEST_F(Settings, the_environment_names_the_database_before_the_registry_and_the_user_before_everybody) {
    const Setting everybody(HKEY_LOCAL_MACHINE, L"Cuvexa", L"BaseDeDatos", "C:\\todos.db");
    EXPECT_EQ(embedded_settings().company.database, "C:\\todos.db");
    const Setting mine(HKEY_CURRENT_USER, L"Cuvexa", L"BaseDeDatos", "C:\\mía.db");
    EXPECT_EQ(embedded_settings().company.database, "C:\\mía.db");
    const Variable named("CUVEXA_DB", "C:\\ésta.db");
    EXPECT_EQ(embedded_settings().company.database, "C:\\ésta.db");
    EXPECT_FALSE(embedded_settings().try_out);
}

TEST_F(Settings, a_named_database_that_is_missing_is_refused_and_not_made) {
    const Variable named("CUVEXA_DB", folder / "no está.db");
    EXPECT_THAT(refusal(), ::testing::StartsWith("No existe la base de datos: "));
    EXPECT_THAT(refusal(), HasSubstr("no está.db (se crea con: cuvexa init --db "));
    EXPECT_FALSE(stands(folder / "no está.db"));
}

TEST_F(Settings, what_is_no_database_of_this_version_is_refused) {
    {
        const Variable named("CUVEXA_DB", folder / "");
        EXPECT_THAT(refusal(), ::testing::StartsWith("No es una base de datos sino una carpeta: "));
    }
    const std::string file = folder / "otra.db";
    const Variable named("CUVEXA_DB", file);
    { std::ofstream(file) << std::string(5000, 'x'); }
    EXPECT_THAT(refusal(), ::testing::StartsWith("El archivo no es una base de datos"));
    DeleteFileW(wide(file).c_str());
    Sqlite_connection(file, {.create = true}).execute("CREATE TABLE x (y VARCHAR(10))");
    EXPECT_EQ(refusal(), "No es una base de datos de Cuvexa: " + file);
    DeleteFileW(wide(file).c_str());
    make_sample_company(file);
    Sqlite_connection(file).execute("UPDATE Esquema_Suite SET Eq_Version = 77");
    EXPECT_THAT(refusal(),
                ::testing::StartsWith("La versión del esquema de la base de datos es 77 y la de este programa es 2"));
}

TEST_F(Settings, a_server_is_refused_without_showing_its_password) {
    const Variable named("CUVEXA_DB", "Driver=X;Server=s;PWD=secreto");
    EXPECT_THAT(refusal(),
                ::testing::StartsWith("La base de datos tiene que ser un archivo, no un servidor: Driver=X"));
    EXPECT_THAT(refusal(), ::testing::Not(HasSubstr("secreto")));
}

TEST_F(Settings, a_machine_with_nothing_gets_the_sample_company_to_try_things_on) {
    const std::string file = folder / "local\\Cuvexa\\empresa.db";
    {
        const auto suite = make_embedded_suite({});
        EXPECT_TRUE(stands(file));
        EXPECT_EQ(suite->data()->LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "USD", "Moneda"),
                  "Dólar estadounidense");
        EXPECT_EQ(suite->data()->GetNextFolio("MTY", "CHEQUE"), "CH-MTY-00000001");
    }
    EXPECT_EQ(make_embedded_suite({})->data()->GetNextFolio("MTY", "CHEQUE"), "CH-MTY-00000002") << "it is kept";
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(wide(folder / "local\\Cuvexa"))) {
        files += entry.exists();
    }
    EXPECT_EQ(files, 1u) << "and nothing else is left beside it";
}

TEST_F(Settings, two_programs_that_find_nothing_get_the_same_sample_company) {
    std::vector<std::thread> programs;
    std::atomic<int> done = 0;
    for (int i = 0; i < 4; ++i) {
        programs.emplace_back([&] {
            try {
                make_embedded_suite({})->data()->GetNextFolio("MTY", "CHEQUE");
                ++done;
            } catch (const Company_error& failure) {
                ADD_FAILURE() << failure.what();
            }
        });
    }
    for (std::thread& program : programs) program.join();
    EXPECT_EQ(done, 4);
    EXPECT_EQ(make_embedded_suite({})->data()->GetNextFolio("MTY", "CHEQUE"), "CH-MTY-00000005");
}

TEST_F(Settings, what_a_deleted_database_left_behind_is_not_taken_for_part_of_a_new_one) {
    std::filesystem::create_directories(wide(folder / "local\\Cuvexa"));
    const std::string rest = folder / "local\\Cuvexa\\empresa.db-wal";
    { std::ofstream(std::filesystem::path(wide(rest))) << "x"; }
    EXPECT_EQ(refusal(), "Quedan restos de otra base de datos: " + rest);
    EXPECT_FALSE(stands(folder / "local\\Cuvexa\\empresa.db"));
}

TEST_F(Settings, without_a_place_to_try_things_on_the_database_has_to_be_named) {
    const Variable none("LOCALAPPDATA", "");
    EXPECT_EQ(refusal(), "Falta decir cuál es la base de datos: CUVEXA_DB");
}

TEST_F(Settings, user_and_date_come_from_the_environment) {
    wchar_t name[257];
    DWORD size = 257;
    ::GetUserNameW(name, &size);
    EXPECT_EQ(embedded_settings().user, utf8(name));
    const Variable another("CUVEXA_USER", "PEÑA"), fixed("CUVEXA_SERVER_DATE", "2024-03-15T10:20:30");
    const auto suite = make_embedded_suite({});
    EXPECT_EQ(suite->session()->GetUserName(), "PEÑA");
    EXPECT_EQ(suite->data()->GetServerDate(), make_date(2024, 3, 15, 10, 20, 30));
}

TEST_F(Settings, a_setting_that_makes_no_sense_is_named) {
    {
        const Variable wrong("CUVEXA_SERVER_DATE", "ayer");
        EXPECT_THAT(refusal(), ::testing::StartsWith("CUVEXA_SERVER_DATE no es una fecha"));
    }
    {
        const Variable wrong("CUVEXA_WAIT", "-1");
        EXPECT_THAT(refusal(), ::testing::StartsWith("CUVEXA_WAIT no es un número de segundos"));
    }
    const Variable wrong("CUVEXA_SYNCHRONOUS", "quizá");
    EXPECT_THAT(refusal(), HasSubstr("quizá"));
}

TEST_F(Settings, another_program_that_is_writing_is_waited_for_as_long_as_told) {
    const std::string file = folder / "empresa.db";
    make_sample_company(file);
    const Variable named("CUVEXA_DB", file), at_once("CUVEXA_WAIT", "0");
    const auto suite = make_embedded_suite({});
    Sqlite_connection other(file);
    sqlite3_exec(sqlite::handle_of(other), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    try {
        suite->session()->GetConnection().execute("UPDATE Banco SET Bn_Descripcion = 'x'");
        ADD_FAILURE();
    } catch (const Database_error& failure) {
        EXPECT_THAT(failure.what(), ::testing::StartsWith("La base de datos está ocupada por otro programa"));
    }
}

TEST_F(Settings, statements_are_written_down_when_asked_for_but_never_over_the_database) {
    const std::string file = folder / "empresa.db";
    make_sample_company(file);
    const Variable named("CUVEXA_DB", file);
    {
        const Variable over("CUVEXA_TRACE", file);
        EXPECT_EQ(refusal(), "El rastro no puede escribirse en la base de datos: " + file);
    }
    {
        const Variable nowhere("CUVEXA_TRACE", folder / "no\\hay.jsonl");
        EXPECT_THAT(refusal(), ::testing::StartsWith("No se puede escribir el rastro: "));
    }
    const Variable into("CUVEXA_TRACE", folder / "rastro ñ.jsonl");
    make_embedded_suite({})->session()->GetConnection().execute("SELECT 'ñ' AS x");
    std::stringstream written;
    written << std::ifstream(std::filesystem::path(wide(folder / "rastro ñ.jsonl"))).rdbuf();
    EXPECT_THAT(written.str(), HasSubstr("\"text\":\"SELECT 'ñ' AS x\""));
}

TEST_F(Settings, what_the_component_reports_goes_to_whoever_shows_it) {
    std::vector<std::string> shown;
    const auto suite = make_embedded_suite([&](const Reported_error& report) { shown.push_back(report.code); });
    suite->session()->ReportError("d", 16, "r", "", "Cuvexa", "ERR-ID:7500012");
    EXPECT_THAT(shown, ElementsAre("ERR-ID:7500012"));
}

}  // namespace
}  // namespace cuvexa::tests
