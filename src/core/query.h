// Statements on their way to the database: composed in the module's buffer, run on its session's connection.
#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include "core/rows.h"
#include "core/statement.h"
#include "cuvexa/module.h"

namespace cuvexa {

/// Runs a statement that was composed elsewhere.
inline Rows query_text(Module& module, std::string statement) {
    module.statement() = std::move(statement);
    return Rows(module.session().GetConnection().execute(module.statement()));
}

/// Runs a statement with its holes filled.
template <class... Arguments>
Rows query(Module& module, Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
    compose(module.statement(), statement, arguments...);
    return Rows(module.session().GetConnection().execute(module.statement()));
}

}  // namespace cuvexa
