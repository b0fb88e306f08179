#include "service/unit_request.h"

#include <algorithm>
#include <random>
#include <thread>
#include <utility>

#include "cuvexa/lost_connection.h"
#include "cuvexa/module.h"
#include "cuvexa/unit_of_work.h"
#include "service/reply.h"

namespace cuvexa::service {

namespace {

// Another session's work is short: after some tries it is the load that is too high.
constexpr std::size_t most_repeats = 8;

/// Who was in each other's way does not come back at the same moment.
void back_off(std::size_t repeats, Clock::time_point until) {
    static thread_local std::minstd_rand random{std::random_device{}()};
    const auto longest = std::chrono::microseconds(500) * (1 << std::min<std::size_t>(repeats, 7));
    const auto rest = std::chrono::microseconds(
        std::uniform_int_distribution<std::chrono::microseconds::rep>(0, longest.count())(random));
    std::this_thread::sleep_until(std::min(Clock::now() + rest, until));
}

std::string written(const Json_out& answer) {
    // What a database holds may not be UTF-8; the answer always is.
    return answer.dump(-1, ' ', false, Json_out::error_handler_t::replace);
}

Unit_reply failure(int status, Fate fate, std::string_view message) {
    Unit_reply reply{status, fate};
    reply.body = error_reply(status, message).body;
    return reply;
}

/// Who sent a key can ask for the outcome.
Unit_reply unknown(const Unit_request& request) {
    return failure(503, Fate::unknown,
                   request.key ? "the database was lost while the request was being kept; its outcome is unknown: ask "
                                 "requests-done for its key, or send it again with it"
                               : "the database was lost while the request was being kept; its outcome is unknown, and "
                                 "without a key nobody can ask for it: look before you send it again");
}

Unit_reply reply_to(Batch_result result, Fate fate) {
    Unit_reply reply;
    reply.fate = fate;
    reply.ended_by = result.ended_by;
    reply.members = std::move(result.members);
    reply.refusals = std::move(result.refusals);
    if (result.answer) reply.body = written(*result.answer);
    reply.status = reply.body.empty() ? 204 : 200;
    return reply;
}

/// One try of a unit on one session.
class Try {
public:
    Try(Work_session& session, const Unit_request& request, const Json_in& json, const Batch_limits& limits)
        : session_(session), connection_(session.connection()), request_(request), json_(json), limits_(limits) {}

    /// Nothing when it may be tried again: nothing of it was kept.
    std::optional<Unit_reply> run();

    bool lost() const { return lost_; }

    /// Whether it is known that the units of earlier tries under the key were not kept, or that one was.
    bool has_looked() const { return looked_; }

    /// Whether its connection was lost while the unit was being kept.
    bool may_be_kept() const { return lost_ && keeping_; }

private:
    std::optional<Unit_reply> run_whole(Module& module);
    std::optional<Unit_reply> kept_earlier();
    std::optional<Unit_reply> undone(Batch_result result);
    std::optional<Unit_reply> failed(const Database_error& error);

