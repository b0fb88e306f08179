#include "service/unit_request.h"

#include <algorithm>
#include <random>
#include <thread>
#include <utility>

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

private:
    std::optional<Unit_reply> run_whole(Module& module);
    std::optional<Unit_reply> kept_earlier();
    std::optional<Unit_reply> undone(Batch_result result);
    std::optional<Unit_reply> failed(const std::string& description);

    Work_session& session_;
    Watched_connection& connection_;
    const Unit_request& request_;
    const Json_in& json_;
    const Batch_limits& limits_;
    bool keeping_key_ = false;
    bool keeping_ = false;
    bool lost_ = false;
};

std::optional<Unit_reply> Try::run() {
    try {
        connection_.watch(request_.until);
        session_.suite()->set_user(request_.user);
        Module module(session_.suite());
        if (request_.whole) return run_whole(module);
        return reply_to(Batch(module, limits_, false).run(json_), Fate::by_itself);
    } catch (const Database_error& error) {
        return failed(error.what());
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
    if (connection_.met_conflict()) return std::nullopt;
    if (connection_.found_disk_full()) {
        return failure(507, Fate::undone, "the database's disk is full; nothing was kept");
    }
    if (!connection_.is_alive()) {
        lost_ = true;
        return std::nullopt;
    }
    return reply_to(std::move(result), Fate::undone);
}

std::optional<Unit_reply> Try::failed(const std::string& description) {
    if (connection_.was_late()) return failure(504, Fate::undone, "not done in time; nothing was kept");
    lost_ = !connection_.is_alive();
    // With a key the next try finds out whether this one was kept.
    if (lost_ && keeping_ && !request_.key) {
        return failure(503, Fate::unknown,
                       "the database was lost while the request was being kept; its outcome is unknown");
    }
    if (lost_ || connection_.met_conflict()) return std::nullopt;
    if (Watched_connection::is_disk_full(description)) {
        return failure(507, Fate::undone, "the database's disk is full; nothing was kept");
    }
    if (keeping_key_ && !keeping_) return std::nullopt;  // another session has kept one under the key meanwhile
    return failure(503, Fate::undone, description + "; nothing was kept");
}

Unit_reply run_repeatedly(Company_sessions& company, const Unit_request& request, const Json_in& json,
                          const Batch_limits& limits) {
    for (std::size_t repeats = 0;; ++repeats) {
        auto session = company.lend(Access::write, request.until);
        Try attempt(*session, request, json, limits);
        auto reply = attempt.run();
        const std::uint64_t statements = session->connection().statements();
        if (attempt.lost()) {
            session.give_up();
            company.forget_idle();
        }
        const bool last = repeats == most_repeats || !request.whole || Clock::now() >= request.until;
        if (!reply && last) reply = failure(503, Fate::undone, "other requests are in the way; nothing was kept");
        if (reply) {
            reply->repeats = repeats;
            reply->statements = statements;
            return *std::move(reply);
        }
        back_off(repeats, request.until);
    }
}

}  // namespace

Unit_reply run_unit(Company_sessions& company, const Unit_request& request, const Batch_limits& limits) {
    try {
        const Json_in json = parsed_body(request.body, limits);
        return run_repeatedly(company, request, json, limits);
    } catch (const automation::Rpc_error& error) {
        Unit_reply reply{400};
        reply.body = automation::error_answer(error);
        return reply;
    }
}

}  // namespace cuvexa::service
