// Capture of a check request: the header, its folio and its lines.
#include <utility>

#include "core/codes.h"
#include "core/number_text.h"
#include "core/operation.h"
#include "core/report.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

void check_catalogs(Operation& op, const tSchEncabezado& request) {
    const std::string& branch = request.Sucursal.Sc_Cve_Sucursal;
    op.refuse_if(op.data().LookupValue("Sc_Descripcion", "Sc_Cve_Sucursal", branch, "Sucursal").empty(),
                 "la sucursal: {}, no existe o está dada de baja", branch);
    check_currency(op, request.Mn_Cve_Moneda, Wording::tagged);
    check_check_type(op, request.Tc_Cve_Tipo_Cheque, Wording::tagged);
}

/// Only emptiness is refused, although the messages speak of valid values.
void check_options(Operation& op, const tSchEncabezado& request) {
    op.refuse_if(request.Sch_Transferencia.empty(), "No se indicó el tipo de operación (cheque o transferencia)");
    op.refuse_if(request.Sch_Aplicar.empty(), "No se indicó un valor válido para la opción: aplicar");
    op.refuse_if(request.Sch_Firme.empty(), "No se indicó un valor válido para la opción: firme");
}

void check_request(Operation& op, const tSchEncabezado& request) {
    check_central_server(op, branch_server_id(op.data(), request.Sucursal.Sc_Cve_Sucursal), Wording::tagged);
    check_same_day(op, request.Sch_Fecha, Wording::tagged);
    check_operating_period(op, request.Sch_Fecha, Wording::tagged);
    check_catalogs(op, request);
    check_options(op, request);
    op.refuse_if(!is_valid_rate(request.Sch_Tipo_Cambio), "el tipo de cambio: {}, no es válido",
                 shown_number(request.Sch_Tipo_Cambio));
    check_beneficiary(op, request.Tc_Cve_Tipo_Cheque, request.Sch_Solicitar_Valor, Advance::names_none,
                      Wording::tagged);
    op.refuse_if(request.Sch_Importe == 0, "Importe del cheque erróneo!");
    // Asked a second time, as checks do; a request never comes so far with a rate that is not valid.
    op.refuse_if(!is_valid_rate(request.Sch_Tipo_Cambio), "El tipo de cambio del cheque es incorrecto!");
}

void check_line(Operation& op, const tSchDetalle& line, const std::string& request_in_process) {
    op.refuse_if(line.Sch_Folio.empty(), "No se especificó el folio de la solicitud de cheque");
    op.refuse_if(line.Sch_Folio != request_in_process,
                 "El folio especificado no coincide con el de la solicitud de cheque en proceso");
    op.refuse_if(line.Scd_Tabla.empty(), "No se especificó la tabla para el documento del detalle");
    op.refuse_if(line.Scd_Documento.empty(), "No se especificó el documento del detalle");
    op.refuse_if(!(line.Scd_Importe > 0), "No se especificó el importe para el documento del detalle");
    op.refuse_if(line.Mn_Cve_Moneda.empty(), "No se especificó la moneda para el documento del detalle");
    op.refuse_if(!is_valid_rate(line.Scd_Tipo_Cambio),
                 "No se especificó el tipo de cambio para el documento del detalle");
}

const char* initial_state(Module& module) {
    return module.parameters().TES_AUTORIZAR_SOLICITUD_CHEQUE ? state::waiting : state::active;
}

}  // namespace

void Tesoreria::SchEncabezado(const tSchEncabezado& value) {
    reporting(module_, "Property Let SchEncabezado()", "ERR-ID:7500013", [&] {
        if (!request_.Sch_Folio.empty()) return;
        // The folio is the component's, and of the branch only the key is kept.
        tSchEncabezado taken = value;
        taken.Sch_Folio.clear();
        taken.Sucursal = {};
        taken.Sucursal.Sc_Cve_Sucursal = value.Sucursal.Sc_Cve_Sucursal;
        request_ = std::move(taken);
    });
}

void Tesoreria::SchDetalle(const tSchDetalle& value) {
    reporting(module_, "Property Let SchDetalle()", "ERR-ID:7500014", [&] { request_line_ = value; });
}

