// The members of the model by name, for a caller that knows them only then.
#pragma once

#include <string>
#include <vector>

#include "automation/variant.h"
#include "model/treasury.h"

namespace cuvexa::simulator {

using namespace automation;

/// Runs a method of the model. Arguments that are missing have their default; a record by reference is changed in place.
Variant call(model::Treasury& treasury, const std::string& member, std::vector<Variant>& arguments, Date local_today);

/// The value of a property.
Variant get(const model::Treasury& treasury, const std::string& member);

/// Lets a property; not `RpDetalle2`, whose value is an object.
void let(model::Treasury& treasury, const std::string& member, const Variant& value);

}  // namespace cuvexa::simulator
