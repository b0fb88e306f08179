#include "service/batch.h"

#include <utility>

namespace cuvexa::service {

using automation::Rpc_error;

namespace {

/// As text; what is not UTF-8 with replacement characters.
template <class Json>
std::string written(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json_out id_of(const Json_in& entry) {
    if (!entry.is_object() || !entry.contains("id")) return nullptr;
    const Json_in& id = entry["id"];
    return id.is_string() || id.is_number() ? Json_out(id) : Json_out(nullptr);
}

bool is_notification(const Json_in& entry) {
    return entry.is_object() && !entry.contains("id");
}

/// {"result": 3, "path": "/value/Rp_Folio"}; no record has these two members.
bool is_reference(const Json_in& json) {
    return json.is_object() && json.size() == 2 && json.contains("result") && json.contains("path");
}

}  // namespace

Json_in parsed_body(std::string_view body, const Batch_limits& limits) {
    automation::parsed_request(body, limits.session);  // refuses what is beyond a limit
    try {
        return Json_in::parse(body);
    } catch (const Json_in::exception&) {
        throw Rpc_error{automation::rpc_parse_error, "a number is out of range"};
    }
}

Batch::Batch(Module& module, const Batch_limits& limits, bool ends)
    : limits_(limits), ends_(ends), session_(automation::object_factory(module), watching_calls(), limits.session) {}

Around_call Batch::watching_calls() {
    return [this](const Called_method& method, const std::function<bool()>& call) {
        result_.members.emplace_back(method.name);
        if (call()) return;
        refused_ = true;
        result_.refusals.emplace_back(method.name);
    };
}

Batch_result Batch::run(const Json_in& request) {
    if (!request.is_array()) {
        result_.answer = run_entry(request, 1);
        return std::move(result_);
    }
    if (request.empty()) throw Rpc_error{automation::rpc_invalid_request, "an empty batch"};
    if (request.size() > limits_.entries) {
        throw Rpc_error{automation::rpc_invalid_request,
                        "more than " + std::to_string(limits_.entries) + " entries in one request"};
    }
    Json_out answers = Json_out::array();
    for (std::size_t at = 0; at < request.size(); ++at) {
        if (auto answer = run_entry(request[at], at + 1)) answers.push_back(*std::move(answer));
    }
    if (!answers.empty()) result_.answer = std::move(answers);
    return std::move(result_);
}

std::optional<Json_out> Batch::run_entry(const Json_in& entry, std::size_t at) {
    if (!result_.ended_by) return run_alone(entry, at);
    if (is_notification(entry)) return std::nullopt;
    const std::string message = "not run: entry " + std::to_string(*result_.ended_by) + " ended the request";
    const Json_out error{{"code", rpc_not_run}, {"message", message}, {"data", {{"ended_by", *result_.ended_by}}}};
    return Json_out{{"jsonrpc", "2.0"}, {"error", error}, {"id", id_of(entry)}};
}

std::optional<Json_out> Batch::run_alone(const Json_in& entry, std::size_t at) {
    refused_ = false;
    Json_out answer;
    try {
        answer = ask(with_results(entry));
    } catch (const Rpc_error& error) {
        answer = Json_out::parse(automation::error_answer(error, written(id_of(entry))));
    }
    const bool failed = answer.contains("error");
    if (!failed && !id_of(entry).is_null()) results_[written(id_of(entry))] = answer["result"];
    if (ends_ && (failed || refused_)) {
        result_.ended_by = at;
        if (refused_) add_error(entry, answer);
    }
    return is_notification(entry) ? std::nullopt : std::optional(std::move(answer));
}

/// The answer, also of what asks for none: whether it failed is to be known.
Json_out Batch::ask(Json_in entry) {
    if (is_notification(entry)) entry["id"] = nullptr;
    return Json_out::parse(session_.answer(automation::parsed_request(written(entry), limits_.session))->json);
}

/// Puts the text of the refusal beside its False.
void Batch::add_error(const Json_in& entry, Json_out& answer) {
    if (!answer.contains("result")) return;
    const Json_in params{{"object", with_results(entry["params"]["object"])}, {"member", "Error"}};
    const Json_out error = ask({{"jsonrpc", "2.0"}, {"id", nullptr}, {"method", "get"}, {"params", params}});
    if (error.contains("result")) answer["result"]["Error"] = error["result"]["value"];
}

Json_in Batch::with_results(const Json_in& json) const {
    if (is_reference(json)) return result_at(json);
    if (!json.is_structured()) return json;
    Json_in copy = json;
    for (Json_in& inner : copy) {
        if (inner.is_structured()) inner = with_results(inner);
    }
    return copy;
}

Json_in Batch::result_at(const Json_in& reference) const {
    const std::string id = written(reference["result"]);
    const auto result = results_.find(id);
    if (result == results_.end()) throw Rpc_error{automation::rpc_invalid_params, "no result of an entry " + id};
    const Json_in& path = reference["path"];
    try {
        return Json_in(result->second.at(Json_out::json_pointer(path.get<std::string>())));
    } catch (const Json_in::exception&) {
        throw Rpc_error{automation::rpc_invalid_params, "nothing at that path in the result of entry " + id};
    }
}

}  // namespace cuvexa::service
