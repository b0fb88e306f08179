#include "cli/desktop.h"

#include "cuvexa/dialogs.h"
#ifdef CUVEXA_WITH_QT
#include "cuvexa/qt_dialogs.h"
#endif

namespace cuvexa::cli {

std::shared_ptr<Dialog_toolkit> desktop() {
#ifdef CUVEXA_WITH_QT
    return make_qt_toolkit();
#else
    return nullptr;
#endif
}

Suite_options reporting_in(const std::shared_ptr<Dialog_toolkit>& desktop, Suite_options options) {
    if (!desktop || !desktop->obstacle().empty()) return options;
    options.report_error = [desktop](const Reported_error& report) {
        desktop->show_error(
            {report.description, report.style, report.routine, report.title, report.project, report.code});
    };
    return options;
}

}  // namespace cuvexa::cli
