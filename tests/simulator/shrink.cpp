#include "simulator/shrink.h"

#include <algorithm>
#include <cctype>
#include <span>

#include "simulator/stage.h"

namespace cuvexa::simulator {
namespace {

/// The finding becomes the shorter one if it shows the same; gives whether it did.
bool accept(Finding& finding, const Script& shorter) {
    std::optional<Finding> found = play(shorter);
    if (!found || found->script.back().name != finding.script.back().name) return false;
    finding = *std::move(found);
    return true;
}

/// `accept` is asked for each script that lacks `count` steps one behind the other.
template <class Any_finding, class Accept>
bool take_out_steps(Any_finding& finding, std::size_t count, const Accept& accept) {
    bool shorter = false;
    for (std::size_t at = finding.script.size(); at > 0;) {
        at = at > count ? at - count : 0;
        auto rest = finding.script;
        const auto first = rest.begin() + static_cast<std::ptrdiff_t>(at);
        rest.erase(first, first + static_cast<std::ptrdiff_t>(std::min(count, rest.size() - at)));
        if (!rest.empty() && accept(finding, rest)) shorter = true;
        at = std::min(at, finding.script.size());
    }
    return shorter;
}

/// Half of the steps, a quarter of them, at last one by one.
template <class Any_finding, class Accept>
bool take_out_all_sizes(Any_finding& finding, const Accept& accept) {
    bool shorter = false;
    for (std::size_t count = finding.script.size() / 2; count >= 1; count /= 2) {
        shorter = take_out_steps(finding, count, accept) || shorter;
    }
    return shorter;
}

/// Everything below a value that can be left out or made plain, as one variant of the whole each.
std::vector<Json> plainer(const Json& value) {
    std::vector<Json> variants;
    if (value.is_object() && !value.contains("object")) {
        for (const auto& [name, part] : value.items()) {
            Json without = value;
            without.erase(name);
            variants.push_back(std::move(without));
            for (const Json& variant : plainer(part)) {
                Json changed = value;
                changed[name] = variant;
                variants.push_back(std::move(changed));
            }
        }
    } else if (value.is_string() && !value.get_ref<const std::string&>().empty() &&
               !parse_date(value.get<std::string>())) {
        variants = {"", "x"};
    } else if (value.is_number_float() && value != 1.0) {
        variants = {1.0, 100.0};
    }
    std::erase(variants, value);
    return variants;
}

bool make_arguments_plainer(Finding& finding) {
    bool plain = false;
    for (std::size_t at = 0; at < finding.script.size(); ++at) {
        for (std::size_t place = 0; place < finding.script[at].arguments.size(); ++place) {
            for (std::size_t which = 0;; ++which) {
                const auto variants = plainer(finding.script[at].arguments[place]);
                if (which >= variants.size()) break;
                Script changed = finding.script;
                changed[at].arguments[place] = variants[which];
                if (!accept(finding, changed)) continue;
                plain = true;
                if (at >= finding.script.size()) return plain;
                which = static_cast<std::size_t>(-1);  // the variants are others now
            }
        }
    }
    return plain;
}

}  // namespace

std::optional<Finding> play(const Script& script) {
    Stage stage;
    for (std::size_t at = 0; at < script.size(); ++at) {
        std::vector<std::string> differences = stage.run(script[at]);
        if (differences.empty()) continue;
        return Finding{Script(script.begin(), script.begin() + static_cast<std::ptrdiff_t>(at) + 1),
                       std::move(differences), stage.made()};
    }
    std::vector<std::string> differences = stage.run_end();
    if (differences.empty()) return std::nullopt;
    return Finding{script, std::move(differences), stage.made()};
}

Finding shrunk(Finding finding) {
    bool again = true;
    while (again) {
        again = false;
        again = take_out_all_sizes(finding, accept) || again;
        again = make_arguments_plainer(finding) || again;
    }
    return finding;
}

// ---- Several sessions at once ---------------------------------------------------------------------------------------

namespace {

/// A difference without its figures, which are others when a step is missing.
std::string words_of(std::string difference) {
    std::erase_if(difference, [](unsigned char c) { return std::isdigit(c) != 0; });
    return difference;
}

bool tell_the_same(const std::vector<std::string>& some, const std::vector<std::string>& others) {
    return std::any_of(some.begin(), some.end(), [&](const std::string& one) {
        return std::any_of(others.begin(), others.end(),
                           [&](const std::string& other) { return words_of(one) == words_of(other); });
    });
}

}  // namespace

std::optional<Crowd_finding> play(const Crowd_options& options, const Crowd_script& script) {
    Crowd crowd(options);
    for (std::span<const Crowd_step> left = script; !left.empty();) {
        std::vector<std::string> differences = crowd.round_of(left);
        if (!differences.empty()) return Crowd_finding{crowd.script(), std::move(differences)};
    }
    return std::nullopt;
}

Crowd_finding shrunk(const Crowd_options& options, Crowd_finding finding) {
    const auto accept = [&options](Crowd_finding& of, const Crowd_script& shorter) {
        std::optional<Crowd_finding> found = play(options, shorter);
        if (!found || !tell_the_same(found->differences, of.differences)) return false;
        of = *std::move(found);
        return true;
    };
    for (std::size_t session = 0; session < options.sessions; ++session) {
        Crowd_script rest = finding.script;
        std::erase_if(rest, [&](const Crowd_step& one) { return one.session == session; });
        if (!rest.empty() && rest.size() < finding.script.size()) accept(finding, rest);
    }
    while (take_out_all_sizes(finding, accept)) {
    }
    return finding;
}

}  // namespace cuvexa::simulator
