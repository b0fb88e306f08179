// What a bearer reads of a company: lists, documents, statements of account, budgets, the audit; as JSON or as CSV.
#pragma once

#include <httplib.h>

#include <string>
#include <vector>

#include "reports/table.h"
#include "service/reply.h"

namespace cuvexa::service {

/// Whether a path leads to something to read: "receipts", "receipts/RP-MTY-00000001", "accounts/SRR-MXN/statement".
bool is_resource(const std::vector<std::string>& steps);

/// What is there, of the page and with the filters that the query asks for. Throws `Database_error`.
Reply resource(const reports::Source& source, const std::vector<std::string>& steps, const httplib::Request& http);

}  // namespace cuvexa::service
