// The two dialogs in windows of the system, over the sample company, with a user made of steps: each step runs inside
// the modal loop, on the window that is on top.
//
//     Desk desk;
//     const std::string answer = desk.deposit({type(L"srr-mxn"), key(VK_RETURN), key(VK_F4)});
//
// The suite's errors are shown in the toolkit's error dialog, as a host would, and noted in `desk.reports`.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/tesoreria.h"
#include "cuvexa/win32_dialogs.h"
#include "desktop/win32/form_window.h"
#include "desktop/win32/text.h"
#include "support/test_database.h"

namespace cuvexa::tests {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A window of the program that calls the component.
class Host_window {
public:
    explicit Host_window(const wchar_t* title = L"Anfitrión");
    ~Host_window();
    Host_window(const Host_window&) = delete;
    Host_window& operator=(const Host_window&) = delete;
    HWND window() const { return window_; }
    HWND field() const { return field_; }
    bool enabled() const { return IsWindowEnabled(window_) != FALSE; }

private:
    HWND window_;
    HWND field_;
};

/// Shows what the real toolkit shows, and knows the form meanwhile.
class Watched_toolkit : public Dialog_toolkit {
public:
    std::string obstacle() override { return toolkit_->obstacle(); }
    void show_modal(Form& form) override {
        shown = &form;
        toolkit_->show_modal(form);
    }
    void show_error(const Error_report& report) override { toolkit_->show_error(report); }

    Form* shown = nullptr;

private:
    std::shared_ptr<Dialog_toolkit> toolkit_ = make_win32_toolkit();
};

class Desk;
using Step = std::function<void(Desk&)>;
using Steps = std::vector<Step>;

class Desk {
public:
    Desk();

    /// Runs the steps in the modal loops that `show` opens, and closes what they leave open.
    void run(const Steps& steps, const std::function<void()>& show);

    std::string deposit(const Steps& steps, int firm = 0);
    /// What reaches the caller instead of an answer; empty when nothing does.
    std::string failure_of_deposit(const Steps& steps);
    std::string payment(const Steps& steps, const std::string& method = "03");

    void sql(const std::string& statement) { database.connection().execute(statement); }

    // ---- What a step sees ------------------------------------------------------------------------------------------

    /// The open windows of the component, the one on top first.
    static std::vector<HWND> open_windows();
    /// The one that the user can reach.
    static HWND top();
    /// The window of a control of the form.
    HWND control(const std::string& name) const;
    /// Name of the control that has the keyboard; empty: none of the form's.
    std::string focus() const;
    /// A child of the window on top that is no control of the form.
    static HWND child(int id) { return GetDlgItem(top(), id); }

    std::shared_ptr<Watched_toolkit> toolkit = std::make_shared<Watched_toolkit>();
    std::vector<std::string> reports;
    std::function<void(const Reported_error&)> on_report;  ///< in the place of the error dialog
    Test_database database{sample_company_sql()};
    std::optional<Module> module;
    std::optional<Tesoreria> treasury;

private:
    static void CALLBACK time_came(HWND, UINT, UINT_PTR, DWORD);
    void step();
    void start_timer();
    void stop_timer();

    Steps steps_;
    std::size_t next_ = 0;
    bool left_open_ = false;
    UINT_PTR timer_ = 0;
    static Desk* current_;
};

// ---- What the user does --------------------------------------------------------------------------------------------

/// A key, into the window that has the keyboard.
Step key(int code, bool shift = false);
Step type(const std::wstring& text);
/// A click with the mouse into the middle of the control.
Step click(const std::string& name);
Step look(const std::function<void(Desk&)>& at);
Step focus_is(const std::string& name);
Step text_is(const std::string& name, const std::string& text);

/// Numbers of the list's and the error dialog's children.
inline constexpr int id_sought = 1000, id_table = 1001, id_count = 1002;
inline constexpr int id_description = 1000, id_where = 1001, id_accept = IDOK;

/// The text of a cell of the list on top.
std::string cell(int row, int column);
int row_count();

}  // namespace cuvexa::tests
