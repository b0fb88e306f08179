// The component as a JSON-RPC server, for hosts that offer it to other languages. Implemented by the library
// Cuvexa::automation; docs/json-rpc.md describes the conversation.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string_view>

#include "cuvexa/module.h"

namespace cuvexa {

/// The method that a client calls.
struct Called_method {
    std::string_view name;      ///< the published one
    bool shows_dialog = false;  ///< it waits for a person: no time to keep others waiting
};

/// Stands around the run of every method that a client calls. It must run `call` once, in the same thread; `call`
/// answers False when the method refused (a Boolean result of False) and throws what the method throws.
using Around_call = std::function<void(const Called_method& method, const std::function<bool()>& call)>;

/// How much of a server's memory one client may take.
struct Json_rpc_limits {
    std::size_t request_bytes = 64 * 1024 * 1024;  ///< of one line: a request or a batch
    std::size_t values = 1'000'000;                ///< texts, numbers, objects and arrays in one line
    std::size_t depth = 128;                       ///< objects and arrays inside one another
    std::size_t objects = 10'000;                  ///< held at a time
};

/// Answers the requests, one per line, until their end; each answer is one line, flushed. The objects that clients
/// create live over `module` until they are released or the requests end. Nothing that a request holds or that a member
/// throws ends the session, nor does a lack of memory: what is beyond a limit is refused. Requests that cannot be read
/// any further end it, and leave `requests` bad.
void serve_json_rpc(std::istream& requests, std::ostream& answers, Module& module, const Around_call& around_call = {},
                    const Json_rpc_limits& limits = {});

}  // namespace cuvexa
