#include "core/due_date.h"

namespace cuvexa {
namespace {

Date after(Date date, const std::string& credit_days) {
    return credit_days.empty() ? date : add_days(date, to_integer(credit_days));
}

}  // namespace

Date supplier_due_date(Operation& op, Date date, const std::string& supplier) {
    return after(date, op.data().LookupValue("Pv_Dias_Credito", "Pv_Cve_Proveedor", supplier, "Proveedor"));
}

Date customer_due_date(Operation& op, Date date, const std::string& customer, const std::string& table,
                       const std::string& condition) {
    return after(date, op.data().LookupValue("Cl_Dias_Credito", "Cl_Cve_Cliente", customer, table, condition));
}

}  // namespace cuvexa
