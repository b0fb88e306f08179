// The companies that a service knows, and their open sessions.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/company.h"
#include "cuvexa/date.h"
#include "service/watched_connection.h"

namespace cuvexa::service {

/// Too many wait for a session already, or one did not become free in time.
class Overloaded : public std::runtime_error {
public:
    Overloaded() : std::runtime_error("too many requests at once") {}
};

/// An open session of a company, with the suite's services over it. Used by one thread at a time.
class Work_session {
public:
    Work_session(const Company_options& options, const std::optional<Date>& server_date);

    Watched_connection& connection() { return connection_; }
    const std::shared_ptr<Reference_suite>& suite() { return suite_; }
    Date_style date_style() const { return company_.date_style(); }

    /// How far behind its primary the database is, which then is a replica.
    std::optional<Replica> replica() const { return is_replica_ ? company_.replica() : std::nullopt; }

private:
    Company company_;
    bool is_replica_;  ///< when it was opened; a primary becomes none in the meantime
    Watched_connection connection_;
    std::shared_ptr<Reference_suite> suite_;
};

/// A number of places; who finds none free waits in line until one is.
class Places {
public:
    explicit Places(std::size_t count) : free_(count) {}

    /// False when none became free until then.
    bool take(Clock::time_point until);
    void give_back();

private:
    std::mutex mutex_;
    std::condition_variable freed_;
    std::size_t free_;
};

/// Whether those who write take turns. On a file always, for it has one writer at a time: waiting here is fair and costs
/// nothing. On a server for a while after two were in each other's way, which costs less than to run again and again.
/// Used by many threads.
class Turns {
public:
    explicit Turns(bool always) : always_(always) {}

    /// Whether the next one who writes takes a turn.
    bool are_taken();
    void met_conflict() { left_ = after_a_conflict; }

    static constexpr int after_a_conflict = 32;

private:
    bool always_;
    std::atomic<int> left_ = 0;
};

/// One company: its sessions, opened when they are needed, kept for the next request.
class Company_sessions {
public:
    /// At most that many sessions.
    Company_sessions(Company_options options, std::size_t most, std::optional<Date> server_date);

    /// A session on loan; it goes back in the end, unless it was given up.
    class Loan {
    public:
        Loan(Loan&& other) noexcept;
        Loan& operator=(Loan&&) = delete;
        ~Loan();

        Work_session& operator*() const { return *session_; }
        Work_session* operator->() const { return session_.get(); }

        /// It is not fit for another request: its connection is lost.
        void give_up() { session_.reset(); }

    private:
        friend class Company_sessions;
        Loan(Company_sessions& lender, bool in_turn) : lender_(&lender), in_turn_(in_turn) {}

        Company_sessions* lender_;
        bool in_turn_;
        std::unique_ptr<Work_session> session_;
    };

    /// Throws `Overloaded`, or `Company_error` when the database does not open.
    Loan lend(Access access, Clock::time_point until);

    /// A session's work was in the way of another's.
    void met_conflict() { turns_.met_conflict(); }

    /// Closes the sessions that nobody has: what one has lost, they have lost too.
    void forget_idle();

    /// True once in an hour, for one of those who ask.
    bool is_time_to_tidy(Clock::time_point now);

    /// Sessions on loan now.
    std::size_t in_use() const;

    const Company_options& options() const { return options_; }

private:
    void take_back(Loan& loan);

    Company_options options_;
    std::optional<Date> server_date_;
    Places sessions_;
    Places turn_{1};
    Turns turns_;
    mutable std::mutex mutex_;
    std::vector<std::unique_ptr<Work_session>> idle_;
    std::size_t in_use_ = 0;
    Clock::time_point tidied_{};
};

/// All companies by the name that stands in the path; the one of a service that has but one is called "".
using Companies = std::map<std::string, std::unique_ptr<Company_sessions>, std::less<>>;

/// The databases of a file of companies by name: {"norte": "norte.db", "sur": "Driver=…;Server=…"}. Throws `Company_error`.
std::map<std::string, std::string> companies_in(const std::string& file);

}  // namespace cuvexa::service
