#include "cuvexa/database/script.h"

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

    void take(std::string_view line) {
        const std::string_view content = trimmed(line, blanks);
        if (!in_text_ && content.starts_with("--")) return;
        if (!in_text_ && same_text(content, "GO")) return run();
        for (const char c : line) in_text_ ^= c == '\'';
        statement_.append(line).push_back('\n');
        if (!in_text_ && content.ends_with(';')) run();
    }

    void run() {
        const std::string_view statement = trimmed(statement_, blanks);
        if (!statement.empty() && statement != ";") connection_.execute(statement);
        statement_.clear();
    }

private:
    Connection& connection_;
    std::string statement_;
    bool in_text_ = false;
};

}  // namespace

void run_script(Connection& connection, std::string_view script) {
    Script statements(connection);
    while (!script.empty()) {
        const std::size_t end = script.find('\n');
        statements.take(script.substr(0, end));
        script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
    }
    statements.run();
}

}  // namespace cuvexa
