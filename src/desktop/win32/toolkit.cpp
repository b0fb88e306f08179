// The toolkit: shows forms and errors, each over what is open.
#include "cuvexa/win32_dialogs.h"
#include "desktop/win32/error_window.h"
#include "desktop/win32/form_window.h"

namespace cuvexa {
namespace {

/// A service runs where nobody could see its windows, and nobody could close them.
bool has_desktop() {
    USEROBJECTFLAGS flags{};
    const HWINSTA station = GetProcessWindowStation();
    return station && GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, nullptr) &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

class Win32_toolkit : public Dialog_toolkit {
public:
    std::string obstacle() override {
        return has_desktop() ? "" : "el programa corre donde nadie ve sus ventanas (un servicio).";
    }

    void show_modal(Form& form) override {
        const Gone_at_the_end gone{form};
        win32::Form_dialog(form, open_).show();
    }

    void show_error(const Error_report& report) override { win32::Error_window(report, open_).show(); }

private:
    /// A failure, or the end of the program's messages, closes the window without asking the form.
    struct Gone_at_the_end {
        Form& form;
        ~Gone_at_the_end() { form.window_gone(); }
    };

    win32::Open_windows open_;
};

}  // namespace

std::shared_ptr<Dialog_toolkit> make_win32_toolkit() {
    return std::make_shared<Win32_toolkit>();
}

}  // namespace cuvexa
