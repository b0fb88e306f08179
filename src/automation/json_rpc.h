// JSON-RPC 2.0 over lines of text, for objects of any kind.
#pragma once

#include <functional>
#include <iosfwd>
#include <string_view>

#include "automation/variant.h"
#include "cuvexa/automation.h"

namespace cuvexa::automation {

/// Makes an object of the named class; null when there is no such class.
using Object_factory = std::function<Object(std::string_view class_name)>;

/// The factory of the published classes (found without regard to case) over one module, which must outlive the objects.
Object_factory object_factory(Module& module);

/// As the public `serve_json_rpc`, with the objects that `create` makes.
void serve_json_rpc(std::istream& requests, std::ostream& answers, const Object_factory& create,
                    const Around_call& around_call = {}, const Json_rpc_limits& limits = {});

}  // namespace cuvexa::automation
