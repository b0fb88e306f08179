#include "cuvexa/unit_of_work.h"

namespace cuvexa {

Unit_of_work::Unit_of_work(Connection& connection)
    : connection_(connection), conflicts_before_(connection.conflicts()) {
    connection_.execute("BEGIN TRANSACTION");
}

Unit_of_work::~Unit_of_work() {
    if (!open_) return;
    try {
        connection_.execute("ROLLBACK TRANSACTION");
    } catch (const std::exception&) {
        // The engine has undone it by itself, as it does after some failures; or it is gone, and undoes it then.
    }
}

void Unit_of_work::commit() {
    connection_.execute("COMMIT TRANSACTION");
    open_ = false;
}

}  // namespace cuvexa
