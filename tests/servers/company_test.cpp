// A company in a server's database, on the server that CUVEXA_TEST_DB names.
#include "cuvexa/company.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <string>
#include <thread>

#include "cuvexa/database/script.h"
#include "cuvexa/module.h"
#include "cuvexa/suite/audit.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/tesoreria.h"
#include "cuvexa/unit_of_work.h"
#include "support/limits.h"
#include "support/places.h"
#include "support/test_server.h"

namespace cuvexa::tests {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Company_on_a_server : public ::testing::Test {
protected:
    void SetUp() override {
        const char* const text = std::getenv("CUVEXA_TEST_DB");
        if (text == nullptr) GTEST_SKIP() << "CUVEXA_TEST_DB names no server";
        options.database = text;
        drop_tables();
    }
    void TearDown() override {
        if (!options.database.empty()) drop_tables();
    }

    void drop_tables() const {
        static const std::regex table(R"(CREATE TABLE (\w+))");
        const std::string schema(schema_sql());
        const auto server = open_server(options.database);
        for (std::sregex_iterator at(schema.begin(), schema.end(), table), end; at != end; ++at) {
            try {
                server->execute("DROP TABLE " + (*at)[1].str());
            } catch (const Database_error&) {
                // It was not there.
            }
        }
    }

    static std::string refusal(const Company_options& options) {
        try {
            Company company(options);
            return "none";
        } catch (const Company_error& failure) {
            return failure.what();
        }
    }

    Company_options options;
};

TEST_F(Company_on_a_server, is_made_opened_and_not_made_again) {
    EXPECT_FALSE(Company::stands(options));
    EXPECT_EQ(refusal(options), "No es una base de datos de Cuvexa: " + options.shown());
    EXPECT_TRUE(Company::create_if_missing(options, Contents::sample_company));
    EXPECT_TRUE(Company::stands(options));
    Module module(Company(options).suite());
    EXPECT_EQ(module.data().LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "USD", "Moneda"), "Dólar estadounidense");
    EXPECT_FALSE(Company::create_if_missing(options, Contents::schema));
    try {
        Company::create(options, Contents::schema);
        ADD_FAILURE() << "it was made over the other";
    } catch (const Company_error& failure) {
        EXPECT_EQ(failure.what(), "Ya existe y no se toca: " + options.shown());
    }
}

TEST_F(Company_on_a_server, is_made_whole_or_not_at_all) {
    const auto server = open_server(options.database);
    server->prepare_database();
    server->execute("CREATE TABLE Poliza_Detalle (En_Medio int NOT NULL, PRIMARY KEY (En_Medio))");
    EXPECT_THROW(Company::create(options, Contents::sample_company), Company_error);
    EXPECT_FALSE(Company::stands(options));
    EXPECT_THROW(server->execute("SELECT * FROM Banco"), Database_error);
}

TEST_F(Company_on_a_server, of_an_earlier_version_is_upgraded_whole_or_not_at_all) {
    const auto server = open_server(options.database);
    server->prepare_database();
    std::ifstream text(in_source("tests/company/versions/1.sql"));
    run_script(*server, std::string(std::istreambuf_iterator<char>(text), {}));
    EXPECT_THAT(refusal(options), HasSubstr("(se actualiza con: cuvexa upgrade --db "));
    EXPECT_EQ(Company::upgrade(options, Upgrade_mode::try_out).from, 1);
    EXPECT_THROW(server->execute("SELECT Eq_Programa FROM Esquema_Suite"), Database_error);
    server->execute("CREATE TABLE Peticion_Servicio (En_Medio int NOT NULL, PRIMARY KEY (En_Medio))");
    EXPECT_THROW(Company::upgrade(options), Company_error);
    EXPECT_THROW(server->execute("SELECT Eq_Programa FROM Esquema_Suite"), Database_error);
    server->execute("DROP TABLE Peticion_Servicio");
    EXPECT_EQ(Company::upgrade(options).from, 1);
    EXPECT_EQ(Company::upgrade(options).from, schema_version);
    const Company company(options);
    EXPECT_TRUE(audit(company.connection()).empty());
    company.connection().execute("INSERT INTO Peticion_Servicio (Pe_Nombre, Pe_Llave) VALUES ('A', 'B')");
}

TEST_F(Company_on_a_server, refuses_what_does_not_fit_into_a_column) {
    Company::create(options, Contents::schema);
    expect_limits_of_the_schema(Company(options).connection());
}

