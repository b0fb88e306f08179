// A session of a server that is opened anew after its connection was lost.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cuvexa/data_access.h"
#include "cuvexa/lost_connection.h"
#include "database/row_set.h"
#include "database/servers.h"

namespace cuvexa::database {

/// Knows whether a unit of work stands open, and that it is over when the connection is lost in it.
class Unit_watch {
public:
    /// Before a statement: false when it only ends what the server has ended already, so that nothing is to be sent.
    /// Throws `Database_error` when it would go on with a unit that is over.
    bool lets_send(std::string_view text);

    /// Whether it belongs to a unit of which a statement has failed, on a server that takes nothing more of it.
    bool goes_on_with_failed(std::string_view text) const noexcept;

    /// Whether it inserts into a table that it asked in the same go, inside of a unit. A key that is there already is
    /// another session's then, kept since the unit began: the unit does not see it.
    bool asked_for_its_key(std::string_view text) const;

    /// Whether it would keep a unit of which a statement has failed, on a server that keeps no such unit.
    bool cannot_keep(std::string_view text) const noexcept;

    /// After it. `ends_unit`: the server takes nothing more of a unit of which a statement has failed.
    void ran(std::string_view text) noexcept;
    void failed(std::string_view text, bool ends_unit) noexcept;
    void lost(std::string_view text) noexcept;

private:
    enum class Unit { none, open, failed, over, gone };

    Unit unit_ = Unit::none;
};

/// A `Session` runs a text by `execute`, throws `Lost_connection_error` when its connection is lost, and tells its
/// `conflicts` and whether a `failure_ends_unit` of work. The statement after that one runs in another session, unless it
/// belongs to a unit of work that is over. Whatever goes on with a unit that a failure has ended fails with that failure.
template <class Session>
class Renewable {
public:
    using Open = std::function<std::unique_ptr<Session>()>;

    explicit Renewable(Open open) : open_(std::move(open)), session_(open_()) {}

    std::unique_ptr<Recordset> execute(std::string_view text) {
        if (!unit_.lets_send(text)) return std::make_unique<Row_set>(std::make_shared<std::vector<std::string>>());
        if (unit_.goes_on_with_failed(text)) std::rethrow_exception(why_);
        if (lost_) renew();
        if (unit_.cannot_keep(text)) undo();
        try {
            auto rows = session_->execute(text);
            unit_.ran(text);
            return rows;
        } catch (const Lost_connection_error&) {
            lost_ = true;
            unit_.lost(text);
            throw;
        } catch (const Repeated_key_error& error) {
            if (!unit_.asked_for_its_key(text)) fail(text, std::current_exception());
            ++more_conflicts_;
            fail(text, std::make_exception_ptr(Conflict_error(std::string(conflict_text) + " (" + error.what() + ")")));
        } catch (...) {
            fail(text, std::current_exception());
        }
    }

    Session& session() const noexcept { return *session_; }

    std::uint64_t conflicts() const noexcept { return more_conflicts_ + session_->conflicts(); }

private:
    [[noreturn]] void fail(std::string_view text, std::exception_ptr why) {
        why_ = std::move(why);
        unit_.failed(text, session_->failure_ends_unit());
        std::rethrow_exception(why_);
    }

    // What such a server answers to COMMIT is "ROLLBACK", which looks like any success.
    [[noreturn]] void undo() {
        execute("ROLLBACK TRANSACTION");
        throw Database_error(std::string(undone_text) + " [25P02]");
    }

    void renew() {
        auto fresh = open_();
        more_conflicts_ += session_->conflicts();
        session_ = std::move(fresh);
        lost_ = false;
    }

    Open open_;
    std::unique_ptr<Session> session_;
    Unit_watch unit_;
    std::exception_ptr why_;            ///< the last statement failed
    std::uint64_t more_conflicts_ = 0;  ///< those of former sessions, and those that a session takes for something else
    bool lost_ = false;
};

}  // namespace cuvexa::database
