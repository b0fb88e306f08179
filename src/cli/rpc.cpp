// cuvexa rpc: the component for any language, over standard input and output.
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/session.h"

namespace cuvexa::cli {

namespace {

void serve(const Session_options& options) {
    Session session(options);
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    serve_json_rpc(std::cin, std::cout, session.module(), session.around_calls());
}

}  // namespace

void add_rpc(CLI::App& program) {
    auto options = std::make_shared<Session_options>();
    CLI::App* command = program.add_subcommand("rpc", "Drive the component by JSON-RPC on standard input and output");
    options->add_to(*command, true);
    command->callback([options] { serve(*options); });
}

}  // namespace cuvexa::cli
