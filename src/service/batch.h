// The entries of one request, in order: results of earlier ones in later ones, and the end at the first that is refused.
#pragma once

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/rpc_session.h"
#include "cuvexa/module.h"

namespace cuvexa::service {

/// Entries are changed where they refer to results; answers keep the order of their members.
using Json_in = nlohmann::json;
using Json_out = nlohmann::ordered_json;

/// What one request may ask for at most.
struct Batch_limits {
    std::size_t entries = 1000;
    Json_rpc_limits session{
        .request_bytes = std::size_t{8} * 1024 * 1024, .values = 200'000, .depth = 64, .objects = 100};
};

/// -32001: the entry did not run, because an earlier one ended the request.
inline constexpr int rpc_not_run = -32001;

/// What became of a request.
struct Batch_result {
    std::optional<Json_out> answer;       ///< nothing when it held only notifications
    std::optional<std::size_t> ended_by;  ///< the entry that was refused or failed, counted from 1
    std::vector<std::string> members;     ///< that were called, in order
    std::vector<std::string> refusals;    ///< those of them that gave False
};

/// The text of a body as JSON. Throws `automation::Rpc_error` when it is none, or nested too deep.
Json_in parsed_body(std::string_view body, const Batch_limits& limits);

/// Runs a request or a batch over one module, in a session of its own.
class Batch {
public:
    /// `ends`: the first entry that is refused or fails ends the request; else each stands by itself, as with `cuvexa rpc`.
    Batch(Module& module, const Batch_limits& limits, bool ends);

    Batch_result run(const Json_in& request);

private:
    std::optional<Json_out> run_entry(const Json_in& entry, std::size_t at);
    std::optional<Json_out> run_alone(const Json_in& entry, std::size_t at);
    Json_out ask(Json_in entry);
    void add_error(const Json_in& entry, Json_out& answer);
    Json_in with_results(const Json_in& json) const;
    Json_in result_at(const Json_in& reference) const;
    Around_call watching_calls();

    const Batch_limits& limits_;
    bool ends_;
    bool refused_ = false;                     ///< the entry that runs gave False
    std::map<std::string, Json_out> results_;  ///< by the id, as it is written
    Batch_result result_;
    automation::Rpc_session session_;
};

}  // namespace cuvexa::service
