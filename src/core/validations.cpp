#include "core/validations.h"

#include <cmath>

#include "core/number_text.h"

namespace cuvexa {
namespace {

[[noreturn]] void refuse(const Operation& op, Form form, const std::string& message) {
    throw Refusal{form == Form::tagged ? op.tagged(message) : message};
}

}  // namespace

void check_central_server(Operation& op, const std::string& branch_server_id, Form form) {
    if (branch_server_id.empty()) {
        if (op.session().IsReplicaServer()) {
            refuse(op, form, "Esta operación solo puede realizarse en el servidor central");
        }
    } else if (branch_server_id != op.module().server_id()) {
        refuse(op, form,
               filled("Esta operación solo puede realizarse en el servidor con id: {}\r\n"
                      "el id del servidor actual es: {}",
                      branch_server_id, op.module().server_id()));
    }
}

void check_same_day(Operation& op, Date document_date, Form form) {
    if (!op.module().parameters().GEN_FORZAR_TIEMPO_REAL) return;
    const Date today = op.data().GetServerDate();
    if (day_of(document_date) == day_of(today)) return;
    refuse(op, form,
           filled("No es posible realizar esta operación, la fecha del documento no es del día actual\r\n"
                  "Fecha del documento: {}, fecha del día: {}",
                  short_date(document_date), short_date(today)));
}

void check_operating_period(Operation& op, Date document_date, Form form) {
    if (!op.module().boolean_parameter("GEN_VALIDAR_PERIODO_OPERATIVO")) return;
    if (op.data().IsOperatingPeriodOpen(document_date, "FINANZAS")) return;
    refuse(op, form,
           filled("El período operativo correspondiente a la fecha: {}, está cerrado o no existe!",
                  dashed_date(document_date)));
}

void check_currency(Operation& op, const std::string& currency, Form form) {
    if (!op.data().LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", currency, "Moneda").empty()) return;
    refuse(op, form, filled("La moneda: {}, no existe o está dada de baja", currency));
}

void check_rate(Operation& op, double rate, Form form) {
    if (!is_valid_rate(rate)) refuse(op, form, filled("El tipo de cambio: {}, no es válido", shown_number(rate)));
}

bool is_valid_rate(double rate) { return rate > 0 && std::isfinite(rate); }

}  // namespace cuvexa
