// All or nothing around a call: what is kept, what is undone, and what only the instance remembers.
#include "cuvexa/unit_of_work.h"

#include <unistd.h>

#include <filesystem>

#include "cuvexa/database/sqlite_connection.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// Refuses one statement, by its text, so many times, and notes all of them.
class Refusing_connection : public Connection {
public:
    Refusing_connection(Connection& connection, std::string refused, int times = 1)
        : connection_(connection), refused_(std::move(refused)), times_(times) {}
    std::unique_ptr<Recordset> execute(std::string_view text) override {
        texts.emplace_back(text);
        if (text == refused_ && times_-- > 0) throw Database_error("disk full");
        return connection_.execute(text);
    }
    std::vector<std::string> texts;

private:
    Connection& connection_;
    std::string refused_;
    int times_;
};

/// Another session holds every row for good.
class Held_by_another : public Connection {
public:
    std::unique_ptr<Recordset> execute(std::string_view text) override {
        if (text.find("TRANSACTION") != std::string_view::npos) return nullptr;
        ++conflicts_;
        throw Conflict_error("held");
    }
    std::uint64_t conflicts() const noexcept override { return conflicts_; }

private:
    std::uint64_t conflicts_ = 0;
};

struct Whole_calls : ::testing::Test {
    std::string closed_receipt() {
        const std::string folio =
            company.capture_receipt({Company::receipt_line(150), Company::receipt_line(80, "02", "SIERRA", "778")});
        if (!company.treasury().FinReciboCaja(folio)) throw std::runtime_error(company.treasury().Error());
        return folio;
    }
    bool deposit(std::string folio) {
        return company.treasury().Genera_Deposito("SRR-MXN", folio, Company::today(), true, Company::today());
    }
    /// Whether a new unit may begin, which one that stands open would not let.
    bool nothing_stands_open() {
        try {
            Unit_of_work another(company.connection());
            return true;
        } catch (const Database_error&) {
            return false;
        }
    }

    Company company;
};

TEST_F(Whole_calls, whatever_statement_fails_the_refused_deposit_leaves_the_database_untouched) {
    const std::string receipt = closed_receipt();
    std::size_t n = 0;
    for (bool done = false; !done;) {
        company.mark();
        company.on.failing_statement = ++n;
        done = unit_of_work(company.connection(), [&] { return deposit(receipt); });
        if (!done) {
            EXPECT_THAT(company.changes_with_audit(), IsEmpty()) << "statement " << n;
        }
        ASSERT_LT(n, 200u);
    }
    EXPECT_GT(n, 5u);
    EXPECT_THAT(company.changes(), Not(IsEmpty())) << "the one that succeeded is kept";
    EXPECT_TRUE(nothing_stands_open());
}

TEST_F(Whole_calls, a_deposit_that_fails_half_way_stays_half_done_without_it) {
    const std::string receipt = closed_receipt();
    bool half_done = false;
    for (std::size_t n = 1; !half_done; ++n) {
        company.mark();
        company.on.failing_statement = n;
        ASSERT_FALSE(deposit(receipt)) << "no failure left rows behind";
        half_done = company.scalar("SELECT COUNT(*) FROM Deposito_Pago") != "0";
    }
    EXPECT_TRUE(half_done);
}

TEST_F(Whole_calls, a_closing_whose_voucher_is_refused_is_undone) {
    company.post_automatically("RECIBO_PAGO");
    const std::string folio = company.capture_receipt({Company::receipt_line(150)});
    company.mark();
    company.on.refuse("RegisterDocument", "sin periodo");
    EXPECT_FALSE(unit_of_work(company.connection(), [&] { return company.treasury().FinReciboCaja(folio); }));
    EXPECT_THAT(company.treasury().Error(), HasSubstr("sin periodo"));
    EXPECT_THAT(company.changes_with_audit(), IsEmpty());
}

TEST_F(Whole_calls, an_exception_undoes_and_goes_on_to_the_caller) {
    company.mark();
    EXPECT_THROW(unit_of_work(company.connection(),
                              [&]() -> bool {
                                  company.sql("UPDATE Banco SET Bn_Saldo = 7 WHERE Bn_Cve_Banco = 'SIERRA'");
                                  throw std::runtime_error("the caller's own");
                              }),
                 std::runtime_error);
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_TRUE(nothing_stands_open());
}

TEST_F(Whole_calls, a_unit_without_commit_is_undone_and_one_with_it_is_kept) {
    company.mark();
    {
        Unit_of_work work(company.connection());
        company.sql("UPDATE Banco SET Bn_Saldo = 7 WHERE Bn_Cve_Banco = 'SIERRA'");
    }
    EXPECT_THAT(company.changes(), IsEmpty());
    {
        Unit_of_work work(company.connection());
        company.sql("UPDATE Banco SET Bn_Saldo = 8 WHERE Bn_Cve_Banco = 'SIERRA'");
        work.commit();
    }
    EXPECT_EQ(company.scalar("SELECT Bn_Saldo FROM Banco WHERE Bn_Cve_Banco = 'SIERRA'"), "8.0");
}

