// The built program, run as a user runs it: in a folder of its own, by arguments, input and exit code.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/types.h>

#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace cuvexa::tests {

struct Outcome {
    int code = -1;
    std::string out;
    std::string err;
};

std::string read_file(const std::filesystem::path& path);
void write_file(const std::filesystem::path& path, const std::string& content);

/// Every line of a text that holds JSON.
std::vector<nlohmann::json> json_lines(const std::string& text);

/// Each test has an empty folder, in which the program runs.
class Program : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Runs `cuvexa` with arguments as a shell reads them.
    Outcome run(const std::string& arguments, const std::string& input = {});

    /// The same, which must succeed; what it prints.
    std::string output_of(const std::string& arguments, const std::string& input = {});

    /// The rows of `show … --json`.
    nlohmann::json shown(const std::string& view_and_options);

    /// A new database, company.db, with the sample company.
    void make_company();

    std::filesystem::path folder;
};

/// A `cuvexa rpc` that runs until it is told to stop.
class Rpc_session {
public:
    Rpc_session(const std::filesystem::path& folder, const std::vector<std::string>& arguments);
    ~Rpc_session();
    Rpc_session(const Rpc_session&) = delete;
    Rpc_session& operator=(const Rpc_session&) = delete;

    /// Sends a request and reads its answer; null when the program is gone.
    nlohmann::json ask(const std::string& method, const nlohmann::json& params);

    /// Sends a call of a member of object 1 and gives the result.
    nlohmann::json call(const std::string& member, const nlohmann::json& arguments = nlohmann::json::array());
    nlohmann::json get(const std::string& member);
    void let(const std::string& member, const nlohmann::json& value);

    /// Ends the program at once, as a power cut would.
    void kill_now();

    /// Closes its input and waits; the exit code.
    int finish();

private:
    pid_t process_ = -1;
    std::FILE* to_ = nullptr;
    std::FILE* from_ = nullptr;
    int next_id_ = 1;
};

}  // namespace cuvexa::tests
