// A connection that writes down every statement that passes through it.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "cuvexa/data_access.h"

namespace cuvexa {

/// Passes statements on and writes one JSON object per statement and line, flushed at once:
/// {"seq":1,"text":"SELECT …","us":85,"rows":2,"error":null}
/// `text` is the statement as composed; bytes that are no UTF-8 become U+FFFD. `us` is how long it took, in
/// microseconds. `rows`: the rows given, or changed where the statement gives none; null after a failure or where the
/// connection cannot tell. `error`: the description of a failure, or null. A statement that ran and could not be written
/// down throws `Database_error`.
class Traced_connection : public Connection {
public:
    /// Both must outlive the object.
    Traced_connection(Connection& connection, std::ostream& out) : connection_(&connection), out_(&out) {}

    std::unique_ptr<Recordset> execute(std::string_view text) override;
    std::uint64_t conflicts() const noexcept override { return connection_->conflicts(); }

private:
    void write(std::string_view text, std::int64_t us, const std::string& rows, const char* error);

    Connection* connection_;
    std::ostream* out_;
    std::uint64_t sequence_ = 0;
};

}  // namespace cuvexa
