// Two users do the same to one document in the same moment, each in a unit of work: one of them is told True, the other one a
// refusal, or that the first was in the way; and the books add up. On a file, or on the server that CUVEXA_TEST_DB names.
//
// A few races of each kind by default; CUVEXA_RACES says how many, and what came of them is printed then.
#include <algorithm>
#include <barrier>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <thread>

#include "cuvexa/suite/audit.h"
#include "cuvexa/unit_of_work.h"
#include "races/race.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;

constexpr int few = 4;

int number_of_races() {
    const char* const asked = std::getenv("CUVEXA_RACES");
    return asked == nullptr ? few : std::atoi(asked);
}

/// An empty place for a company.
class Place {
public:
    Place() {
        if (const char* const server = std::getenv("CUVEXA_TEST_DB")) {
            options.database = server;
            Mirror().drop_all(*open_server(server));
            return;
        }
        std::string name = (fs::temp_directory_path() / "cuvexa-race-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for a company");
        folder_ = name;
        options.database = (folder_ / "company.db").string();
        options.synchronous = "off";
    }
    ~Place() {
        if (!folder_.empty()) fs::remove_all(folder_);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    Company_options options;

private:
    fs::path folder_;
};

/// What a user was told: nothing when the call gave True, else the text.
struct Answer {
    bool done = false, conflict = false;
    std::string text;
};

Answer call_as_a_whole(User& user, const std::function<bool()>& call) {
    try {
        Unit_of_work work(user.connection());
        if (!call()) return {.conflict = work.met_conflict(), .text = user.treasury().Error()};
        work.commit();
        return {.done = true, .text = ""};
    } catch (const Conflict_error& failure) {
        return {.conflict = true, .text = failure.what()};
    } catch (const Database_error& failure) {
        return {.text = failure.what()};
    }
}

Answer call_bare(User&, const std::function<bool()>& call) {
    try {
        return {.done = call(), .text = ""};
    } catch (const Database_error& failure) {
        return {.text = failure.what()};
    }
}

/// A company and its two users, for all races of this program.
struct Stage {
    Place place;
    User one{made(), "CAJA1"}, two{place.options, "CAJA2"};
    int races = 0;
    std::set<std::string> doubled;  ///< documents

private:
    const Company_options& made() const {
        cuvexa::Company::create(place.options, Contents::sample_company);
        return place.options;
    }
};

Stage& stage() {
    static Stage all;
    return all;
}

/// What each of two was told that were called in the same moment.
std::pair<Answer, Answer> at_once(const std::function<Answer()>& one, const std::function<Answer()>& two) {
    std::barrier start(2);
    Answer first, second;
    std::thread other([&] {
        start.arrive_and_wait();
        second = two();
    });
    start.arrive_and_wait();
    first = one();
    other.join();
    return {first, second};
}

class Two_users : public ::testing::TestWithParam<Race> {
protected:
    /// Both at once.
    static std::pair<Answer, Answer> race(const std::string& document, int number) {
        const Race& race = GetParam();
        return at_once(
            [&] { return call_as_a_whole(stage().one, [&] { return race.call(stage().one, document, number); }); },
            [&] {
                return call_as_a_whole(
                    stage().two, [&] { return (race.other ? race.other : race.call)(stage().two, document, number); });
            });
    }

    void count(const Answer& answer) {
        if (answer.done) return;
        ++(answer.conflict ? conflicts_ : refusals_);
        EXPECT_NE(answer.text, "") << "a call that is not done says why";
    }

    /// Nothing is found, or what was doubled.
    static void expect_sound_books() {
        for (const Finding& finding : audit(stage().one.connection())) {
            const auto named = [&](const std::string& folio) {
                return finding.document.find(folio) != std::string::npos;
            };
            EXPECT_TRUE(std::any_of(stage().doubled.begin(), stage().doubled.end(), named))
                << finding.check << ": " << finding.document << ", " << finding.figures;
        }
    }

    int once_ = 0, twice_ = 0, refusals_ = 0, conflicts_ = 0;
};

TEST_P(Two_users, of_one_document_are_told_what_holds_and_the_books_add_up) {
    for (int i = 0; i < number_of_races(); ++i) {
        const int number = ++stage().races;
        const std::string document = GetParam().given(stage().one, number);
        const auto [first, second] = race(document, number);
        ASSERT_TRUE(first.done || second.done)
            << "race " << i << ", neither: " << first.text << "\n and " << second.text;
        count(first);
        count(second);
        if (!first.done || !second.done) {
            ++once_;
            continue;
        }
        ++twice_;
        ASSERT_NE(GetParam().told, Told::true_once) << "race " << i << ": both were told True of " << document;
        if (GetParam().told == Told::doubles) stage().doubled.insert(document);
    }
    expect_sound_books();
    if (std::getenv("CUVEXA_RACES") == nullptr) return;
    std::cout << GetParam().name << ": " << once_ << " times one True, " << twice_ << " times both; " << refusals_
              << " refused, " << conflicts_ << " in the way of the other\n";
}

INSTANTIATE_TEST_SUITE_P(Races, Two_users, ::testing::ValuesIn(races()),
                         [](const auto& info) { return info.param.name; });

// ---- The first folio of a series --------------------------------------------------------------------------------------

class First_folio : public ::testing::TestWithParam<const char*> {
protected:
    using Taking = Answer (*)(User&, const std::function<bool()>& call);

    /// Two users take the first folio of a new series, as often as there are races. Whoever got none is told that the other
    /// one was in the way.
    static void race(Taking first, Taking second) {
        for (int i = 0; i < number_of_races(); ++i) {
            const std::string branch = "N" + std::to_string(++stage().races);
            const auto taken = [&](User& user, Taking taking, std::string& folio) {
                return taking(user, [&] {
                    folio = user.suite().data()->GetNextFolio(branch, GetParam());
                    return true;
                });
            };
            std::string one, two;
            const auto [ours, theirs] = at_once([&] { return taken(stage().one, first, one); },
                                                [&] { return taken(stage().two, second, two); });
            ASSERT_TRUE(ours.done || theirs.done) << ours.text << "\n and " << theirs.text;
            EXPECT_TRUE(ours.done || ours.conflict) << ours.text;
            EXPECT_TRUE(theirs.done || theirs.conflict) << theirs.text;
            if (ours.done && theirs.done) {
                EXPECT_NE(one, two);
            }
        }
    }
};

TEST_P(First_folio, of_a_series_is_given_to_one_of_two_units) {
    race(call_as_a_whole, call_as_a_whole);
}

TEST_P(First_folio, of_a_series_is_given_to_a_unit_beside_a_bare_session) {
    race(call_as_a_whole, call_bare);
}

TEST_P(First_folio, of_a_series_is_given_to_one_of_two_bare_sessions) {
    race(call_bare, call_bare);
}

INSTANTIATE_TEST_SUITE_P(Races, First_folio,
                         ::testing::Values("RECIBO_PAGO", "CHEQUE", "BANCO_MOVIMIENTO", "DEPOSITO_PAGO",
                                           "SOLICITUD_CHEQUE", "GASTO_X_COMPROBAR", "ANTICIPO_CXC", "ANTICIPO_CXP",
                                           "CUENTA_X_COBRAR", "CUENTA_X_PAGAR", "GASTO_REGISTRO", "POLIZA"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
}  // namespace cuvexa::tests
