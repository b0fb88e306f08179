// What is answered.
#pragma once

#include <httplib.h>

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

/// The reply with an `ETag`; without its body, 304, to who has it already.
Reply with_tag(Reply reply, const httplib::Request& http);

}  // namespace cuvexa::service
