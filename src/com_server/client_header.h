// The header for C++ clients of the virtual table, made from the tables of members and records.
#pragma once

#include <iosfwd>

namespace cuvexa::com_server {

void write_client_header(std::ostream& out);

}  // namespace cuvexa::com_server
