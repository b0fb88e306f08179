#include "service/reply.h"

#include <nlohmann/json.hpp>

namespace cuvexa::service {

Reply error_reply(int status, std::string_view message) {
    using Json = nlohmann::ordered_json;
    const Json json{{"error", {{"status", status}, {"message", message}}}};
    return {status, json.dump(-1, ' ', false, Json::error_handler_t::replace)};
}

}  // namespace cuvexa::service
