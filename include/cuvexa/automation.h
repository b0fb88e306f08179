// The component as a JSON-RPC server, for hosts that offer it to other languages. Implemented by the library
// Cuvexa::automation; docs/json-rpc.md describes the conversation.
#pragma once

#include <functional>
#include <iosfwd>
#include <string_view>

#include "cuvexa/module.h"

namespace cuvexa {

/// Stands around the run of every method that a client calls. It must run `call` once, in the same thread; `call`
/// answers False when the member refused (a Boolean result of False) and throws what the member throws. `member` is the
/// published name.
using Around_call = std::function<void(std::string_view member, const std::function<bool()>& call)>;

/// Answers the requests, one per line, until their end; each answer is one line, flushed. The objects that clients
/// create live over `module` until they are released or the requests end. Nothing that a request holds or that a member
/// throws ends the session.
void serve_json_rpc(std::istream& requests, std::ostream& answers, Module& module, const Around_call& around_call = {});

}  // namespace cuvexa
