// The catalogues that lookup fields search by name.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cuvexa/dialogs.h"

namespace cuvexa::dialogs {

/// The catalogue of that name, or nothing.
std::optional<Catalogue> catalogue(const std::string& idconsulta);

/// The rows of the catalogue that meet the conditions, as a list to choose from.
std::unique_ptr<Choice_list> choice_list(Module& module, Catalogue catalogue, std::vector<std::string> conditions);

}  // namespace cuvexa::dialogs
