// Any text as a statement and as the description of its failure: what the trace writes is one line of JSON that tells both.
#include <sstream>

#include <nlohmann/json.hpp>

#include "core/utf8.h"
#include "cuvexa/database/trace.h"
#include "fuzz/oracle.h"

namespace cuvexa::fuzz {
namespace {

class Failing_connection : public Connection {
public:
    explicit Failing_connection(std::string words) : words_(std::move(words)) {}
    std::unique_ptr<Recordset> execute(std::string_view) override { throw Database_error(words_); }

private:
    std::string words_;
};

bool is_utf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8_length(text, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

}  // namespace
}  // namespace cuvexa::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cuvexa;
    using namespace cuvexa::fuzz;
    std::string_view rest = text_of(data, size);
    const std::string_view statement = first_line(rest);
    const std::string words(rest.substr(0, rest.find('\0')));  // a description ends there
    Failing_connection failing(words);
    std::ostringstream out;
    Traced_connection traced(failing, out);
    try {
        traced.execute(statement);
    } catch (const Database_error&) {
    }
    const std::string line = out.str();
    require(line.find('\n') == line.size() - 1, "a statement is one line", line);
    const auto json = nlohmann::json::parse(line, nullptr, false);
    require(!json.is_discarded(), "a line is JSON", line);
    if (is_utf8(statement)) require(json["text"] == statement, "the line tells the statement", statement, line);
    if (is_utf8(words)) require(json["error"] == words, "the line tells the failure", words, line);
    return 0;
}
