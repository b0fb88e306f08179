#include "database/dialect/dialect.h"

#include <algorithm>

#include "core/case.h"

namespace cuvexa::dialect {

const Function_rule* Dialect::function(std::string_view name, std::size_t arguments) const noexcept {
    const auto rule = std::find_if(functions.begin(), functions.end(), [&](const Function_rule& each) {
        return same_text(each.name, name) &&
               (each.arguments < 0 || static_cast<std::size_t>(each.arguments) == arguments);
    });
    return rule == functions.end() ? nullptr : &*rule;
}

const Type_rule* Dialect::type(std::string_view name) const noexcept {
    const auto rule =
        std::find_if(types.begin(), types.end(), [&](const Type_rule& each) { return same_text(each.name, name); });
    return rule == types.end() ? nullptr : &*rule;
}

}  // namespace cuvexa::dialect
