// The database schema, its upgrades and the sample company, as scripts in the SQL Server dialect.
#pragma once

#include <span>
#include <string_view>

namespace cuvexa {

/// The version that the scripts make, and that this program reads and writes.
inline constexpr int schema_version = 2;

std::string_view schema_sql();
std::string_view sample_company_sql();

/// What makes a database of the version before one of that version.
struct Schema_upgrade {
    int version;
    std::string_view sql;
};

/// From version 1 to `schema_version`, in order.
std::span<const Schema_upgrade> schema_upgrades();

}  // namespace cuvexa
