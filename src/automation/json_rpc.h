// JSON-RPC 2.0 over lines of text: the door to the component for any language.
#pragma once

#include <functional>
#include <iosfwd>
#include <string_view>

#include "automation/variant.h"
#include "cuvexa/module.h"

namespace cuvexa {

/// Makes an object of the named class (without regard to case); null when there is no such class.
using Object_factory = std::function<Object(std::string_view class_name)>;

/// The factory of the published classes over one module, which must outlive the objects.
Object_factory object_factory(Module& module);

/// Stands around the run of every method that a client calls. It must run `call` once, in the same thread; `call`
/// answers False when the member refused (a Boolean result of False) and throws what the member throws. `member` is the
/// published name.
using Around_call = std::function<void(std::string_view member, const std::function<bool()>& call)>;

/// Answers the requests, one per line, until their end; each answer is one line, flushed. Nothing that a request holds
/// or that a member throws ends the session.
void serve_json_rpc(std::istream& requests, std::ostream& answers, const Object_factory& create,
                    const Around_call& around_call = {});

}  // namespace cuvexa
