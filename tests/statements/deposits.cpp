#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

const std::string first = "RP-MTY-00000001";
const std::string second = "RP-MTY-00000002";

Preparation captured(const std::vector<tRpDetalle>& lines) {
    return [=](Company& company) { company.capture_receipt(lines); };
}

bool deposit(Company& company, const std::string& receipts, bool firm = false) {
    return company.treasury().Genera_Deposito("SRR-MXN", receipts, Company::today(), firm,
                                              add_days(Company::today(), firm ? 5 : 0), firm ? "Corte" : "");
}

void two_receipts(Company& company) {
    tRpEncabezado header = Company::receipt_header();
    header.Mn_Cve_Moneda = "USD";
    header.Rp_Tipo_Cambio = 19.5;
    company.capture_receipt({Company::receipt_line(12.25, "02", "Sierra", "CH-7")}, header);
    company.capture_receipt({Company::receipt_line(50)});
}

/// A receipt of which another operation applied one of its two lines, which no operation does to one line alone.
void deposited_in_two_states(Company& company) {
    company.capture_receipt({Company::receipt_line(100), Company::receipt_line(40, "02", "Sierra", "1")});
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'AP' WHERE Rp_Id = '0002'");
    deposit(company, first);
}

bool cancel(Company& company) {
    return company.treasury().Cancelar_Deposito("DP-MTY-00000001");
}

}  // namespace

std::vector<Member_cases> deposit_cases() {
    return {
        {"Genera_Deposito",
         {{"one receipt in cash, in transit", captured({Company::receipt_line(100)}),
           [](Company& company) { return deposit(company, first); }},
          {"two receipts in two groups, firm; the list has blanks", two_receipts,
           [](Company& company) { return deposit(company, " RP-MTY - 00000001 ,  " + second, true); }},
          {"nothing that goes to the bank", captured({Company::receipt_line(100, "05", "", "V-1")}),
           [](Company& company) { return deposit(company, first); }}}},
        {"Cancelar_Deposito",
         {{"its receipts are free again",
           [](Company& company) {
               two_receipts(company);
               deposit(company, first + "," + second);
           },
           cancel},
          {"a receipt whose lines are in two states", deposited_in_two_states,
           [](Company& company) { return !cancel(company); }}}},
    };
}

}  // namespace cuvexa::tests
