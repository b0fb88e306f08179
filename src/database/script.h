// Several statements at once: scripts and transactions.
#pragma once

#include <string_view>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// Runs the statements of a script in order. A statement ends with a `;` at the end of a line, with a line that holds
/// only GO, or with the script; a line that starts with `--` is a comment. Throws at the first statement that fails;
/// those before it have run, so a caller that wants all or nothing holds a `Transaction`.
void run_script(Connection& connection, std::string_view script);

/// Everything that runs while the object lives is kept by `commit`, or undone by its absence.
class Transaction {
public:
    /// Waits for other writers and keeps them out from here on.
    explicit Transaction(Connection& connection);
    ~Transaction();

    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Connection* connection_;
    bool open_ = true;
};

}  // namespace cuvexa
