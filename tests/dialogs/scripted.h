// A toolkit without windows: a script does what a user would do, through the same door as a real window.
//
//     Scripted dialog;
//     const std::string answer = dialog.deposit([](frmDeposito& form, Scripted_window& user) {
//         user.type("SRR-MXN").press(key_enter);
//         user.press(key_f4);
//     });
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cuvexa/dialogs.h"
#include "dialogs/frm_deposito.h"
#include "dialogs/frm_forma_pago.h"
#include "support/company.h"

namespace cuvexa::tests {

using dialogs::frmDeposito;
using dialogs::frmFormaPago;

/// The window and its user in one. Typing and keys go to the control that has the focus.
class Scripted_window : public Form_window {
public:
    explicit Scripted_window(Form& form) : form_(form) {}

    // ---- The user --------------------------------------------------------------------------------------------------

    Scripted_window& press(int code, bool shift = false, bool control = false) {
        form_.key_down(code, shift, control);
        return *this;
    }
    Scripted_window& type(const std::string& text) {
        if (auto* field = dynamic_cast<LookupTextBox*>(form_.active())) form_.type(*field, text);
        return *this;
    }
    std::string focus() const { return form_.active() ? form_.active()->Name() : ""; }

    /// What the user chooses when the list opens; nothing: Esc.
    std::optional<std::string> choice;

    // ---- What happened ---------------------------------------------------------------------------------------------

    struct List {
        std::string title;
        std::vector<std::string> columns;
        std::vector<std::vector<std::string>> rows;

        std::vector<std::string> keys() const {
            std::vector<std::string> found;
            for (const auto& row : rows) found.push_back(row.at(0));
            return found;
        }
    };
    std::vector<List> lists;
    std::string sought;  ///< what the user types in the list
    std::vector<std::string> refreshed;
    std::function<void(Control&)> on_refresh;
    bool hidden = false;

    // ---- The window ------------------------------------------------------------------------------------------------

    void refresh(Control& control) override {
        refreshed.push_back(control.Name());
        if (on_refresh) on_refresh(control);
    }
    void set_focus(Control& control) override { focus_in_window_ = control.Name(); }
    void hide() override { hidden = true; }
    std::optional<std::string> choose(Choice_list& list) override {
        lists.push_back({list.title(), list.columns(), list.rows(sought)});
        return choice;
    }
    const std::string& focus_in_window() const { return focus_in_window_; }

private:
    Form& form_;
    std::string focus_in_window_;
};

class Scripted_toolkit : public Dialog_toolkit {
public:
    std::string obstacle() override { return why_not; }
    void show_modal(Form& form) override {
        ++shown;
        Scripted_window window(form);
        form.shown_in(window);
        script(form, window);
        if (!window.hidden) form.close();
    }
    void show_error(const Error_report&) override {}

    std::string why_not;
    int shown = 0;
    std::function<void(Form&, Scripted_window&)> script;
};

/// The two members on the sample company, answered by scripts.
class Scripted {
public:
    Scripted() { company.module().dialog_toolkit(toolkit); }

    using Deposit_script = std::function<void(frmDeposito&, Scripted_window&)>;
    using Payment_script = std::function<void(frmFormaPago&, Scripted_window&)>;

    std::string deposit(const Deposit_script& script) {
        toolkit->script = [&](Form& form, Scripted_window& user) { script(dynamic_cast<frmDeposito&>(form), user); };
        return company.treasury().PedirDatosDeposito(deposit_date, currency, firm, firm_of_company);
    }

    std::string payment(const Payment_script& script) {
        toolkit->script = [&](Form& form, Scripted_window& user) { script(dynamic_cast<frmFormaPago&>(form), user); };
        return company.treasury().PedirDatosFormaPago(method, table, document, bank, reference, account, bank_name,
                                                      suggest);
    }

    /// The module starts again, as a parameter may need, and keeps the toolkit.
    void set_parameter(const std::string& name, const std::string& value) {
        company.set_parameter(name, value);
        company.module().dialog_toolkit(toolkit);
    }

    /// An account that the document's party has used.
    void known_account(const std::string& id, const std::string& at_bank, const std::string& number,
                       const std::string& state = "AC") {
        company.sql(
            "INSERT INTO Documento_Cuenta_Bancaria (Dcb_Tabla, Dcb_Documento, Dcb_ID, Dcb_Banco, Dcb_Cuenta, "
            "Es_Cve_Estado) VALUES ('CLIENTE', 'CL01', '" +
            id + "', '" + at_bank + "', '" + number + "', '" + state + "')");
        company.mark();
    }

    Company company;
    std::shared_ptr<Scripted_toolkit> toolkit = std::make_shared<Scripted_toolkit>();

    // What the deposit dialog is given.
    Date deposit_date = make_date(2024, 3, 15);
    std::string currency = "MXN";
    int firm = 0;
    std::string firm_of_company;

    // What the payment dialog is given: a transfer, which requires everything.
    std::string method = "03", table = "CLIENTE", document = "CL01", bank, reference, account, bank_name;
    bool suggest = false;
};

}  // namespace cuvexa::tests
