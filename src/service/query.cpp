#include "service/query.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string_view>

#include "core/utf8.h"
#include "reports/lists.h"

namespace cuvexa::service {

using reports::Bad_question;

namespace {

constexpr int page_rows = 100;
constexpr int most_page_rows = 1000;

bool is_text(std::string_view value) {
    for (std::size_t at = 0; at < value.size();) {
        const std::size_t length = utf8_length(value, at);
        const auto byte = static_cast<unsigned char>(value[at]);
        if (length == 0 || byte < 0x20 || byte == 0x7f) return false;
        at += length;
    }
    return true;
}

}  // namespace

Query::Query(const httplib::Request& http, const std::set<std::string>& known) : http_(http) {
    for (const auto& [name, value] : http.params) {
        if (!known.contains(name)) throw Bad_question("unknown parameter " + name);
        if (http.get_param_value_count(name) > 1) throw Bad_question(name + " is given twice");
        if (!is_text(value)) throw Bad_question(name + " is no text in UTF-8, or holds control characters");
    }
}

std::optional<Date> Query::day(const char* name) const {
    if (!has(name)) return std::nullopt;
    const std::string given = text(name);
    const auto date = parse_date(given);
    if (!date || given.size() != 10 || given != iso_date(*date)) {
        throw Bad_question(std::string(name) + " is no day: " + given);
    }
    return date;
}

reports::Period Query::period() const {
    const reports::Period period{day("from"), day("to")};
    if (period.from && period.to && *period.to < *period.from) throw Bad_question("to is before from");
    return period;
}

int Query::whole(const char* name, int least, int most, int if_not_given) const {
    if (!has(name)) return if_not_given;
    const std::string given = text(name);
    int number = 0;
    const auto [end, error] = std::from_chars(given.data(), given.data() + given.size(), number);
    if (error != std::errc() || end != given.data() + given.size() || number < least || number > most) {
        throw Bad_question(std::string(name) + " is no number from " + std::to_string(least) + " to " +
                           std::to_string(most) + ": " + given);
    }
    return number;
}

std::optional<double> Query::amount() const {
    if (!has("amount")) return std::nullopt;
    const std::string given = text("amount");
    double number = 0;
    const auto [end, error] = std::from_chars(given.data(), given.data() + given.size(), number);
    if (error != std::errc() || end != given.data() + given.size() || !std::isfinite(number)) {
        throw Bad_question("amount is no number: " + given);
    }
    return number;
}

std::vector<std::string> Query::place() const {
    if (!has("after")) return {};
    const auto json = nlohmann::json::parse(text("after"), nullptr, false);
    const bool fits = json.is_array() && !json.empty() &&
                      std::all_of(json.begin(), json.end(), [](const auto& each) { return each.is_string(); });
    if (!fits) throw Bad_question("after is not what a page gave as next");
    return json.get<std::vector<std::string>>();
}

std::size_t Query::limit() const {
    return static_cast<std::size_t>(whole("limit", 1, most_page_rows, page_rows));
}

}  // namespace cuvexa::service
