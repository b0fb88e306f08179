// The conversation of JSON-RPC 2.0 itself, whatever carries its texts.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/json_rpc.h"
#include "automation/json_variant.h"
#include "automation/members.h"

namespace cuvexa::automation {

// The codes of the errors that requests are answered with.
inline constexpr int rpc_parse_error = -32700;
inline constexpr int rpc_invalid_request = -32600;
inline constexpr int rpc_method_not_found = -32601;
inline constexpr int rpc_invalid_params = -32602;
inline constexpr int rpc_internal_error = -32603;
inline constexpr int rpc_run_time_error = -32000;

/// A request that gets an error for an answer.
struct Rpc_error {
    int code;
    std::string message;
    Json_out data = nullptr;
};

/// That answer.
Json_out error_answer(const Rpc_error& error, Json_out id);

/// A text as JSON. Throws `Rpc_error`.
Json_in parsed_request(std::string_view text);

/// The objects that a client made, by their numbers, and the answers to what it asks of them. Nothing that a request
/// holds or that a member throws ends it.
class Rpc_session {
public:
    explicit Rpc_session(Object_factory create, Around_call around_call = {});

    /// The answer to one text, a request or a batch; nothing when it holds only notifications.
    std::optional<Json_out> answer_text(std::string_view text);

    /// The answer to one request; nothing to a notification.
    std::optional<Json_out> answer(const Json_in& request);

private:
    class Params;

    std::optional<Json_out> answer_batch(const Json_in& requests);
    Json_out run(const std::string& method, const Json_in& params);
    Json_out translated(const std::string& method, const Json_in& params);

    Json_out create(const Params& params);
    Json_out call(const Params& params);
    Json_out get(const Params& params);
    Json_out let(const Params& params);
    Json_out release(const Params& params);

    Variant run_method(Automation_object& object, const Member& member, std::vector<Variant>& arguments);
    std::vector<Variant> arguments(const Member& member, const Json_in& args);
    Variant argument(const Member& member, std::size_t at, const Json_in& json);
    Json_out value(const Variant& value);

    const Object& object(const Json_in& number) const;
    std::int64_t number(const Object& object);
    std::int64_t hold(const Object& object);

    Object_factory create_;
    Around_call around_call_;
    std::map<std::int64_t, Object> objects_;
    std::int64_t last_number_ = 0;
};

}  // namespace cuvexa::automation
