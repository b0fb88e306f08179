// Failures that go to the suite's error dialog instead of `Error`: those of trapped accessors and of the dialogs.
#pragma once

#include <exception>
#include <string>

#include "cuvexa/module.h"

namespace cuvexa {

inline constexpr int critical_icon = 16;

/// Runs `body`; what it throws is shown in the suite's error dialog under the routine's name and code, and goes no
/// further.
template <class Body>
void reporting(Module& module, const std::string& routine, const std::string& code, Body&& body) {
    try {
        body();
    } catch (const std::exception& failure) {
        module.session().ReportError(failure.what(), critical_icon, routine, "", "Cuvexa", code);
    }
}

}  // namespace cuvexa
