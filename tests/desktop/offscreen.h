// Qt windows without a screen, with a user made of steps: each step runs inside the modal loop, on the window that is
// on top.
//
//     Offscreen screen;
//     const std::string answer = screen.deposit({type("srr-mxn"), key(Qt::Key_Return), key(Qt::Key_F4)});
#pragma once

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cuvexa/qt_dialogs.h"
#include "support/company.h"

namespace cuvexa::tests {

using Step = std::function<void(QWidget& top)>;
using Steps = std::vector<Step>;

/// The widget that has the keyboard.
inline QWidget& focus(QWidget& top) {
    return top.focusWidget() ? *top.focusWidget() : top;
}

inline Step key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [=](QWidget& top) { QTest::keyClick(&focus(top), code, modifiers); };
}

inline Step type(const std::string& text) {
    return [=](QWidget& top) { QTest::keyClicks(&focus(top), QString::fromStdString(text)); };
}

/// The widget of that name must be there.
template <class Widget>
Widget& find(QWidget& top, const char* name) {
    auto* found = top.findChild<Widget*>(QString::fromUtf8(name));
    if (!found) throw std::runtime_error(std::string("no widget ") + name);
    return *found;
}

inline Step click(const char* name) {
    return [=](QWidget& top) {
        auto& widget = find<QWidget>(top, name);
        QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(12, widget.height() / 2));
    };
}

inline Step focus_is(const char* name) {
    return [=](QWidget& top) { EXPECT_EQ(focus(top).objectName().toStdString(), name); };
}

inline Step text_is(const char* name, const std::string& text) {
    return [=](QWidget& top) { EXPECT_EQ(find<QLineEdit>(top, name).text().toStdString(), text) << name; };
}

class Offscreen {
public:
    Offscreen() {
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        company.module().dialog_toolkit(toolkit);
    }

    /// Runs the steps in the modal loops that `show` opens, and closes what they leave open.
    void run(const Steps& steps, const std::function<void()>& show) {
        steps_ = steps;
        next_ = 0;
        left_open_ = false;
        // The toolkit makes the application; without one there is no loop to wait in.
        if (!QCoreApplication::instance()) make_application();
        loop_ = std::make_unique<QObject>();
        schedule();
        show();
        loop_.reset();
        EXPECT_EQ(next_, steps_.size()) << "the window closed before the last step";
        EXPECT_FALSE(left_open_) << "the last step left a window open";
    }

    std::string deposit(const Steps& steps, int firm = 0) {
        std::string answer;
        run(steps, [&] { answer = company.treasury().PedirDatosDeposito(Company::today(), "MXN", firm); });
        return answer;
    }

    std::string payment(const Steps& steps, const std::string& method = "03") {
        std::string answer;
        run(steps, [&] { answer = company.treasury().PedirDatosFormaPago(method, "CLIENTE", "CL01"); });
        return answer;
    }

    Company company;
    std::shared_ptr<Dialog_toolkit> toolkit = make_qt_toolkit();

private:
    static void make_application() {
        static int count = 1;
        static char name[] = "tests";
        static char* arguments[] = {name, nullptr};
        new QApplication(count, arguments);
        QApplication::setQuitOnLastWindowClosed(false);
    }

    /// Each step is a timer of its own, so that it also runs in a loop that the step before it opened.
    void schedule() {
        QTimer::singleShot(20, loop_.get(), [this] { step(); });
    }

    void step() {
        auto* top = QApplication::activeModalWidget();
        if (!top) return;
        if (next_ == steps_.size()) {
            left_open_ = true;
            schedule();
            static_cast<QDialog*>(top)->done(QDialog::Rejected);
            return;
        }
        const auto& now = steps_[next_++];
        schedule();
        now(*top);
    }

    Steps steps_;
    std::size_t next_ = 0;
    bool left_open_ = false;
    std::unique_ptr<QObject> loop_;  ///< its timers end with it
};

}  // namespace cuvexa::tests
