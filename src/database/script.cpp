#include "cuvexa/database/script.h"

#include <algorithm>
#include <string>

#include "core/case.h"
#include "core/text.h"

namespace cuvexa {
namespace {

constexpr std::string_view blanks = " \t\r\n";

/// Gathers lines until a statement is whole. Within a text nothing ends a statement and nothing is a comment.
class Script {
public:
    explicit Script(Connection& connection) : connection_(connection) {}

    /// Whether a statement ended with it, and has run.
    bool take(std::string_view line) {
        const std::string_view content = trimmed(line, blanks);
        if (!in_text_ && content.starts_with("--")) return false;
        if (!in_text_ && same_text(content, "GO")) return run();
        for (const char c : line) in_text_ ^= c == '\'';
        statement_.append(line).push_back('\n');
        return !in_text_ && content.ends_with(';') && run();
    }

    bool run() {
        const std::string_view statement = trimmed(statement_, blanks);
        const bool is_one = !statement.empty() && statement != ";";
        if (is_one) connection_.execute(statement);
        statement_.clear();
        return is_one;
    }

private:
    Connection& connection_;
    std::string statement_;
    bool in_text_ = false;
};

}  // namespace

void run_script(Connection& connection, std::string_view script,
                const std::function<void(std::size_t bytes)>& progress) {
    Script statements(connection);
    for (std::size_t at = 0; at < script.size();) {
        const std::size_t end = std::min(script.find('\n', at), script.size());
        const bool ran = statements.take(script.substr(at, end - at));
        at = std::min(end + 1, script.size());
        if (ran && progress) progress(at);
    }
    if (statements.run() && progress) progress(script.size());
}

}  // namespace cuvexa
