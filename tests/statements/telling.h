// How a file of statements is written: what a member's cases sent, told once.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace cuvexa::tests {

struct Sent {
    std::string text;
    bool refused = false;  ///< by the database
};

/// What one case of a member sent, in order.
struct Case_trace {
    std::string title;
    std::vector<Sent> sent;
};

/// A statement as the files have it, its end included.
std::string laid_out(const std::string& statement);

/// Tells the files one after the other. Each statement stands in full once, in the file of the member told first. There it
/// comes again as "again", with what differs: "'B' for 'A'", or all its values where that would not tell. In the files of
/// members that call that one it is a comment with the member's name and all its values.
class Teller {
public:
    /// The text of the file of a member.
    std::string tell(const std::string& member, const std::vector<Case_trace>& cases);

private:
    struct Home {
        std::string member;
        std::string name;  ///< as `in_short` has it, with a number where a member has several of it
        std::vector<std::string> values;
    };

    std::string tell_one(const std::string& member, const Sent& sent);

    std::map<std::string, Home> homes_;  ///< by form
    std::map<std::string, int> names_;   ///< how many statements of that name a member told
};

}  // namespace cuvexa::tests
