// Several sessions at once: what would be seen if they got in each other's way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <thread>

#include "simulator/script_file.h"
#include "simulator/shrink.h"

namespace cuvexa::simulator {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Sessions_at_once : public ::testing::TestWithParam<bool> {
protected:
    Crowd crowd_{{.seed = 5, .sessions = 4, .atomic = GetParam()}};

    /// What goes wrong in the first rounds.
    std::vector<std::string> wrong_in_rounds(int rounds) {
        std::vector<std::string> differences;
        while (rounds-- > 0 && differences.empty()) differences = crowd_.round();
        return differences;
    }
};

TEST_P(Sessions_at_once, do_what_they_may) {
    EXPECT_THAT(wrong_in_rounds(60), IsEmpty());
    EXPECT_GT(crowd_.figures().calls, 100);
    EXPECT_GT(crowd_.figures().changes, crowd_.figures().calls) << "their statements are mixed";
}

TEST_P(Sessions_at_once, take_their_turns_as_the_seed_has_it) {
    Crowd again({.seed = 5, .sessions = 4, .atomic = GetParam()});
    for (int round = 0; round < 15; ++round) {
        crowd_.round();
        again.round();
        ASSERT_EQ(crowd_.last_round(), again.last_round());
        ASSERT_EQ(crowd_.figures().changes, again.figures().changes);
    }
}

TEST_P(Sessions_at_once, are_seen_when_a_balance_moves_by_a_cent_more) {
    crowd_.run_sql(
        "CREATE TRIGGER Centavo AFTER INSERT ON Banco_Movimiento "
        "BEGIN UPDATE Banco SET Bn_Saldo = Bn_Saldo + 0.01; END");
    EXPECT_THAT(wrong_in_rounds(60), Contains(HasSubstr(GetParam() ? "Bn_Saldo is" : "saldo-de-banco")));
}

TEST_P(Sessions_at_once, are_seen_when_a_folio_is_given_twice) {
    crowd_.run_sql(
        "CREATE TRIGGER Otra_vez AFTER UPDATE OF Fs_Ultimo ON Folio_Serie WHEN NEW.Fs_Ultimo > 3 "
        "BEGIN UPDATE Folio_Serie SET Fs_Ultimo = 3 WHERE Fs_Codigo = NEW.Fs_Codigo AND Fs_Sucursal = NEW.Fs_Sucursal; END");
    EXPECT_THAT(wrong_in_rounds(150), Contains(HasSubstr(GetParam() ? "Fs_Ultimo is" : "was given what session")));
}

TEST(Sessions_whose_units_are_none, are_seen) {
    Crowd crowd({.seed = 5, .sessions = 4, .atomic = true, .without_units = true});
    std::vector<std::string> differences;
    for (int round = 0; round < 100 && differences.empty(); ++round) differences = crowd.round();
    EXPECT_THAT(differences, Not(IsEmpty()));
}

/// Whose turn it is, one after the other, when three sessions send ten statements each.
std::vector<std::size_t> turns_in(Turns& turns, std::uint64_t round) {
    std::vector<std::size_t> order;
    turns.begin(3, round);
    std::vector<std::thread> threads;
    for (std::size_t session = 0; session < 3; ++session) {
        threads.emplace_back([&, session] {
            for (int statement = 0; statement < 10; ++statement) {
                turns.wait_for(session, false);
                order.push_back(session);
                turns.done(session, false);
            }
            turns.leave(session);
        });
    }
    turns.give({});
    for (std::thread& thread : threads) thread.join();
    return order;
}

TEST(Turns_of_a_round, are_the_same_without_the_rounds_before_it) {
    Turns after_others(5, false), alone(5, false);
    const auto first = turns_in(after_others, 1);
    const auto second = turns_in(after_others, 2);
    EXPECT_EQ(turns_in(alone, 2), second);
    EXPECT_NE(first, second);
}

/// What goes wrong with units of work that are none, as a script.
Crowd_finding found(const Crowd_options& options) {
    Crowd crowd(options);
    std::vector<std::string> differences;
    for (int round = 0; round < 100 && differences.empty(); ++round) differences = crowd.round();
    return {crowd.script(), differences};
}

constexpr Crowd_options whose_units_are_none = {.seed = 5, .sessions = 4, .atomic = true, .without_units = true};

TEST(Sessions_in_a_script, do_the_same_again_as_it_stands_on_disk) {
    const Crowd_finding finding = found(whose_units_are_none);
    std::stringstream file;
    write_crowd_script(finding.script, file);
    const auto again = play(whose_units_are_none, read_crowd_script(file));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->differences, finding.differences);
    EXPECT_EQ(again->script.size(), finding.script.size());
    Crowd_options as_they_should = whose_units_are_none;
    as_they_should.without_units = false;
    EXPECT_FALSE(play(as_they_should, finding.script));
}

TEST(Sessions_in_a_script, are_as_few_with_as_few_steps_as_show_it) {
    const Crowd_finding whole = found(whose_units_are_none);
    const Crowd_finding finding = shrunk(whose_units_are_none, whole);
    EXPECT_LE(finding.script.size(), 8U) << "of " << whole.script.size();
    EXPECT_EQ(finding.script.back().round, whole.script.back().round)
        << "its lots are those of the round that showed it";
    for (std::size_t at = 0; at < finding.script.size(); ++at) {
        Crowd_script shorter = finding.script;
        shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(at));
        const auto less = play(whose_units_are_none, shorter);
        EXPECT_TRUE(!less || less->differences != finding.differences) << "step " << at + 1 << " is needed";
    }
}

INSTANTIATE_TEST_SUITE_P(In, Sessions_at_once, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "units_of_work" : "single_statements"; });

}  // namespace
}  // namespace cuvexa::simulator
