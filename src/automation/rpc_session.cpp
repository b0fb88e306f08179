#include "automation/rpc_session.h"

#include <algorithm>
#include <exception>
#include <initializer_list>
#include <new>
#include <utility>

#include "automation/invoke.h"
#include "cuvexa/errors.h"

namespace cuvexa::automation {
namespace {

[[noreturn]] void refuse(const std::string& message) {
    throw Rpc_error{rpc_invalid_params, message};
}

Rpc_error failure(int number, const std::string& description) {
    return {rpc_run_time_error, description, {{"number", number}, {"description", description}}};
}

// ---- The form of requests and answers ------------------------------------------------------------------------------

Json_out answer_with(std::string_view key, Json_out content, Json_out id) {
    return {{"jsonrpc", "2.0"}, {std::string(key), std::move(content)}, {"id", std::move(id)}};
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

}  // namespace

Json_out error_answer(const Rpc_error& error, Json_out id) {
    Json_out content = {{"code", error.code}, {"message", error.message}};
    if (!error.data.is_null()) content["data"] = error.data;
    return answer_with("error", std::move(content), std::move(id));
}

Json_in parsed_request(std::string_view text) {
    try {
        return Json_in::parse(text);
    } catch (const Json_in::parse_error& error) {
        throw Rpc_error{rpc_parse_error, "not JSON at byte " + std::to_string(error.byte)};
    } catch (const Json_in::exception&) {
        throw Rpc_error{rpc_parse_error, "a number is out of range"};
    }
}

/// The named parameters of a request, of which it may hold no others.
class Rpc_session::Params {
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

Rpc_session::Rpc_session(Object_factory create, Around_call around_call)
    : create_(std::move(create)), around_call_(std::move(around_call)) {}

std::optional<Json_out> Rpc_session::answer_text(std::string_view text) {
    try {
        const Json_in request = parsed_request(text);
        return request.is_array() ? answer_batch(request) : answer(request);
    } catch (const Rpc_error& error) {
        return error_answer(error, nullptr);
    }
}

std::optional<Json_out> Rpc_session::answer_batch(const Json_in& requests) {
    if (requests.empty()) return error_answer({rpc_invalid_request, "an empty batch"}, nullptr);
    Json_out answers = Json_out::array();
    for (const Json_in& request : requests) {
        if (auto one = answer(request)) answers.push_back(*std::move(one));
    }
    return answers.empty() ? std::nullopt : std::optional(std::move(answers));
}

std::optional<Json_out> Rpc_session::answer(const Json_in& request) {
    const bool asks = request.is_object() && request.contains("id");
    const Json_out id = asks && is_id(request["id"]) ? Json_out(request["id"]) : Json_out(nullptr);
    if (!is_request(request)) return error_answer({rpc_invalid_request, "not a JSON-RPC 2.0 request"}, id);
    try {
        const auto params = request.find("params");
        Json_out result = translated(request["method"], params == request.end() ? Json_in(Json_in::object()) : *params);
        return asks ? std::optional(answer_with("result", std::move(result), id)) : std::nullopt;
    } catch (const Rpc_error& error) {
        return asks ? std::optional(error_answer(error, id)) : std::nullopt;
    }
}

Json_out Rpc_session::translated(const std::string& method, const Json_in& params) {
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
        throw Rpc_error{rpc_internal_error, "not enough memory"};
    } catch (const std::exception& error) {
        throw failure(error_automation, error.what());
    } catch (...) {
        throw Rpc_error{rpc_internal_error, "a failure without a description"};
    }
}

Json_out Rpc_session::run(const std::string& method, const Json_in& params) {
    if (method == "create") return create(Params(params, {"class"}));
    if (method == "call") return call(Params(params, {"object", "member", "args"}));
    if (method == "get") return get(Params(params, {"object", "member"}));
    if (method == "let") return let(Params(params, {"object", "member", "value"}));
    if (method == "release") return release(Params(params, {"object"}));
    throw Rpc_error{rpc_method_not_found, "no method " + method};
}

Json_out Rpc_session::create(const Params& params) {
    const std::string& name = params.text("class");
    const Object created = create_(name);
    if (!created) refuse("no class " + name);
    return {{"object", hold(created)}};
}

Json_out Rpc_session::call(const Params& params) {
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

Json_out Rpc_session::get(const Params& params) {
    const Object target = object(params.at("object"));
    std::vector<Variant> none;
    return {{"value", value(Invoke(*target, params.text("member"), Member_kind::property_get, none))}};
}

Json_out Rpc_session::let(const Params& params) {
    const Object target = object(params.at("object"));
    const Member& member = find_member(target->type(), params.text("member"), Member_kind::property_let);
    std::vector<Variant> values = {argument(member, 0, params.at("value"))};
    return {{"value", value(Invoke(*target, member, values))}};
}

Json_out Rpc_session::release(const Params& params) {
    object(params.at("object"));
    objects_.erase(params.at("object").get<std::int64_t>());
    return {{"value", nullptr}};
}

Variant Rpc_session::run_method(Automation_object& object, const Member& member, std::vector<Variant>& arguments) {
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

std::vector<Variant> Rpc_session::arguments(const Member& member, const Json_in& args) {
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

Variant Rpc_session::argument(const Member& member, std::size_t at, const Json_in& json) {
    const Parameter& parameter = member.parameters[at];
    return from_json(json, parameter.type, std::string(member.name) + ": " + std::string(parameter.name),
                     [this](const Json_in& number) { return object(number); });
}

Json_out Rpc_session::value(const Variant& value) {
    return to_json(value, [this](const Object& object) { return number(object); });
}

const Object& Rpc_session::object(const Json_in& number) const {
    if (!number.is_number_integer()) refuse("an object is named by its number");
    const auto found = objects_.find(number.get<std::int64_t>());
    if (found == objects_.end()) refuse("no object " + number.dump());
    return found->second;
}

std::int64_t Rpc_session::number(const Object& object) {
    for (const auto& [number, held] : objects_) {
        if (held == object) return number;
    }
    return hold(object);
}

std::int64_t Rpc_session::hold(const Object& object) {
    objects_.emplace(++last_number_, object);
    return last_number_;
}

}  // namespace cuvexa::automation
