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

void report_in_windows(Suite_options& options, const std::shared_ptr<Dialog_toolkit>& desktop) {
    if (!desktop || !desktop->obstacle().empty()) return;
    options.report_error = [desktop](const Reported_error& report) {
        desktop->show_error(
            {report.description, report.style, report.routine, report.title, report.project, report.code});
    };
}

}  // namespace cuvexa::cli
