// Several sessions at once on one database, their statements interleaved by lot.
#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "simulator/generator.h"
#include "simulator/rows.h"
#include "simulator/session.h"
#include "simulator/shared_database.h"
#include "simulator/turns.h"

namespace cuvexa::simulator {

struct Crowd_options {
    std::uint64_t seed = 1;
    std::size_t sessions = 3;
    bool atomic = false;         ///< every call is a unit of work
    bool without_units = false;  ///< for tests: and the database is not told so
};

/// What a session does in a round: at most one step that takes a member, as its last, and what people do beside it. A
/// session of which a round has no such step rests in it.
struct Crowd_step {
    std::uint64_t round = 1;
    std::size_t session = 0;  ///< from 0
    Step step;
};
using Crowd_script = std::vector<Crowd_step>;  ///< round after round

/// In rounds: each session does one call, get or let, all at the same time; what people do beside them comes between the
/// rounds. Suppliers, customers, accounts, budgets and folio series they share.
///
/// Units of work, which also share their documents, must give what the model gives when it does the same calls one after
/// the other: where units exclude each other in the order in which they ended, else in any order. One that another session
/// was in the way of is begun anew.
///
/// Other calls mix, so that of them, each with documents of its own, only what always holds is asked: balances are the sums
/// of what moves them, a folio is given once, and no line of a voucher lacks its voucher.
class Crowd {
public:
    explicit Crowd(const Crowd_options& options);
    ~Crowd();

    /// What went wrong in the next round; empty when nothing did.
    std::vector<std::string> round();

    /// The same, with the first steps of a script, those of one round, which are taken from it.
    std::vector<std::string> round_of(std::span<const Crowd_step>& script);

    /// What was done so far.
    const Crowd_script& script() const { return script_; }

    struct Figures {
        long calls = 0;
        long changes = 0;       ///< of the turn, from one session to another
        long repetitions = 0;   ///< of units of work
        long other_orders = 0;  ///< rounds that are as if in another order than that of their ends
    };
    Figures figures() const;

    /// The steps of the last round, as in a script.
    std::string last_round() const;

    /// The database past the component, for tests.
    void run_sql(const std::string& text);

private:
    struct Participant;
    using Order = std::vector<Participant*>;

    void begin_round(std::uint64_t number);
    void choose(Participant& participant);
    void do_or_prepare(Participant& participant, const Step& step);
    void run_round();
    void run_all();
    Order those_who_act() const;
    void compare_with_an_order();
    Order order_of_ends();
    bool is_as_if_in(const Order& order);
    bool is_as_if_in_some_order(const Order& left);
    bool fits_next(Participant& participant);
    void check_what_always_holds();
    void check_folios();
    void tell_of_documents(const Participant& participant);
    std::map<std::pair<std::string, std::string>, std::string> wrong_balances();

    const Crowd_options options_;
    const std::unique_ptr<Shared_database> database_;
    model::Database model_rows_;
    Rows rows_;
    Turns turns_;
    std::vector<std::unique_ptr<Participant>> participants_;
    Crowd_script script_;
    std::uint64_t round_ = 0;
    std::map<Turn_connection::Key, const Participant*> folios_;
    std::map<std::pair<std::string, std::string>, std::string> wrong_before_;
    std::vector<std::string> differences_;
    Figures figures_;
};

}  // namespace cuvexa::simulator
