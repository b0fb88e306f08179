#include "service/metrics.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <nlohmann/json.hpp>

namespace cuvexa::service {

namespace {

std::string number(double value) {
    return nlohmann::json(value).dump();
}

/// A name and its labels; none of them holds a quote.
void line(std::string& text, const std::string& name, const std::string& labels, const std::string& value) {
    text += "cuvexa_" + name + (labels.empty() ? "" : '{' + labels + '}') + ' ' + value + '\n';
}

void head(std::string& text, const char* name, const char* type, const char* help) {
    text.append("# HELP cuvexa_").append(name).append(" ").append(help).append("\n# TYPE cuvexa_").append(name);
    text.append(" ").append(type).append("\n");
}

std::string label(const char* name, const std::string& value) {
    return std::string(name) + "=\"" + value + '"';
}

void counter(std::string& text, const char* name, const char* help, std::uint64_t value) {
    head(text, name, "counter", help);
    line(text, name, "", std::to_string(value));
}

void by_member(std::string& text, const char* name, const char* help,
               const std::map<std::string, std::uint64_t>& counts) {
    head(text, name, "counter", help);
    for (const auto& [member, count] : counts) line(text, name, label("member", member), std::to_string(count));
}

std::string now_text() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    std::tm calendar{};
    gmtime_r(&seconds, &calendar);
    char text[40];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &calendar);
    std::snprintf(text + length, sizeof text - length, ".%03dZ", static_cast<int>(ms));
    return text;
}

}  // namespace

void Metrics::count(const Told_request& request) {
    const auto bound = std::lower_bound(upper_bounds_ms.begin(), upper_bounds_ms.end(), request.milliseconds);
    const std::lock_guard lock(mutex_);
    ++requests_[{request.resource, request.status}];
    for (const std::string& member : request.members) ++calls_[member];
    for (const std::string& member : request.refusals) ++refusals_[member];
    ++durations_[static_cast<std::size_t>(bound - upper_bounds_ms.begin())];
    total_ms_ += request.milliseconds;
    statements_ += request.statements;
    repeats_ += request.repeats;
}

std::string Metrics::text() const {
    const std::lock_guard lock(mutex_);
    std::string text;
    head(text, "requests_total", "counter", "Requests answered, by resource and status.");
    for (const auto& [key, count] : requests_) {
        line(text, "requests_total", label("resource", key.first) + ',' + label("status", std::to_string(key.second)),
             std::to_string(count));
    }
    by_member(text, "calls_total", "Calls of members.", calls_);
    by_member(text, "refusals_total", "Calls of members that gave False.", refusals_);
    head(text, "request_milliseconds", "histogram", "Time from the head of a request to its answer.");
    std::uint64_t below = 0;
    for (std::size_t i = 0; i < upper_bounds_ms.size(); ++i) {
        below += durations_[i];
        line(text, "request_milliseconds_bucket", label("le", number(upper_bounds_ms[i])), std::to_string(below));
    }
    below += durations_.back();
    line(text, "request_milliseconds_bucket", label("le", "+Inf"), std::to_string(below));
    line(text, "request_milliseconds_sum", "", number(total_ms_));
    line(text, "request_milliseconds_count", "", std::to_string(below));
    counter(text, "statements_total", "Statements sent to databases.", statements_);
    counter(text, "repeats_total", "Units of work that ran again because another session was in the way.", repeats_);
    return text;
}

std::string log_line(const Told_request& request) {
    nlohmann::ordered_json json{{"time", now_text()}, {"resource", request.resource}};
    if (!request.company.empty()) json["company"] = request.company;
    if (!request.token.empty()) json["token"] = request.token;
    json["status"] = request.status;
    if (!request.fate.empty()) json["fate"] = request.fate;
    if (!request.members.empty()) json["members"] = request.members;
    if (!request.refusals.empty()) json["refused"] = request.refusals;
    json["ms"] = std::round(request.milliseconds * 1000) / 1000;
    json["statements"] = request.statements;
    if (!request.failure.empty()) json["failure"] = request.failure;
    if (request.repeats > 0) json["repeats"] = request.repeats;
    return json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace cuvexa::service
