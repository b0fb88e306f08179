#include "automation/json_rpc.h"

#include <algorithm>
#include <exception>
#include <initializer_list>
#include <istream>
#include <map>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "automation/invoke.h"
#include "automation/json_variant.h"
#include "core/text.h"
#include "cuvexa/errors.h"

namespace cuvexa::automation {
namespace {

constexpr int parse_error = -32700;
constexpr int invalid_request = -32600;
constexpr int method_not_found = -32601;
constexpr int invalid_params = -32602;
constexpr int internal_error = -32603;
constexpr int run_time_error = -32000;

/// A request that gets an error for an answer.
struct Rpc_error {
    int code;
    std::string message;
    Json_out data = nullptr;
};

[[noreturn]] void refuse(const std::string& message) {
    throw Rpc_error{invalid_params, message};
}

Rpc_error failure(int number, const std::string& description) {
    return {run_time_error, description, {{"number", number}, {"description", description}}};
}

// ---- The form of requests and answers ------------------------------------------------------------------------------

Json_out answer_with(std::string_view key, Json_out content, Json_out id) {
    return {{"jsonrpc", "2.0"}, {std::string(key), std::move(content)}, {"id", std::move(id)}};
}

Json_out answer_error(const Rpc_error& error, Json_out id) {
    Json_out content = {{"code", error.code}, {"message", error.message}};
    if (!error.data.is_null()) content["data"] = error.data;
    return answer_with("error", std::move(content), std::move(id));
}

bool is_id(const Json_in& json) {
    return json.is_string() || json.is_number() || json.is_null();
}

bool is_request(const Json_in& json) {
    if (!json.is_object()) return false;
    const auto version = json.find("jsonrpc");
    const auto method = json.find("method");
    const auto params = json.find("params");
    const auto id = json.find("id");
    return version != json.end() && *version == "2.0" && method != json.end() && method->is_string() &&
           (params == json.end() || params->is_structured()) && (id == json.end() || is_id(*id));
}

/// The named parameters of a request, of which it may hold no others.
class Params {
public:
    Params(const Json_in& json, std::initializer_list<std::string_view> known) : json_(json) {
        if (!json.is_object()) refuse("params must be an object");
        for (const auto& [name, value] : json.items()) {
            if (std::find(known.begin(), known.end(), name) == known.end()) refuse("unknown parameter " + name);
        }
    }

    const Json_in* find(const char* name) const {
        const auto found = json_.find(name);
        return found == json_.end() ? nullptr : &*found;
    }
    const Json_in& at(const char* name) const {
        const Json_in* found = find(name);
        if (!found) refuse("parameter " + std::string(name) + " is missing");
        return *found;
    }
    const std::string& text(const char* name) const {
        const Json_in& value = at(name);
        if (!value.is_string()) refuse("parameter " + std::string(name) + " must be a string");
        return value.get_ref<const std::string&>();
    }

private:
    const Json_in& json_;
};

// ---- The session ---------------------------------------------------------------------------------------------------

class Session {
public:
    Session(const Object_factory& create, const Around_call& around_call)
        : create_(create), around_call_(around_call) {}

    /// The answer to one line; nothing when it holds only notifications.
    std::optional<Json_out> answer_line(const std::string& line);

private:
    std::optional<Json_out> answer(const Json_in& request);
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

