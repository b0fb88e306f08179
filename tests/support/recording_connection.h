// A connection that remembers the texts that pass through it and can fail one of them.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cuvexa/data_access.h"

namespace cuvexa::tests {

class Recording_connection : public Connection {
public:
    /// `connection` must outlive the object.
    explicit Recording_connection(Connection& connection) : connection_(&connection) {}

    std::unique_ptr<Recordset> execute(std::string_view text) override {
        texts_.emplace_back(text);
        if (fail_at_ != 0 && texts_.size() == fail_at_) throw Database_error(failure_);
        return connection_->execute(text);
    }

    /// The texts since the start or the last `clear`, a failed one included.
    const std::vector<std::string>& texts() const { return texts_; }
    std::size_t count() const { return texts_.size(); }

    /// Forgets the texts and the failure to come; counting starts anew.
    void clear() {
        texts_.clear();
        fail_at_ = 0;
    }

    /// The n-th statement (from 1, counted since the start or the last `clear`) does not reach the database and fails
    /// so.
    void fail_at(std::size_t n, std::string description = "Falla provocada") {
        fail_at_ = n;
        failure_ = std::move(description);
    }

private:
    Connection* connection_;
    std::vector<std::string> texts_;
    std::size_t fail_at_ = 0;
    std::string failure_;
};

}  // namespace cuvexa::tests
