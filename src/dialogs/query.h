// Statements of forms, composed like those of operations, in the module's buffer.
#pragma once

#include <string>
#include <type_traits>

#include "core/rows.h"
#include "core/statement.h"
#include "cuvexa/module.h"

namespace cuvexa {

template <class... Arguments>
Rows query(Module& module, Holes<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
    fill(module.statement(), statement, arguments...);
    return Rows(module.session().GetConnection().execute(module.statement()));
}

}  // namespace cuvexa
