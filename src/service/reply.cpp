#include "service/reply.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "service/form.h"
#include "service/secrets.h"

namespace cuvexa::service {

Reply error_reply(int status, std::string_view message) {
    using Json = nlohmann::ordered_json;
    const Json json{{"error", {{"status", status}, {"message", message}}}};
    return {status, json.dump(-1, ' ', false, Json::error_handler_t::replace)};
}

Reply with_tag(Reply reply, const httplib::Request& http) {
    const std::string tag = '"' + sha256(reply.type + reply.body).substr(0, 32) + '"';
    const std::string known = http.get_header_value("If-None-Match");
    if (lists(known, tag) || lists(known, "W/" + tag) || known == "*") reply = {304, "", "", std::move(reply.headers)};
    reply.headers.emplace("ETag", tag);
    return reply;
}

}  // namespace cuvexa::service
