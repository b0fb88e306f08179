// Two sessions on one file.
#include <unistd.h>

#include <filesystem>
#include <set>
#include <thread>
#include <utility>

#include "suite/fixture.h"

namespace cuvexa::tests {
namespace {

std::vector<std::string> take_folios(const std::string& path, int count) {
    Sqlite_connection connection(path, {.synchronous = Synchronous::off});
    Reference_suite suite(connection);
    std::vector<std::string> folios;
    for (int i = 0; i < count; ++i) folios.push_back(suite.data()->GetNextFolio("MTY", "RECIBO_PAGO"));
    return folios;
}

TEST(Two_sessions, never_get_the_same_folio_and_begin_one_series) {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("cuvexa_folios_" + std::to_string(::getpid()) + ".db")).string();
    {
        Sqlite_connection connection(path, {.synchronous = Synchronous::off, .create = true});
        run_script(connection, schema_sql());
    }
    std::vector<std::string> first, second;
    std::thread other([&] { second = take_folios(path, 200); });
    first = take_folios(path, 200);
    other.join();
    std::set<std::string> all(first.begin(), first.end());
    all.insert(second.begin(), second.end());
    EXPECT_EQ(all.size(), 400u);
    EXPECT_EQ(*all.begin(), "RP-MTY-00000001");
    EXPECT_EQ(*all.rbegin(), "RP-MTY-00000400");
    for (const char* tail : {"", "-wal", "-shm"}) std::filesystem::remove(path + tail);
}

/// A server on which another session inserts the same row between the look and the insertion; or, without `other`, one
/// that does not let this session insert. Once.
class Inserted_meanwhile : public Connection {
public:
    Inserted_meanwhile(Connection& rows, std::string table, bool other)
        : rows_(rows), insertion_("INSERT INTO " + table + " "), other_(other) {}

    std::unique_ptr<Recordset> execute(std::string_view text) override {
        if (!text.starts_with(insertion_) || std::exchange(met_, true)) return rows_.execute(text);
        if (other_) rows_.execute(text);
        throw Database_error("llave duplicada");
    }

private:
    Connection& rows_;
    std::string insertion_;
    bool other_, met_ = false;
};

TEST(Two_sessions, that_begin_one_series_in_the_same_moment_both_get_a_folio) {
    Sqlite_connection rows(":memory:", {.synchronous = Synchronous::off});
    run_script(rows, schema_sql());
    Inserted_meanwhile connection(rows, "Folio_Serie", true);
    Reference_suite suite(connection);
    EXPECT_EQ(suite.data()->GetNextFolio("MTY", "RECIBO_PAGO"), "RP-MTY-00000001");
}

TEST(Two_sessions, a_series_that_cannot_be_begun_is_a_failure_with_the_database_s_words) {
    Sqlite_connection rows(":memory:", {.synchronous = Synchronous::off});
    run_script(rows, schema_sql());
    Inserted_meanwhile connection(rows, "Folio_Serie", false);
    Reference_suite suite(connection);
    try {
        suite.data()->GetNextFolio("MTY", "RECIBO_PAGO");
        FAIL() << "it gave a folio";
    } catch (const Database_error& error) {
        EXPECT_STREQ(error.what(), "llave duplicada");
    }
}

/// A server on which another session pays the same account between the look at the numbers and the insertion,
/// `others` times.
class Paid_meanwhile : public Connection {
public:
    Paid_meanwhile(Connection& rows, int others) : rows_(rows), others_(others) {}

    std::unique_ptr<Recordset> execute(std::string_view text) override {
        if (text.starts_with("INSERT INTO Pago_Cx") && others_-- > 0) rows_.execute(text);
        return rows_.execute(text);
    }

private:
    Connection& rows_;
    int others_;
};

class Simultaneous_payments : public Suite_test {
protected:
    Receivable_payment payment() {
        Receivable_payment made;
        made.receivable_folio = "CXC-MTY-00000001";
        made.amount = 10;
        made.date = today();
        made.currency = "MXN";
        made.exchange_rate = 1;
        return made;
    }
};

TEST_F(Simultaneous_payments, all_get_a_number) {
    Paid_meanwhile server(connection, 1);
    Reference_suite other(server, {.user = "CAJA2", .server_date = today()});
    const auto receivables = other.new_accounts_receivable();
    ASSERT_TRUE(receivables->RegisterPayment(payment())) << receivables->LastError();
    EXPECT_THAT(column("SELECT Pc_ID AS value FROM Pago_Cxc ORDER BY Pc_ID"), ElementsAre("0001", "0002"));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 4980) << "both count";
}

TEST_F(Simultaneous_payments, all_get_a_number_where_both_found_it_free) {
    Inserted_meanwhile server(connection, "Pago_Cxc", true);
    Reference_suite other(server, {.user = "CAJA2", .server_date = today()});
    const auto receivables = other.new_accounts_receivable();
    ASSERT_TRUE(receivables->RegisterPayment(payment())) << receivables->LastError();
    EXPECT_THAT(column("SELECT Pc_ID AS value FROM Pago_Cxc ORDER BY Pc_ID"), ElementsAre("0001", "0002"));
}

TEST_F(Simultaneous_payments, a_payment_that_fails_for_another_reason_fails_with_the_database_s_words) {
    company.meanwhile("BEFORE INSERT ON Pago_Cxc", "SELECT RAISE(ABORT, 'disco lleno')");
    EXPECT_THROW(suite.new_accounts_receivable()->RegisterPayment(payment()), Database_error);
}

}  // namespace
}  // namespace cuvexa::tests
