#include "dialogs/toolkit.h"

#include "cuvexa/errors.h"

namespace cuvexa::dialogs {

std::shared_ptr<Dialog_toolkit> usable_toolkit(Module& module) {
    auto toolkit = module.dialog_toolkit();
    const std::string obstacle = toolkit ? toolkit->obstacle() : "el programa no tiene ventanas.";
    if (!obstacle.empty()) throw Automation_error(error_automation, "No es posible mostrar el diálogo: " + obstacle);
    return toolkit;
}

}  // namespace cuvexa::dialogs
