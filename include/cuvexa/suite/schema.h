// The database schema and the sample company, as scripts in the SQL Server dialect.
#pragma once

#include <string_view>

namespace cuvexa {

/// The version that the scripts make, and that this program reads and writes.
inline constexpr int schema_version = 1;

std::string_view schema_sql();
std::string_view sample_company_sql();

}  // namespace cuvexa
