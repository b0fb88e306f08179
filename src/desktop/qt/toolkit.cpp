// The toolkit: makes the application object when the program has none, and shows forms and errors.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

#include "cuvexa/qt_dialogs.h"
#include "desktop/qt/display.h"
#include "desktop/qt/form_window.h"
#include "desktop/qt/style.h"

namespace cuvexa {
namespace {

class Qt_toolkit : public Dialog_toolkit {
public:
    std::string obstacle() override {
        const auto* application = QCoreApplication::instance();
        if (!application) return qt::missing_display();
        return qobject_cast<const QApplication*>(application) ? "" : "el programa no tiene una aplicación de ventanas.";
    }

    void show_modal(Form& form) override {
        need_application();
        qt::Form_dialog(form, QApplication::activeWindow()).run();
    }

    void show_error(const Error_report& report) override {
        need_application();
        QWidget* below = QApplication::activeWindow();
        QMessageBox box(below);
        qt::dress(box, Suite_colors());
        box.setObjectName(QStringLiteral("error"));
        box.setIcon(icon(report.style));
        box.setWindowTitle(qt::to_qt(report.title.empty() ? report.project : report.title));
        box.setTextFormat(Qt::PlainText);  // a text of the database is no mark-up
        box.setText(qt::to_qt(report.description));
        const std::string where = report.code.empty() ? report.routine : report.code + "  ·  " + report.routine;
        box.setInformativeText(qt::to_qt(where));
        auto* button = box.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole);
        button->setProperty("role", "accept");
        button->style()->unpolish(button);
        button->style()->polish(button);
        box.setDefaultButton(button);
        box.setEscapeButton(button);
        box.exec();
        if (below) below->activateWindow();
    }

private:
    static QMessageBox::Icon icon(int style) {
        switch (style) {
            case 16:
                return QMessageBox::Critical;
            case 32:
                return QMessageBox::Question;
            case 48:
                return QMessageBox::Warning;
            case 64:
                return QMessageBox::Information;
            default:
                return QMessageBox::NoIcon;
        }
    }

    static void need_application() {
        if (QCoreApplication::instance()) return;
        // Never given back: Qt objects of the program's end may still ask for it.
        static int count = 1;
        static char name[] = "cuvexa";
        static char* arguments[] = {name, nullptr};
        new QApplication(count, arguments);
        QApplication::setQuitOnLastWindowClosed(false);
    }
};

}  // namespace

std::shared_ptr<Dialog_toolkit> make_qt_toolkit() {
    return std::make_shared<Qt_toolkit>();
}

}  // namespace cuvexa
