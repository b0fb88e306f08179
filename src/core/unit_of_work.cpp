#include "cuvexa/unit_of_work.h"

#include "cuvexa/lost_connection.h"

namespace cuvexa {

Unit_of_work::Unit_of_work(Connection& connection)
    : connection_(connection), conflicts_before_(connection.conflicts()) {
    connection_.execute("BEGIN TRANSACTION");
}

Unit_of_work::~Unit_of_work() {
    if (!open_) return;
    // Once more, for what failed may have been memory for a moment, and nothing can begin before this has ended.
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            connection_.execute("ROLLBACK TRANSACTION");
            return;
        } catch (const Lost_connection_error&) {
            return;  // the server undoes it
        } catch (const std::exception&) {
            // Or the engine has undone it by itself, as it does after some failures.
        }
    }
}

void Unit_of_work::commit() {
    connection_.execute("COMMIT TRANSACTION");
    open_ = false;
}

}  // namespace cuvexa
