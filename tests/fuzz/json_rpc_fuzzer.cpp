// Any lines as a JSON-RPC session, on a class that has every kind of parameter: each answer is one line of JSON.
#include <sstream>

#include <nlohmann/json.hpp>

#include "automation/made_up_class.h"
#include "automation/rpc_session.h"
#include "core/case.h"
#include "fuzz/oracle.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cuvexa;
    using namespace cuvexa::fuzz;
    const auto create = [](std::string_view name) -> automation::Object {
        return same_text(name, "Made_up") ? std::make_shared<tests::Made_up_object>() : nullptr;
    };
    automation::Rpc_session session(create, {}, {.request_bytes = 4096, .values = 500, .depth = 16, .objects = 5});
    for (std::string_view lines = text_of(data, size); !lines.empty();) {
        const std::string_view line = first_line(lines);
        std::ostringstream answers;
        if (!session.answer_text(line, answers)) {
            require(answers.str().empty(), "what needs no answer gets none", line, answers.str());
            continue;
        }
        const std::string answer = answers.str();
        const auto json = nlohmann::json::parse(answer, nullptr, false);
        require(!json.is_discarded() && answer.find('\n') == std::string::npos, "an answer is one line of JSON", line,
                answer);
        for (const auto& one : json.is_array() ? json : nlohmann::json::array({json})) {
            require(one.contains("result") != one.contains("error") && one.contains("id") && one["jsonrpc"] == "2.0",
                    "an answer is a result or an error", line, answer);
        }
    }
    return 0;
}