    const Object_factory& create_;
    const Around_call& around_call_;
    std::map<std::int64_t, Object> objects_;
    std::int64_t last_number_ = 0;
};

std::optional<Json_out> Session::answer_line(const std::string& line) {
    Json_in request;
    try {
        request = Json_in::parse(line);
    } catch (const Json_in::parse_error& error) {
        return answer_error({parse_error, "not JSON at byte " + std::to_string(error.byte)}, nullptr);
    } catch (const Json_in::exception&) {
        return answer_error({parse_error, "a number is out of range"}, nullptr);
    }
    return request.is_array() ? answer_batch(request) : answer(request);
}

std::optional<Json_out> Session::answer_batch(const Json_in& requests) {
    if (requests.empty()) return answer_error({invalid_request, "an empty batch"}, nullptr);
    Json_out answers = Json_out::array();
    for (const Json_in& request : requests) {
        if (auto one = answer(request)) answers.push_back(*std::move(one));
    }
    return answers.empty() ? std::nullopt : std::optional(std::move(answers));
}

std::optional<Json_out> Session::answer(const Json_in& request) {
    const bool asks = request.is_object() && request.contains("id");
    const Json_out id = asks && is_id(request["id"]) ? Json_out(request["id"]) : Json_out(nullptr);
    if (!is_request(request)) return answer_error({invalid_request, "not a JSON-RPC 2.0 request"}, id);
    try {
        const auto params = request.find("params");
        Json_out result = translated(request["method"], params == request.end() ? Json_in(Json_in::object()) : *params);
        return asks ? std::optional(answer_with("result", std::move(result), id)) : std::nullopt;
    } catch (const Rpc_error& error) {
        return asks ? std::optional(answer_error(error, id)) : std::nullopt;
    }
}

Json_out Session::translated(const std::string& method, const Json_in& params) {
    try {
        return run(method, params);
    } catch (const Rpc_error&) {
        throw;
    } catch (const Invoke_error& error) {
        refuse(error.what());
    } catch (const Json_value_error& error) {
        refuse(error.what());
    } catch (const Automation_error& error) {
        throw failure(error.number(), error.what());
    } catch (const std::bad_alloc&) {
        throw Rpc_error{internal_error, "not enough memory"};
    } catch (const std::exception& error) {
        throw failure(error_automation, error.what());
    } catch (...) {
        throw Rpc_error{internal_error, "a failure without a description"};
    }
}

Json_out Session::run(const std::string& method, const Json_in& params) {
    if (method == "create") return create(Params(params, {"class"}));
    if (method == "call") return call(Params(params, {"object", "member", "args"}));
    if (method == "get") return get(Params(params, {"object", "member"}));
    if (method == "let") return let(Params(params, {"object", "member", "value"}));
    if (method == "release") return release(Params(params, {"object"}));
    throw Rpc_error{method_not_found, "no method " + method};
}

Json_out Session::create(const Params& params) {
    const std::string& name = params.text("class");
    const Object created = create_(name);
    if (!created) refuse("no class " + name);
    return {{"object", hold(created)}};
}

Json_out Session::call(const Params& params) {
    const Object target = object(params.at("object"));
    const Member& member = find_member(target->type(), params.text("member"), Member_kind::method);
    const Json_in* args = params.find("args");
    std::vector<Variant> values = args ? arguments(member, *args) : std::vector<Variant>();
    const Variant result = run_method(*target, member, values);

    const bool named = args && args->is_object();
    Json_out after = named ? Json_out::object() : Json_out::array();
    for (std::size_t at = 0; at < values.size(); ++at) {
        if (!named) {
            after.push_back(value(values[at]));
        } else if (!is_missing(values[at])) {
            after[std::string(member.parameters[at].name)] = value(values[at]);
        }
    }
    return {{"value", value(result)}, {"args", std::move(after)}};
}

Json_out Session::get(const Params& params) {
    const Object target = object(params.at("object"));
    std::vector<Variant> none;
    return {{"value", value(Invoke(*target, params.text("member"), Member_kind::property_get, none))}};
}

Json_out Session::let(const Params& params) {
    const Object target = object(params.at("object"));
    const Member& member = find_member(target->type(), params.text("member"), Member_kind::property_let);
    std::vector<Variant> values = {argument(member, 0, params.at("value"))};
    return {{"value", value(Invoke(*target, member, values))}};
}

Json_out Session::release(const Params& params) {
    object(params.at("object"));
    objects_.erase(params.at("object").get<std::int64_t>());
    return {{"value", nullptr}};
}

Variant Session::run_method(Automation_object& object, const Member& member, std::vector<Variant>& arguments) {
    Variant result;
    const auto run = [&] {
        result = Invoke(object, member, arguments);
        const bool* accepted = std::get_if<bool>(&result);
        return !accepted || *accepted;
    };
    if (around_call_) {
        around_call_({member.name, member.shows_dialog}, run);
    } else {
        run();
    }
    return result;
}

std::vector<Variant> Session::arguments(const Member& member, const Json_in& args) {
    std::vector<Variant> values;
    if (args.is_object()) {
        values.resize(member.parameters.size());
        for (const auto& [name, json] : args.items()) {
            const std::size_t at = find_parameter(member, name);
            if (!is_missing(values[at])) refuse(std::string(member.name) + ": argument " + name + " is given twice");
            values[at] = argument(member, at, json);
        }
    } else if (args.is_array()) {
        if (args.size() > member.parameters.size()) {
            refuse(std::string(member.name) + ": " + std::to_string(args.size()) + " arguments where at most " +
                   std::to_string(member.parameters.size()) + " are taken");
        }
        for (const Json_in& json : args) values.push_back(argument(member, values.size(), json));
    } else {
        refuse("parameter args must be an array or an object");
    }
    return values;
}

Variant Session::argument(const Member& member, std::size_t at, const Json_in& json) {
    const Parameter& parameter = member.parameters[at];
    return from_json(json, parameter.type, std::string(member.name) + ": " + std::string(parameter.name),
                     [this](const Json_in& number) { return object(number); });
}

Json_out Session::value(const Variant& value) {
    return to_json(value, [this](const Object& object) { return number(object); });
}

const Object& Session::object(const Json_in& number) const {
    if (!number.is_number_integer()) refuse("an object is named by its number");
    const auto found = objects_.find(number.get<std::int64_t>());
    if (found == objects_.end()) refuse("no object " + number.dump());
    return found->second;
}

std::int64_t Session::number(const Object& object) {
    for (const auto& [number, held] : objects_) {
        if (held == object) return number;
    }
    return hold(object);
}

std::int64_t Session::hold(const Object& object) {
    objects_.emplace(++last_number_, object);
    return last_number_;
}

}  // namespace

Object_factory object_factory(Module& module) {
    return [&module](std::string_view class_name) {
        const Automation_class* type = find_class(class_name);
        return type ? type->create(module) : Object();
    };
}

void serve_json_rpc(std::istream& requests, std::ostream& answers, const Object_factory& create,
                    const Around_call& around_call) {
    Session session(create, around_call);
    std::string line;
    while (answers && std::getline(requests, line)) {
        if (trimmed(line, " \t\r").empty()) continue;
        if (const auto answer = session.answer_line(line)) {
            // What a database holds may not be UTF-8; the answer always is.
            answers << answer->dump(-1, ' ', false, Json_out::error_handler_t::replace) << '\n' << std::flush;
        }
    }
}

}  // namespace cuvexa::automation

namespace cuvexa {

void serve_json_rpc(std::istream& requests, std::ostream& answers, Module& module, const Around_call& around_call) {
    automation::serve_json_rpc(requests, answers, automation::object_factory(module), around_call);
}

}  // namespace cuvexa
