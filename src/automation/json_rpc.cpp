#include "automation/json_rpc.h"

#include <istream>
#include <ostream>
#include <string>

#include "automation/members.h"
#include "automation/rpc_session.h"
#include "core/text.h"

namespace cuvexa::automation {

Object_factory object_factory(Module& module) {
    return [&module](std::string_view class_name) {
        const Automation_class* type = find_class(class_name);
        return type ? type->create(module) : Object();
    };
}

void serve_json_rpc(std::istream& requests, std::ostream& answers, const Object_factory& create,
                    const Around_call& around_call) {
    Rpc_session session(create, around_call);
    std::string line;
    while (answers && std::getline(requests, line)) {
        if (trimmed(line, " \t\r").empty()) continue;
        if (const auto answer = session.answer_text(line)) {
            // What a database holds may not be UTF-8; the answer always is.
            answers << answer->dump(-1, ' ', false, Json_out::error_handler_t::replace) << '\n' << std::flush;
        }
    }
}

}  // namespace cuvexa::automation

namespace cuvexa {

void serve_json_rpc(std::istream& requests, std::ostream& answers, Module& module, const Around_call& around_call) {
    automation::serve_json_rpc(requests, answers, automation::object_factory(module), around_call);
}

}  // namespace cuvexa
