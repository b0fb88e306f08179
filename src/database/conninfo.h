// A PostgreSQL database as every program of it takes one: "postgresql://user@host:port/base?key=value" or
// "host=… dbname=…".
#pragma once

#include <string>
#include <string_view>

namespace cuvexa::database {

/// Whether the text names a PostgreSQL server in its own words, and neither a file nor what ODBC knows.
bool is_conninfo(std::string_view text);

/// The text as it may be shown: without its passwords.
std::string conninfo_without_password(std::string_view text);

}  // namespace cuvexa::database
