// One request as one unit of work: kept whole or not at all, repeated when another session was in its way.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "service/batch.h"
#include "service/companies.h"
#include "service/kept_answers.h"

namespace cuvexa::service {

struct Unit_request {
    std::string_view body;
    std::string user;   ///< the operator of the audit columns
    bool whole = true;  ///< else statement by statement
    std::optional<Request_key> key = {};
    Clock::time_point until;
};

enum class Fate {
    kept,
    undone,     ///< an entry was refused or failed: nothing stays
    by_itself,  ///< each statement stood by itself
    not_tried,  ///< the request was none, or the database did not begin
    unknown,    ///< the connection was lost while the unit was being kept
};

struct Unit_reply {
    int status = 200;
    Fate fate = Fate::not_tried;
    std::string body = {};  ///< empty: only notifications
    std::optional<std::size_t> ended_by = {};
    std::size_t repeats = 0;
    bool replayed = false;  ///< the kept answer of an earlier request with its key
    std::vector<std::string> members = {};
    std::vector<std::string> refusals = {};
    std::uint64_t statements = 0;
};

/// Runs the request on a session of the company. Throws `Overloaded`, or `Company_error` when the database does not open.
Unit_reply run_unit(Company_sessions& company, const Unit_request& request, const Batch_limits& limits);

}  // namespace cuvexa::service
