// What an administrator of the reference suite may see and change.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cuvexa/data_access.h"

namespace cuvexa {

struct System_parameter {
    std::string name;
    std::string value;
};

/// All system parameters by name.
std::vector<System_parameter> parameters(Connection& connection);
/// Nothing when the parameter is absent; an empty value is a value.
std::optional<std::string> parameter(Connection& connection, const std::string& name);
void set_parameter(Connection& connection, const std::string& name, const std::string& value);
/// False when there was none.
bool unset_parameter(Connection& connection, const std::string& name);

struct Server_identity {
    std::string id;
    bool replica = false;
};

Server_identity server_identity(Connection& connection);
void set_server_identity(Connection& connection, const Server_identity& identity);

struct Posting {
    std::string code;
    bool automatic = false;
};

/// The document codes with a posting configuration.
std::vector<Posting> postings(Connection& connection);
/// Switches the automatic posting of a document code on or off.
void set_posting(Connection& connection, const std::string& code, bool automatic);

struct Period {
    std::string module;
    int year = 0;
    int month = 0;
    bool open = false;
};

std::vector<Period> periods(Connection& connection);
/// Opens or closes a period; it comes into being when there was none.
void set_period(Connection& connection, const Period& period);

struct Folio_series {
    std::string code;
    std::string branch;
    int last = 0;  ///< the last number given
    bool open = true;
};

std::vector<Folio_series> folio_series(Connection& connection);
/// The series, begun or not: one that was never used is open and has given nothing.
Folio_series folio_series_of(Connection& connection, const std::string& code, const std::string& branch);
/// The number that the series gives next. Throws `Database_error` when it has been given already.
void set_next_folio(Connection& connection, const std::string& code, const std::string& branch, int next);
/// A closed series gives no folio.
void set_folio_series_open(Connection& connection, const std::string& code, const std::string& branch, bool open);

/// Marks a document as posted to accounting by hand; once is enough.
void mark_posted(Connection& connection, const std::string& code, const std::string& folio, const std::string& user);
/// Takes the mark away; False when there was none.
bool unmark_posted(Connection& connection, const std::string& code, const std::string& folio);

/// Closes a voucher, or opens it again. False when there is no live voucher of that folio.
bool set_voucher_closed(Connection& connection, const std::string& voucher, bool closed);

}  // namespace cuvexa
