// A session of a database server that many users share.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cuvexa/data_access.h"
#include "cuvexa/database/replica.h"
#include "cuvexa/date.h"

namespace cuvexa {

/// Used by one thread. Rows are read completely before `execute` returns: an open recordset holds nothing of the server
/// and sees no later change. No text that a session gives, failures included, holds the password.
class Server_connection : public Connection {
public:
    /// Gives the database what the schema's column types need, once, before the schema; refuses a database that tells
    /// capital letters from small ones.
    virtual void prepare_database() = 0;

    /// How a statement for this server writes a date.
    virtual Date_style date_style() const noexcept = 0;

    /// What the server calls itself.
    virtual const std::string& server_name() const noexcept = 0;

    /// How far behind the server is; none of one that is no replica, or does not say.
    virtual std::optional<Replica> replica() = 0;

    /// The statement as the server would be given it with its literals in place.
    virtual std::string translate(std::string_view text) const = 0;
};

}  // namespace cuvexa
