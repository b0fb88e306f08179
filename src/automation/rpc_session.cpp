#include "automation/rpc_session.h"

#include <algorithm>
#include <exception>
#include <initializer_list>
#include <new>
#include <ostream>
#include <utility>

#include "automation/invoke.h"
#include "automation/openrpc.h"
#include "cuvexa/errors.h"

namespace cuvexa::automation {
namespace {

[[noreturn]] void refuse(const std::string& message) {
    throw Rpc_error{rpc_invalid_params, message};
}

// ---- The form of requests and answers ------------------------------------------------------------------------------

std::string result_answer(std::string_view result, std::string_view id) {
    std::string json = R"({"jsonrpc":"2.0","result":)";
    return json.append(result).append(R"(,"id":)").append(id).append("}");
}

Rpc_answer refused(const Rpc_error& error, std::string_view id) {
    return {error_answer(error, id), error.code};
}

void write_refusal(const Rpc_error& error, std::ostream& answers) {
    try {
        answers << error_answer(error);
    } catch (const std::bad_alloc&) {
        write_without_memory(answers);
    }
}

/// The text of an id as it came; nothing when it is none.
std::optional<std::string> id_text(const Json_value& json) {
    if (json.is_null()) return "null";
    if (const auto* number = json.as<Json_number>()) return number->text;
    if (const auto* text = json.as<std::string>()) {
        std::string quoted;
        append_json(quoted, *text);
        return quoted;
    }
    return std::nullopt;
}

bool is_text(const Json_value* json, std::string_view text) {
    const auto* held = json ? json->as<std::string>() : nullptr;
    return held && *held == text;
}

bool is_request(const Json_value& json) {
    const Json_value* method = json.find("method");
    const Json_value* params = json.find("params");
    const Json_value* id = json.find("id");
    return is_text(json.find("jsonrpc"), "2.0") && method && method->as<std::string>() &&
           (!params || params->as<Json_object>() || params->as<Json_array>()) && (!id || id_text(*id));
}

}  // namespace

std::string error_answer(const Rpc_error& error, std::string_view id) {
    std::string json = R"({"jsonrpc":"2.0","error":{"code":)" + std::to_string(error.code) + R"(,"message":)";
    append_json(json, error.message);
    if (error.number) {
        json += R"(,"data":{"number":)" + std::to_string(*error.number) + R"(,"description":)";
        append_json(json, error.message);
        json += '}';
    }
    return json.append(R"(},"id":)").append(id).append("}");
}

void write_without_memory(std::ostream& answers, std::string_view id) {
    answers << R"({"jsonrpc":"2.0","error":{"code":-32603,"message":"not enough memory"},"id":)" << id << '}';
}

Json_value parsed_request(std::string_view text, const Json_rpc_limits& limits) {
    if (text.size() > limits.request_bytes) {
        throw Rpc_error{rpc_invalid_request,
                        "a request of more than " + std::to_string(limits.request_bytes) + " bytes"};
    }
    try {
        return parse_json(text, limits.depth, limits.values);
    } catch (const Too_many_values&) {
        throw Rpc_error{rpc_invalid_request, "a request of more than " + std::to_string(limits.values) + " values"};
    } catch (const Json_text_error& error) {
        throw Rpc_error{rpc_parse_error, error.what()};
    }
}

/// The named parameters of a request, of which it may hold no others.
class Rpc_session::Params {
public:
    Params(const Json_value* json, std::initializer_list<std::string_view> known) : json_(json) {
        if (!json) return;
        const auto* members = json->as<Json_object>();
        if (!members) refuse("params must be an object");
        for (const auto& [name, value] : *members) {
            if (std::find(known.begin(), known.end(), name) == known.end()) refuse("unknown parameter " + name);
        }
    }

