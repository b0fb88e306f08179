// What is answered.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace cuvexa::service {

struct Reply {
    int status = 200;
    std::string body = {};
    std::string type = "application/json";
    std::multimap<std::string, std::string> headers = {};
};

/// {"error":{"status":503,"message":"…"}}
Reply error_reply(int status, std::string_view message);

}  // namespace cuvexa::service
