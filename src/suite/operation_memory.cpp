#include "suite/operation_memory.h"

#include <algorithm>

namespace cuvexa::reference {
namespace {

std::string key_of(Operation_memory::Question question) {
    std::string key;
    for (const std::string_view part : question) key.append(part).push_back('\0');
    return key;
}

}  // namespace

void Operation_memory::end() {
    if (--depth_ == 0) answers_.clear();
}

bool Operation_memory::lasts() {
    constexpr double longest = 1;
    if (!answers_.empty() && since_.seconds() >= longest) answers_.clear();
    return depth_ > 0;
}

const std::string* Operation_memory::answer(Question question) const {
    const std::string key = key_of(question);
    const auto found =
        std::find_if(answers_.begin(), answers_.end(), [&](const Answer& each) { return each.question == key; });
    return found == answers_.end() ? nullptr : &found->text;
}

void Operation_memory::keep(Question question, std::string text) {
    if (answers_.empty()) since_.begin();
    answers_.push_back({key_of(question), std::move(text)});
}

}  // namespace cuvexa::reference
