#include "dialogs/scripted.h"
#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

/// Shows a form through the member; the script does what its user would do.
template <class Form_class>
void script(Company& company, const std::function<void(Form_class&, Scripted_window&)>& steps) {
    auto toolkit = std::make_shared<Scripted_toolkit>();
    toolkit->script = [=](Form& form, Scripted_window& user) { steps(dynamic_cast<Form_class&>(form), user); };
    company.module().dialog_toolkit(toolkit);
}

Call asks_for_deposit(const std::string& company_key, std::function<void(frmDeposito&, Scripted_window&)> steps) {
    return [=](Company& company) {
        script<frmDeposito>(company, steps);
        return !company.treasury().PedirDatosDeposito(Company::today(), "MXN", 0, company_key).empty();
    };
}

Call asks_for_payment(std::function<void(frmFormaPago&, Scripted_window&)> steps) {
    return [=](Company& company) {
        script<frmFormaPago>(company, steps);
        return !company.treasury().PedirDatosFormaPago("03", "CLIENTE", "CL01", "", "R-1", "", "", true).empty();
    };
}

void account_known(Company& company) {
    company.sql(
        "INSERT INTO Documento_Cuenta_Bancaria (Dcb_Tabla, Dcb_Documento, Dcb_ID, Dcb_Banco, Dcb_Cuenta, Es_Cve_Estado) "
        "VALUES ('CLIENTE', 'CL01', '0001', 'SIERRA', '0100', 'AC')");
}

void type_account(frmDeposito&, Scripted_window& user) {
    user.type("SRR-MXN").press(key_enter).press(key_f4);
}

void choose_account(frmDeposito&, Scripted_window& user) {
    user.sought = "sierra";
    user.choice = "SRR-MXN";
    user.press(key_f2).press(key_f4);
}

}  // namespace

std::vector<Member_cases> dialog_cases() {
    return {
        {"PedirDatosDeposito",
         {{"the account is typed", {}, asks_for_deposit("", type_account)},
          {"it is typed, for one company", {}, asks_for_deposit("EM01", type_account)},
          {"it is chosen from the list", {}, asks_for_deposit("", choose_account)},
          {"it is chosen from the list of one company", {}, asks_for_deposit("EM01", choose_account)}}},
        {"PedirDatosFormaPago",
         {{"a bank and an account that the customer has not used before",
           {},
           asks_for_payment([](frmFormaPago&, Scripted_window& user) {
               user.type("PUERTO").press(key_enter).press(key_enter).type("0200").press(key_f4);
           })},
          {"the bank from the full list", {}, asks_for_payment([](frmFormaPago& form, Scripted_window& user) {
               user.sought = "90";
               user.choice = "PUERTO";
               user.press(key_f2);
               form.txtCuenta.Text("0200");
               user.press(key_f4);
           })},
          {"bank and account from the lists of the customer's own", account_known,
           asks_for_payment([](frmFormaPago& form, Scripted_window& user) {
               user.sought = "sie";
               user.choice = "SIERRA";
               user.press(key_f2);
               user.sought = "1";
               user.choice = "0100";
               form.go_to(form.txtCuenta);
               user.press(key_f2).press(key_f4);
           })},
          {"the list of payment methods", {}, asks_for_payment([](frmFormaPago& form, Scripted_window& user) {
               form.txtFormaPago.Locked(false);
               form.go_to(form.txtFormaPago);
               user.press(key_f2);
               form.txtBanco.Text("PUERTO");
               form.txtNBanco.Text("Banco del Puerto");
               form.txtCuenta.Text("0200");
               user.press(key_f4);
           })}}},
    };
}

}  // namespace cuvexa::tests
