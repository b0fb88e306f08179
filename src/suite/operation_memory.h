// What the suite read since an operation began. An operation asks for it piece by piece; the server is asked once.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "suite/server_clock.h"

namespace cuvexa::reference {

/// Lasts from the beginning of an operation to its end, and no longer than a second: one that shows a dialog may take long.
/// Only for what no operation changes.
class Operation_memory {
public:
    /// What was asked for: a table, a key and a column of it; or a kind of setting and its name.
    using Question = std::initializer_list<std::string_view>;

    /// An operation that another one calls is part of it.
    void begin() { ++depth_; }
    void end();

    /// Whether an operation is under way. Without one nothing is to be kept, for nothing would say when it ends. What is too
    /// old is forgotten.
    bool lasts();

    /// None when it was not kept.
    const std::string* answer(Question question) const;
    void keep(Question question, std::string text);

    /// Where it reads how many seconds old it is, for tests.
    void read_from(Stopwatch::Seconds seconds) { since_.read_from(std::move(seconds)); }

private:
    int depth_ = 0;
    struct Answer {
        std::string question, text;
    };
    std::vector<Answer> answers_;  ///< few: sooner looked through than put in order
    Stopwatch since_;
};

}  // namespace cuvexa::reference
