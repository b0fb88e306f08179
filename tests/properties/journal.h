// A conversation with the component over JSON-RPC that remembers itself, so that a failure can be replayed.
#pragma once

#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/json_rpc.h"
#include "support/company.h"

namespace cuvexa::tests {

/// One `Tesoreria` of a company, driven by the requests that `cuvexa rpc` would read.
class Journal {
public:
    using Json = nlohmann::ordered_json;

    explicit Journal(Company& company) : object_(automation::object_factory(company.module())("Tesoreria")) {
        lines_.push_back(create_line);
    }

    /// Starts another instance, as a caller does for a second check request.
    void renew(Company& company) {
        object_ = automation::object_factory(company.module())("Tesoreria");
        ++number_;
        lines_.push_back(create_line);
    }

    bool call(const std::string& member, Json arguments = Json::array()) {
        return send("call", {{"object", number_}, {"member", member}, {"args", std::move(arguments)}}).at("value") ==
               true;
    }
    void let(const std::string& member, Json value) {
        send("let", {{"object", number_}, {"member", member}, {"value", std::move(value)}});
    }
    void run(const std::string& member) { send("call", {{"object", number_}, {"member", member}}); }
    Json get(const std::string& member) { return send("get", {{"object", number_}, {"member", member}}).at("value"); }

    /// What `cuvexa rpc` reads to do the same on a fresh sample company.
    std::string script() const {
        std::string text;
        for (const std::string& line : lines_) text += line + "\n";
        return text;
    }

private:
    static constexpr auto create_line = R"({"jsonrpc":"2.0","id":0,"method":"create","params":{"class":"Tesoreria"}})";

    /// Each request is a session of its own over the one object; there it always has the number 1.
    Json send(const char* method, Json params) {
        Json request = {{"jsonrpc", "2.0"}, {"id", ++id_}, {"method", method}, {"params", params}};
        lines_.push_back(request.dump());
        request["params"]["object"] = 1;
        std::istringstream requests(std::string(create_line) + "\n" + request.dump() + "\n");
        std::ostringstream answers;
        automation::serve_json_rpc(requests, answers, [this](std::string_view) { return object_; });
        std::istringstream lines(answers.str());
        std::string created, answer;
        std::getline(lines, created);
        std::getline(lines, answer);
        const Json parsed = Json::parse(answer);
        if (parsed.contains("error")) throw std::runtime_error(answer + " to " + lines_.back());
        return parsed.at("result");
    }

    automation::Object object_;
    int number_ = 1;
    int id_ = 0;
    std::vector<std::string> lines_;
};

}  // namespace cuvexa::tests
