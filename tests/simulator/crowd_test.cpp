// Several sessions at once: what would be seen if they got in each other's way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/crowd.h"

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

INSTANTIATE_TEST_SUITE_P(In, Sessions_at_once, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "units_of_work" : "single_statements"; });

}  // namespace
}  // namespace cuvexa::simulator
