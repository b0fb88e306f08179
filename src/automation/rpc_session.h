// The conversation of JSON-RPC 2.0 itself, whatever carries its texts.
#pragma once

#include <cstdint>
#include <iosfwd>
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
    std::optional<int> number = {};  ///< of a run-time error
};

/// That answer; `id` is JSON as it came.
std::string error_answer(const Rpc_error& error, std::string_view id = "null");

/// That memory does not suffice, written without any.
void write_without_memory(std::ostream& answers, std::string_view id = "null");

/// A text as JSON, within the limits. Throws `Rpc_error`.
Json_value parsed_request(std::string_view text, const Json_rpc_limits& limits);

struct Rpc_answer {
    std::string json;
    int error = 0;  ///< the code, when it is one
};

/// The objects that a client made, by their numbers, and the answers to what it asks of them. Nothing that a request
/// holds or that a member throws ends it.
class Rpc_session {
public:
    explicit Rpc_session(Object_factory create, Around_call around_call = {}, const Json_rpc_limits& limits = {});

    /// Writes the answer to one text, a request or a batch, without a line break behind it; those of a batch as they
    /// come. False when there is none, for it holds only notifications. Whatever memory is missing, there is an answer.
    bool answer_text(std::string_view text, std::ostream& answers);

    /// The answer to one request; nothing to a notification. Throws `std::bad_alloc` when there is no memory for it.
    std::optional<Rpc_answer> answer(const Json_value& request);

private:
    class Params;

    bool write_answer(const Json_value& request, std::string_view before, std::ostream& answers);
    bool write_answers(const Json_array& batch, std::ostream& answers);
    std::string translated(const Json_value& request);
    std::string run(const std::string& method, const Json_value* params);

    std::string create(const Params& params);
    std::string call(const Params& params);
    std::string get(const Params& params);
    std::string let(const Params& params);
    std::string release(const Params& params);
    static std::string discover(const Params& params);

    Variant run_method(Automation_object& object, const Member& member, std::vector<Variant>& arguments);
    std::vector<Variant> arguments(const Member& member, const Json_value& args);
    Variant argument(const Member& member, std::size_t at, const Json_value& json);
    std::string arguments_after(const Member& member, const Json_value* args, const std::vector<Variant>& values);
    void append(std::string& json, const Variant& value);
    std::string value_result(const Variant& value);

    const Object& object(const Json_value& json) const;
    std::int64_t number(const Object& object);
    std::int64_t hold(const Object& object);

    Object_factory create_;
    Around_call around_call_;
    Json_rpc_limits limits_;
    std::map<std::int64_t, Object> objects_;
    std::int64_t last_number_ = 0;
};

}  // namespace cuvexa::automation
