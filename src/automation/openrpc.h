// The component described for machines: what may be asked, with which values, and what is refused (OpenRPC 1.3).
#pragma once

#include <string>

namespace cuvexa::automation {

/// One JSON object on one line. Written from the tables of members and records and the comments of the public headers.
const std::string& openrpc_document();

}  // namespace cuvexa::automation
