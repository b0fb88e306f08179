// cuvexa rpc: the component for any language, over standard input and output.
#include <cstdint>
#include <iostream>
#include <limits>
#include <memory>

#include "cli/command.h"
#include "cli/session.h"

namespace cuvexa::cli {

namespace {

struct Rpc_options : Session_options {
    Json_rpc_limits limits;
};

void serve(const Rpc_options& options) {
    Session session(options);
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    serve_json_rpc(std::cin, std::cout, session.module(), session.around_calls(), options.limits);
    if (std::cin.bad()) throw Refused("No se pudo leer la entrada");
}

}  // namespace

void add_rpc(CLI::App& program) {
    auto options = std::make_shared<Rpc_options>();
    CLI::App* command = program.add_subcommand("rpc", "Drive the component by JSON-RPC on standard input and output");
    options->add_to(*command, true);
    command->add_option("--max-request", options->limits.request_bytes, "Longest line that is read: 64MB if not given")
        ->type_name("BYTES")
        ->transform(CLI::AsSizeValue(false))
        ->check(CLI::Range(std::size_t{1}, std::size_t{std::numeric_limits<std::int32_t>::max()}));
    command->callback([options] { serve(*options); });
}

}  // namespace cuvexa::cli
