// "Key=value;Key={value; with marks};…" taken apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cuvexa::database {

struct Connection_attribute {
    std::string_view key;
    std::string_view value;  ///< as it stands, braces included
};

/// The attributes in order. Nothing is refused: what a text means is the driver manager's business.
std::vector<Connection_attribute> connection_attributes(std::string_view text);

/// Whether the key names a password.
bool is_password_key(std::string_view key) noexcept;

/// A value without the braces around it.
std::string plain_value(std::string_view value);

/// A value in the form in which every driver reads it: as it is, or in braces where it would end early or be read otherwise.
/// There is no form that every driver takes for a `}` in braces; it is doubled.
std::string guarded_value(std::string_view value);

/// Whether the text names a server and not a file: "Driver=…;…", "DSN=…".
bool is_connection_string(std::string_view text) noexcept;

/// Whether one of its attributes names what only ODBC knows: a driver or a data source.
bool names_a_driver(std::string_view text);

/// The text, with that password where it has none; an empty one is none. It stands before the other keys: not every driver
/// takes a value in braces at the end.
std::string with_password(const std::string& connection_string, const std::string& password);

/// The text, with what PostgreSQL's driver is to be told where it says nothing of it: that it must not set a savepoint
/// before each statement.
std::string without_savepoints(const std::string& connection_string);

/// The passwords in the text, each as it stands and without the braces around it: what nothing that is shown may hold.
std::vector<std::string> passwords(const std::string& connection_string);

/// A text in which nothing of those can be read.
std::string without_secrets(const std::string& text, const std::vector<std::string>& secrets);

/// The connection string as it may be shown: without its password.
std::string without_password(std::string_view connection_string);

}  // namespace cuvexa::database
