#include "core/due_date.h"

#include <cmath>
#include <limits>

namespace cuvexa {
namespace {

/// Credit days are 32-bit whole numbers, as their column.
int whole_days(const std::string& credit_days) {
    const double days = std::nearbyint(to_number(credit_days));
    if (std::abs(days) > std::numeric_limits<int>::max()) throw Automation_error(error_overflow, "Desbordamiento");
    return static_cast<int>(days);
}

Date after(Date date, const std::string& credit_days) {
    return credit_days.empty() ? date : add_days(date, whole_days(credit_days));
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
