#include "suite/operation_memory.h"

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
    const auto found = answers_.find(key_of(question));
    return found == answers_.end() ? nullptr : &found->second;
}

void Operation_memory::keep(Question question, std::string answer) {
    if (answers_.empty()) since_.begin();
    answers_.insert_or_assign(key_of(question), std::move(answer));
}

}  // namespace cuvexa::reference
