// The connection of a session, watched: how many statements, which failures, and whether there is still time.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "cuvexa/data_access.h"
#include "service/peer.h"

namespace cuvexa::service {

/// An operation tells its failure as text alone; this remembers what kind it was.
class Watched_connection final : public Connection {
public:
    /// `connection` must outlive it.
    explicit Watched_connection(Connection& connection) : connection_(connection) {}

    /// A request begins: statements are refused from that time on.
    void watch(Clock::time_point until);

    std::unique_ptr<Recordset> execute(std::string_view text) override;
    std::uint64_t conflicts() const noexcept override { return connection_.conflicts(); }

    std::uint64_t statements() const { return statements_; }
    bool was_late() const { return late_; }  ///< a statement was refused because the time was over
    bool met_conflict() const { return conflicts() != conflicts_before_; }  ///< another session was in the way
    bool was_lost() const { return lost_; }  ///< the connection was lost; the session goes on with another one
    bool found_disk_full() const { return full_; }

    /// Whether the database still answers.
    bool is_alive();

    /// Whether a description tells that the database's disk is full.
    static bool is_disk_full(std::string_view description);

    Connection& unwatched() { return connection_; }

private:
    Connection& connection_;
    Clock::time_point until_ = Clock::time_point::max();
    std::uint64_t statements_ = 0;
    std::uint64_t conflicts_before_ = 0;
    bool late_ = false;
    bool lost_ = false;
    bool full_ = false;
};

}  // namespace cuvexa::service
