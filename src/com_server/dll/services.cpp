#include "com_server/dll/services.h"

#include "com_suite/automation_suite.h"
#include "com_suite/embedded_suite.h"
#include "cuvexa/win32_dialogs.h"

namespace cuvexa::com_server {
namespace {

using namespace com_suite;

std::shared_ptr<Suite> suite_of_this_machine(const std::shared_ptr<Dialog_toolkit>& toolkit) {
    const Suite_objects names = suite_objects_from_registry();
    if (is_registered(names)) return make_automation_suite(names);
    return make_embedded_suite([toolkit](const Reported_error& error) {
        toolkit->show_error({error.description, error.style, error.routine, error.title, error.project, error.code});
    });
}

}  // namespace

std::shared_ptr<Module> start_module() {
    const auto toolkit = make_win32_toolkit();
    auto module = std::make_shared<Module>(suite_of_this_machine(toolkit));
    module->dialog_toolkit(toolkit);
    return module;
}

}  // namespace cuvexa::com_server
