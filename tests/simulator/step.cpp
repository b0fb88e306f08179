#include "simulator/step.h"

#include <array>

namespace cuvexa::simulator {
namespace {

constexpr std::array<const char*, 7> names = {"refused", "conflict",      "lost",     "unanswered",
                                              "killed",  "killed_behind", "disk_full"};

constexpr std::string_view opening = "«", closing = "»";

std::string key_of(std::string_view reference, const std::map<int, Made>& made) {
    const auto table_at = reference.find(':') + 1, number_at = reference.rfind(':') + 1;
    const auto step = made.find(std::stoi(std::string(reference)));
    if (step == made.end()) return {};
    const auto keys = step->second.find(reference.substr(table_at, number_at - table_at - 1));
    const auto number = static_cast<std::size_t>(std::stoi(std::string(reference.substr(number_at))));
    return keys != step->second.end() && number < keys->second.size() ? keys->second[number] : std::string();
}

}  // namespace

const char* name_of(Fault::Kind kind) {
    return names[static_cast<std::size_t>(kind)];
}

std::optional<Fault::Kind> fault_named(const std::string& name) {
    for (std::size_t at = 0; at < names.size(); ++at) {
        if (names[at] == name) return static_cast<Fault::Kind>(at);
    }
    return std::nullopt;
}

std::string reference(int step, const std::string& table, std::size_t at) {
    return std::string(opening) + std::to_string(step) + ':' + table + ':' + std::to_string(at) + std::string(closing);
}

std::string resolved(const std::string& text, const std::map<int, Made>& made) {
    std::string out;
    std::string_view rest = text;
    for (auto at = rest.find(opening); at != rest.npos; at = rest.find(opening)) {
        out += rest.substr(0, at);
        rest.remove_prefix(at + opening.size());
        const auto end = rest.find(closing);
        out += key_of(rest.substr(0, end), made);
        rest.remove_prefix(end + closing.size());
    }
    return out.append(rest);
}

Json resolved(const Json& value, const std::map<int, Made>& made) {
    if (value.is_string()) return resolved(value.get_ref<const std::string&>(), made);
    Json copy = value;
    if (value.is_structured()) {
        for (Json& part : copy) part = resolved(part, made);
    }
    return copy;
}

}  // namespace cuvexa::simulator