    Work_session& session_;
    Watched_connection& connection_;
    const Unit_request& request_;
    const Json_in& json_;
    const Batch_limits& limits_;
    bool keeping_key_ = false;
    bool keeping_ = false;
    bool lost_ = false;
    bool looked_ = false;
};

std::optional<Unit_reply> Try::run() {
    try {
        connection_.watch(request_.until);
        session_.suite()->set_user(request_.user);
        Module module(session_.suite());
        if (request_.whole) return run_whole(module);
        return reply_to(Batch(module, limits_, false).run(json_), Fate::by_itself);
    } catch (const Database_error& error) {
        return failed(error);
    }
}

std::optional<Unit_reply> Try::run_whole(Module& module) {
    Unit_of_work work(connection_.unwatched());
    if (auto earlier = kept_earlier()) return earlier;
    Batch_result result = Batch(module, limits_, true).run(json_);
    if (connection_.was_late()) return failure(504, Fate::undone, "not done in time; nothing was kept");
    if (result.ended_by) return undone(std::move(result));
    Unit_reply reply = reply_to(std::move(result), Fate::kept);
    if (request_.key) {
        keeping_key_ = true;
        keep_answer(connection_.unwatched(), *request_.key, reply.status, reply.body);
    }
    keeping_ = true;
    work.commit();
    return reply;
}

/// What was answered to the same key before.
std::optional<Unit_reply> Try::kept_earlier() {
    if (!request_.key) return std::nullopt;
    auto earlier = find_answer(connection_.unwatched(), *request_.key);
    looked_ = true;
    if (!earlier) return std::nullopt;
    if (earlier->fingerprint != request_.key->fingerprint) {
        return failure(422, Fate::not_tried, "this key was used for another request");
    }
    Unit_reply reply{earlier->status, Fate::kept, std::move(earlier->body)};
    reply.replayed = true;
    return reply;
}

/// An operation tells that the database was in its way as it tells a refusal.
std::optional<Unit_reply> Try::undone(Batch_result result) {
    lost_ = connection_.was_lost();
    if (lost_ || connection_.met_conflict()) return std::nullopt;
    if (connection_.found_disk_full()) {
        return failure(507, Fate::undone, "the database's disk is full; nothing was kept");
    }
    return reply_to(std::move(result), Fate::undone);
}

std::optional<Unit_reply> Try::failed(const Database_error& error) {
    const std::string description = error.what();
    if (connection_.was_late()) return failure(504, Fate::undone, "not done in time; nothing was kept");
    lost_ = connection_.was_lost() || dynamic_cast<const Lost_connection_error*>(&error) != nullptr;
    // With a key the next try finds out whether this one was kept.
    if (may_be_kept() && !request_.key) return unknown(request_);
    if (lost_ || connection_.met_conflict()) return std::nullopt;
    if (Watched_connection::is_disk_full(description)) {
        return failure(507, Fate::undone, "the database's disk is full; nothing was kept");
    }
    if (keeping_key_ && !keeping_) return std::nullopt;  // another session has kept one under the key meanwhile
    return failure(503, Fate::undone, description + "; nothing was kept");
}

/// The tries of one request.
class Tries {
public:
    Tries(Company_sessions& company, const Unit_request& request, const Json_in& json, const Batch_limits& limits)
        : company_(company), request_(request), json_(json), limits_(limits) {}

    Unit_reply run();

private:
    std::optional<Unit_reply> run_once();
    bool is_last() const { return repeats_ == most_repeats || !request_.whole || Clock::now() >= request_.until; }

    Company_sessions& company_;
    const Unit_request& request_;
    const Json_in& json_;
    const Batch_limits& limits_;
    std::size_t repeats_ = 0;
    bool may_be_kept_ = false;  ///< the unit of an earlier try; nobody has looked since
};

Unit_reply Tries::run() {
    for (;; ++repeats_) {
        auto reply = run_once();
        if (!reply && is_last()) reply = failure(503, Fate::undone, "other requests are in the way; nothing was kept");
        if (reply) {
            if (may_be_kept_ && reply->fate != Fate::kept) reply = unknown(request_);
            reply->repeats = repeats_;
            return *std::move(reply);
        }
        back_off(repeats_, request_.until);
    }
}

std::optional<Unit_reply> Tries::run_once() {
    try {
        auto session = company_.lend(Access::write, request_.until);
        Try attempt(*session, request_, json_, limits_);
        auto reply = attempt.run();
        if (reply) reply->statements = session->connection().statements();
        if (!reply && !attempt.lost()) company_.met_conflict();
        may_be_kept_ = (may_be_kept_ && !attempt.has_looked()) || attempt.may_be_kept();
        if (attempt.lost()) {
            session.give_up();
            company_.forget_idle();
        }
        return reply;
    } catch (const std::exception&) {
        if (!may_be_kept_) throw;
        return unknown(request_);
    }
}

}  // namespace

Unit_reply run_unit(Company_sessions& company, const Unit_request& request, const Batch_limits& limits) {
    try {
        const Json_in json = parsed_body(request.body, limits);
        return Tries(company, request, json, limits).run();
    } catch (const automation::Rpc_error& error) {
        Unit_reply reply{400};
        reply.body = automation::error_answer(error);
        return reply;
    }
}

}  // namespace cuvexa::service
