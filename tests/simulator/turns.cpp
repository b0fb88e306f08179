#include "simulator/turns.h"

#include <algorithm>
#include <chrono>

namespace cuvexa::simulator {

void Turns::begin(std::size_t sessions, std::uint64_t round) {
    const std::lock_guard lock(mutex_);
    std::seed_seq seed{seed_, seed_ >> 32, round};
    lot_.seed(seed);
    states_.assign(sessions, State::busy);
    ended_units_.clear();
    turn_ = in_unit_ = nobody;
}

void Turns::wait_for(std::size_t session, bool begins_unit) {
    std::unique_lock lock(mutex_);
    states_[session] = begins_unit ? State::waiting_for_unit : State::waiting;
    moved_.notify_one();
    drawn_.wait(lock, [&] { return turn_ == session; });
    turn_ = nobody;
    states_[session] = State::busy;
    if (begins_unit) in_unit_ = session;
    if (last_ != session) ++changes_;
    last_ = session;
}

void Turns::done(std::size_t session, bool ended_unit) {
    const std::lock_guard lock(mutex_);
    states_[session] = State::busy;
    if (!ended_unit) return;
    std::erase(ended_units_, session);  // the last end is the one that counts
    ended_units_.push_back(session);
    in_unit_ = nobody;
}

void Turns::leave(std::size_t session) {
    const std::lock_guard lock(mutex_);
    states_[session] = State::away;
    moved_.notify_one();
}

std::vector<std::size_t> Turns::ended_units() const {
    const std::lock_guard lock(mutex_);
    return ended_units_;
}

void Turns::give(const Locked_out& locked_out) {
    std::unique_lock lock(mutex_);
    while (!all_away()) {
        if (locked_out) look_for_locks(lock, locked_out);
        if (turn_ == nobody && count(State::busy) == 0) draw();
        const auto moved = [&] { return all_away() || (turn_ == nobody && count(State::busy) == 0); };
        if (locked_out) {
            // A statement that begins to wait for a lock, or no longer does, tells nobody.
            moved_.wait_for(lock, std::chrono::microseconds(200), moved);
        } else {
            moved_.wait(lock, moved);
        }
    }
}

/// Who stands before a lock is not busy until the lock is gone, which it may be by now.
void Turns::look_for_locks(std::unique_lock<std::mutex>& lock, const Locked_out& locked_out) {
    if (turn_ != nobody || count(State::busy) + count(State::locked_out) == 0) return;
    lock.unlock();
    const std::set<std::size_t> found = locked_out();
    lock.lock();
    for (std::size_t session = 0; session < states_.size(); ++session) {
        State& state = states_[session];
        if (state == State::busy && found.contains(session)) state = State::locked_out;
        if (state == State::locked_out && !found.contains(session)) state = State::busy;
    }
}

std::size_t Turns::count(State state) const {
    return static_cast<std::size_t>(std::count(states_.begin(), states_.end(), state));
}

bool Turns::may_go(std::size_t session) const {
    if (states_[session] == State::waiting_for_unit) return !units_exclude_ || in_unit_ == nobody;
    return states_[session] == State::waiting;
}

void Turns::draw() {
    std::vector<std::size_t> ready;
    for (std::size_t session = 0; session < states_.size(); ++session) {
        if (may_go(session)) ready.push_back(session);
    }
    if (ready.empty()) return;
    turn_ = ready[lot_() % ready.size()];
    drawn_.notify_all();
}

std::unique_ptr<Recordset> Turn_connection::execute(std::string_view text) {
    if (!in_turn) return connection_.execute(text);
    const bool begins = text == "BEGIN TRANSACTION";
    const bool ends = text == "COMMIT TRANSACTION" || text == "ROLLBACK TRANSACTION";
    if (begins) inserted.clear();
    const std::optional<Key> key = key_put_by(text);
    turns_.wait_for(session_, begins && !without_units);
    try {
        auto rows = without_units && (begins || ends) ? nullptr : connection_.execute(text);
        if (key) inserted.push_back(*key);
        turns_.done(session_, ends);
        return rows;
    } catch (...) {
        if (key) not_taken.push_back(*key);
        turns_.done(session_, ends);
        throw;
    }
}

/// "INSERT INTO Cheque (…) VALUES ('CH-MTY-00000001', …": the table and the first value.
std::optional<Turn_connection::Key> Turn_connection::key_put_by(std::string_view text) {
    constexpr std::string_view beginning = "INSERT INTO ";
    if (!text.starts_with(beginning)) return std::nullopt;
    text.remove_prefix(beginning.size());
    const auto table = text.substr(0, text.find_first_of(" ("));
    const auto values = text.find(')');
    const auto open = values == text.npos ? values : text.find('\'', values);
    if (open == text.npos) return std::nullopt;
    const auto close = text.find('\'', open + 1);
    return Key(table, text.substr(open + 1, close - open - 1));
}

}  // namespace cuvexa::simulator
