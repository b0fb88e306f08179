// What lookup fields do to a key: capitals, input format, and its way into a query.
#pragma once

#include <string>
#include <string_view>

namespace cuvexa::dialogs {

/// Small letters of Spanish as capitals, accents kept.
std::string capitals(std::string_view text);

/// A key in its input format: digits are filled with zeros up to the length of a format that is a run of zeros; after a
/// ">" at the beginning of the format letters are capitals. Any other key or format leaves the key as it is.
std::string formatted(std::string_view key, std::string_view format);

/// The query with every '?' replaced by the key. Quotes of the key are doubled: what a user types is data, never
/// statement.
std::string with_key(std::string_view sql, std::string_view key);

/// The query with every "LIKE ?" completed to look for the text anywhere in the column.
std::string with_pattern(std::string_view sql, std::string_view text);

}  // namespace cuvexa::dialogs
