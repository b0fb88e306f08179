#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

const std::string folio = "RP-MTY-00000001";

Preparation closed(const std::string& type, const std::string& party, double amount = 100) {
    return [=](Company& company) {
        company.capture_receipt({Company::receipt_line(amount)}, Company::receipt_header(type, party));
        company.treasury().FinReciboCaja(folio);
    };
}

void deposited(Company& company) {
    closed("01", "")(company);
    company.treasury().Genera_Deposito("SRR-MXN", folio, Company::today(), false, Company::today());
}

bool cancel(Company& company) {
    return company.treasury().Cancelar_Recibo_Caja(folio);
}
bool cancel_with_payments(Company& company) {
    return company.treasury().Cancelar_Recibo_Caja(folio, false, true);
}
bool cancel_with_deposit(Company& company) {
    return company.treasury().Cancelar_Recibo_Caja(folio, true);
}

}  // namespace

std::vector<Member_cases> cancellation_cases() {
    return {
        {"Cancelar_Recibo_Caja",
         {{"nothing came of it", closed("01", ""), cancel},
          {"of a customer, with the payments and the advance that its closing made", closed("02", "CL01", 9000),
           cancel_with_payments},
          {"of a supplier, with its payable", closed("04", "PV01"), cancel},
          {"deposited alone, with its deposit", deposited, cancel_with_deposit}}},
    };
}

}  // namespace cuvexa::tests
