// A database connection that is reached through automation, in the shape of ADO.
#pragma once

#include <memory>

#include "com/late.h"
#include "cuvexa/data_access.h"

namespace cuvexa::com_suite {

using namespace com;

/// Runs statements with `Execute` and options −1, and walks the recordsets it gives. Every failure comes out as
/// `Database_error` with the object's description.
class Late_connection final : public Connection {
public:
    /// The object behind it from now on.
    void use(const Pointer<IDispatch>& connection);

    std::unique_ptr<Recordset> execute(std::string_view text) override;

private:
    Late_object connection_;
};

}  // namespace cuvexa::com_suite
