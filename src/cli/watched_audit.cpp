#include "cli/watched_audit.h"

#include "cli/progress.h"

namespace cuvexa::cli {

std::vector<Finding> watched_audit(Connection& connection, bool line_wanted) {
    Progress progress("Revisión", line_wanted);
    const std::size_t all = audit_checks().size();
    std::size_t done = 0;
    auto findings = audit(connection, [&](const std::string& check) { progress.tell(check, ++done, all); });
    progress.tell("Revisión");  // a rule that Ctrl-C ended found nothing that is to be told
    return findings;
}

}  // namespace cuvexa::cli
