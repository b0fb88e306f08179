#include "core/validations.h"
#include "core/codes.h"

#include <cmath>

#include "core/number_text.h"

namespace cuvexa {
namespace {

bool is_active_customer(Operation& op, const std::string& key, const char* kind) {
    return !op.data().LookupValue("Cl_Descripcion", "Cl_Cve_Cliente", key, "Cliente", kind).empty();
}

bool same_day_is_forced(Operation& op) {
    return op.module().parameters().GEN_FORZAR_TIEMPO_REAL;
}

bool period_is_validated(Operation& op) {
    return op.module().boolean_parameter("GEN_VALIDAR_PERIODO_OPERATIVO");
}

void refuse_another_day(Operation& op, Date document_date, Wording wording) {
    const Date today = op.data().GetServerDate();
    if (day_of(document_date) == day_of(today)) return;
    op.refuse_as(wording,
                 "No es posible realizar esta operación, la fecha del documento no es del día actual\r\n"
                 "Fecha del documento: {}, fecha del día: {}",
                 short_date(document_date), short_date(today));
}

void refuse_closed_period(Operation& op, Date document_date, Wording wording) {
    if (op.data().IsOperatingPeriodOpen(document_date, "FINANZAS")) return;
    op.refuse_as(wording, "El período operativo correspondiente a la fecha: {}, está cerrado o no existe!",
                 dashed_date(document_date));
}

}  // namespace

std::string branch_server_id(DataServices& data, const std::string& branch) {
    return data.LookupValue("Sc_Servidor_Id", "Sc_Cve_Sucursal", branch, "Sucursal");
}

void check_central_server(Operation& op, const std::string& branch_server_id, Wording wording) {
    if (branch_server_id.empty()) {
        if (op.session().IsReplicaServer()) {
            op.refuse_as(wording, "Esta operación solo puede realizarse en el servidor central");
        }
    } else if (branch_server_id != op.module().server_id()) {
        op.refuse_as(wording,
                     "Esta operación solo puede realizarse en el servidor con id: {}\r\n"
                     "el id del servidor actual es: {}",
                     branch_server_id, op.module().server_id());
    }
}

void check_same_day(Operation& op, Date document_date, Wording wording) {
    if (same_day_is_forced(op)) refuse_another_day(op, document_date, wording);
}

void check_same_day(Operation& op, const Rows& row, std::string_view date_column, Wording wording) {
    if (same_day_is_forced(op)) refuse_another_day(op, row.date(date_column), wording);
}

void check_operating_period(Operation& op, Date document_date, Wording wording) {
    if (period_is_validated(op)) refuse_closed_period(op, document_date, wording);
}

void check_operating_period(Operation& op, const Rows& row, std::string_view date_column, Wording wording) {
    if (period_is_validated(op)) refuse_closed_period(op, row.date(date_column), wording);
}

void check_currency(Operation& op, const std::string& currency, Wording wording) {
    if (!op.data().LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", currency, "Moneda").empty()) return;
    op.refuse_as(wording, "La moneda: {}, no existe o está dada de baja", currency);
}

void check_check_type(Operation& op, const std::string& check_type, Wording wording) {
    if (!op.data().LookupValue("Tc_Descripcion", "Tc_Cve_Tipo_Cheque", check_type, "Tipo_Cheque").empty()) return;
    // Without accent: callers know it so, here and below.
    op.refuse_as(wording, "El tipo de cheque: {}, no existe o esta dado de baja", check_type);
}

void check_beneficiary(Operation& op, const std::string& check_type, const std::string& key, Advance advance,
                       Wording wording) {
    if (check_type == "0000") return;
    const std::string asked = op.data().LookupValue("Tc_Solicitar", "Tc_Cve_Tipo_Cheque", check_type, "Tipo_Cheque");
    if (asked == check_purpose::supplier_payment ||
        (asked == check_purpose::supplier_advance && advance == Advance::names_supplier)) {
        if (op.data().LookupValue("Pv_Descripcion", "Pv_Cve_Proveedor", key, "Proveedor").empty()) {
            op.refuse_as(wording, "El proveedor: {}, no existe o esta dado de baja", key);
        }
    } else if (asked == check_purpose::expense_to_verify || asked == check_purpose::debtor_loan) {
        if (!is_active_customer(op, key, "Tc_Cve_Tipo_Cliente = 'DE'")) {
            op.refuse_as(wording, "El deudor: {}, no existe o esta dado de baja", key);
        }
    } else if (asked == check_purpose::customer_refund) {
        if (!is_active_customer(op, key, "Tc_Cve_Tipo_Cliente = 'CL'")) {
            op.refuse_as(wording, "El cliente: {}, no existe o esta dado de baja", key);
        }
    }
}

void check_rate(Operation& op, double rate, Wording wording) {
    if (!is_valid_rate(rate)) op.refuse_as(wording, "El tipo de cambio: {}, no es válido", shown_number(rate));
}

bool is_valid_rate(double rate) {
    return rate > 0 && std::isfinite(rate);
}

}  // namespace cuvexa