TEST_F(Company_on_a_server, tells_a_user_without_rights_so) {
    const auto server = open_server(options.database);
    if (server->server_name() != "PostgreSQL") GTEST_SKIP() << "in PostgreSQL's own words";
    Company::create(options, Contents::schema);
    try {
        server->execute("CREATE ROLE mirona LOGIN");
    } catch (const Database_error&) {
        // A test that failed left it.
    }
    server->execute("ALTER ROLE mirona PASSWORD 'secreto'");
    const std::string text =
        std::regex_replace(without_its_password(options.database).text, std::regex("(//|UID=)cuvexa"), "$1mirona");
    const Company_options other{.database = text, .password = "secreto"};
    EXPECT_THAT(refusal(other),
                AllOf(StartsWith("El usuario no tiene permiso para leer la base de datos: " + other.shown() + " ("),
                      HasSubstr("[42501")));
    server->execute("DROP ROLE mirona");
}

// One of two units that pay the same account waits for the other, and is then told to be done again: no number collides.
TEST_F(Company_on_a_server, gives_payments_of_one_account_in_two_units_at_once_a_number_each) {
    Company::create(options, Contents::sample_company);
    if (open_server(options.database)->server_name() != "PostgreSQL") GTEST_SKIP() << "PostgreSQL tells who waits";
    const Company first(options), second(options), observer(options);
    const auto pay = [](const Company& company) {
        Receivable_payment made;
        made.receivable_folio = "CXC-MTY-00000001";
        made.amount = 10;
        made.date = make_date(2024, 3, 15);
        made.currency = "MXN";
        made.exchange_rate = 1;
        const auto suite = company.suite();
        const auto payments = suite->new_accounts_receivable();
        if (!payments->RegisterPayment(made)) throw std::runtime_error(payments->LastError());
    };
    const auto waiting = [&] {
        const auto rows =
            observer.connection().execute("SELECT COUNT(*) AS V FROM pg_stat_activity WHERE wait_event_type = 'Lock'");
        return to_number(rows->field("V")) > 0;
    };
    std::atomic<bool> over = false;
    std::string told;
    Unit_of_work one(first.connection());
    pay(first);
    std::thread other([&] {
        try {
            Unit_of_work two(second.connection());
            pay(second);
            two.commit();
        } catch (const Conflict_error&) {
            told = "conflict";
        } catch (const std::exception& failure) {
            told = failure.what();
        }
        over = true;
    });
    while (!over && !waiting()) std::this_thread::yield();
    one.commit();
    other.join();
    EXPECT_EQ(told, "conflict");
    Unit_of_work again(second.connection());
    pay(second);
    again.commit();
    std::string numbers;
    const auto rows = observer.connection().execute("SELECT Pc_ID FROM Pago_Cxc ORDER BY Pc_ID");
    for (; !rows->eof(); rows->move_next()) numbers += to_text(rows->field("Pc_ID")) + " ";
    EXPECT_EQ(numbers, "0001 0002 ");
}

TEST_F(Company_on_a_server, compares_states_that_a_column_fills_up_with_blanks) {
    Company::create(options, Contents::sample_company);
    const Company company(options);
    company.connection().execute("ALTER TABLE Deposito_Pago ALTER COLUMN Es_Cve_Estado TYPE char(10)");
    company.connection().execute(
        "INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id, Es_Cve_Estado) VALUES ('D1', '0001', 'CA')");
    Module module(company.suite());
    Tesoreria treasury(module);
    std::string folio = "D1";
    EXPECT_FALSE(treasury.Cancelar_Deposito(folio));
    EXPECT_THAT(treasury.Error(), HasSubstr("El depósito: D1, está cancelado!"));
}

TEST_F(Company_on_a_server, takes_the_password_of_the_options_or_of_the_environment) {
    const auto apart = without_its_password(options.database);
    const std::string &without = apart.text, &password = apart.password;
    const auto let_in = [&](const std::string& given) {
        return refusal({.database = without, .password = given}).starts_with("No es una base de datos de Cuvexa: ");
    };
    setenv("CUVEXA_PASSWORD", "otra", 1);
    EXPECT_FALSE(let_in(""));
    EXPECT_TRUE(let_in(password));
    setenv("CUVEXA_PASSWORD", password.c_str(), 1);
    EXPECT_TRUE(let_in(""));
    EXPECT_FALSE(let_in("otra"));
    unsetenv("CUVEXA_PASSWORD");
    EXPECT_THAT(refusal({.database = without, .password = "otra"}), StartsWith("No es posible abrir la sesión"));
}

}  // namespace
}  // namespace cuvexa::tests
