// A session that is opened anew after its connection was lost; without a server.
#include "database/renewable.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace cuvexa::tests {
namespace {

/// What all sessions were given, each statement behind the number of its session.
struct Wire {
    std::vector<std::string> sent;
    int sessions = 0;
    bool dead = false;  ///< the statement under way loses its connection
    bool nobody_there = false;
    bool failure_ends_unit = true;
};

class Fake_session {
public:
    explicit Fake_session(Wire& wire) : wire_(&wire) {
        if (wire.nobody_there) throw Database_error("nobody there");
        number_ = ++wire.sessions;
    }

    std::unique_ptr<Recordset> execute(std::string_view text) {
        wire_->sent.push_back(std::to_string(number_) + " " + std::string(text));
        if (std::exchange(wire_->dead, false)) throw Lost_connection_error("lost");
        if (text == "WRONG") throw Database_error("wrong");
        if (text == "IN THE WAY") throw Conflict_error("in the way");
        if (text.starts_with("INSERT")) throw database::Repeated_key_error("there already");
        return std::make_unique<database::Row_set>(std::make_shared<std::vector<std::string>>());
    }
    std::uint64_t conflicts() const noexcept { return 1; }
    bool failure_ends_unit() const noexcept { return wire_->failure_ends_unit; }

private:
    Wire* wire_;
    int number_ = 0;
};

class Renewed : public ::testing::Test {
protected:
    std::string run(const std::string& text) {
        try {
            connection.execute(text);
            return "";
        } catch (const Database_error& error) {
            return error.what();
        }
    }
    std::string lose_in(const std::string& text) {
        wire.dead = true;
        return run(text);
    }