TEST_F(Whole_calls, the_folio_is_given_back_and_the_instance_keeps_what_it_held) {
    Tesoreria& treasury = company.treasury();
    treasury.NuevoReciboCaja();
    treasury.RpEncabezado(Company::receipt_header());
    treasury.RpDetalle(Company::receipt_line(150));
    unit_of_work(company.connection(), [&] {
        EXPECT_TRUE(treasury.Add_Recibo_Caja_Detalle()) << treasury.Error();
        return false;
    });
    const std::string undone = treasury.RpEncabezado().Rp_Folio;
    EXPECT_NE(undone, "");
    EXPECT_EQ(company.scalar("SELECT COUNT(*) FROM Recibo_Pago"), "0");
    EXPECT_EQ(company.capture_receipt({Company::receipt_line(20)}), undone) << "the series goes on as if never asked";
}

TEST_F(Whole_calls, a_failing_commit_throws_and_undoes) {
    company.mark();
    Refusing_connection connection(company.connection(), "COMMIT TRANSACTION");
    const auto change = [&] {
        connection.execute("UPDATE Banco SET Bn_Saldo = 7 WHERE Bn_Cve_Banco = 'SIERRA'");
        return true;
    };
    EXPECT_THROW(unit_of_work(connection, change), Database_error);
    EXPECT_EQ(connection.texts.back(), "ROLLBACK TRANSACTION");
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_TRUE(nothing_stands_open());
}

TEST_F(Whole_calls, an_undoing_that_fails_for_a_moment_is_tried_once_more) {
    company.mark();
    Refusing_connection connection(company.connection(), "ROLLBACK TRANSACTION");
    unit_of_work(connection, [&] {
        connection.execute("UPDATE Banco SET Bn_Saldo = 7 WHERE Bn_Cve_Banco = 'SIERRA'");
        return false;
    });
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_TRUE(nothing_stands_open());
}

TEST_F(Whole_calls, an_undoing_that_goes_on_failing_is_given_up_in_silence) {
    Refusing_connection connection(company.connection(), "ROLLBACK TRANSACTION", 100);
    unit_of_work(connection, [] { return false; });
    EXPECT_EQ(connection.texts,
              (std::vector<std::string>{"BEGIN TRANSACTION", "ROLLBACK TRANSACTION", "ROLLBACK TRANSACTION"}));
    company.connection().execute("ROLLBACK TRANSACTION");
}

TEST(Units_of_two_sessions, tell_that_another_session_was_in_the_way) {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("cuvexa_units_" + std::to_string(::getpid()) + ".db")).string();
    {
        Sqlite_connection first(path, {.synchronous = Synchronous::off, .create = true});
        Sqlite_connection second(path, {.synchronous = Synchronous::off, .busy_timeout_ms = 1});
        first.execute("CREATE TABLE T (A int)");
        const Unit_of_work holding(first);
        EXPECT_THROW(Unit_of_work{second}, Conflict_error);
        EXPECT_EQ(second.conflicts(), 1u);
        EXPECT_FALSE(holding.met_conflict());
    }
    for (const char* tail : {"", "-wal", "-shm"}) std::filesystem::remove(path + tail);
}

TEST(Units_of_two_sessions, know_it_of_a_call_that_only_gave_false) {
    Held_by_another held;
    Unit_of_work work(held);
    EXPECT_FALSE(work.met_conflict());
    try {
        held.execute("UPDATE T SET A = 1");
    } catch (const Database_error&) {
        // As an operation does, which gives False.
    }
    EXPECT_TRUE(work.met_conflict());
    EXPECT_FALSE(Unit_of_work{held}.met_conflict()) << "the next one begins anew";
}

TEST_F(Whole_calls, a_database_that_begins_nothing_runs_nothing) {
    Refusing_connection connection(company.connection(), "BEGIN TRANSACTION");
    bool called = false;
    EXPECT_THROW(unit_of_work(connection, [&] { return called = true; }), Database_error);
    EXPECT_FALSE(called);
    EXPECT_EQ(connection.texts.size(), 1u) << "what never began is not undone either";
}

TEST_F(Whole_calls, one_inside_another_is_refused_and_the_outer_one_goes_on) {
    if (company.embedded() == nullptr) GTEST_SKIP() << "servers differ in what they say";
    Unit_of_work outer(company.connection());
    company.sql("UPDATE Banco SET Bn_Saldo = 9 WHERE Bn_Cve_Banco = 'SIERRA'");
    try {
        Unit_of_work inner(company.connection());
        ADD_FAILURE() << "a second transaction began";
    } catch (const Database_error& error) {
        EXPECT_THAT(error.what(), HasSubstr("transaction within a transaction"));
    }
    outer.commit();
    EXPECT_EQ(company.scalar("SELECT Bn_Saldo FROM Banco WHERE Bn_Cve_Banco = 'SIERRA'"), "9.0");
}

}  // namespace
}  // namespace cuvexa::tests
