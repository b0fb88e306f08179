// The console: the page that a browser shows at `/`, and the files that belong to it. Anybody may see them, for they hold nothing of a company;
// what the page shows it reads with its user's token.
#pragma once

#include <httplib.h>

#include <optional>
#include <span>
#include <string_view>

#include "service/reply.h"

namespace cuvexa::service {

struct Console_file {
    std::string_view name;
    std::string_view content;
};

/// What the build embeds.
std::span<const Console_file> console_files();

/// What a GET is answered; nothing when its path is none of the console's. Where a service has several companies, `/NAME/` is the
/// console of that one, whether or not there is one of that name, and `/` asks for the name.
std::optional<Reply> console_reply(const httplib::Request& http, bool several_companies);

}  // namespace cuvexa::service
