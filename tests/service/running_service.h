// A service on a sample company of its own, in this process, and requests to it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <httplib.h>

#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "service/service.h"

namespace cuvexa::tests {

using Json = nlohmann::ordered_json;

/// Each test has an empty folder with a company and a file of tokens; `start` begins to serve them.
class Running_service : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Begins to serve company.db, or what `companies` says by then.
    void start();
    void stop();

    /// Adds a token to the file and gives its text.
    std::string token(const service::Token& token) const;

    /// Sends an entry or a batch with the token of the test, or another.
    httplib::Result post(const Json& body, const httplib::Headers& more = {});
    httplib::Result post_as(const std::string& bearer, const std::string& body, const std::string& path = "/rpc");
    httplib::Result get(const std::string& path, const httplib::Headers& more = {});

    /// Everything that the service says to these bytes, until it closes the connection.
    std::string said_to(const std::string& bytes) const;

    /// A new connection to the service.
    int connected() const;

    /// The rows that a statement counts as `n`.
    double count(const std::string& from_where);

    std::vector<Json> log_lines() const;

    std::filesystem::path folder;
    service::Service_options options;
    std::string bearer;
    std::unique_ptr<service::Service> running;
    std::ostringstream log;

private:
    std::thread serving_;
};

/// Entries of a batch.
Json entry(int id, const std::string& method, const Json& params);
Json create(int id);
Json call(int id, const std::string& member, const Json& arguments = Json::array());
Json get_member(int id, const std::string& member);
Json let(int id, const std::string& member, const Json& value);
Json result_of(int id, const std::string& path);

/// Captures a receipt of one cash line as entries 1 to 6 and closes it with 7; the header is the result of 6.
Json receipt(double amount = 150);

/// Deposits it, as entry 8, into that account.
Json deposit(const std::string& account = "SRR-MXN");

}  // namespace cuvexa::tests