    Wire wire;
    database::Renewable<Fake_session> connection{[this] { return std::make_unique<Fake_session>(wire); }};
    const std::string over =
        "La unidad de trabajo terminó cuando se perdió la conexión con el servidor de base de datos; no se conservó "
        "nada de ella";
};

using Sent = std::vector<std::string>;

TEST_F(Renewed, the_statement_after_a_loss_runs_in_another_session_and_none_runs_twice) {
    EXPECT_EQ(lose_in("A"), "lost");
    EXPECT_EQ(run("B"), "");
    EXPECT_EQ(run("WRONG"), "wrong");
    EXPECT_EQ(run("C"), "");
    EXPECT_EQ(wire.sent, (Sent{"1 A", "2 B", "2 WRONG", "2 C"}));
    EXPECT_EQ(connection.conflicts(), 2u) << "those of both sessions";
}

TEST_F(Renewed, each_statement_asks_again_while_nobody_is_there) {
    lose_in("A");
    wire.nobody_there = true;
    EXPECT_EQ(run("B"), "nobody there");
    EXPECT_EQ(run("C"), "nobody there");
    wire.nobody_there = false;
    EXPECT_EQ(run("D"), "");
    EXPECT_EQ(wire.sent, (Sent{"1 A", "2 D"}));
}

TEST_F(Renewed, nothing_of_a_unit_runs_outside_of_it) {
    run("begin transaction");
    lose_in("A");
    EXPECT_EQ(run("B"), over);
    EXPECT_EQ(run("C"), over);
    EXPECT_EQ(run("ROLLBACK TRANSACTION"), "");
    EXPECT_EQ(run("D"), "");
    EXPECT_EQ(wire.sent, (Sent{"1 begin transaction", "1 A", "2 D"}));
}

TEST_F(Renewed, a_unit_that_was_lost_is_not_kept) {
    run("BEGIN TRANSACTION");
    lose_in("A");
    EXPECT_EQ(run("COMMIT TRANSACTION"), over);
    EXPECT_EQ(run("ROLLBACK TRANSACTION"), "");
    EXPECT_EQ(run("D"), "");
    EXPECT_EQ(wire.sent.back(), "2 D");
}

TEST_F(Renewed, a_unit_lost_while_it_began_or_ended_leaves_nothing_behind) {
    lose_in("BEGIN TRANSACTION");
    EXPECT_EQ(run("ROLLBACK TRANSACTION"), "") << "nothing is there to be undone, and nobody is asked";
    EXPECT_EQ(run("BEGIN TRANSACTION"), "");
    EXPECT_EQ(lose_in("COMMIT TRANSACTION"), "lost");
    EXPECT_EQ(run("ROLLBACK TRANSACTION"), "");
    EXPECT_EQ(run("A"), "");
    EXPECT_EQ(wire.sent, (Sent{"1 BEGIN TRANSACTION", "2 BEGIN TRANSACTION", "2 COMMIT TRANSACTION", "3 A"}));
}

TEST_F(Renewed, a_unit_of_which_a_statement_failed_is_undone_where_the_server_does_not_keep_it) {
    for (const bool ends : {true, false}) {
        wire.failure_ends_unit = ends;
        run("BEGIN TRANSACTION");
        run("WRONG");
        EXPECT_EQ(run("COMMIT TRANSACTION"),
                  ends ? "La unidad de trabajo se deshizo, porque falló una de sus instrucciones [25P02]" : "");
        EXPECT_EQ(wire.sent.back(), ends ? "1 ROLLBACK TRANSACTION" : "1 COMMIT TRANSACTION");
        EXPECT_EQ(run("A"), "");
    }
}

TEST_F(Renewed, what_goes_on_with_a_failed_unit_fails_with_what_ended_it_and_is_not_sent) {
    run("BEGIN TRANSACTION");
    EXPECT_EQ(run("IN THE WAY"), "in the way");
    EXPECT_EQ(run("WRONG"), "in the way");
    EXPECT_THROW(connection.execute("A"), Conflict_error) << "whoever repeats what met another session sees that";
    EXPECT_EQ(run("ROLLBACK TRANSACTION"), "");
    EXPECT_EQ(run("B"), "");
    EXPECT_EQ(wire.sent, (Sent{"1 BEGIN TRANSACTION", "1 IN THE WAY", "1 ROLLBACK TRANSACTION", "1 B"}));
}

constexpr auto asks_first = "INSERT INTO T (A) SELECT 'x' WHERE NOT EXISTS (SELECT A FROM t WHERE A = 'x')";
constexpr auto does_not_ask = "INSERT INTO T (A) SELECT 'T' FROM U";

TEST_F(Renewed, a_key_that_the_unit_asked_for_and_did_not_see_is_another_sessions) {
    run("BEGIN TRANSACTION");
    const std::uint64_t before = connection.conflicts();
    EXPECT_EQ(run(asks_first), "Otra sesión trabaja con los mismos datos; repita la operación (there already)");
    EXPECT_EQ(connection.conflicts(), before + 1);
    EXPECT_THROW(connection.execute("A"), Conflict_error);
    EXPECT_EQ(wire.sent.size(), 2u) << "the unit has ended";
}

TEST_F(Renewed, a_key_that_nobody_asked_for_is_the_callers_own_mistake) {
    run("BEGIN TRANSACTION");
    const std::uint64_t before = connection.conflicts();
    EXPECT_EQ(run(does_not_ask), "there already");
    EXPECT_EQ(run("A"), "there already") << "the unit has ended";
    run("ROLLBACK TRANSACTION");
    EXPECT_EQ(run(asks_first), "there already") << "outside of a unit the next statement sees the row";
    EXPECT_EQ(connection.conflicts(), before);
}

TEST_F(Renewed, a_unit_that_ended_well_or_not_is_not_over_later) {
    run("BEGIN TRANSACTION");
    run("COMMIT TRANSACTION");
    lose_in("A");
    EXPECT_EQ(run("B"), "");
    run("BEGIN TRANSACTION");
    EXPECT_EQ(run("WRONG"), "wrong");
    run("ROLLBACK TRANSACTION");
    lose_in("C");
    EXPECT_EQ(run("D"), "");
}

}  // namespace
}  // namespace cuvexa::tests
