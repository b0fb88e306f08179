// Several sessions at once, of which one at a time sends a statement: the same for the same seed, on every machine.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "cuvexa/data_access.h"

namespace cuvexa::simulator {

/// Whose turn it is. Drawn by lot when every session waits, stands before another one's lock or has come to its end; a
/// session whose unit of work another one keeps from beginning is passed over until that one is at its end.
class Turns {
public:
    /// `units_exclude`: the engine lets one unit of work write at a time.
    Turns(std::uint64_t seed, bool units_exclude) : seed_(seed), units_exclude_(units_exclude) {}

    /// So many sessions set out, none of which has done anything yet. The lots of a round are its own: they stay what they
    /// are without the rounds before it.
    void begin(std::size_t sessions, std::uint64_t round);

    /// What a session says before a statement and behind it, and at its end.
    void wait_for(std::size_t session, bool begins_unit);
    void done(std::size_t session, bool ended_unit);
    void leave(std::size_t session);

    /// Those of the sessions under way whose statement stands before the lock of another one.
    using Locked_out = std::function<std::set<std::size_t>()>;

    /// Gives the turns until all have come to their end. `locked_out` is null where no statement waits for another session.
    void give(const Locked_out& locked_out);

    /// The sessions in the order in which their units of work came to their ends.
    std::vector<std::size_t> ended_units() const;
    /// How often another session's statement came between two of one session.
    long changes() const { return changes_; }

private:
    enum class State { busy, locked_out, waiting, waiting_for_unit, away };

    bool all_away() const { return count(State::away) == states_.size(); }
    std::size_t count(State state) const;
    bool may_go(std::size_t session) const;
    void look_for_locks(std::unique_lock<std::mutex>& lock, const Locked_out& locked_out);
    void draw();

    static constexpr std::size_t nobody = static_cast<std::size_t>(-1);

    mutable std::mutex mutex_;  ///< of all that follows
    std::condition_variable drawn_, moved_;
    const std::uint64_t seed_;
    std::mt19937_64 lot_;
    const bool units_exclude_;
    std::vector<State> states_;
    std::vector<std::size_t> ended_units_;
    std::size_t turn_ = nobody, last_ = nobody, in_unit_ = nobody;
    long changes_ = 0;
};

/// A session's connection, which waits for its turn with every statement.
class Turn_connection : public Connection {
public:
    /// All must outlive the object.
    Turn_connection(Connection& connection, Turns& turns, std::size_t session)
        : connection_(connection), turns_(turns), session_(session) {}

    std::unique_ptr<Recordset> execute(std::string_view text) override;
    std::uint64_t conflicts() const noexcept override { return connection_.conflicts(); }

    /// While they are not in turn the statements go through as they come.
    bool in_turn = false;

    /// For tests: units of work are none, each statement is kept by itself.
    bool without_units = false;

    /// A row by its table and the first column of its key.
    using Key = std::pair<std::string, std::string>;

    /// The rows that statements have put into tables since it was last emptied; of a unit that is begun again nothing stays.
    std::vector<Key> inserted;
    /// Those that the database did not take.
    std::vector<Key> not_taken;

private:
    static std::optional<Key> key_put_by(std::string_view text);

    Connection& connection_;
    Turns& turns_;
    std::size_t session_;
};

}  // namespace cuvexa::simulator
