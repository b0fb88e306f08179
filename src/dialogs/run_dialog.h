// How a member shows its form, and what it says when it cannot.
#pragma once

#include <string>

#include "core/operation.h"
#include "core/report.h"
#include "cuvexa/dialogs.h"

namespace cuvexa::dialogs {

/// Runs `body(Dialog_toolkit&)`. When no dialog can be shown, or the form fails outside its own traps, the reason goes
/// to the suite's error dialog under the member's name and, tagged, to `error`, so that a caller without a screen
/// learns it too.
template <class Body>
void run_dialog(Module& module, std::string& error, const std::string& member, Body&& body) {
    const bool done = operation(module, error, "", [&](Operation& op) {
        const auto toolkit = op.module().dialog_toolkit();
        op.refuse_plain_if(!toolkit, "No es posible mostrar el diálogo: el programa no tiene ventanas.");
        const std::string obstacle = toolkit->obstacle();
        op.refuse_plain_if(!obstacle.empty(), "No es posible mostrar el diálogo: {}", obstacle);
        body(*toolkit);
    });
    if (done) return;
    const std::string reason = error;
    std::string of_the_report;
    operation(module, of_the_report, "",
              [&](Operation& op) { op.session().ReportError(reason, critical_icon, member, "", "Cuvexa", ""); });
    error = filled("Cuvexa.dll - {}\r\n{}", member, reason);
}

}  // namespace cuvexa::dialogs