    const Json_value* find(std::string_view name) const { return json_ ? json_->find(name) : nullptr; }
    const Json_value& at(std::string_view name) const {
        const Json_value* found = find(name);
        if (!found) refuse("parameter " + std::string(name) + " is missing");
        return *found;
    }
    const std::string& text(std::string_view name) const {
        const auto* value = at(name).as<std::string>();
        if (!value) refuse("parameter " + std::string(name) + " must be a string");
        return *value;
    }

private:
    const Json_value* json_;
};

// ---- The session ---------------------------------------------------------------------------------------------------

Rpc_session::Rpc_session(Object_factory create, Around_call around_call, const Json_rpc_limits& limits)
    : create_(std::move(create)), around_call_(std::move(around_call)), limits_(limits) {}

bool Rpc_session::answer_text(std::string_view text, std::ostream& answers) {
    try {
        const Json_value request = parsed_request(text, limits_);
        const auto* batch = request.as<Json_array>();
        return batch ? write_answers(*batch, answers) : write_answer(request, "", answers);
    } catch (const Rpc_error& error) {
        write_refusal(error, answers);
    } catch (const std::bad_alloc&) {
        write_without_memory(answers);
    }
    return true;
}

bool Rpc_session::write_answers(const Json_array& batch, std::ostream& answers) {
    if (batch.empty()) throw Rpc_error{rpc_invalid_request, "an empty batch"};
    bool any = false;
    for (const Json_value& request : batch) any |= write_answer(request, any ? "," : "[", answers);
    if (any) answers << ']';
    return any;
}

bool Rpc_session::write_answer(const Json_value& request, std::string_view before, std::ostream& answers) {
    const Json_value* const asked = request.find("id");
    std::string id = "null";
    try {
        if (asked) id = id_text(*asked).value_or("null");
        const auto given = answer(request);
        if (given) answers << before << given->json;
        return given.has_value();
    } catch (const std::bad_alloc&) {
        if (!asked) return false;
        answers << before;
        write_without_memory(answers, id);
        return true;
    }
}

std::optional<Rpc_answer> Rpc_session::answer(const Json_value& request) {
    if (!is_request(request)) {
        const Json_value* const id = request.find("id");
        return refused({rpc_invalid_request, "not a JSON-RPC 2.0 request"},
                       id ? id_text(*id).value_or("null") : "null");
    }
    const Json_value* const id = request.find("id");
    try {
        std::string result = translated(request);
        return id ? std::optional(Rpc_answer{result_answer(result, *id_text(*id))}) : std::nullopt;
    } catch (const Rpc_error& error) {
        return id ? std::optional(refused(error, *id_text(*id))) : std::nullopt;
    }
}

std::string Rpc_session::translated(const Json_value& request) {
    try {
        return run(*request.find("method")->as<std::string>(), request.find("params"));
    } catch (const Rpc_error&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const Invoke_error& error) {
        refuse(error.what());
    } catch (const Json_value_error& error) {
        refuse(error.what());
    } catch (const Automation_error& error) {
        throw Rpc_error{rpc_run_time_error, error.what(), error.number()};
    } catch (const std::exception& error) {
        throw Rpc_error{rpc_run_time_error, error.what(), error_automation};
    } catch (...) {
        throw Rpc_error{rpc_internal_error, "a failure without a description"};
    }
}

std::string Rpc_session::run(const std::string& method, const Json_value* params) {
    if (method == "create") return create(Params(params, {"class"}));
    if (method == "call") return call(Params(params, {"object", "member", "args"}));
    if (method == "get") return get(Params(params, {"object", "member"}));
    if (method == "let") return let(Params(params, {"object", "member", "value"}));
    if (method == "release") return release(Params(params, {"object"}));
    if (method == "rpc.discover") return discover(Params(params, {}));
    throw Rpc_error{rpc_method_not_found, "no method " + method};
}

std::string Rpc_session::create(const Params& params) {
    const std::string& name = params.text("class");
    const Object created = create_(name);
    if (!created) refuse("no class " + name);
    return R"({"object":)" + std::to_string(hold(created)) + "}";
}

std::string Rpc_session::call(const Params& params) {
    const Object target = object(params.at("object"));
    const Member& member = find_member(target->type(), params.text("member"), Member_kind::method);
    const Json_value* args = params.find("args");
    std::vector<Variant> values = args ? arguments(member, *args) : std::vector<Variant>();
    const Variant result = run_method(*target, member, values);

    std::string json = R"({"value":)";
    append(json, result);
    return json.append(R"(,"args":)").append(arguments_after(member, args, values)).append("}");
}

std::string Rpc_session::get(const Params& params) {
    const Object target = object(params.at("object"));
    std::vector<Variant> none;
    return value_result(Invoke(*target, params.text("member"), Member_kind::property_get, none));
}

std::string Rpc_session::let(const Params& params) {
    const Object target = object(params.at("object"));
    const Member& member = find_member(target->type(), params.text("member"), Member_kind::property_let);
    std::vector<Variant> values = {argument(member, 0, params.at("value"))};
    return value_result(Invoke(*target, member, values));
}

std::string Rpc_session::release(const Params& params) {
    object(params.at("object"));
    objects_.erase(*params.at("object").as<Json_number>()->whole());
    return R"({"value":null})";
}

std::string Rpc_session::discover(const Params&) {
    return openrpc_document();
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

std::vector<Variant> Rpc_session::arguments(const Member& member, const Json_value& args) {
    std::vector<Variant> values;
    if (const auto* by_name = args.as<Json_object>()) {
        values.resize(member.parameters.size());
        for (const auto& [name, json] : *by_name) {
            const std::size_t at = find_parameter(member, name);
            if (!is_missing(values[at])) refuse(std::string(member.name) + ": argument " + name + " is given twice");
            values[at] = argument(member, at, json);
        }
    } else if (const auto* by_place = args.as<Json_array>()) {
        if (by_place->size() > member.parameters.size()) {
            refuse(std::string(member.name) + ": " + std::to_string(by_place->size()) + " arguments where at most " +
                   std::to_string(member.parameters.size()) + " are taken");
        }
        for (const Json_value& json : *by_place) values.push_back(argument(member, values.size(), json));
    } else {
        refuse("parameter args must be an array or an object");
    }
    return values;
}

Variant Rpc_session::argument(const Member& member, std::size_t at, const Json_value& json) {
    const Parameter& parameter = member.parameters[at];
    return from_json(json, parameter.type, std::string(member.name) + ": " + std::string(parameter.name),
                     [this](const Json_value& number) { return object(number); });
}

/// In the form in which they were given: by place, or those that were given by name.
std::string Rpc_session::arguments_after(const Member& member, const Json_value* args,
                                         const std::vector<Variant>& values) {
    const bool named = args && args->as<Json_object>();
    std::string json;
    for (std::size_t at = 0; at < values.size(); ++at) {
        if (named && is_missing(values[at])) continue;
        if (!json.empty()) json += ',';
        if (named) {
            append_json(json, member.parameters[at].name);
            json += ':';
        }
        append(json, values[at]);
    }
    return named ? "{" + json + "}" : "[" + json + "]";
}

void Rpc_session::append(std::string& json, const Variant& value) {
    append_json(json, value, [this](const Object& object) { return number(object); });
}

std::string Rpc_session::value_result(const Variant& value) {
    std::string json = R"({"value":)";
    append(json, value);
    return json + "}";
}

const Object& Rpc_session::object(const Json_value& json) const {
    const auto* number = json.as<Json_number>();
    if (!number) refuse("an object is named by its number");
    const auto whole = number->whole();
    const auto found = whole ? objects_.find(*whole) : objects_.end();
    if (found == objects_.end()) refuse("no object " + number->text);
    return found->second;
}

std::int64_t Rpc_session::number(const Object& object) {
    for (const auto& [number, held] : objects_) {
        if (held == object) return number;
    }
    return hold(object);
}

std::int64_t Rpc_session::hold(const Object& object) {
    if (objects_.size() >= limits_.objects) {
        refuse("no more than " + std::to_string(limits_.objects) + " objects at a time: release some");
    }
    objects_.emplace(last_number_ + 1, object);
    return ++last_number_;
}

}  // namespace cuvexa::automation
