// cuvexa describe: the component for machines.
#include <iostream>

#include "automation/openrpc.h"
#include "cli/command.h"

namespace cuvexa::cli {

void add_describe(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("describe", "Print the description of the component for machines (OpenRPC)");
    command->callback([] { std::cout << automation::openrpc_document() << '\n'; });
}

}  // namespace cuvexa::cli
