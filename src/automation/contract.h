// What the public headers tell a caller of each member and field, for who reads it elsewhere.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace cuvexa::automation {

/// The headers that hold the class and its records, and the description for machines without what the tables say; both
/// put into the program by its build.
std::string_view contract_headers();
std::string_view openrpc_frame();

/// Comments of declarations by type and name: {"Tesoreria", "GetSaldo"}; of a type itself with an empty name, where it has
/// none that of its header. Of members that share a name the first comment counts.
using Contract = std::map<std::pair<std::string, std::string>, std::string, std::less<>>;

/// Reads the comments out of the text of headers in the house's format.
Contract contract_of(std::string_view headers);

/// The part of a member's comment that lists what it refuses, in order; empty when it refuses nothing.
std::string_view refusals_in(std::string_view comment);

}  // namespace cuvexa::automation