bool Tesoreria::Add_Solicitud_Cheque() {
    return operation(module_, error_, "Cuvexa.dll - Add_Solicitud_Cheque()", [&](Operation& op) {
        if (!request_.Sch_Folio.empty()) return;
        check_request(op, request_);

        request_.Sch_Folio = op.data().GetNextFolio(request_.Sucursal.Sc_Cve_Sucursal, document::check_request);
        op.refuse_if(request_.Sch_Folio.empty(), "Error al intentar obtener el folio de la solicitud de cheque!");
        request_stamp_ = op.server_stamp();
        op.relay_unless(Inserta_Solicitud_Cheque());
        line_counter_ = 0;
    });
}

bool Tesoreria::Inserta_Solicitud_Cheque() {
    return operation(module_, error_, "Inserta_Solicitud_Cheque()", [&](Operation& op) {
        const std::string user = op.session().GetUserName();
        op.execute(
            "INSERT INTO Solicitud_Cheque("
            "   Sch_Folio, "
            "   Sch_Fecha, "
            "   Tc_Cve_Tipo_Cheque, "
            "   Bc_Cve_Banco_Cuenta, "
            "   Sc_Cve_Sucursal, "
            "   Sch_Concepto, "
            "   Sch_Beneficiario, "
            "   Sch_Tabla, "
            "   Sch_Documento, "
            "   Sch_Referencia, "
            "   Sch_Importe, "
            "   Sch_Tipo_Cambio, "
            "   Sch_Transferencia, "
            "   Sch_Aplicar, "
            "   Sch_Firme, "
            "   Sch_Solicitar_Valor, "
            "   Oper_Alta, "
            "   Fecha_Alta, "
            "   Oper_Ult_Modif, "
            "   Fecha_Ult_Modif, "
            "   Es_Cve_Estado) "
            "VALUES('{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', {}, {}, "
            "'{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}')",
            request_.Sch_Folio, op.data().SqlDate(request_.Sch_Fecha), request_.Tc_Cve_Tipo_Cheque,
            request_.Bc_Cve_Banco_Cuenta, request_.Sucursal.Sc_Cve_Sucursal, request_.Sch_Concepto,
            request_.Sch_Beneficiario, request_.Sch_Tabla, request_.Sch_Documento, request_.Sch_Referencia,
            request_.Sch_Importe, request_.Sch_Tipo_Cambio, request_.Sch_Transferencia, request_.Sch_Aplicar,
            request_.Sch_Firme, request_.Sch_Solicitar_Valor, user, request_stamp_, user, request_stamp_,
            initial_state(op.module()));
    });
}

bool Tesoreria::Add_Solicitud_Cheque_Detalle() {
    return operation(module_, error_, "Cuvexa.dll - Add_Solicitud_Cheque_Detalle()", [&](Operation& op) {
        check_line(op, request_line_, request_.Sch_Folio);
        request_line_.Scd_Id = next_line_id();
        op.relay_unless(Inserta_Solicitud_Cheque_Detalle());
    });
}

bool Tesoreria::Inserta_Solicitud_Cheque_Detalle() {
    return operation(module_, error_, "Inserta_Solicitud_Cheque_Detalle()", [&](Operation& op) {
        const std::string user = op.session().GetUserName();
        op.execute(
            "INSERT INTO Solicitud_Cheque_Detalle("
            "   Sch_Folio, "
            "   Scd_Id, "
            "   Scd_Tabla, "
            "   Scd_Documento, "
            "   Scd_Importe, "
            "   Mn_Cve_Moneda, "
            "   Scd_Tipo_Cambio, "
            "   Oper_Alta, "
            "   Fecha_Alta, "
            "   Oper_Ult_Modif, "
            "   Fecha_Ult_Modif, "
            "   Es_Cve_Estado) "
            "VALUES('{}', '{}', '{}', '{}', {}, '{}', {}, '{}', '{}', '{}', '{}', '{}')",
            request_.Sch_Folio, request_line_.Scd_Id, request_line_.Scd_Tabla, request_line_.Scd_Documento,
            request_line_.Scd_Importe, request_line_.Mn_Cve_Moneda, request_line_.Scd_Tipo_Cambio, user, request_stamp_,
            user, request_stamp_, initial_state(op.module()));
    });
}

}  // namespace cuvexa
