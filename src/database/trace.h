// A connection that writes down every statement that passes through it.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string_view>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// Passes statements on and writes one JSON object per statement and line, flushed at once:
/// {"seq":1,"text":"SELECT …","us":85,"rows":2,"error":null}
/// `text` is the statement as composed, `us` the microseconds it took, `rows` the rows it gave (a statement that changes
/// rows: how many, where the connection can tell), `error` the description of a failure.
class Traced_connection : public Connection {
public:
    /// Both must outlive the object.
    Traced_connection(Connection& connection, std::ostream& out) : connection_(&connection), out_(&out) {}

    std::unique_ptr<Recordset> execute(std::string_view text) override;

private:
    Connection* connection_;
    std::ostream* out_;
    std::uint64_t sequence_ = 0;
};

}  // namespace cuvexa
