// The statement of account as it is handed out: a page, or PDF.
#pragma once

#include <httplib.h>

#include <string>

#include "reports/table.h"
#include "service/reply.h"

namespace cuvexa::service {

/// Whether a request would rather have paper than rows.
bool takes_paper(const httplib::Request& http);

/// The whole period that the query asks for. Throws `Database_error` and `reports::Bad_question`.
Reply paper_statement(const reports::Source& source, const std::string& account, const httplib::Request& http);

}  // namespace cuvexa::service
