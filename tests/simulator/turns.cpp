#include "simulator/turns.h"

#include <algorithm>

namespace cuvexa::simulator {

void Turns::begin(std::size_t sessions) {
    const std::lock_guard lock(mutex_);
    states_.assign(sessions, State::busy);
    ended_units_.clear();
    turn_ = in_unit_ = nobody;
}

void Turns::wait_for(std::size_t session, bool begins_unit) {
    std::unique_lock lock(mutex_);
    states_[session] = begins_unit ? State::waiting_for_unit : State::waiting;
    draw();
    drawn_.wait(lock, [&] { return turn_ == session; });
    turn_ = nobody;
    states_[session] = State::busy;
    if (begins_unit) in_unit_ = session;
    if (last_ != session) ++changes_;
    last_ = session;
}

void Turns::done(std::size_t session, bool ended_unit) {
    const std::lock_guard lock(mutex_);
    if (!ended_unit) return;
    ended_units_.push_back(session);
    in_unit_ = nobody;
}

void Turns::leave(std::size_t session) {
    const std::lock_guard lock(mutex_);
    states_[session] = State::away;
    draw();
}

std::vector<std::size_t> Turns::ended_units() const {
    const std::lock_guard lock(mutex_);
    return ended_units_;
}

bool Turns::may_go(std::size_t session) const {
    if (states_[session] == State::waiting_for_unit) return !units_exclude_ || in_unit_ == nobody;
    return states_[session] == State::waiting;
}

void Turns::draw() {
    if (turn_ != nobody || std::count(states_.begin(), states_.end(), State::busy) > 0) return;
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
    const bool ends = text == "COMMIT TRANSACTION" || text == "ROLLBACK TRANSACTION";
    turns_.wait_for(session_, text == "BEGIN TRANSACTION");
    try {
        auto rows = connection_.execute(text);
        note_insertion(text);
        turns_.done(session_, ends);
        return rows;
    } catch (...) {
        turns_.done(session_, ends);
        throw;
    }
}

/// "INSERT INTO Cheque (…) VALUES ('CH-MTY-00000001', …": the table and the first value.
void Turn_connection::note_insertion(std::string_view text) {
    constexpr std::string_view beginning = "INSERT INTO ";
    if (!text.starts_with(beginning)) return;
    text.remove_prefix(beginning.size());
    const auto table = text.substr(0, text.find_first_of(" ("));
    const auto values = text.find(')');
    const auto open = values == text.npos ? values : text.find('\'', values);
    if (open == text.npos) return;
    const auto close = text.find('\'', open + 1);
    inserted.emplace_back(table, text.substr(open + 1, close - open - 1));
}

}  // namespace cuvexa::simulator
