// Values as a program writes them.
#pragma once

#include <string>

#include "automation/variant.h"

namespace cuvexa::cli {

/// A text in quotes, a number, a date, True or False.
std::string written(const automation::Variant& value);

/// The fields of a record that differ from those of another: {Rp_Importe: 1500, Sucursal: {Sc_Cve_Sucursal: "MTY"}}, or
/// {…, Rp_Importe: 3500} when the other one is not empty.
std::string written(automation::Record record, automation::Record before);

}  // namespace cuvexa::cli
