#include "statements/cases.h"
#include "suite/expenses.h"

namespace cuvexa::tests {
namespace {

const std::string folio = "CH-MTY-00000001";

void supplier_check(Company& company) {
    company.treasury().Crear_Cheque_Pago_Proveedor(
        company.capture_check({Company::check_line(400), Company::check_line(20, "CXP-MTY-00000002")}));
}

void customer_check(Company& company) {
    company.capture_check({Company::check_line(400, "")}, Company::check_header("0003", "CL01"));
    company.treasury().Crear_Cheque_Devolucion_Cliente();
}

/// Header and line in place for a member that writes the line itself, without budget control.
void begin(Company& company, const std::string& type, const std::string& beneficiary) {
    for (const char* parameter : {"TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR", "TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR"}) {
        company.on.parameters[parameter] = std::string("0");
    }
    company.treasury().Nuevo();
    company.treasury().Encabezado(Company::check_header(type, beneficiary));
    company.treasury().Detalle(Company::check_line(1300, ""));
}

void advance_check(Company& company) {
    begin(company, "0005", "PV01");
    company.treasury().Crear_Cheque_Anticipo_Cxp();
}

/// The check of an expense against which two advances stand: one is used up by it, the other one in part.
void expense_check(Company& company) {
    begin(company, "0002", "DE01");
    company.treasury().Crear_Cheque_Gasto_x_Comprobar();
    reference::link_advance_to_check(*company.suite(), folio, "AN-MTY-00000001", 400, 1);
    reference::link_advance_to_check(*company.suite(), folio, "AN-MTY-00000002", 250, 1);
}

/// An expense of before, without the check that paid it.
void unlinked_expense_check(Company& company) {
    expense_check(company);
    company.sql("UPDATE Gasto_x_Comprobar SET Gc_Tabla = '', Gc_Documento = ''");
}

bool apply(Company& company) {
    return company.treasury().Aplicar_Cheque(folio, make_date(2024, 3, 20));
}

bool apply_firm(Company& company) {
    return company.treasury().Aplicar_Cheque(folio, make_date(2024, 3, 20), true);
}

bool take_back(Company& company) {
    return company.treasury().Cancelar_Aplicacion_Cheque(folio);
}

bool cancel(Company& company) {
    return company.treasury().Cancelar_Cheque(folio);
}

Preparation applied(const Preparation& check) {
    return [=](Company& company) {
        check(company);
        apply(company);
    };
}

}  // namespace

std::vector<Member_cases> application_cases() {
    return {
        {"Aplicar_Cheque",
         {{"of a supplier, two lines", supplier_check, apply},
          {"the same, firm", supplier_check, apply_firm},
          {"of a customer", customer_check, apply},
          {"of a supplier advance: the line gets its payable", advance_check, apply},
          {"of an expense to verify, with an advance used up and one used in part", expense_check, apply},
          {"movements are posted by themselves",
           [](Company& company) {
               supplier_check(company);
               company.post_automatically("BANCO_MOVIMIENTO");
           },
           apply}}},
        {"Cancelar_Aplicacion_Cheque",
         {{"of a supplier", applied(supplier_check), take_back},
          {"of a customer", applied(customer_check), take_back},
          {"of a supplier advance", applied(advance_check), take_back},
          {"of an expense to verify", applied(expense_check), take_back},
          {"of an expense to which no advance was applied", expense_check, take_back}}},
        {"Cancelar_Cheque",
         {{"of a supplier", supplier_check, cancel},
          {"of an expense to verify", expense_check, cancel},
          {"of an expense that does not name its check", unlinked_expense_check, cancel},
          {"an applied one is taken back before", applied(supplier_check), cancel}}},
    };
}

}  // namespace cuvexa::tests
